#pragma once

#include <string>

#include "dom/IXMLDOMDocument.h"

namespace zelstudy {

// Loads an update document for a command, with a message for people when it cannot be read or has no
// Data/Objects. False: the command ends with exitFailure.
bool loadUpdate(const std::string& fileName, IXMLDOMDocument& update);

}  // namespace zelstudy

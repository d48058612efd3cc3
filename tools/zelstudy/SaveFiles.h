#pragma once

#include <string>

#include "dom/IXMLDOMDocument.h"
#include "zelstudy/StudySession.h"

namespace zelstudy {

// Whether two paths name one file, be it there yet or not.
bool isSameFile(const std::string& a, const std::string& b);
// Whether an output is another file than `other`; with a message for people when it is not. `option` is how
// the output was given; an empty name is no file.
bool spares(const std::string& option, const std::string& output, const std::string& other);

// Saves the study and the change commands; an empty name leaves that one out. Each file is replaced whole or
// not at all. The commands are written beside their file first, then the study is saved, then the commands
// take their place: so a false result, with the reason in `error`, has changed neither file. The one
// exception is a rename that fails at the very end: the study is saved then, and `error` says under which
// name the commands stand.
bool saveFiles(const StudySession& study, const std::string& studyFile, const IXMLDOMDocument& changes,
               const std::string& changesFile, std::string& error);

}  // namespace zelstudy

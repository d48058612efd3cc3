#pragma once

#include "api/ApiPmRobotFramesData.h"
#include "dom/IXMLDOMDocument.h"

// System frames of robots as elements `frame`.

// A `frame` without `name` is of the older form. False, and the record as it was, for a frame of that form
// without placement; one with `name` and without `location` is the default record. A key or a global id that
// cannot be read is left unset, and extra data of an unknown kind is left out.
bool zelXmlReadRobotFrame(const IXMLDOMNode& element, ApiPmRobotFramesData& frame);
// Fills a new element; false at the first part that cannot be written, those before it stand. That is so for
// an attachment of no kind.
bool zelXmlWriteRobotFrame(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                           const ApiPmRobotFramesData& frame);

#pragma once

#include "api/ApiTbmRoboticParam.h"
#include "dom/IXMLDOMDocument.h"
#include "rt/RTAutoPtr.h"

// Robotic parameters as elements `parameter`. An `xml` value is copied both ways: neither side moves what the
// other holds.

// Null for an unknown `type`, without `id`, and without a `value` that can be read.
RTAutoPtr<ApiTbmRoboticParam> zelXmlReadRoboticParameter(const IXMLDOMNode& element);
// Fills a new element. False for a kind that documents do not hold, and for an `xml` value without element.
bool zelXmlWriteRoboticParameter(const IXMLDOMNode& element, const ApiTbmRoboticParam& parameter);
// Whether a text is the `type` of a kind.
bool zelXmlIsRoboticParameterType(std::string_view type);

#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "dom/IXMLDOMDocument.h"

// Primitive steps on DOM nodes, shared by everything that reads or writes a document. Any handle may be null:
// the operation then answers false. False changes nothing, and leaves results untouched.

// First match of a path below the element, and all matches; an empty list is success.
bool zelXmlSelectChild(const IXMLDOMNode& element, std::string_view path, IXMLDOMNode& child);
bool zelXmlSelectChildren(const IXMLDOMNode& element, std::string_view path, IXMLDOMNodeList& children);

// Appends a new child element, also beside one of the same name.
bool zelXmlAddChild(const IXMLDOMNode& element, std::string_view name, IXMLDOMNode& child);
bool zelXmlGetOrAddChild(const IXMLDOMNode& element, std::string_view name, IXMLDOMNode& child);
// The same, with a new element made by `document`.
bool zelXmlEnsureChild(const IXMLDOMDocument& document, const IXMLDOMNode& element, std::string_view name,
                       IXMLDOMNode& child);
// Appends a new child element with this text, also beside one of the same name.
bool zelXmlAddChildWithText(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                            std::string_view name, std::string_view text);
// A detached node: element (1), attribute (2) or processing instruction (7).
bool zelXmlCreateDomNode(const IXMLDOMDocument& document, int type, std::string_view name, IXMLDOMNode& node);
bool zelXmlAppendChild(const IXMLDOMNode& parent, const IXMLDOMNode& child);
bool zelXmlRemoveChild(const IXMLDOMNode& parent, const IXMLDOMNode& child);
bool zelXmlRemoveFromParent(const IXMLDOMNode& node);
// Removes the first child that the path selects; false without one.
bool zelXmlRemoveNamedChild(const IXMLDOMNode& element, std::string_view name);
bool zelXmlGetParent(const IXMLDOMNode& node, IXMLDOMNode& parent);
bool zelXmlGetNodeName(const IXMLDOMNode& node, std::string& name);

bool zelXmlGetText(const IXMLDOMNode& node, std::string& text);
bool zelXmlGetWideText(const IXMLDOMNode& node, std::string& text);
bool zelXmlSetText(const IXMLDOMNode& node, std::string_view text);
// As zelXmlSetText: with one text encoding throughout no conversion stands between.
bool zelXmlSetWideText(const IXMLDOMNode& node, std::string_view text);
bool zelXmlGetDoubleText(const IXMLDOMNode& node, double& value);
// False, and nothing changed, for a number that is not finite.
bool zelXmlSetDoubleText(const IXMLDOMNode& node, double value);
bool zelXmlGetLongText(const IXMLDOMNode& node, long& value);
bool zelXmlSetIntText(const IXMLDOMNode& node, int value);

bool zelXmlGetAttribute(const IXMLDOMNode& node, std::string_view name, std::string& text);
bool zelXmlSetAttribute(const IXMLDOMNode& element, std::string_view name, std::string_view value);
// The attribute `ExternalId`, empty or not.
bool zelXmlGetExternalId(const IXMLDOMNode& node, std::string& text);

// Text forms of numbers, whatever the locale: doubles with six decimals, read up to the first character that
// is no part of a number. What does not begin with a number reads as 0, "nan" and "inf" too; a number that is
// too large reads as the largest there is.
std::string zelXmlFormatDouble(double value);
double zelXmlParseDouble(std::string_view text);
long zelXmlParseLong(std::string_view text);
// As zelXmlParseLong; false, and `value` untouched, beyond 32 bits.
bool zelXmlParseInt32(std::string_view text, std::int32_t& value);

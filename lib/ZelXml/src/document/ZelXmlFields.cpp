#include "document/ZelXmlFields.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "dom/IXMLDOMElement.h"

// Fields that hold one value each, the attributes of an element, and the fields with a fixed name.

namespace {

// Hands the text of a field to `read`; false for an absent field.
template <class Read>
bool readField(const IXMLDOMNode& element, std::string_view field, Read&& read) {
  std::string buffer;
  std::string_view text;
  if (!element.selectText(field, buffer, text)) return false;
  read(text);
  return true;
}

bool getText(const IXMLDOMNode& element, std::string_view field, std::string& value) {
  return readField(element, field, [&](std::string_view text) { value = text; });
}

bool addText(const IXMLDOMNode& element, std::string_view field, std::string_view value) {
  return zelXmlAddChildWithText(element.ownerDocument(), element, field, value);
}

bool setText(const IXMLDOMDocument& document, const IXMLDOMNode& element, std::string_view field,
             std::string_view text) {
  IXMLDOMNode node;
  return zelXmlEnsureChild(document, element, field, node) && node.putText(text);
}

}  // namespace

bool zelXmlGetBool(const IXMLDOMNode& element, std::string_view field, bool& value) {
  return readField(element, field, [&](std::string_view text) { value = zelXmlParseLong(text) == 1; });
}

bool zelXmlAddBool(const IXMLDOMNode& element, std::string_view field, bool value) {
  return addText(element, field, value ? "1" : "0");
}

bool zelXmlGetInt(const IXMLDOMNode& element, std::string_view field, int& value) {
  return readField(element, field, [&](std::string_view text) {
    using Limits = std::numeric_limits<int>;
    value = static_cast<int>(std::clamp<long>(zelXmlParseLong(text), Limits::min(), Limits::max()));
  });
}

bool zelXmlAddInt(const IXMLDOMNode& element, std::string_view field, int value) {
  return addText(element, field, std::to_string(value));
}

bool zelXmlGetDouble(const IXMLDOMNode& element, std::string_view field, double& value) {
  return readField(element, field, [&](std::string_view text) { value = zelXmlParseDouble(text); });
}

bool zelXmlAddDouble(const IXMLDOMNode& element, std::string_view field, double value) {
  return std::isfinite(value) && addText(element, field, zelXmlFormatDouble(value));
}

bool zelXmlGetString(const IXMLDOMNode& element, std::string_view field, std::string& value) {
  return getText(element, field, value);
}

bool zelXmlAddString(const IXMLDOMNode& element, std::string_view field, std::string_view value) {
  return addText(element, field, value);
}

bool zelXmlGetWideString(const IXMLDOMNode& element, std::string_view field, std::string& value) {
  return getText(element, field, value);
}

bool zelXmlAddWideString(const IXMLDOMNode& element, std::string_view field, std::string_view value) {
  return addText(element, field, value);
}

bool zelXmlGetExternalIdText(const IXMLDOMNode& element, std::string& text) {
  std::string_view value;
  if (!element.getAttribute("ExternalId", value) || value.empty()) return false;
  text = value;
  return true;
}

bool zelXmlGetExternalId(const IXMLDOMNode& element, ApiPmId& id) {
  std::string_view value;
  if (!element.getAttribute("ExternalId", value) || value.empty()) return false;
  id = ApiPmId(value);
  return true;
}

bool zelXmlSetExternalId(const IXMLDOMNode& element, const ApiPmId& id) {
  return !id.isNull() && element.setAttribute("ExternalId", id.text());
}

bool zelXmlGetGlobalId(const IXMLDOMNode& element, ApiGlobalUniqueId& id) {
  std::string_view value;
  if (!element.getAttribute("GUID", value)) return false;
  ApiGlobalUniqueId read(value);
  if (read.isNull()) return false;
  id = std::move(read);
  return true;
}

bool zelXmlSetGlobalId(const IXMLDOMNode& element, const ApiGlobalUniqueId& id) {
  if (!element) return false;
  return id.isNull() || element.setAttribute("GUID", id.getAsString());
}

bool zelXmlGetName(const IXMLDOMNode& element, std::string& text) {
  static const IXMLDOMName name("name");
  std::string buffer;
  std::string_view found;
  if (!element.childText(name, buffer, found)) return false;
  text = found;
  return true;
}

bool zelXmlGetLayoutId(const IXMLDOMNode& element, ApiPmId& id) {
  return readField(element, "layout", [&](std::string_view text) { id = ApiPmId(text); });
}

bool zelXmlGetParentId(const IXMLDOMNode& element, std::string& text) {
  return getText(element, "parent", text);
}

bool zelXmlGetFamily(const IXMLDOMNode& element, std::string& family) {
  return getText(element, "NodeInfo/family", family);
}

bool zelXmlSetFamily(const IXMLDOMDocument& document, const IXMLDOMNode& element, std::string_view family) {
  IXMLDOMNode info;
  return zelXmlEnsureChild(document, element, "NodeInfo", info) && setText(document, info, "family", family);
}

bool zelXmlGetParentPrototype(const IXMLDOMNode& element, std::string& text) {
  return getText(element, "parentPrototype", text);
}

bool zelXmlSetParentPrototype(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                              std::string_view text) {
  return setText(document, element, "parentPrototype", text);
}

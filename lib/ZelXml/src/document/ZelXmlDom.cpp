#include "document/ZelXmlDom.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "dom/IXMLDOMElement.h"

bool zelXmlSelectChild(const IXMLDOMNode& element, std::string_view path, IXMLDOMNode& child) {
  IXMLDOMNode found;
  if (!element.selectSingleNode(path, found)) return false;
  child = std::move(found);
  return true;
}

bool zelXmlSelectChildren(const IXMLDOMNode& element, std::string_view path, IXMLDOMNodeList& children) {
  return element.selectNodes(path, children);
}

bool zelXmlAddChild(const IXMLDOMNode& element, std::string_view name, IXMLDOMNode& child) {
  IXMLDOMNode made = element.ownerDocument().createElement(name);
  if (!element.appendChild(made)) return false;
  child = std::move(made);
  return true;
}

bool zelXmlGetOrAddChild(const IXMLDOMNode& element, std::string_view name, IXMLDOMNode& child) {
  return zelXmlSelectChild(element, name, child) || zelXmlAddChild(element, name, child);
}

bool zelXmlEnsureChild(const IXMLDOMDocument& document, const IXMLDOMNode& element, std::string_view name,
                       IXMLDOMNode& child) {
  if (zelXmlSelectChild(element, name, child)) return true;
  IXMLDOMNode made = document.createElement(name);
  if (!element.appendChild(made)) return false;
  child = std::move(made);
  return true;
}

bool zelXmlAddChildWithText(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                            std::string_view name, std::string_view text) {
  // The text goes in first: one that XML cannot hold then leaves no empty child behind.
  const IXMLDOMNode made = document.createElement(name);
  return made.putText(text) && element.appendChild(made);
}

bool zelXmlCreateDomNode(const IXMLDOMDocument& document, int type, std::string_view name,
                         IXMLDOMNode& node) {
  IXMLDOMNode made = document.createNode(type, name);
  if (!made) return false;
  node = std::move(made);
  return true;
}

bool zelXmlAppendChild(const IXMLDOMNode& parent, const IXMLDOMNode& child) {
  return parent.appendChild(child);
}

bool zelXmlRemoveChild(const IXMLDOMNode& parent, const IXMLDOMNode& child) {
  return parent.removeChild(child);
}

bool zelXmlRemoveFromParent(const IXMLDOMNode& node) { return node.parentNode().removeChild(node); }

bool zelXmlRemoveNamedChild(const IXMLDOMNode& element, std::string_view name) {
  IXMLDOMNode child;
  return element.selectSingleNode(name, child) && element.removeChild(child);
}

bool zelXmlGetParent(const IXMLDOMNode& node, IXMLDOMNode& parent) {
  IXMLDOMNode found = node.parentNode();
  if (!found) return false;
  parent = std::move(found);
  return true;
}

bool zelXmlGetNodeName(const IXMLDOMNode& node, std::string& name) {
  if (!node) return false;
  name = node.nodeName();
  return true;
}

bool zelXmlGetText(const IXMLDOMNode& node, std::string& text) {
  if (!node) return false;
  std::string buffer;
  text = node.textView(buffer);
  return true;
}

bool zelXmlGetWideText(const IXMLDOMNode& node, std::string& text) { return zelXmlGetText(node, text); }
bool zelXmlSetText(const IXMLDOMNode& node, std::string_view text) { return node.putText(text); }
bool zelXmlSetWideText(const IXMLDOMNode& node, std::string_view text) { return node.putText(text); }

bool zelXmlGetDoubleText(const IXMLDOMNode& node, double& value) {
  if (!node) return false;
  std::string buffer;
  value = zelXmlParseDouble(node.textView(buffer));
  return true;
}

bool zelXmlSetDoubleText(const IXMLDOMNode& node, double value) {
  return std::isfinite(value) && node.putText(zelXmlFormatDouble(value));
}

bool zelXmlGetLongText(const IXMLDOMNode& node, long& value) {
  if (!node) return false;
  std::string buffer;
  value = zelXmlParseLong(node.textView(buffer));
  return true;
}

bool zelXmlSetIntText(const IXMLDOMNode& node, int value) { return node.putText(std::to_string(value)); }

bool zelXmlGetAttribute(const IXMLDOMNode& node, std::string_view name, std::string& text) {
  std::string_view value;
  if (!node.getAttribute(name, value)) return false;
  text = value;
  return true;
}

bool zelXmlSetAttribute(const IXMLDOMNode& element, std::string_view name, std::string_view value) {
  return element.setAttribute(name, value);
}

bool zelXmlGetExternalId(const IXMLDOMNode& node, std::string& text) {
  return zelXmlGetAttribute(node, "ExternalId", text);
}

namespace {

bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Takes off white space and a plus sign, which std::from_chars does not know.
std::string_view startOfNumber(std::string_view text) {
  const std::size_t start = text.find_first_not_of(" \t\n\v\f\r");
  if (start == std::string_view::npos) return {};
  text.remove_prefix(start);
  if (text.front() == '+') {
    text.remove_prefix(1);
    if (!text.empty() && text.front() == '-') return {};
  }
  return text;
}

// Whether a decimal number that no double holds is too large, rather than too near to zero.
bool isTooLarge(std::string_view number) {
  long magnitude = 0;  // decimal digits in front of the point; negative for zeros behind it
  bool significant = false, point = false;
  for (const char c : number) {
    if (c == '.') {
      point = true;
    } else if (isDigit(c)) {
      significant = significant || c != '0';
      if (significant && !point) ++magnitude;
      if (!significant && point) --magnitude;
    } else if (c != '-') {
      break;
    }
  }
  const std::size_t exponent = number.find_first_of("eE");
  if (exponent == std::string_view::npos) return magnitude > 0;
  return zelXmlParseLong(number.substr(exponent + 1)) > -magnitude;
}

}  // namespace

std::string zelXmlFormatDouble(double value) {
  char buffer[std::numeric_limits<double>::max_exponent10 + 16];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6).ptr;
  return std::string(buffer, end);
}

double zelXmlParseDouble(std::string_view text) {
  text = startOfNumber(text);
  // The names of infinity and of no number are not read: a single one would spread through every product of
  // placements below it.
  const std::size_t first = text.find_first_not_of("-.");
  if (first == std::string_view::npos || !isDigit(text[first])) return 0;
  double value = 0;
  const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
  if (result.ec != std::errc::result_out_of_range) return value;
  const std::string_view number(text.data(), static_cast<std::size_t>(result.ptr - text.data()));
  const double limit = isTooLarge(number) ? std::numeric_limits<double>::max() : 0;
  return text.front() == '-' ? -limit : limit;
}

bool zelXmlParseInt32(std::string_view text, std::int32_t& value) {
  using Limits = std::numeric_limits<std::int32_t>;
  const long number = zelXmlParseLong(text);
  if (number < Limits::min() || number > Limits::max()) return false;
  value = static_cast<std::int32_t>(number);
  return true;
}

long zelXmlParseLong(std::string_view text) {
  text = startOfNumber(text);
  long value = 0;
  if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc::result_out_of_range)
    return value;
  return text.front() == '-' ? std::numeric_limits<long>::min() : std::numeric_limits<long>::max();
}

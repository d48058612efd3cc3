#include "DomText.h"

#include <algorithm>
#include <cstdint>

#include "dom/IXMLDOMNode.h"

namespace dom {

namespace {

constexpr char32_t broken = ~char32_t{0};
constexpr std::size_t longestName = 50000;  // what the reader takes under any of its settings

bool isSpace(char c) noexcept { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

// Decodes one character and moves `at` behind it. Overlong forms, surrogates and what is above U+10FFFF are
// broken.
char32_t decode(std::string_view text, std::size_t& at) noexcept {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(at);
  if (lead < 0x80) {
    ++at;
    return lead;
  }
  const std::size_t more = lead >= 0xF0 ? 3 : lead >= 0xE0 ? 2 : 1;
  if (lead < 0xC2 || lead > 0xF4 || text.size() - at <= more) return broken;
  char32_t value = lead & (0x3Fu >> more);
  for (std::size_t i = 1; i <= more; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return broken;
    value = (value << 6) | (byte(at + i) & 0x3Fu);
  }
  if (more == 2 && (value < 0x800 || (value >= 0xD800 && value <= 0xDFFF))) return broken;
  if (more == 3 && (value < 0x10000 || value > 0x10FFFF)) return broken;
  at += more + 1;
  return value;
}

struct Range {
  char32_t from, to;
};

constexpr Range nameStart[] = {{':', ':'},       {'A', 'Z'},       {'_', '_'},       {'a', 'z'},
                               {0xC0, 0xD6},     {0xD8, 0xF6},     {0xF8, 0x2FF},    {0x370, 0x37D},
                               {0x37F, 0x1FFF},  {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                               {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}, {0x10000, 0xEFFFF}};
constexpr Range nameMore[] = {{'-', '.'}, {'0', '9'}, {0xB7, 0xB7}, {0x300, 0x36F}, {0x203F, 0x2040}};

template <std::size_t n>
bool in(const Range (&ranges)[n], char32_t c) noexcept {
  return std::any_of(ranges, ranges + n, [c](const Range& r) { return c >= r.from && c <= r.to; });
}

// Takes ` name = "value"` from the front of `text`; what fails takes nothing.
bool takeDeclared(std::string_view& text, std::string_view& name, std::string_view& value) noexcept {
  std::string_view rest = text;
  const auto skip = [&rest] {
    while (!rest.empty() && isSpace(rest.front())) rest.remove_prefix(1);
  };
  skip();
  std::size_t size = 0;
  while (size < rest.size() && rest[size] >= 'a' && rest[size] <= 'z') ++size;
  name = rest.substr(0, size);
  rest.remove_prefix(size);
  skip();
  if (size == 0 || rest.empty() || rest.front() != '=') return false;
  rest.remove_prefix(1);
  skip();
  if (rest.empty() || (rest.front() != '"' && rest.front() != '\'')) return false;
  const std::size_t end = rest.find(rest.front(), 1);
  if (end == std::string_view::npos) return false;
  value = rest.substr(1, end - 1);
  rest.remove_prefix(end + 1);
  if (!rest.empty() && !isSpace(rest.front())) return false;
  text = rest;
  return true;
}

}  // namespace

bool validText(std::string_view text) noexcept {
  if (text.size() > longestText) return false;
  for (std::size_t at = 0; at < text.size();) {
    const auto c = static_cast<unsigned char>(text[at]);
    if (c >= 0x20 && c < 0x80) {
      ++at;
      continue;
    }
    const char32_t value = decode(text, at);
    if (value == broken || value == 0xFFFE || value == 0xFFFF) return false;
    if (value < 0x20 && value != '\t' && value != '\n' && value != '\r') return false;
  }
  return true;
}

bool validName(std::string_view name) noexcept {
  if (name.empty() || name.size() > longestName) return false;
  for (std::size_t at = 0; at < name.size();) {
    const bool first = at == 0;
    const char32_t c = decode(name, at);
    if (c == broken || !(in(nameStart, c) || (!first && in(nameMore, c)))) return false;
  }
  return true;
}

std::string_view declared(std::string_view declaration, std::string_view name) noexcept {
  std::string_view found, value;
  while (takeDeclared(declaration, found, value)) {
    if (found == name) return value;
  }
  return {};
}

bool validDeclaration(std::string_view text) noexcept {
  std::string_view name, value;
  if (text.empty() || isSpace(text.front()) || !takeDeclared(text, name, value) || name != "version")
    return false;
  const bool digits =
      std::all_of(value.begin(), value.end(), [](char c) { return c == '.' || (c >= '0' && c <= '9'); });
  if (value.size() < 3 || value.substr(0, 2) != "1." || !digits ||
      value.find('.', 2) != std::string_view::npos) {
    return false;
  }
  bool more = takeDeclared(text, name, value);
  if (more && name == "encoding") {
    constexpr std::string_view utf8 = "utf-8";
    const auto same = [](char a, char b) { return (a >= 'A' && a <= 'Z' ? a - 'A' + 'a' : a) == b; };
    if (!std::equal(value.begin(), value.end(), utf8.begin(), utf8.end(), same)) return false;
    more = takeDeclared(text, name, value);
  }
  if (more && name == "standalone") {
    if (value != "yes" && value != "no") return false;
    more = false;
  }
  return !more && isBlank(text) && text.find('\r') == std::string_view::npos;
}

bool validValue(int type, std::string_view target, std::string_view value) noexcept {
  const auto has = [value](std::string_view piece) { return value.find(piece) != std::string_view::npos; };
  if (!validText(value)) return false;
  switch (type) {
    case NODE_ATTRIBUTE:
    case NODE_TEXT:
      return true;
    // A carriage return has no escape in these three: it would be read again as a line feed.
    case NODE_CDATA_SECTION:
      return !has("]]>") && !has("\r");
    case NODE_COMMENT:
      return !has("--") && !value.ends_with('-') && !has("\r");
    case NODE_PROCESSING_INSTRUCTION:
      if (target == "xml") return validDeclaration(value);
      return !has("?>") && !has("\r") && (value.empty() || !isSpace(value.front()));
    default:
      return false;
  }
}

bool isBlank(std::string_view text) noexcept { return std::all_of(text.begin(), text.end(), isSpace); }

}  // namespace dom

#include "api/ApiPmIds.h"

#include <uuid/uuid.h>

#include <cstddef>

namespace {

bool isHexDigit(char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F'); }

bool isGuidText(std::string_view text) {
  if (text.size() != 36) return false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool hyphen = i == 8 || i == 13 || i == 18 || i == 23;
    if (hyphen ? text[i] != '-' : !isHexDigit(text[i])) return false;
  }
  return true;
}

// Never destroyed: an id may be made while statics go.
std::function<std::string()>& guidSource() {
  static auto& source = *new std::function<std::string()>;
  return source;
}

std::string textOf(const uuid_t& bytes) {
  char text[UUID_STR_LEN];
  uuid_unparse_lower(bytes, text);
  return text;
}

}  // namespace

ApiGlobalUniqueId::ApiGlobalUniqueId(std::string_view text) {
  if (text.size() >= 2 && text.front() == '{' && text.back() == '}') text = text.substr(1, text.size() - 2);
  if (isGuidText(text)) text_ = text;
}

namespace api {

std::string guidText(const _GUID& guid) {
  // The library takes the numbers with their highest byte first.
  uuid_t bytes;
  std::size_t at = 0;
  const auto put = [&](std::uint32_t number, int size) {
    while (size-- > 0) bytes[at++] = static_cast<unsigned char>(number >> (8 * size));
  };
  put(guid.Data1, 4);
  put(guid.Data2, 2);
  put(guid.Data3, 2);
  for (const std::uint8_t byte : guid.Data4) put(byte, 1);
  return textOf(bytes);
}

std::string newGuidText() {
  if (guidSource()) return guidSource()();
  uuid_t bytes;
  uuid_generate_random(bytes);
  return textOf(bytes);
}

void setGuidSource(std::function<std::string()> source) { guidSource() = std::move(source); }

}  // namespace api

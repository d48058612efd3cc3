#include "zelstudy/Utf8.h"

#include <cstddef>
#include <cstdint>

namespace zelstudy {

namespace {

constexpr std::uint32_t broken = 0xFFFFFFFF;

// The character at `at`, which is moved behind it; `broken` for a sequence that is not well-formed.
std::uint32_t nextCharacter(std::string_view text, std::size_t& at) {
  const auto first = static_cast<unsigned char>(text[at++]);
  if (first < 0x80) return first;
  const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
  if (first < 0xC2 || first > 0xF4 || text.size() - at < more) return broken;
  std::uint32_t character = first & (0x3Fu >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const auto byte = static_cast<unsigned char>(text[at++]);
    if ((byte & 0xC0) != 0x80) return broken;
    character = character << 6 | (byte & 0x3Fu);
  }
  constexpr std::uint32_t least[] = {0, 0x80, 0x800, 0x10000};
  if (character < least[more] || character > 0x10FFFF || (character >= 0xD800 && character <= 0xDFFF))
    return broken;
  return character;
}

}  // namespace

bool isUtf8(std::string_view text) {
  for (std::size_t at = 0; at < text.size();)
    if (nextCharacter(text, at) == broken) return false;
  return true;
}

bool isXmlText(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const std::uint32_t character = nextCharacter(text, at);
    if (character == broken || character == 0xFFFE || character == 0xFFFF) return false;
    if (character < 0x20 && character != '\t' && character != '\n' && character != '\r') return false;
  }
  return true;
}

}  // namespace zelstudy

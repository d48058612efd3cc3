#pragma once

#include <charconv>
#include <cmath>
#include <string_view>
#include <type_traits>

namespace zelstudy {

// Reads the whole text as a decimal number, whatever the locale; false, and `value` untouched, for anything
// else: an empty text, trailing characters, a number out of range or not finite.
template <class Number>
bool readNumber(std::string_view text, Number& value) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  if constexpr (std::is_floating_point_v<Number>)
    if (!std::isfinite(number)) return false;
  value = number;
  return true;
}

// The text without white space around it.
inline std::string_view withoutBlanks(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const std::size_t first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

}  // namespace zelstudy

#include "api/ApiSysFileName.h"

#include <algorithm>
#include <cstddef>

namespace {

bool isSeparator(char c) { return c == '\\' || c == '/'; }

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

bool isSame(char a, char b) { return lower(a) == lower(b) || (isSeparator(a) && isSeparator(b)); }

bool endsDirectory(std::string_view text, std::size_t at) {
  return at == text.size() || isSeparator(text[at]);
}

// Length of the longest directory at the start of both, without separator at its end; a separator alone is
// the root directory.
std::size_t commonLength(std::string_view a, std::string_view b) {
  std::size_t same = 0;
  while (same < a.size() && same < b.size() && isSame(a[same], b[same])) ++same;
  const bool sameRoot = same > 0 && isSeparator(a[0]);
  while (same > 0 && !(endsDirectory(a, same) && endsDirectory(b, same))) --same;
  while (same > 0 && isSeparator(a[same - 1])) --same;
  return same == 0 && sameRoot ? 1 : same;
}

}  // namespace

std::string ApiSysFileName::asString(bool asDirectory) const {
  if (!asDirectory || text_.empty() || isSeparator(text_.back())) return text_;
  const auto used = std::find_if(text_.begin(), text_.end(), isSeparator);
  return text_ + (used == text_.end() ? '\\' : *used);
}

std::string ApiSysFileName::fileName() const { return text_.substr(text_.find_last_of("\\/") + 1); }

ApiSysFileName ApiSysFileName::commonDir(const ApiSysFileName& other) const {
  return ApiSysFileName(std::string_view(text_).substr(0, commonLength(text_, other.text_)));
}

ApiSysFileName ApiSysFileName::relative(const ApiSysFileName& base) const {
  std::string_view directory = base.text_;
  while (directory.size() > 1 && isSeparator(directory.back())) directory.remove_suffix(1);
  if (directory.empty() || commonLength(text_, directory) != directory.size()) return *this;
  std::string_view rest = std::string_view(text_).substr(directory.size());
  while (!rest.empty() && isSeparator(rest.front())) rest.remove_prefix(1);
  return ApiSysFileName(rest);
}

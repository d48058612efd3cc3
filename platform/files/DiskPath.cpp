#include "files/DiskPath.h"

#include <algorithm>

namespace fs = std::filesystem;

fs::path diskPath(std::string_view name) {
  std::u8string text(name.begin(), name.end());
  if constexpr (fs::path::preferred_separator == '/') std::replace(text.begin(), text.end(), u8'\\', u8'/');
  return fs::path(text);
}

std::string diskPathText(const fs::path& path) {
  const std::u8string text = path.u8string();
  return std::string(text.begin(), text.end());
}

#include "zelstudy/TextOutput.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace zelstudy {

std::string printable(std::string_view text) {
  std::string shown;
  shown.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x20) {  // U+2400.. are the signs of the control characters
      shown += "\xE2\x90";
      shown += static_cast<char>(0x80 + byte);
    } else if (byte == 0x7F) {
      shown += "\xE2\x90\xA1";
    } else if (byte == 0xC2 && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0) {
      shown += "\xEF\xBF\xBD";  // the second set of control characters
      ++i;
    } else {
      shown += text[i];
    }
  }
  return shown;
}

std::size_t columns(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (c & 0xC0) != 0x80; }));
}

std::string shortNumber(double number) {
  char text[400];
  std::snprintf(text, sizeof text, "%.6f", number);
  std::string shown = text;
  if (shown.find('.') != std::string::npos) {
    shown.erase(shown.find_last_not_of('0') + 1);
    if (shown.ends_with('.')) shown.pop_back();
  }
  return shown == "-0" ? "0" : shown;
}

std::string locationText(const RTTran3D& location) {
  const RTVec3D place = location.getTranslation(), angles = location.getRotationRPY();
  return "x " + shortNumber(place.x) + "  y " + shortNumber(place.y) + "  z " + shortNumber(place.z) +
         "   roll " + shortNumber(angles.x) + "  pitch " + shortNumber(angles.y) + "  yaw " +
         shortNumber(angles.z);
}

void Table::print(std::ostream& out, std::string_view indent) const {
  std::vector<std::size_t> widths;
  for (const auto& cells : rows_) {
    if (widths.size() < cells.size()) widths.resize(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i) widths[i] = std::max(widths[i], columns(cells[i]));
  }
  for (const auto& cells : rows_) {
    out << indent;
    for (std::size_t i = 0; i < cells.size(); ++i) {
      const std::string gap(widths[i] - columns(cells[i]), ' ');
      const bool right = i < alignRight_.size() && alignRight_[i];
      if (i) out << "  ";
      if (right) out << gap;
      out << cells[i];
      if (!right && i + 1 < cells.size()) out << gap;
    }
    out << '\n';
  }
}

std::string faint(std::string_view text) {
  static const bool styled = isatty(STDOUT_FILENO) && !std::getenv("NO_COLOR");
  return styled ? "\033[2m" + std::string(text) + "\033[0m" : std::string(text);
}

}  // namespace zelstudy

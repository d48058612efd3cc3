#include "document/ZelXmlFrameText.h"

#include <charconv>
#include <cmath>
#include <cstddef>

#include "document/ZelXmlDom.h"

std::string zelXmlFormatFrameNumber(double value) {
  if (value == 0 || !std::isfinite(value)) return "0.";
  char buffer[32];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 10).ptr;
  std::string text(buffer, end);
  if (text.find('.') == std::string::npos) {
    const std::size_t exponent = text.find('e');
    text.insert(exponent == std::string::npos ? text.size() : exponent, 1, '.');
  }
  return text;
}

std::string zelXmlFormatFrameText(const RTTran3D& location) {
  const RTVec3D translation = location.getTranslation();
  const RTVec3D rotation = location.getRotationRPY();
  std::string text;
  for (int i = 0; i < 6; ++i) {
    if (i > 0) text += '_';
    text += zelXmlFormatFrameNumber(i < 3 ? translation[i] : rotation[i - 3]);
  }
  return text;
}

RTTran3D zelXmlParseFrameText(std::string_view text) {
  RTVec3D vectors[2];
  double number = 0;
  bool more = true;
  for (int i = 0; i < 6; ++i) {
    if (more) {
      const std::size_t end = text.find('_');
      number = zelXmlParseDouble(text.substr(0, end));
      more = end != std::string_view::npos;
      if (more) text.remove_prefix(end + 1);
    }
    vectors[i / 3][i % 3] = number;
  }
  return RTTran3D(vectors[0], vectors[1]);
}

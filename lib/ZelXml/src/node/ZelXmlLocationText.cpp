#include "node/ZelXmlLocationText.h"

#include "document/ZelXmlDom.h"

std::string zelXmlLocationText(const RTTran3D& location) {
  const RTVec3D translation = location.getTranslation();
  const RTVec3D rotation = location.getRotationRPY();
  std::string text;
  for (int i = 0; i < 6; ++i) {
    std::string number = zelXmlFormatDouble(i < 3 ? translation[i] : rotation[i - 3]);
    if (number == "-0.000000") number.erase(0, 1);
    number.erase(number.find_last_not_of('0') + 1);
    if (i > 0) text += '_';
    text += number;
  }
  return text;
}

void zelXmlParseLocationText(std::string_view text, RTTran3D& location) {
  double numbers[6];
  for (int i = 0; i < 6; ++i) {
    const std::size_t end = text.find('_');
    if (end == std::string_view::npos && i < 5) return;
    numbers[i] = zelXmlParseDouble(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  location = RTTran3D({numbers[0], numbers[1], numbers[2]}, {numbers[3], numbers[4], numbers[5]});
}

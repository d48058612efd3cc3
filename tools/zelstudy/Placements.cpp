#include "zelstudy/Placements.h"

#include <algorithm>
#include <cmath>

#include "document/ZelXmlItems.h"
#include "zelstudy/Numbers.h"

namespace zelstudy {

namespace {

// Locations are texts of six decimals. One edit rounds once, and many edits of one object add up; so the
// tolerances are far above a rounding and far below what anyone places by. An error of angle moves what is
// far away by more, hence the part that grows with distance.
constexpr double lengthTolerance = 1e-3, lengthPerDistance = 1e-5, angleTolerance = 1e-4;

bool readGivenNumber(const IXMLDOMElement& element, double& value) {
  std::string buffer;
  const std::string_view digits = withoutBlanks(element.textView(buffer));
  value = 0;
  return digits.empty() || readNumber(digits, value);
}

bool readThree(const IXMLDOMElement& layout, std::string_view list, RTVec3D& vector) {
  int count = 0;
  bool reads = true;
  zelXmlVisitItems(layout, list, [&](const IXMLDOMElement& item) {
    reads = count < 3 && readGivenNumber(item, vector[count]);
    ++count;
    return reads;
  });
  return reads && count == 3;
}

}  // namespace

std::optional<RTTran3D> readRelative(const IXMLDOMElement& layout) {
  RTVec3D location, rotation;
  if (!readThree(layout, "location", location) || !readThree(layout, "rotation", rotation)) return {};
  return RTTran3D(location, rotation);
}

std::optional<RTTran3D> readAbsolute(const IXMLDOMElement& layout) {
  IXMLDOMNode holder;
  if (!layout || !layout.selectSingleNode("NodeInfo/absoluteLocation", holder)) return {};
  constexpr std::string_view axes[] = {"x", "y", "z", "rx", "ry", "rz"};
  RTVec3D location, rotation;
  for (int axis = 0; axis < 6; ++axis) {
    IXMLDOMNode field;
    if (!holder.selectSingleNode(axes[axis], field) ||
        !readGivenNumber(field, (axis < 3 ? location : rotation)[axis % 3]))
      return {};
  }
  return RTTran3D(location, rotation);
}

double reach(const RTVec3D& v) { return std::max({std::abs(v.x), std::abs(v.y), std::abs(v.z)}); }

bool isSameButForRounding(const RTTran3D& a, const RTTran3D& b, double distance) {
  return a.isNear(b, lengthTolerance + lengthPerDistance * distance, angleTolerance);
}

}  // namespace zelstudy

#include "document/ZelXmlTransforms.h"

#include <cmath>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "api/ApiPmIds.h"
#include "document/ZelXmlFields.h"
#include "document/ZelXmlItems.h"
#include "document/ZelXmlLookup.h"
#include "dom/IXMLDOMElement.h"

namespace {

constexpr std::string_view LOCATION_ITEMS = "location/item";
constexpr std::string_view ROTATION_ITEMS = "rotation/item";
constexpr std::string_view ABSOLUTE_LOCATION = "NodeInfo/absoluteLocation";

// A change smaller than this, in length units and in radians, is rounding and no move. A document holds six
// decimals, so the smallest move that it can show is a thousand times larger; a difference of placements that
// ought to be equal is about 1e-16 of their size, and reaches this only a million length units away.
constexpr double SMALLEST_MOVE = 1e-9;

// A number of a placement. What rounds to zero is written without a sign: a placement that is read, inverted
// and written back shall give the same text.
bool putNumber(const IXMLDOMNode& node, double value) {
  const std::string text = zelXmlFormatDouble(value);
  return node.putText(text == "-0.000000" ? std::string_view(text).substr(1) : text);
}

bool getNumber(const IXMLDOMNode& group, std::string_view name, double& value) {
  std::string buffer;
  std::string_view text;
  if (!group.selectText(name, buffer, text)) return false;
  value = zelXmlParseDouble(text);
  return true;
}

bool putNumberOf(const IXMLDOMNode& group, std::string_view name, double value) {
  IXMLDOMNode node;
  return group.selectSingleNode(name, node) && putNumber(node, value);
}

RTTran3D transformOf(const RTVec3D& translation, const RTVec3D& rotation) {
  RTTran3D transform;
  transform.setTranslation(translation);
  transform.setRotationRPY(rotation);
  return transform;
}

bool isFinite(const RTVec3D& vector) {
  return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}

}  // namespace

bool zelXmlIsFinite(const RTTran3D& transform) {
  return isFinite(transform.getTranslation()) && isFinite(transform.getRotationRPY());
}

bool zelXmlGetVec3(const IXMLDOMNode& element, std::string_view listPath, RTVec3D& vector) {
  // "location/item" is what is nearly always asked for: walking the list itself saves the snapshot.
  constexpr std::string_view tail = "/item";
  if (listPath.ends_with(tail) && listPath.find('/') == listPath.size() - tail.size()) {
    std::string buffer;
    int next = 0;
    return zelXmlVisitItems(element, listPath.substr(0, listPath.size() - tail.size()),
                            [&](const IXMLDOMElement& item) {
                              vector[next++] = zelXmlParseDouble(item.textView(buffer));
                              return next < 3;
                            });
  }
  IXMLDOMNodeList items;
  if (!element.selectNodes(listPath, items)) return false;
  for (int i = 0; i < 3 && i < items.length(); ++i)
    if (!zelXmlGetDoubleText(items.item(i), vector[i])) return false;
  return true;
}

bool zelXmlSetVec3(const IXMLDOMNode& element, std::string_view listPath, const RTVec3D& vector) {
  if (!isFinite(vector)) return false;
  IXMLDOMNodeList items;
  if (!element.selectNodes(listPath, items)) return true;
  for (int i = 0; i < 3; ++i)
    if (!putNumber(items.item(i), vector[i])) return false;
  return true;
}

bool zelXmlGetTransformPaths(const IXMLDOMNode& element, std::string_view locationPath,
                             std::string_view rotationPath, RTTran3D& transform) {
  RTVec3D translation, rotation;
  if (!zelXmlGetVec3(element, locationPath, translation)) return false;
  if (!zelXmlGetVec3(element, rotationPath, rotation)) return false;
  transform = transformOf(translation, rotation);
  return true;
}

bool zelXmlSetTransformPaths(const IXMLDOMNode& element, std::string_view locationPath,
                             std::string_view rotationPath, const RTTran3D& transform) {
  return zelXmlIsFinite(transform) && zelXmlSetVec3(element, locationPath, transform.getTranslation()) &&
         zelXmlSetVec3(element, rotationPath, transform.getRotationRPY());
}

bool zelXmlGetTransform(const IXMLDOMNode& element, std::string_view field, RTTran3D& transform) {
  IXMLDOMNode node;
  return element.selectSingleNode(field, node) &&
         zelXmlGetTransformPaths(node, LOCATION_ITEMS, ROTATION_ITEMS, transform);
}

bool zelXmlAddTransform(const IXMLDOMNode& element, std::string_view field, const RTTran3D& transform) {
  IXMLDOMNode node, list;
  return zelXmlIsFinite(transform) && zelXmlAddChild(element, field, node) &&
         zelXmlAddVec3List(node, "location", list) && zelXmlAddVec3List(node, "rotation", list) &&
         zelXmlSetTransformPaths(node, LOCATION_ITEMS, ROTATION_ITEMS, transform);
}

bool zelXmlGetTranslation(const IXMLDOMNode& element, std::string_view field, RTVec3D& translation) {
  IXMLDOMNode node;
  return element.selectSingleNode(field, node) && zelXmlGetVec3(node, LOCATION_ITEMS, translation);
}

bool zelXmlAddTranslation(const IXMLDOMNode& element, std::string_view field, const RTVec3D& translation) {
  IXMLDOMNode node, list;
  return isFinite(translation) && zelXmlAddChild(element, field, node) &&
         zelXmlAddVec3List(node, "location", list) && zelXmlSetVec3(node, LOCATION_ITEMS, translation);
}

bool zelXmlAddVec3List(const IXMLDOMNode& element, std::string_view name, IXMLDOMNode& list) {
  IXMLDOMNode made, item;
  if (!zelXmlAddChild(element, name, made)) return false;
  for (int i = 0; i < 3; ++i)
    if (!zelXmlAddChild(made, "item", item)) return false;
  list = std::move(made);
  return true;
}

bool zelXmlGetLayoutTransform(const IXMLDOMNode& layout, RTTran3D& transform) {
  return zelXmlGetTransformPaths(layout, LOCATION_ITEMS, ROTATION_ITEMS, transform);
}

bool zelXmlSetLayoutTransform(const IXMLDOMNode& layout, const RTTran3D& transform) {
  return zelXmlSetTransformPaths(layout, LOCATION_ITEMS, ROTATION_ITEMS, transform);
}

bool zelXmlGetAbsoluteLocation(const IXMLDOMNode& layout, RTTran3D& transform) {
  IXMLDOMNode group;
  RTVec3D translation, rotation;
  if (!layout.selectSingleNode(ABSOLUTE_LOCATION, group)) return false;
  if (!getNumber(group, "x", translation.x) || !getNumber(group, "y", translation.y) ||
      !getNumber(group, "z", translation.z) || !getNumber(group, "rx", rotation.x) ||
      !getNumber(group, "ry", rotation.y) || !getNumber(group, "rz", rotation.z))
    return false;
  transform = transformOf(translation, rotation);
  return true;
}

bool zelXmlSetAbsoluteLocation(const IXMLDOMNode& layout, const RTTran3D& transform) {
  IXMLDOMNode group;
  if (!zelXmlIsFinite(transform) || !layout.selectSingleNode(ABSOLUTE_LOCATION, group)) return false;
  const RTVec3D translation = transform.getTranslation();
  const RTVec3D rotation = transform.getRotationRPY();
  return putNumberOf(group, "x", translation.x) && putNumberOf(group, "y", translation.y) &&
         putNumberOf(group, "z", translation.z) && putNumberOf(group, "rx", rotation.x) &&
         putNumberOf(group, "ry", rotation.y) && putNumberOf(group, "rz", rotation.z);
}

namespace {

// The walk below a moved layout, with its own stack: a tree may be far deeper than the call stack allows. It
// notes the new placements and writes none, so that one that no number can hold leaves all as they were.
class Propagation {
 public:
  explicit Propagation(const IXMLDOMDocument& document) : document_(document) {}

  // False when a placement would not be finite.
  bool walk(const IXMLDOMNode& layout, const RTTran3D& absolute) {
    if (!enter(layout, absolute)) return false;
    while (!path_.empty()) {
      Frame& frame = path_.back();
      if (frame.next == frame.children.entries()) {
        roads_[placed_[frame.placed].first.identity()].open = false;
        path_.pop_back();
        continue;
      }
      IXMLDOMNode child;
      RTTran3D relative;
      if (!zelXmlFindNodeById(document_, frame.children[frame.next++], child)) continue;
      if (!zelXmlGetLayoutTransform(child, relative)) continue;
      if (!enter(child, placed_[frame.placed].second * relative)) return false;
    }
    return true;
  }

  bool write() const {
    for (const auto& [layout, absolute] : placed_)
      if (!zelXmlSetAbsoluteLocation(layout, absolute)) return false;
    return true;
  }

 private:
  // A layout that several others list is reached on several roads, and the last one places it. It is left
  // alone when it stands on the road to itself, and when it has been reached more often than any list of an
  // editor leads to: the number of roads through a made-up document may grow without bound.
  static constexpr int MOST_ROADS = 64;

  struct Frame {
    std::size_t placed;  // which of the placements
    ApiPmIdList children;
    std::size_t next = 0;
  };
  struct Roads {
    int count = 0;
    bool open = false;  // on the road from the moved layout to the current one
  };

  bool enter(const IXMLDOMNode& layout, const RTTran3D& absolute) {
    Roads& roads = roads_[layout.identity()];
    if (roads.open || roads.count == MOST_ROADS) return true;
    if (!zelXmlIsFinite(absolute)) return false;
    roads = {roads.count + 1, true};
    path_.push_back({placed_.size(), {}, 0});
    placed_.emplace_back(layout, absolute);
    zelXmlGetChildIds(layout, path_.back().children);
    return true;
  }

  const IXMLDOMDocument& document_;
  std::vector<std::pair<IXMLDOMNode, RTTran3D>> placed_;  // in the order of the walk
  std::vector<Frame> path_;
  std::unordered_map<const void*, Roads> roads_;
};

}  // namespace

bool zelXmlMoveLayout(const IXMLDOMDocument& document, const IXMLDOMNode& layout, const RTTran3D& delta) {
  if (!zelXmlIsFinite(delta)) return false;
  if (delta.isNear(RTTran3D::unit, SMALLEST_MOVE, SMALLEST_MOVE)) return true;
  RTTran3D relative, absolute;
  if (!zelXmlGetLayoutTransform(layout, relative)) return false;
  Propagation below(document);
  const bool placed = zelXmlGetAbsoluteLocation(layout, absolute);
  if (placed && !below.walk(layout, absolute * delta)) return false;
  return zelXmlSetLayoutTransform(layout, relative * delta) && placed && below.write();
}

bool zelXmlPlaceLayout(const IXMLDOMDocument& document, const IXMLDOMNode& layout, const RTTran3D& relative,
                       const RTTran3D& absolute) {
  Propagation below(document);
  return below.walk(layout, absolute) && zelXmlSetLayoutTransform(layout, relative) && below.write();
}

bool zelXmlCanPropagateAbsoluteLocation(const IXMLDOMDocument& document, const IXMLDOMNode& layout,
                                        const RTTran3D& absolute) {
  return Propagation(document).walk(layout, absolute);
}

bool zelXmlPropagateAbsoluteLocation(const IXMLDOMDocument& document, const IXMLDOMNode& layout,
                                     const RTTran3D& absolute) {
  Propagation below(document);
  return below.walk(layout, absolute) && below.write();
}

bool zelXmlGetRelativeTransform(const IXMLDOMNode& layout, const IXMLDOMNode& base, RTTran3D& transform) {
  RTTran3D absolute, absoluteBase;
  if (!zelXmlGetAbsoluteLocation(layout, absolute) || !zelXmlGetAbsoluteLocation(base, absoluteBase))
    return false;
  transform = absoluteBase.inverse() * absolute;
  return true;
}

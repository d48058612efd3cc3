#include <algorithm>
#include <cmath>

#include "document/ZelXmlFieldRows.h"
#include "rw/RWTextHash.h"
#include "zelstudy/CheckModel.h"
#include "zelstudy/Numbers.h"

// What can be told of the fields of one object: references that name nothing, numbers that do not read.

namespace zelstudy {

namespace {

enum class Role : std::uint8_t { children, parents, info, labels, layout, node, parent, link, plain, number };

bool isLayout(CheckKind kind) { return kind == CheckKind::layout || kind == CheckKind::studyLayout; }

}  // namespace

struct CheckModel::Field {
  Role role = Role::plain;
  ZelFieldReference lost;
  std::string_view name;
};

// What the rows of the fields say, and the part in which a rule sees those that it looks at.
const CheckModel::Field* CheckModel::findField(std::string_view name) {
  static const auto byName = [] {
    const std::unordered_map<std::string_view, Role, RWTextHash> roles = {
        {"children", Role::children}, {"parents", Role::parents},     {"info", Role::info},
        {"labels", Role::labels},     {"layout", Role::layout},       {"node", Role::node},
        {"parent", Role::parent},     {"linkExternalID", Role::link},
    };
    std::unordered_map<std::string_view, Field, RWTextHash> map;
    for (const ZelFieldGroup& group : zelXmlFieldGroups()) {
      for (const ZelFieldInfo& row : group.rows) {
        const auto role = roles.find(row.name);
        if (row.place != ZelFieldPlace::element) continue;
        if (row.type == ZelFieldType::number) {
          map.emplace(row.name, Field{Role::number, row.reference, row.name});
        } else if (row.reference != ZelFieldReference::noReference) {
          map.emplace(row.name,
                      Field{role == roles.end() ? Role::plain : role->second, row.reference, row.name});
        }
      }
    }
    return map;
  }();
  const auto found = byName.find(name);
  return found == byName.end() ? nullptr : &found->second;
}

void CheckModel::readObject(std::uint32_t index) {
  DomView nodeInfo;
  for (DomView child = objects_[index].element.firstElementChild(); child;
       child = child.nextElementSibling()) {
    const std::string_view name = child.nodeName();
    if (name == "NodeInfo") {
      nodeInfo = child;
    } else if (name == "noteLocation" && objects_[index].kind == CheckKind::label) {
      checkLabelLocation(index, child);
    } else if (const Field* field = findField(name)) {
      readField(index, *field, child);
    }
  }
  for (DomView child = nodeInfo.firstElementChild(); child; child = child.nextElementSibling())
    if (child.nodeName() == "Id") checkNumber(index, "NodeInfo/Id", child, true);
  if (isLayout(objects_[index].kind)) readPlacement(index, nodeInfo);
}

void CheckModel::readField(std::uint32_t index, const Field& field, DomView element) {
  CheckObject& object = objects_[index];
  const auto readOne = [&](CheckRef& ref) {
    ref = readReference(element);
    if (ref.isLost() && field.lost != ZelFieldReference::structural) reportLost(index, field, ref);
  };
  const auto readMany = [&](CheckList& list) {
    list = readList(element);
    if (field.lost == ZelFieldReference::structural || isLayout(object.kind)) return;
    for (std::uint32_t i = 0; i < list.count; ++i)
      if (const CheckRef ref = refs_[list.first + i]; ref.isLost()) reportLost(index, field, ref);
  };
  switch (field.role) {
    case Role::children:
      return readMany(object.children);
    case Role::parents:
      return readMany(object.parents);
    case Role::info:
      if (object.kind == CheckKind::study) readMany(object.info);
      return;
    case Role::labels:
      return readMany(object.labels);
    case Role::layout:
      return readOne(object.layout);
    case Role::node:
      if (isLayout(object.kind) || object.kind == CheckKind::label) readOne(object.node);
      return;
    case Role::parent:
      if (!isLayout(object.kind) && object.kind != CheckKind::shortcut) return;
      object.parentIsEmpty = text(element).empty();
      return readOne(object.parent);
    case Role::link:
      if (object.kind == CheckKind::shortcut) readOne(object.link);
      return;
    case Role::number:
      return checkNumber(index, field.name, element, false);
    case Role::plain:
      break;
  }
  if (field.name == "file" && object.kind != CheckKind::threeDRep) return;
  const DomView first = element.firstElementChild();
  if (first && first.nodeName() == "item") {
    CheckList list;
    readMany(list);
    refs_.resize(list.first);  // no rule asks for it again
    return;
  }
  CheckRef ref;
  readOne(ref);
  if (field.name == "parentPrototype") object.parentPrototype = ref;
}

void CheckModel::reportLost(std::uint32_t index, const Field& field, CheckRef ref) {
  const std::string& id = lostId(ref);
  const std::string names = name(index) + " names " + shown(id) + " in " + std::string(field.name) + ", ";
  if (namesElement(id)) {
    report(Rule::referenceOther, index, field.name, names + "which is an element within an object", {id});
    return;
  }
  const Rule rule = field.lost == ZelFieldReference::firm         ? Rule::reference
                    : field.lost == ZelFieldReference::leftBehind ? Rule::referenceLeft
                                                                  : Rule::referenceOther;
  report(rule, index, field.name, names + "and no object has that id", {id});
}

bool CheckModel::readNumber(std::uint32_t index, std::string_view field, DomView element, double& value) {
  const std::string_view digits = withoutBlanks(text(element));
  value = 0;
  if (digits.empty() || zelstudy::readNumber(digits, value)) return true;
  report(Rule::number, index, field,
         name(index) + " has " + shown(digits) + " in " + std::string(field) + ", which is no number");
  return false;
}

void CheckModel::checkNumber(std::uint32_t index, std::string_view field, DomView element, bool whole) {
  double value = 0;
  if (!readNumber(index, field, element, value) || !whole) return;
  if (value != std::trunc(value))
    report(Rule::number, index, field,
           name(index) + " has " + shown(text(element)) + " in " + std::string(field) +
               ", which is no whole number");
}

// Six numbers joined by "_".
void CheckModel::checkLabelLocation(std::uint32_t index, DomView element) {
  std::string_view rest = text(element);
  if (rest.empty()) return;
  int parts = 0;
  bool reads = true;
  for (bool more = true; more && reads; ++parts) {
    const std::size_t end = rest.find('_');
    double value = 0;
    reads = zelstudy::readNumber(rest.substr(0, end), value);
    more = end != std::string_view::npos;
    if (more) rest.remove_prefix(end + 1);
  }
  if (!reads || parts != 6)
    report(Rule::number, index, "noteLocation",
           name(index) + " has " + shown(text(element)) +
               " in noteLocation, which are not six numbers joined by \"_\"");
}

bool CheckModel::readVector(std::uint32_t index, std::string_view field, DomView list, RTVec3D& vector) {
  int count = 0;
  bool reads = true;
  for (DomView item = list.firstElementChild(); item; item = item.nextElementSibling()) {
    if (item.nodeName() != "item") continue;
    double value = 0;
    reads = readNumber(index, field, item, value) && reads;
    if (count < 3) vector[count] = value;
    ++count;
  }
  if (count != 3)
    report(
        Rule::location, index, field,
        name(index) + " has " + std::to_string(count) + " numbers in " + std::string(field) + ", not three");
  return reads && count == 3;
}

void CheckModel::readPlacement(std::uint32_t index, DomView nodeInfo) {
  CheckPlacement placement;
  DomView location, rotation, absolute;
  for (DomView child = objects_[index].element.firstElementChild(); child;
       child = child.nextElementSibling()) {
    if (child.nodeName() == "location") location = child;
    if (child.nodeName() == "rotation") rotation = child;
  }
  const bool placed = readVector(index, "location", location, placement.location);
  placement.relative = readVector(index, "rotation", rotation, placement.rotation) && placed;

  if (objects_[index].kind == CheckKind::layout) {
    for (DomView child = nodeInfo.firstElementChild(); child; child = child.nextElementSibling())
      if (child.nodeName() == "absoluteLocation") absolute = child;
    constexpr std::string_view axes[] = {"x", "y", "z", "rx", "ry", "rz"};
    unsigned found = 0;
    bool reads = true;
    for (DomView child = absolute.firstElementChild(); child; child = child.nextElementSibling()) {
      for (int axis = 0; axis < 6; ++axis) {
        if (child.nodeName() != axes[axis]) continue;
        double value = 0;
        reads = readNumber(index, "NodeInfo/absoluteLocation", child, value) && reads;
        (axis < 3 ? placement.absoluteLocation : placement.absoluteRotation)[axis % 3] = value;
        found |= 1U << axis;
      }
    }
    placement.absolute = reads && found == 0x3F;
    if (found != 0x3F)
      report(Rule::location, index, "NodeInfo/absoluteLocation",
             name(index) + " lacks numbers in NodeInfo/absoluteLocation");
  }
  objects_[index].placement = static_cast<std::uint32_t>(placements_.size());
  placements_.push_back(placement);
}

}  // namespace zelstudy

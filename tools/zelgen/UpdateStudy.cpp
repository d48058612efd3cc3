#include "UpdateStudy.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "document/ZelXmlFields.h"
#include "document/ZelXmlItems.h"

namespace zelgen {
namespace {

// Further out the arithmetic in millionths would not be exact any more.
constexpr double kFarthest = 1e9, kMostTurned = 100;

bool readMillionths(const IXMLDOMNode& field, double most, Millionths& value) {
  if (!field) return false;
  const double number = zelXmlParseDouble(field.text());
  if (std::fabs(number) > most) return false;
  value = std::llround(number * 1e6);
  return true;
}

bool readVector(const IXMLDOMNode& layout, std::string_view list, double most, Millionths* values) {
  int read = 0;
  bool good = true;
  zelXmlVisitItems(layout, list, [&](const IXMLDOMElement& item) {
    good = read < 3 && readMillionths(item, most, values[read++]);
    return good;
  });
  return good && read == 3;
}

}  // namespace

std::vector<std::string> itemsOf(const IXMLDOMNode& object, std::string_view list) {
  std::vector<std::string> items;
  zelXmlVisitItems(object, list, [&](const IXMLDOMElement& item) {
    items.push_back(item.text());
    return true;
  });
  return items;
}

std::string textOf(const IXMLDOMNode& object, std::string_view path) {
  IXMLDOMNode found;
  return object.selectSingleNode(path, found) ? found.text() : std::string();
}

UpdateStudy::UpdateStudy(const IXMLDOMDocument& study) {
  IXMLDOMNodeList sections;
  study.selectNodes("Data/Objects", sections);
  for (const IXMLDOMNode& section : sections) {
    for (IXMLDOMElement each = section.firstElementChild(); each; each = each.nextElementSibling()) {
      add(each);
    }
  }
  findCompounds();
  findMembers();
  for (Index i = 0; i < objects.size(); ++i) findWanted(i, objects[i].element, {});
}

UpdateStudy::Index UpdateStudy::find(std::string_view id) const {
  const auto found = index_.find(id);
  return found == index_.end() ? kNone : found->second;
}

void UpdateStudy::add(const IXMLDOMElement& element) {
  std::string_view id;
  // Of several objects with one id a reference finds the first.
  if (!element.getAttribute("ExternalId", id) || !zelXmlIsReference(id)) return;
  if (!index_.emplace(id, static_cast<Index>(objects.size())).second) return;
  Object object;
  object.element = element;
  object.id = id;
  const long number = zelXmlParseLong(textOf(element, "NodeInfo/Id"));
  if (number > 0) lastNumber = std::max(lastNumber, static_cast<std::uint64_t>(number));
  if (element.nodeName() == "PmLayout") place(object);
  objects.push_back(std::move(object));
}

void UpdateStudy::place(Object& layout) {
  Millionths relative[6] = {}, absolute[6] = {};
  layout.isPlaced = readVector(layout.element, "location", kFarthest, relative) &&
                    readVector(layout.element, "rotation", kMostTurned, relative + 3);
  IXMLDOMNode holder;
  layout.isPlaced &= layout.element.selectSingleNode("NodeInfo/absoluteLocation", holder);
  constexpr std::string_view kFields[] = {"x", "y", "z", "rx", "ry", "rz"};
  for (std::size_t i = 0; i < 6 && layout.isPlaced; ++i) {
    IXMLDOMNode field;
    layout.isPlaced = holder.selectSingleNode(kFields[i], field) &&
                      readMillionths(field, i < 3 ? kFarthest : kMostTurned, absolute[i]);
  }
  const auto placement = [](const Millionths* v) { return Placement{v[0], v[1], v[2], v[3], v[4], v[5]}; };
  layout.relative = placement(relative);
  layout.absolute = placement(absolute);
}

void UpdateStudy::findCompounds() {
  for (Index i = 0; i < objects.size(); ++i) {
    Object& object = objects[i];
    if (object.isPlaced) object.parentLayout = find(textOf(object.element, "parent"));
    const std::string family = textOf(object.element, "NodeInfo/family");
    if (family != "Product" && family != "Resource") continue;
    const Index layout = find(textOf(object.element, "layout"));
    if (layout != kNone && objects[layout].isPlaced && textOf(objects[layout].element, "node") == object.id) {
      object.layout = layout;
    }
    const std::string_view name = object.element.nodeName();
    const bool isCompound = name == "PmCompoundPart" || name == "PmCompoundResource";
    IXMLDOMNode child;
    object.isLeaf = !isCompound && !object.element.selectSingleNode("children/item", child);
    if (!isCompound || object.layout == kNone) continue;
    object.compound = name == "PmCompoundPart" ? Kind::Parts : Kind::Resources;
    compounds[static_cast<std::size_t>(object.compound)].push_back(i);
  }
}

void UpdateStudy::findMembers() {
  // Each child's parents in the order of its own list; a compound's children in a set of their own, since a
  // compound may hold very many.
  std::unordered_map<std::uint64_t, bool> held;
  const auto pair = [](Index parent, Index child) { return (std::uint64_t{parent} << 32) | child; };
  for (const auto& kind : compounds) {
    for (const Index parent : kind) {
      for (const std::string& id : itemsOf(objects[parent].element, "children")) {
        const Index child = find(id);
        if (child != kNone && child != parent) held.emplace(pair(parent, child), false);
      }
    }
  }
  for (Index i = 0; i < objects.size(); ++i) {
    const std::string family = textOf(objects[i].element, "NodeInfo/family");
    if (family != "Product" && family != "Resource") continue;
    for (const std::string& id : itemsOf(objects[i].element, "parents")) {
      ++objects[i].parentItems;
      const auto link = held.find(pair(find(id), i));
      if (link == held.end() || std::exchange(link->second, true)) continue;
      objects[i].parents.push_back(find(id));
    }
    if (!objects[i].parents.empty()) members.push_back(i);
  }
}

/// `field` is the field of the object that `element` stands in; empty for the object itself.
void UpdateStudy::findWanted(Index from, const IXMLDOMElement& element, std::string_view field) {
  IXMLDOMElement child = element.firstElementChild();
  for (; child; child = child.nextElementSibling()) {
    const std::string_view inside = field.empty() ? child.nodeName() : field;
    if (child.firstElementChild()) {
      findWanted(from, child, inside);
      continue;
    }
    std::string buffer;
    const Index target = find(child.textView(buffer));
    if (target == kNone || target == from) continue;
    Object& object = objects[target];
    const bool isParent =
        inside == "children" && (object.element.nodeName() == "PmLayout" ||
                                 std::count(object.parents.begin(), object.parents.end(), from));
    const bool isLayout = inside == "node" && object.layout == from;
    const bool isOwner = inside == "layout" && objects[from].layout == target;
    const bool isBelow = inside == "parent" || inside == "parents";
    if (!isParent && !isLayout && !isOwner && !isBelow) object.isWanted = true;
  }
}

}  // namespace zelgen

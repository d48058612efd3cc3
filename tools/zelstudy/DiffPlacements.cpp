#include "zelstudy/DiffPlacements.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "document/ZelXmlFields.h"
#include "document/ZelXmlLookup.h"
#include "zelstudy/Placements.h"

namespace zelstudy {

namespace {

using Index = DiffModel::Index;
constexpr std::string_view absolutePath = "NodeInfo/absoluteLocation";

}  // namespace

LayoutFields::LayoutFields(const DiffModel::Pair& pair)
    : readable(readRelative(pair.before()) && readRelative(pair.after())),
      absolute(readable && readAbsolute(pair.before()) && readAbsolute(pair.after())) {}

bool LayoutFields::covers(std::string_view path) const {
  if (readable && (path == "location" || path == "rotation")) return true;
  constexpr std::string_view axes[] = {"/x", "/y", "/z", "/rx", "/ry", "/rz"};
  return absolute && path.starts_with(absolutePath) &&
         std::find(std::begin(axes), std::end(axes), path.substr(absolutePath.size())) != std::end(axes);
}

// One version of a layout.
struct DiffPlacements::Stand {
  Stand(const DiffModel& model, DiffModel::Side side, const IXMLDOMElement& element)
      : layout(element),
        relative(readRelative(element)),
        absolute(readAbsolute(element)),
        parent(childText(element, "parent")) {
    if (!zelXmlIsReference(parent)) parent.clear();
    parentAbsolute = readAbsolute(model.find(side, parent));
  }

  IXMLDOMElement layout;
  std::optional<RTTran3D> relative, absolute, parentAbsolute;
  std::string parent;  // empty for none
};

bool DiffPlacements::differs(const RTTran3D& a, const RTTran3D& b) const {
  return !a.isNear(b, tolerances_.length, tolerances_.angle);
}

void DiffPlacements::compare(const Subject& subject, const Stand& before, const Stand& after,
                             std::vector<PlacedChange>& changes) const {
  if (!before.relative || !after.relative) return;
  const bool byAbsolute = before.parent != after.parent && before.absolute && after.absolute;
  const RTTran3D& from = byAbsolute ? *before.absolute : *before.relative;
  const RTTran3D& to = byAbsolute ? *after.absolute : *after.relative;
  const RTVec3D a = from.getTranslation(), b = to.getTranslation();
  DiffChange change{ChangeKind::placement, subject.path, locationJson(from), locationJson(to)};
  change.length = std::hypot(b.x - a.x, b.y - a.y, b.z - a.z);
  change.angle = from.angleTo(to);
  if (change.length > tolerances_.length || change.angle > tolerances_.angle)
    changes.push_back({subject.pair, std::move(change)});
}

// Whether the other numbers of a layout, those that `compare` did not look at, are what the parent and the
// looked-at ones make of them.
bool DiffPlacements::followsParent(const Stand& before, const Stand& after) const {
  double distance =
      std::max(reach(after.relative->getTranslation()), reach(after.absolute->getTranslation()));
  RTTran3D expected;
  if (after.parentAbsolute) {
    distance = std::max(distance, reach(after.parentAbsolute->getTranslation()));
    expected = *after.parentAbsolute * *after.relative;
  } else if (before.parent == after.parent) {  // an edit carries the change over
    expected = *before.absolute * (before.relative->inverse() * *after.relative);
  } else {
    expected = *after.relative;
  }
  return isSameButForRounding(*after.absolute, expected, distance);
}

void DiffPlacements::tellRest(Index layout, const Stand& before, const Stand& after,
                              std::vector<PlacedChange>& changes) const {
  if (!before.relative || !after.relative || !before.absolute || !after.absolute) return;
  const auto tell = [&](std::string path, Json was, Json is) {
    if (was != is)
      changes.push_back({layout, {ChangeKind::field, std::move(path), std::move(was), std::move(is)}});
  };
  const bool turned = differs(*before.relative, *after.relative);
  if (before.parent != after.parent) {
    if (!turned || followsParent(before, after)) return;
    for (const char* path : {"location", "rotation"})
      tell(path, fieldJson(childOf(before.layout, path)), fieldJson(childOf(after.layout, path)));
    return;
  }
  if (!differs(*before.absolute, *after.absolute)) return;
  const bool parentMoved =
      before.parentAbsolute && after.parentAbsolute && differs(*before.parentAbsolute, *after.parentAbsolute);
  if ((turned || parentMoved) && followsParent(before, after)) return;
  tell(std::string(absolutePath), locationJson(*before.absolute), locationJson(*after.absolute));
}

std::vector<PlacedChange> DiffPlacements::ofLayout(Index layout) const {
  const DiffModel::Pair& pair = model_.pairs()[layout];
  const Stand before(model_, DiffModel::earlier, pair.before());
  const Stand after(model_, DiffModel::later, pair.after());
  std::vector<PlacedChange> changes;
  compare(subjectOf(layout), before, after, changes);
  tellRest(layout, before, after, changes);
  return changes;
}

std::vector<PlacedChange> DiffPlacements::ofNewLayout(Index object) const {
  const DiffModel::Pair& pair = model_.pairs()[object];
  const auto stand = [&](DiffModel::Side side) {
    return Stand(model_, side, model_.find(side, childText(pair.versions[side], "layout")));
  };
  std::vector<PlacedChange> changes;
  compare({object, "layout"}, stand(DiffModel::earlier), stand(DiffModel::later), changes);
  return changes;
}

Index DiffPlacements::ownerOf(Index layout) const {
  const DiffModel::Pair& pair = model_.pairs()[layout];
  ApiPmId id;
  if (!zelXmlGetLayoutOwnerId(model_.document(DiffModel::later), pair.after(), id)) return DiffModel::none;
  const Index owner = model_.findPair(id.text());
  if (owner == DiffModel::none) return owner;
  for (const IXMLDOMElement& version : model_.pairs()[owner].versions)
    if (childText(version, "layout") != pair.id) return DiffModel::none;
  return owner;
}

// The layout of a study info places the object that the shortcut shows.
DiffPlacements::Subject DiffPlacements::subjectOf(Index layout) const {
  const Index owner = ownerOf(layout);
  if (owner == DiffModel::none) return {layout, "location"};
  if (model_.pairs()[layout].after().nodeName() != "PmStudyLayout") return {owner, "layout"};
  const std::string& shortcut = shortcutOfInfo(model_.pairs()[owner].id);
  const Index shown = model_.findPair(childText(model_.find(DiffModel::later, shortcut), "linkExternalID"));
  if (shown == DiffModel::none) return {owner, "layout"};
  return {shown, "shortcut[" + shortcut + "]/layout"};
}

const std::string& DiffPlacements::shortcutOfInfo(std::string_view info) const {
  if (!hasShortcuts_) {
    hasShortcuts_ = true;
    for (const IXMLDOMElement& each : model_.objects(DiffModel::later)) {
      if (!childOf(each, "info")) continue;
      const auto infos = itemTexts(each, "info"), shortcuts = itemTexts(each, "children");
      for (std::size_t i = 0; i < std::min(infos.size(), shortcuts.size()); ++i)
        shortcuts_.emplace(infos[i], shortcuts[i]);
    }
  }
  static const std::string nothing;
  const auto found = shortcuts_.find(std::string(info));
  return found == shortcuts_.end() ? nothing : found->second;
}

}  // namespace zelstudy

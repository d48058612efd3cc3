#include "zelstudy/StudyPlaces.h"

#include <algorithm>
#include <unordered_set>

#include "zel/ZelPhysical.h"
#include "zelstudy/NodeJson.h"

namespace zelstudy {

std::optional<RTTran3D> locationOf(const ZelNode& node) {
  const auto* physical = zelQuery<ZelPhysical>(&node);
  RTTran3D location;
  if (!physical || !physical->getLocation(location)) return {};
  return location;
}

bool StudyPlaces::isShown(const ZelNode& node) const {
  ApiPmId shortcut;
  return study_.wrapper().findShortcut(idOf(node), shortcut);
}

std::vector<const ZelNode*> StudyPlaces::way(const ZelNode& node) const {
  std::vector<const ZelNode*> nodes;
  std::unordered_set<const ZelNode*> seen;
  for (const ZelNode* each = &node; each && seen.insert(each).second;) {
    nodes.push_back(each);
    if (isShown(*each)) {
      std::reverse(nodes.begin(), nodes.end());
      return nodes;
    }
    ApiPmId parent;
    each = each->getParentId(parent) ? study_.find(parent) : nullptr;
  }
  return {};
}

std::optional<RTTran3D> StudyPlaces::of(const ZelNode& node) const {
  std::optional<RTTran3D> place;
  for (const ZelNode* each : way(node)) place = below(place, *each);
  return place;
}

std::optional<RTTran3D> StudyPlaces::below(const std::optional<RTTran3D>& parent,
                                           const ZelNode& child) const {
  const std::optional<RTTran3D> own = locationOf(child);
  if (!own || isShown(child)) return own;
  if (!parent) return {};
  return *parent * *own;
}

}  // namespace zelstudy

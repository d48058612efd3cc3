#pragma once

#include <optional>
#include <vector>

#include "rt/RTTran3D.h"
#include "zelstudy/StudySession.h"

namespace zelstudy {

// Where objects stand in the study that shows them: the place that the study gives an object by its shortcut,
// and from there down the placements in the parents. Nothing for an object that no study shows, neither
// itself nor by what it stands under, and for one without a place on the way.
class StudyPlaces {
 public:
  explicit StudyPlaces(const StudySession& study) : study_(study) {}

  // The nodes from the shown one down to `node`, this one included; empty when none of them is shown.
  std::vector<const ZelNode*> way(const ZelNode& node) const;
  std::optional<RTTran3D> of(const ZelNode& node) const;
  // Of a child, from the place of its parent: a walk down a tree needs no way up per object.
  std::optional<RTTran3D> below(const std::optional<RTTran3D>& parent, const ZelNode& child) const;

 private:
  bool isShown(const ZelNode& node) const;

  const StudySession& study_;
};

// As ZelPhysical answers it; nothing for a node without a place.
std::optional<RTTran3D> locationOf(const ZelNode& node);

}  // namespace zelstudy

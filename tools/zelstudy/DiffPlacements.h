#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "rt/RTTran3D.h"
#include "rw/RWTextHash.h"
#include "zelstudy/DiffModel.h"
#include "zelstudy/StudyDiff.h"

namespace zelstudy {

// A change and the object that it is told of.
struct PlacedChange {
  DiffModel::Index pair;
  DiffChange change;
};

// Which fields of an object are the numbers of a layout, in both versions.
struct LayoutFields {
  explicit LayoutFields(const DiffModel::Pair& pair);
  bool covers(std::string_view path) const;

  bool readable = false;  // location and rotation
  bool absolute = false;  // the absolute location too
};

// Where objects stand, told of the objects rather than of their layouts.
class DiffPlacements {
 public:
  DiffPlacements(const DiffModel& model, const DiffTolerances& tolerances)
      : model_(model), tolerances_(tolerances) {}

  // What a layout with other numbers or another parent means: its object is placed elsewhere. Under the same
  // parent the relative placements count, so that what is below an object that moved is not told; under
  // another one the absolute ones. Numbers of the layout that do not follow from that, from the parent or
  // from each other are told of the layout itself.
  std::vector<PlacedChange> ofLayout(DiffModel::Index layout) const;
  // An object that has another layout.
  std::vector<PlacedChange> ofNewLayout(DiffModel::Index object) const;
  // The object that has this layout in both studies; none when there is none.
  DiffModel::Index ownerOf(DiffModel::Index layout) const;

 private:
  struct Stand;
  struct Subject {
    DiffModel::Index pair;
    std::string path;
  };

  Subject subjectOf(DiffModel::Index layout) const;
  const std::string& shortcutOfInfo(std::string_view info) const;
  bool differs(const RTTran3D& a, const RTTran3D& b) const;
  void compare(const Subject& subject, const Stand& before, const Stand& after,
               std::vector<PlacedChange>& changes) const;
  bool followsParent(const Stand& before, const Stand& after) const;
  void tellRest(DiffModel::Index layout, const Stand& before, const Stand& after,
                std::vector<PlacedChange>& changes) const;

  const DiffModel& model_;
  const DiffTolerances tolerances_;
  // Made when the first study layout is met.
  mutable std::unordered_map<std::string, std::string, RWTextHash> shortcuts_;
  mutable bool hasShortcuts_ = false;
};

}  // namespace zelstudy

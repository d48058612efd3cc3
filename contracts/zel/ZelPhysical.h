#pragma once

#include "rt/RTTran3D.h"
#include "zel/ZelNode.h"

// Something that has a place. Lengths in the unit of the document, angles in radians.
class ZelPhysical : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Physical;
  static ZelPhysical* queryZelPhysical(ZelNode* node) { return zelQuery<ZelPhysical>(node); }

  // Placement in the study for an object that stands in one by a shortcut, in the parent for a child, and the
  // absolute placement for any other.
  virtual bool getLocation(RTTran3D& location) const = 0;
  // Moves the object so that getLocation answers `location`; publishes the layout object. The absolute
  // placements of the object and of all below it follow. Not so for an object that a study shows by a
  // shortcut: there only its placement in the study changes, and all absolute placements stay.
  // False, and nothing changed, when a number of `location`, or one of a placement that would follow from it
  // here or below, is infinite or no number.
  virtual bool setLocation(const RTTran3D& location) = 0;
  virtual bool getAbsoluteLocation(RTTran3D& location) const = 0;
};

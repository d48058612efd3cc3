#pragma once

#include "api/ApiPmIds.h"
#include "rt/RTTran3D.h"
#include "zel/ZelNode.h"

// One use of a prototype in the definition of an equipment. Setters answer false at the first step that
// fails; the steps before it stand.
class ZelVorPrototypeOccurrence : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorPrototypeOccurrence;
  static ZelVorPrototypeOccurrence* queryZelVorPrototypeOccurrence(ZelNode* node) {
    return zelQuery<ZelVorPrototypeOccurrence>(node);
  }

  // Placement in the equipment: that of the object that `layout` names. False without it. Setting writes it
  // as the absolute placement too; not published.
  virtual bool getLocation(RTTran3D& location) const = 0;
  virtual bool setLocation(const RTTran3D& location) = 0;
  // What tells the occurrence inside its equipment, also in a copy of the equipment: field `cloneStableId`.
  // An empty one is answered by the object's own id, with a log line. False without the field; setting makes
  // it. Not published.
  virtual bool getChildId(ApiPmPrototypeChildId& id) const = 0;
  virtual bool setChildId(const ApiPmPrototypeChildId& id) = 0;
  // Id of the object that field `prototype` leads to; false when there is none. Setting publishes the field,
  // and is false, with nothing changed, without it.
  virtual bool getPrototypeId(ApiPmId& id) const = 0;
  virtual bool setPrototypeId(const ApiPmId& id) = 0;
};

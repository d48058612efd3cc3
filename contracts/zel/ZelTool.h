#pragma once

#include "zel/ZelNode.h"

// A tool as part of an equipment: which occurrence of the equipment's definition it stands for.
class ZelTool : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Tool;
  static ZelTool* queryZelTool(ZelNode* node) { return zelQuery<ZelTool>(node); }

  // Child id of the occurrence that field `masterObj` names. False without one, for "NULL", and for an object
  // that is no occurrence.
  virtual bool getChildId(ApiPmPrototypeChildId& id) const = 0;
  // setMasterObj with the first occurrence of this child id in the prototype of the parent. False, and
  // nothing changed, without one and under a parent that is no equipment instance.
  virtual bool setChildId(const ApiPmPrototypeChildId& id) = 0;
  // Adds a field `masterObj` and publishes the object. The first one counts: over one that is there, a "NULL"
  // too, this changes nothing that is read.
  virtual bool setMasterObj(const ApiPmId& object) = 0;
};

#pragma once

#include "zel/ZelNode.h"

// The resource that an operation runs on, which the data store writes.
class ZelVorCompoundOperation : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorCompoundOperation;
  static ZelVorCompoundOperation* queryZelVorCompoundOperation(ZelNode* node) {
    return zelQuery<ZelVorCompoundOperation>(node);
  }

  // Whether the operation has the field `processResource`. Always true.
  virtual bool hasProcessResource(bool& has) const = 0;
  // Text of that field; false without it.
  virtual bool getProcessResource(RWClassicWString& resource) const = 0;
};

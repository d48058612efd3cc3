#pragma once

#include "zel/ZelNode.h"

// A use of a prototype, without an instance.
class ZelPrototypeAssignment : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PrototypeAssignment;
  static ZelPrototypeAssignment* queryZelPrototypeAssignment(ZelNode* node) {
    return zelQuery<ZelPrototypeAssignment>(node);
  }

  // The node of the prototype; null when the id cannot be read, and for an id without node.
  virtual ZelNode* getPrototype() const = 0;
  // Field `uses`; false without it and for "NULL". An empty field is true with the null id.
  virtual bool getPrototypeId(ApiPmId& id) const = 0;
};

#pragma once

#include "zel/ZelNode.h"
#include "zel/ZelReservedSlots.h"

// A flow from one step of the process to another. What it has of its own is reached by ZelPlcLink.
class ZelLink : public ZelReservedSlots<ZelNode, 1, 4> {
 public:
  static constexpr InterfaceType interfaceType = Link;
  static ZelLink* queryZelLink(ZelNode* node) { return zelQuery<ZelLink>(node); }
};

#pragma once

#include "zel/ZelNode.h"
#include "zel/ZelReservedSlots.h"

// Something that uses up material. All its slots, and those that ZelOperation adds, are reserved; where the
// ones end and the others begin has no meaning.
class ZelConsuming : public ZelReservedSlots<ZelNode, 1, 9> {};

// A step of the process. What an operation has of its own is reached by ZelPlcOperation and
// ZelVorCompoundOperation.
class ZelOperation : public ZelReservedSlots<ZelConsuming, 10, 29> {
 public:
  using ZelConsuming::reserved;
  using ZelReservedSlots<ZelConsuming, 10, 29>::reserved;
  static constexpr InterfaceType interfaceType = Operation;
  static ZelOperation* queryZelOperation(ZelNode* node) { return zelQuery<ZelOperation>(node); }
};

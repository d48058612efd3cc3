#pragma once

#include "zel/ZelNode.h"

// The signal of a resource that works as a conveyor of any kind. For what holds of all values see
// ZelPlcDeviceInstance.
class ZelPlcGenericConveyorInstance : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PlcGenericConveyorInstance;
  static ZelPlcGenericConveyorInstance* queryZelPlcGenericConveyorInstance(ZelNode* node) {
    return zelQuery<ZelPlcGenericConveyorInstance>(node);
  }

  // The signal in the holder `GenericConveyorSignal`.
  virtual ZelNode* createGenericConveyorSignal(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getGenericConveyorSignal(ApiPmId& id) const = 0;
};

#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// A sensor that measures how far a joint of a device has moved: an inner node. For what holds of all values
// see ZelDeviceSensor.
class ZelDeviceDistanceSensor : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = DeviceDistanceSensor;
  static ZelDeviceDistanceSensor* queryZelDeviceDistanceSensor(ZelNode* node) {
    return zelQuery<ZelDeviceDistanceSensor>(node);
  }

  // Field `PrimaryJoint`: number of the joint.
  virtual bool setPrimaryJoint(std::uint32_t joint) = 0;
  virtual bool getPrimaryJoint(std::uint32_t& joint) const = 0;
  // The signal in the holder `SensorSig`.
  virtual ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getSignal(ApiPmId& id) const = 0;
  // Field `ValueUnits`.
  virtual bool setValueUnits(std::int32_t units) = 0;
  virtual bool getValueUnits(std::int32_t& units) const = 0;
};

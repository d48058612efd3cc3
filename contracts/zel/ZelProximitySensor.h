#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// A sensor that answers to parts that come near a target object: an inner node. For what holds of all values
// see ZelDeviceSensor.
class ZelProximitySensor : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = ProximitySensor;
  static ZelProximitySensor* queryZelProximitySensor(ZelNode* node) {
    return zelQuery<ZelProximitySensor>(node);
  }

  // The signal in the holder `SensorSig`.
  virtual ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getSignal(ApiPmId& id) const = 0;
  // Field `TargetObjRef`.
  virtual bool setTargetObject(const ApiPmId& target) = 0;
  virtual bool getTargetObject(ApiPmId& target) const = 0;
  // List `PartsRefs`. Setting adds a list. Reading appends the entries of all lists, each id once; no list is
  // true.
  virtual bool setParts(const ApiPmIdList& parts) = 0;
  virtual bool getParts(ApiPmIdList& parts) const = 0;
  // Field `OperatingMode`.
  virtual bool setOperatingMode(std::int32_t mode) = 0;
  virtual bool getOperatingMode(std::int32_t& mode) const = 0;
  // Field `RangeValue`: a length.
  virtual bool setRangeValue(double range) = 0;
  virtual bool getRangeValue(double& range) const = 0;
};

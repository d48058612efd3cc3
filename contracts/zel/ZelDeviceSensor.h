#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// A sensor on a joint of a device: an inner node (see ZelSignal). There are two types of it, which differ in
// the number alone.
//
// For this and the other sensors, poses and projectors: values are fields of the node's own element. A setter
// adds a field beside one that is there and publishes nothing; a getter takes the first, and is false without
// it. Lengths in the unit of the document, angles in radians. What the numbers of modes and units mean is up
// to callers.
class ZelDeviceSensor : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = DeviceSensor;
  static ZelDeviceSensor* queryZelDeviceSensor(ZelNode* node) { return zelQuery<ZelDeviceSensor>(node); }

  // Field `PrimaryJoint`: number of the joint.
  virtual bool setPrimaryJoint(std::uint32_t joint) = 0;
  virtual bool getPrimaryJoint(std::uint32_t& joint) const = 0;
  // Fields `RangeValue`, `RangeLow` and `RangeHigh`: the joint value, and the ends of the range, that the
  // sensor answers to.
  virtual bool setRangeValue(double value) = 0;
  virtual bool getRangeValue(double& value) const = 0;
  virtual bool setRangeLow(double value) = 0;
  virtual bool getRangeLow(double& value) const = 0;
  virtual bool setRangeHigh(double value) = 0;
  virtual bool getRangeHigh(double& value) const = 0;
  // Field `IsInverse`.
  virtual bool setIsInverse(bool inverse) = 0;
  virtual bool getIsInverse(bool& inverse) const = 0;
  // The signal in the holder `SensorSig`.
  virtual ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getSignal(ApiPmId& id) const = 0;
  // Field `PoseRef`, and fields `PoseName` and `SensorDevice`: a pose by reference, its name, the device.
  virtual bool setPose(const ApiPmExtendedId& pose) = 0;
  virtual bool getPose(ApiPmExtendedId& pose) const = 0;
  virtual bool getPoseName(RWClassicWString& name) const = 0;
  virtual bool setPoseName(const RWClassicWString& name) = 0;
  virtual bool setDevice(const ApiPmId& device) = 0;
  virtual bool getDevice(ApiPmId& device) const = 0;
};

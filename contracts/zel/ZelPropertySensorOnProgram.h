#pragma once

#include <cstdint>

#include "rt/RTTran3D.h"
#include "zel/ZelNode.h"

// A sensor of a PLC program that reads a property of parts in its range: an inner node. For what holds of all
// values see ZelDeviceSensor.
class ZelPropertySensorOnProgram : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PropertySensorOnProgram;
  static ZelPropertySensorOnProgram* queryZelPropertySensorOnProgram(ZelNode* node) {
    return zelQuery<ZelPropertySensorOnProgram>(node);
  }

  // Field `isActive`.
  virtual bool setIsActive(bool active) = 0;
  virtual bool getIsActive(bool& active) const = 0;
  // As in ZelPropertyProjector.
  virtual bool setParts(const ApiPmIdList& parts) = 0;
  virtual bool getParts(ApiPmIdList& parts) const = 0;
  // The shape in which the sensor looks, as lengths: fields `maximalRange`, `Height`, `StartBase` and
  // `EndBase`.
  virtual bool setMaximalRange(double range) = 0;
  virtual bool getMaximalRange(double& range) const = 0;
  virtual bool setHeight(double height) = 0;
  virtual bool getHeight(double& height) const = 0;
  virtual bool setStartBase(double base) = 0;
  virtual bool getStartBase(double& base) const = 0;
  virtual bool setEndBase(double base) = 0;
  virtual bool getEndBase(double& base) const = 0;
  // Field `RangeValue`: a length.
  virtual bool setRangeValue(double range) = 0;
  virtual bool getRangeValue(double& range) const = 0;
  // Lists `PropertySensorRelLocation` and `PropertySensorRelRotation`: where that shape stands. Setting adds
  // both. Lists that are missing read as zeros, true.
  virtual bool setRelativeLocation(const RTTran3D& location) = 0;
  virtual bool getRelativeLocation(RTTran3D& location) const = 0;
  // Field `Property`: name of the property.
  virtual bool setProperty(const RWClassicWString& property) = 0;
  virtual bool getProperty(RWClassicWString& property) const = 0;
  // Field `DataType`.
  virtual bool setDataType(std::int32_t type) = 0;
  virtual bool getDataType(std::int32_t& type) const = 0;
};

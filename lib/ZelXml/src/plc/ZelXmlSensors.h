#pragma once

#include "plc/ZelXmlPlcInternalNode.h"
#include "plc/ZelXmlPlcNodes.h"
#include "zel/ZelDeviceDistanceSensor.h"
#include "zel/ZelDeviceSensor.h"
#include "zel/ZelPropertySensorOnProgram.h"
#include "zel/ZelProximitySensor.h"

class ZelXmlDeviceSensor final : public ZelXmlPlcNodeClass<ZelXmlDeviceSensor, ZelXmlNamedPlcInternalNode,
                                                           ZEL_DEVICE_SENSOR, ZelDeviceSensor> {
 public:
  ZelXmlDeviceSensor() = default;
  explicit ZelXmlDeviceSensor(ZelNodeType type) : type_(type) {}
  // What was read last is the answer where nothing can be read.
  ZelNodeType type() const override { return type_ = readType(type_); }
  bool createSubnodes() override { return adoptHeldSignals({&zelDeviceSensorFields.SensorSig}); }
  bool removeRequisites() override { return removeHeldSignals({&zelDeviceSensorFields.SensorSig}); }

  bool setPrimaryJoint(std::uint32_t v) override {
    return zelXmlSetField(*this, zelDeviceSensorFields.PrimaryJoint, v);
  }
  bool getPrimaryJoint(std::uint32_t& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.PrimaryJoint, v);
  }
  bool setRangeValue(double v) override { return zelXmlSetField(*this, zelDeviceSensorFields.RangeValue, v); }
  bool getRangeValue(double& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.RangeValue, v);
  }
  bool setRangeLow(double v) override { return zelXmlSetField(*this, zelDeviceSensorFields.RangeLow, v); }
  bool getRangeLow(double& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.RangeLow, v);
  }
  bool setRangeHigh(double v) override { return zelXmlSetField(*this, zelDeviceSensorFields.RangeHigh, v); }
  bool getRangeHigh(double& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.RangeHigh, v);
  }
  bool setIsInverse(bool v) override { return zelXmlSetField(*this, zelDeviceSensorFields.IsInverse, v); }
  bool getIsInverse(bool& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.IsInverse, v);
  }
  ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelDeviceSensorFields.SensorSig, type, id);
  }
  bool getSignal(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.SensorSig, id);
  }
  bool setPose(const ApiPmExtendedId& v) override {
    return zelXmlSetField(*this, zelDeviceSensorFields.PoseRef, v);
  }
  bool getPose(ApiPmExtendedId& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.PoseRef, v);
  }
  bool setPoseName(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelDeviceSensorFields.PoseName, v);
  }
  bool getPoseName(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.PoseName, v);
  }
  bool setDevice(const ApiPmId& v) override {
    return zelXmlSetField(*this, zelDeviceSensorFields.SensorDevice, v);
  }
  bool getDevice(ApiPmId& v) const override {
    return zelXmlGetField(*this, zelDeviceSensorFields.SensorDevice, v);
  }

 private:
  mutable ZelNodeType type_ = ZEL_DEVICE_SENSOR;
};

class ZelXmlDeviceDistanceSensor final
    : public ZelXmlPlcNodeClass<ZelXmlDeviceDistanceSensor, ZelXmlNamedPlcInternalNode,
                                ZEL_DEVICE_DISTANCE_SENSOR, ZelDeviceDistanceSensor> {
 public:
  bool createSubnodes() override { return adoptHeldSignals({&zelDistanceSensorFields.SensorSig}); }
  bool removeRequisites() override { return removeHeldSignals({&zelDistanceSensorFields.SensorSig}); }

  bool setPrimaryJoint(std::uint32_t v) override {
    return zelXmlSetField(*this, zelDistanceSensorFields.PrimaryJoint, v);
  }
  bool getPrimaryJoint(std::uint32_t& v) const override {
    return zelXmlGetField(*this, zelDistanceSensorFields.PrimaryJoint, v);
  }
  ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelDistanceSensorFields.SensorSig, type, id);
  }
  bool getSignal(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelDistanceSensorFields.SensorSig, id);
  }
  bool setValueUnits(std::int32_t v) override {
    return zelXmlSetField(*this, zelDistanceSensorFields.ValueUnits, v);
  }
  bool getValueUnits(std::int32_t& v) const override {
    return zelXmlGetField(*this, zelDistanceSensorFields.ValueUnits, v);
  }
};

class ZelXmlProximitySensor final
    : public ZelXmlPlcNodeClass<ZelXmlProximitySensor, ZelXmlNamedPlcInternalNode, ZEL_PROXIMITY_SENSOR,
                                ZelProximitySensor> {
 public:
  bool createSubnodes() override { return adoptHeldSignals({&zelProximitySensorFields.SensorSig}); }
  bool removeRequisites() override { return removeHeldSignals({&zelProximitySensorFields.SensorSig}); }

  ZelNode* createSignal(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelProximitySensorFields.SensorSig, type, id);
  }
  bool getSignal(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelProximitySensorFields.SensorSig, id);
  }
  bool setTargetObject(const ApiPmId& v) override {
    return zelXmlSetField(*this, zelProximitySensorFields.TargetObjRef, v);
  }
  bool getTargetObject(ApiPmId& v) const override {
    return zelXmlGetField(*this, zelProximitySensorFields.TargetObjRef, v);
  }
  bool setParts(const ApiPmIdList& v) override {
    return zelXmlSetField(*this, zelProximitySensorFields.PartsRefs, v);
  }
  bool getParts(ApiPmIdList& v) const override {
    return zelXmlGetField(*this, zelProximitySensorFields.PartsRefs, v);
  }
  bool setOperatingMode(std::int32_t v) override {
    return zelXmlSetField(*this, zelProximitySensorFields.OperatingMode, v);
  }
  bool getOperatingMode(std::int32_t& v) const override {
    return zelXmlGetField(*this, zelProximitySensorFields.OperatingMode, v);
  }
  bool setRangeValue(double v) override {
    return zelXmlSetField(*this, zelProximitySensorFields.RangeValue, v);
  }
  bool getRangeValue(double& v) const override {
    return zelXmlGetField(*this, zelProximitySensorFields.RangeValue, v);
  }
};

// The list `PartsRefs` as it stands, repeated ids too, in place of what `parts` held.
bool zelXmlReadParts(const ZelXmlElementNode& node, ApiPmIdList& parts);

class ZelXmlPropertySensorOnProgram final
    : public ZelXmlPlcNodeClass<ZelXmlPropertySensorOnProgram, ZelXmlNamedPlcInternalNode,
                                ZEL_PROPERTY_SENSOR_ON_PROGRAM, ZelPropertySensorOnProgram> {
 public:
  bool setIsActive(bool v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.isActive, v);
  }
  bool getIsActive(bool& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.isActive, v);
  }
  bool setParts(const ApiPmIdList& v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.PartsRefs, v);
  }
  bool getParts(ApiPmIdList& parts) const override { return zelXmlReadParts(*this, parts); }
  bool setMaximalRange(double v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.maximalRange, v);
  }
  bool getMaximalRange(double& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.maximalRange, v);
  }
  bool setHeight(double v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.Height, v);
  }
  bool getHeight(double& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.Height, v);
  }
  bool setStartBase(double v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.StartBase, v);
  }
  bool getStartBase(double& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.StartBase, v);
  }
  bool setEndBase(double v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.EndBase, v);
  }
  bool getEndBase(double& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.EndBase, v);
  }
  bool setRangeValue(double v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.RangeValue, v);
  }
  bool getRangeValue(double& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.RangeValue, v);
  }
  bool setRelativeLocation(const RTTran3D& location) override;
  bool getRelativeLocation(RTTran3D& location) const override;
  bool setProperty(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.Property, v);
  }
  bool getProperty(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.Property, v);
  }
  bool setDataType(std::int32_t v) override {
    return zelXmlSetField(*this, zelPropertySensorOnProgramFields.DataType, v);
  }
  bool getDataType(std::int32_t& v) const override {
    return zelXmlGetField(*this, zelPropertySensorOnProgramFields.DataType, v);
  }
};

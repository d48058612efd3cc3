#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// What a controller knows of a resource as a device. ZelPlcRobotInstance, ZelPlcPoseHoldingResourceInstance
// and ZelPlcGenericConveyorInstance tell of the same resource; which of them have anything to say depends on
// the data.
//
// For all four: values are fields of `plcInfo`, which the first write makes. A setter adds a field beside one
// that is there and publishes nothing; a getter takes the first, and is false without `plcInfo` and without
// the field. Signals, sensors and poses are made as said at ZelSignal. A resource that was made in this
// session, not read, has no PLC side until setPrototypeId, setChildId or setMasterObj gives it one: until
// then writers answer false or null and change nothing.
class ZelPlcDeviceInstance : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PlcDeviceInstance;
  static ZelPlcDeviceInstance* queryZelPlcDeviceInstance(ZelNode* node) {
    return zelQuery<ZelPlcDeviceInstance>(node);
  }

  // Fields of these names. What the numbers of valve types mean is up to callers.
  virtual bool setDeviceClass(const RWClassicWString& deviceClass) = 0;
  virtual bool getDeviceClass(RWClassicWString& deviceClass) const = 0;
  virtual bool setValveType(std::int32_t type) = 0;
  virtual bool getValveType(std::int32_t& type) const = 0;
  // The signal in the holder `ConveyorSig`.
  virtual ZelNode* createConveyorSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getConveyorSig(ApiPmId& id) const = 0;
  // List `ConveyorTrackingRobots`. Setting adds the ids to the list that is there, null ids left out. Reading
  // replaces `robots`, null ids left out, repeated ones kept; false, and `robots` untouched, for a list
  // without entries.
  virtual bool setConveyorTrackingRobots(const ApiPmIdList& robots) = 0;
  virtual bool getConveyorTrackingRobots(ApiPmIdList& robots) const = 0;
  // As in ZelPlcResourceInstance.
  virtual bool isOriginalPlcData(bool& original) const = 0;
};

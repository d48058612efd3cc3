#pragma once

#include "zel/ZelNode.h"

// The sensors and poses of a resource. For what holds of all values see ZelPlcDeviceInstance.
class ZelPlcPoseHoldingResourceInstance : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PlcPoseHoldingResourceInstance;
  static ZelPlcPoseHoldingResourceInstance* queryZelPlcPoseHoldingResourceInstance(ZelNode* node) {
    return zelQuery<ZelPlcPoseHoldingResourceInstance>(node);
  }

  // List `Sensors`, which takes device sensors of both types, distance sensors and proximity sensors. Null
  // for any other type; no more than the list without a new entry is made then.
  virtual ZelNode* createSensor(ZelNodeType type, const ApiPmId& id) = 0;
  // Appends the ids in order. No list is true; an entry without id ends it with false.
  virtual bool getSensors(ApiPmIdList& sensors) const = 0;
  // List `Poses`, likewise.
  virtual ZelNode* createPose(const ApiPmId& id) = 0;
  virtual bool getPoses(ApiPmIdList& poses) const = 0;
  // As in ZelPlcResourceInstance.
  virtual bool isOriginalPlcData(bool& original) const = 0;
};

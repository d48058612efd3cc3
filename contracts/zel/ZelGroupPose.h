#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// A position of several devices at once, formed by a pose of each: an inner node. For what holds of all
// values see ZelDeviceSensor.
class ZelGroupPose : public ZelNode {
 public:
  using Poses = RWClassicTValOrderedVector<ApiPmNameExtendedId>;
  static constexpr InterfaceType interfaceType = GroupPose;
  static ZelGroupPose* queryZelGroupPose(ZelNode* node) { return zelQuery<ZelGroupPose>(node); }

  // Field `PrimaryJoint`: number of the joint.
  virtual bool setPrimaryJoint(std::uint32_t joint) = 0;
  virtual bool getPrimaryJoint(std::uint32_t& joint) const = 0;
  // As in ZelPose.
  virtual ZelNode* createMoveToPoseSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getMoveToPoseSig(ApiPmId& id) const = 0;
  virtual ZelNode* createMoveInDirSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getMoveInDirSig(ApiPmId& id) const = 0;
  virtual ZelNode* createKeySig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getKeySig(ApiPmId& id) const = 0;
  // List `PosesRef`: devices, each with the name of its pose. Setting adds a list. Reading appends the
  // entries of all lists; no list is true.
  virtual bool setPosesRef(const Poses& poses) = 0;
  virtual bool getPosesRef(Poses& poses) const = 0;
  // Field `DeviceGroup`: the group of the devices.
  virtual bool setDeviceGroup(const ApiPmId& group) = 0;
  virtual bool getDeviceGroup(ApiPmId& group) const = 0;
};

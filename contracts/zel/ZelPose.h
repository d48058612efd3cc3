#pragma once

#include "zel/ZelNode.h"

// A named position of the joints of a device: an inner node. For what holds of all values see
// ZelDeviceSensor.
class ZelPose : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Pose;
  static ZelPose* queryZelPose(ZelNode* node) { return zelQuery<ZelPose>(node); }

  // One signal each, in a holder of this name.
  virtual ZelNode* createMoveToPoseSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getMoveToPoseSig(ApiPmId& id) const = 0;
  virtual ZelNode* createMoveInDirSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getMoveInDirSig(ApiPmId& id) const = 0;
  virtual ZelNode* createKeySig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getKeySig(ApiPmId& id) const = 0;
  // Field `PoseDevice`.
  virtual bool getPoseDevice(RWClassicWString& device) const = 0;
  virtual bool setPoseDevice(const RWClassicWString& device) = 0;
};

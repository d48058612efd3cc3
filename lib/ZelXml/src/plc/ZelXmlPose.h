#pragma once

#include "plc/ZelXmlPlcInternalNode.h"
#include "plc/ZelXmlPlcNodes.h"
#include "zel/ZelGroupPose.h"
#include "zel/ZelPose.h"

class ZelXmlPose final
    : public ZelXmlPlcNodeClass<ZelXmlPose, ZelXmlNamedPlcInternalNode, ZEL_POSE, ZelPose> {
 public:
  bool createSubnodes() override {
    return adoptHeldSignals(
        {&zelPoseFields.MoveToPoseSig, &zelPoseFields.MoveInDirSig, &zelPoseFields.KeySig});
  }
  bool removeRequisites() override {
    return removeHeldSignals(
        {&zelPoseFields.MoveToPoseSig, &zelPoseFields.MoveInDirSig, &zelPoseFields.KeySig});
  }

  ZelNode* createMoveToPoseSig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelPoseFields.MoveToPoseSig, type, id);
  }
  bool getMoveToPoseSig(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelPoseFields.MoveToPoseSig, id);
  }
  ZelNode* createMoveInDirSig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelPoseFields.MoveInDirSig, type, id);
  }
  bool getMoveInDirSig(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelPoseFields.MoveInDirSig, id);
  }
  ZelNode* createKeySig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelPoseFields.KeySig, type, id);
  }
  bool getKeySig(ApiPmId& id) const override { return zelXmlGetField(*this, zelPoseFields.KeySig, id); }
  bool setPoseDevice(const RWClassicWString& v) override {
    return zelXmlSetField(*this, zelPoseFields.PoseDevice, v);
  }
  bool getPoseDevice(RWClassicWString& v) const override {
    return zelXmlGetField(*this, zelPoseFields.PoseDevice, v);
  }
};

class ZelXmlGroupPose final
    : public ZelXmlPlcNodeClass<ZelXmlGroupPose, ZelXmlNamedPlcInternalNode, ZEL_GROUP_POSE, ZelGroupPose> {
 public:
  bool createSubnodes() override {
    return adoptHeldSignals(
        {&zelGroupPoseFields.MoveToPoseSig, &zelGroupPoseFields.MoveInDirSig, &zelGroupPoseFields.KeySig});
  }
  bool removeRequisites() override {
    return removeHeldSignals(
        {&zelGroupPoseFields.MoveToPoseSig, &zelGroupPoseFields.MoveInDirSig, &zelGroupPoseFields.KeySig});
  }

  bool setPrimaryJoint(std::uint32_t v) override {
    return zelXmlSetField(*this, zelGroupPoseFields.PrimaryJoint, v);
  }
  bool getPrimaryJoint(std::uint32_t& v) const override {
    return zelXmlGetField(*this, zelGroupPoseFields.PrimaryJoint, v);
  }
  ZelNode* createMoveToPoseSig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelGroupPoseFields.MoveToPoseSig, type, id);
  }
  bool getMoveToPoseSig(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelGroupPoseFields.MoveToPoseSig, id);
  }
  ZelNode* createMoveInDirSig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelGroupPoseFields.MoveInDirSig, type, id);
  }
  bool getMoveInDirSig(ApiPmId& id) const override {
    return zelXmlGetField(*this, zelGroupPoseFields.MoveInDirSig, id);
  }
  ZelNode* createKeySig(ZelNodeType type, const ApiPmId& id) override {
    return zelXmlCreateSignal(*this, zelGroupPoseFields.KeySig, type, id);
  }
  bool getKeySig(ApiPmId& id) const override { return zelXmlGetField(*this, zelGroupPoseFields.KeySig, id); }
  bool setPosesRef(const Poses& v) override { return zelXmlSetField(*this, zelGroupPoseFields.PosesRef, v); }
  bool getPosesRef(Poses& v) const override { return zelXmlGetField(*this, zelGroupPoseFields.PosesRef, v); }
  bool setDeviceGroup(const ApiPmId& v) override {
    return zelXmlSetField(*this, zelGroupPoseFields.DeviceGroup, v);
  }
  bool getDeviceGroup(ApiPmId& v) const override {
    return zelXmlGetField(*this, zelGroupPoseFields.DeviceGroup, v);
  }
};

#pragma once

#include "node/ZelXmlFace.h"
#include "plc/ZelXmlPlcResourceData.h"
#include "zel/ZelPlcDeviceInstance.h"
#include "zel/ZelPlcGenericConveyorInstance.h"
#include "zel/ZelPlcPoseHoldingResourceInstance.h"
#include "zel/ZelPlcRobotInstance.h"

// The PLC side of a resource, on the resource node `Base`. One that was read from a document has it; one that
// was made in this session gains it with its prototype, or its place as a tool, and only then it takes PLC
// data.
template <class Base>
class ZelXmlPlcResourceNode : public Base {
 public:
  bool createSubnodes() override {
    IXMLDOMNode info;
    gainPlcSide();
    this->getPlcInfo(info);
    return zelXmlCreatePlcResourceNodes(this->getWrapper(), info);
  }
  // False without PLC side.
  bool removeRequisites() override {
    IXMLDOMNode info;
    this->getPlcInfo(info);
    return hasPlcSide_ && zelXmlRemovePlcResourceNodes(this->getWrapper(), info);
  }
  void gainPlcSide() override { hasPlcSide_ = hasPlcSide_ || this->getWrapper(); }

  bool hasPlcSide() const { return hasPlcSide_; }
  // Call `work(wrapper, group)`: the first for those who write, which makes the group where there is none;
  // false or null without PLC side. The second for those who read; false without group.
  template <class Work>
  auto inPlcGroup(Work&& work) {
    IXMLDOMNode info;
    using Answer = decltype(work(this->getWrapper(), info));
    return hasPlcSide_ && this->getOrCreatePlcInfo(info) ? work(this->getWrapper(), info) : Answer{};
  }
  template <class Work>
  bool ofPlcGroup(Work&& work) const {
    IXMLDOMNode info;
    return this->getPlcInfo(info) && work(this->getWrapper(), info);
  }
  template <class Held>
  ZelNode* createPlcResourceSignal(const ZelField<Held>& row, ZelNodeType type, const ApiPmId& id) {
    return inPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlCreatePlcResourceSignal(wrapper, info, row, type, id);
    });
  }

 private:
  bool hasPlcSide_ = false;
};

template <class Self>
class ZelXmlFace<ZelPlcDeviceInstance, Self> : public ZelXmlSharedFace<ZelPlcDeviceInstance, Self> {
  using ZelXmlSharedFace<ZelPlcDeviceInstance, Self>::self;

 public:
  bool setDeviceClass(const RWClassicWString& deviceClass) override {
    return self().hasPlcSide() && zelXmlSetField(self(), zelPlcResourceFields.DeviceClass, deviceClass);
  }
  bool getDeviceClass(RWClassicWString& deviceClass) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.DeviceClass, deviceClass);
  }
  bool setValveType(std::int32_t type) override {
    return self().hasPlcSide() && zelXmlSetField(self(), zelPlcResourceFields.ValveType, type);
  }
  bool getValveType(std::int32_t& type) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ValveType, type);
  }
  ZelNode* createConveyorSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ConveyorSig, type, id);
  }
  bool getConveyorSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ConveyorSig, id);
  }
  bool setConveyorTrackingRobots(const ApiPmIdList& robots) override {
    return self().inPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlSetPlcTrackingRobots(wrapper, info, robots);
    });
  }
  bool getConveyorTrackingRobots(ApiPmIdList& robots) const override {
    return self().ofPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlGetPlcTrackingRobots(wrapper, info, robots);
    });
  }
  bool isOriginalPlcData(bool& original) const override { return self().isOriginal(original); }
};

template <class Self>
class ZelXmlFace<ZelPlcRobotInstance, Self> : public ZelXmlSharedFace<ZelPlcRobotInstance, Self> {
  using ZelXmlSharedFace<ZelPlcRobotInstance, Self>::self;
  using Numbers = ZelPlcRobotInstance::ConveyorNumbers;

 public:
  ZelNode* createProgStartSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ProgStartSig, type, id);
  }
  bool getProgStartSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ProgStartSig, id);
  }
  ZelNode* createProgNumberSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ProgNumberSig, type, id);
  }
  bool getProgNumberSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ProgNumberSig, id);
  }
  ZelNode* createProgStopSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ProgStopSig, type, id);
  }
  bool getProgStopSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ProgStopSig, id);
  }
  ZelNode* createProgEndedSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ProgEndedSig, type, id);
  }
  bool getProgEndedSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ProgEndedSig, id);
  }
  ZelNode* createProgMirrorSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ProgMirrorSig, type, id);
  }
  bool getProgMirrorSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ProgMirrorSig, id);
  }
  ZelNode* createProgErrorSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ProgErrorSig, type, id);
  }
  bool getProgErrorSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ProgErrorSig, id);
  }
  ZelNode* createRobotReadySig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.RobotReadySig, type, id);
  }
  bool getRobotReadySig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.RobotReadySig, id);
  }
  ZelNode* createProgPauseSig(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ProgPauseSig, type, id);
  }
  bool getProgPauseSig(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.ProgPauseSig, id);
  }
  ZelNode* createFromRobSignal(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.FromRobSignals, type, id);
  }
  bool getFromRobSignals(ApiPmIdList& signals) const override {
    return getSignals(zelPlcResourceFields.FromRobSignals, signals);
  }
  ZelNode* createToRobSignal(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.ToRobSignals, type, id);
  }
  bool getToRobSignals(ApiPmIdList& signals) const override {
    return getSignals(zelPlcResourceFields.ToRobSignals, signals);
  }
  ZelNode* createConveyorTriggerSignal(ZelNodeType type, std::int16_t conveyor, const ApiPmId& id) override {
    return createConveyorSignal(zelPlcResourceFields.ConveyorTriggerSignals, type, conveyor, {}, id);
  }
  bool getConveyorTriggerSignals(Numbers& numbers) const override {
    ApiPmIdList conveyors;
    return getConveyorSignals(zelPlcResourceFields.ConveyorTriggerSignals, numbers, conveyors);
  }
  ZelNode* createConveyorPositionSignal(ZelNodeType type, std::int16_t conveyor, const ApiPmId& conveyorId,
                                        const ApiPmId& id) override {
    return createConveyorSignal(zelPlcResourceFields.ConveyorPositionSignals, type, conveyor, conveyorId, id);
  }
  bool getConveyorPositionSignals(Numbers& numbers, ApiPmIdList& conveyors) const override {
    return getConveyorSignals(zelPlcResourceFields.ConveyorPositionSignals, numbers, conveyors);
  }
  bool isOriginalPlcData(bool& original) const override { return self().isOriginal(original); }

 private:
  bool getSignals(const ZelField<ZelHeldIds>& row, ApiPmIdList& signals) const {
    return self().ofPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlGetPlcSignals(wrapper, info, row, signals);
    });
  }
  ZelNode* createConveyorSignal(const ZelField<ZelHeldIds>& row, ZelNodeType type, std::int16_t number,
                                const ApiPmId& conveyor, const ApiPmId& id) {
    return self().inPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlCreatePlcConveyorSignal(wrapper, info, row, type, number, conveyor, id);
    });
  }
  bool getConveyorSignals(const ZelField<ZelHeldIds>& row, Numbers& numbers, ApiPmIdList& conveyors) const {
    return self().ofPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlGetPlcConveyorSignals(wrapper, info, row, numbers, conveyors);
    });
  }
};

template <class Self>
class ZelXmlFace<ZelPlcPoseHoldingResourceInstance, Self>
    : public ZelXmlSharedFace<ZelPlcPoseHoldingResourceInstance, Self> {
  using ZelXmlSharedFace<ZelPlcPoseHoldingResourceInstance, Self>::self;

 public:
  ZelNode* createSensor(ZelNodeType type, const ApiPmId& id) override {
    return self().inPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlCreatePlcResourceSensor(wrapper, info, type, id);
    });
  }
  bool getSensors(ApiPmIdList& sensors) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.Sensors, sensors);
  }
  ZelNode* createPose(const ApiPmId& id) override {
    return self().inPlcGroup([&](ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
      return zelXmlCreatePlcResourcePose(wrapper, info, id);
    });
  }
  bool getPoses(ApiPmIdList& poses) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.Poses, poses);
  }
  bool isOriginalPlcData(bool& original) const override { return self().isOriginal(original); }
};

template <class Self>
class ZelXmlFace<ZelPlcGenericConveyorInstance, Self>
    : public ZelXmlSharedFace<ZelPlcGenericConveyorInstance, Self> {
  using ZelXmlSharedFace<ZelPlcGenericConveyorInstance, Self>::self;

 public:
  ZelNode* createGenericConveyorSignal(ZelNodeType type, const ApiPmId& id) override {
    return self().createPlcResourceSignal(zelPlcResourceFields.GenericConveyorSignal, type, id);
  }
  bool getGenericConveyorSignal(ApiPmId& id) const override {
    return zelXmlGetField(self(), zelPlcResourceFields.GenericConveyorSignal, id);
  }
};

#pragma once

#include "node/ZelXmlFace.h"
#include "resource/ZelXmlResInstanceBaseNode.h"
#include "zel/ZelResourceInstance.h"
#include "zel/ZelTool.h"
#include "zel/ZelVorResourceInstance.h"

// How resource instances serve the interfaces of robots and tools: `Self` is a ZelXmlResInstanceBaseNode.

template <class Self>
class ZelXmlFace<ZelResourceInstance, Self> : public ZelXmlSharedFace<ZelResourceInstance, Self> {
  using ZelXmlSharedFace<ZelResourceInstance, Self>::self;
  using typename ZelResourceInstance::Frames;
  using typename ZelResourceInstance::RoboticParameters;

 public:
  bool getMountedTools(ApiPmIdList& tools) const override {
    return self().globalAttachment().getMountedTools(tools);
  }
  bool getMountedTo(ApiPmId& target, RTTran3D& placement) const override {
    return self().globalAttachment().getMountedTo(target, placement);
  }
  bool setMountLocation(const RTTran3D& placement) override {
    return self().globalAttachment().setMountLocation(placement);
  }
  bool setMount(const ApiPmId& oldTarget, const ApiPmId& newTarget, const RTTran3D& placement) override {
    return self().globalAttachment().setMount(oldTarget, newTarget, placement);
  }
  bool setRobotSetupTime(double seconds) override {
    return zelXmlSetField(self(), zelPlcDataFields.robotSetupTime, seconds);
  }
  bool getRobotSetupTime(double& seconds) const override {
    return zelXmlGetField(self(), zelPlcDataFields.robotSetupTime, seconds);
  }
  bool getController(RWClassicWString& controller) const override {
    return zelXmlGetField(self(), zelResourceFields.Controller, controller);
  }
  bool getControllerVersion(RWClassicWString& version) const override {
    return zelXmlGetField(self(), zelResourceFields.ControllerVersion, version);
  }
  bool getManipulatorType(RWClassicCString& type) const override {
    return zelXmlGetField(self(), zelResourceFields.ManipulatorType, type);
  }
  bool setController(const RWClassicWString& controller) override {
    return zelXmlSetField(self(), zelResourceFields.Controller, controller);
  }
  bool setControllerVersion(const RWClassicWString& version) override {
    return zelXmlSetField(self(), zelResourceFields.ControllerVersion, version);
  }
  bool setManipulatorType(const RWClassicCString& type) override {
    return zelXmlSetField(self(), zelResourceFields.ManipulatorType, type);
  }
  bool addSystemFrames(const Frames& frames) override { return self().appendSystemFrames(frames); }
  bool getSystemFrames(RWCollectionRef<ApiPmRobotFramesData> frames) const override {
    return self().readSystemFrames(frames);
  }
  bool clearSystemFrames() override { return self().dropGroup("systemFrames"); }
  bool addRoboticParameters(const RoboticParameters& parameters) override {
    return self().appendRoboticParameters(parameters);
  }
  bool getRoboticParameters(RWCollectionRef<RTAutoPtr<ApiTbmRoboticParam>> parameters) const override {
    return self().readRoboticParameters(parameters);
  }
  bool clearRoboticParameters() override { return self().dropGroup("roboticParameters"); }
};

template <class Self>
class ZelXmlFace<ZelVorResourceInstance, Self> : public ZelXmlSharedFace<ZelVorResourceInstance, Self> {
  using ZelXmlSharedFace<ZelVorResourceInstance, Self>::self;
  using typename ZelVorResourceInstance::Toolbox;

 public:
  bool getRobotPathName(RWClassicCString& name) const override {
    return zelXmlGetField(self(), zelResourceFields.RobotPathName, name);
  }
  bool setRobotPathName(const RWClassicCString& name) override {
    return zelXmlSetField(self(), zelResourceFields.RobotPathName, name);
  }
  bool getToolboxData(RWCollectionRef<ApiPmRobotToolBoxData> uses) const override {
    return self().readToolbox(uses);
  }
  bool clearToolboxData() override { return self().dropToolbox(); }
  bool addToolboxData(const Toolbox& uses) override { return self().appendToolbox(uses); }
  bool getNeedToPropagate(bool& needed) const override {
    int number = 0;
    if (!zelXmlGetField(self(), zelResourceFields.needToPropagate, number)) return false;
    needed = number != 0;
    return true;
  }
};

template <class Self>
class ZelXmlFace<ZelTool, Self> : public ZelXmlSharedFace<ZelTool, Self> {
  using ZelXmlSharedFace<ZelTool, Self>::self;

 public:
  bool getChildId(ApiPmPrototypeChildId& id) const override { return self().readOccurrenceChildId(id); }
  bool setChildId(const ApiPmPrototypeChildId& id) override {
    ApiPmId occurrence;
    const bool found = self().findOccurrence(id, occurrence);
    return namesMaster(found && zelXmlSetField(self(), zelInstanceFields.masterObj, occurrence));
  }
  bool setMasterObj(const ApiPmId& object) override {
    return namesMaster(zelXmlSetField(self(), zelInstanceFields.masterObj, object));
  }

 private:
  // A resource that was given a place as a tool takes PLC data from then on, whatever came of it.
  bool namesMaster(bool written) {
    self().gainPlcSide();
    return written;
  }
};

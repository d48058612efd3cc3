#pragma once

#include "api/ApiPmIds.h"
#include "rw/RWClassicTValOrderedVector.h"
#include "rw/RWClassicText.h"
#include "zel/ZelNodeType.h"

// Base of every interface of a node. An object has one identity, many interfaces, and one implementation of
// the operations below, whichever interface they are called through. Node objects belong to their wrapper.
//
// Getters answer false, and leave the result untouched, when the node has no such value. Setters answer false
// when nothing, or not everything, was written; what stands then is said at the operation.
class ZelNode {
 public:
  // What queryInterface takes. This number space has nothing to do with ZelNodeType.
  enum InterfaceType : int {
    Operation = 0,
    Physical = 1,
    Collection = 2,
    Link = 5,
    VorLabel = 11,
    Prototype = 12,
    Instance = 13,
    ResourceInstance = 14,
    CompoundPart = 15,
    CompoundResource = 16,
    PrototypeAssignment = 17,
    VorLabelsContainer = 18,
    VorNode = 19,
    PlcOperation = 20,
    PlcLink = 21,
    VorCompoundPart = 22,
    VorCompoundResource = 23,
    VorCompoundOperation = 24,
    VorPlaceholder = 25,
    VorProcessAssembly = 26,
    VorResourcePlaceholder = 27,
    PlcResourceInstance = 28,
    VorStudy = 29,
    VorCollection = 30,
    PlcProgram = 42,
    PlcK9Program = 43,
    PlcDeviceInstance = 44,
    PlcRobotInstance = 45,
    LightSensor = 46,
    LightSensorPrototype = 47,
    ProximitySensor = 48,
    PropertyProjector = 49,
    PropertySensor = 50,
    PropertySensorPrototype = 51,
    DeviceSensor = 52,
    DeviceDistanceSensor = 53,
    DeviceGroup = 54,
    GroupPose = 55,
    PlcPoseHoldingResourceInstance = 56,
    Pose = 57,
    Signal = 58,
    Control = 59,
    ControlCall = 60,
    SignalInstance = 61,
    MaterialFlow = 62,
    VorResourceInstance = 68,
    PropertySensorOnProgram = 78,
    Tool = 89,
    VorPrototypeOccurrence = 90,
    CompoundObject = 103,
    VorInstance = 106,
    VariantFilter = 129,
    VariantSet = 130,
    PlcGenericConveyorInstance = 132,
    GlobalAttachment = 133,
  };

  virtual ~ZelNode() = default;

  virtual bool getExternalId(ApiPmId& id) const = 0;
  virtual ZelNodeType type() const = 0;
  virtual bool getName(RWClassicWString& name) const = 0;
  virtual bool getCaption(RWClassicWString& caption) const = 0;
  // False without a field to write; nothing is changed then.
  virtual bool setName(const RWClassicWString& name) = 0;
  // The parent that counts for tree walks: null for a root, and when that parent has no node.
  virtual const ZelNode* getParent() const = 0;
  virtual ZelNode* getParent() = 0;
  virtual bool getParentId(ApiPmId& id) const = 0;
  // Class name of the object.
  virtual bool getStringType(RWClassicWString& type) const = 0;
  virtual bool getDescription(RWClassicWString& description) const = 0;
  // Makes the field if there is none.
  virtual bool setDescription(const RWClassicWString& description) = 0;
  // The interface of this object for a number, null for one that it does not serve.
  virtual const ZelNode* queryInterface(InterfaceType type) const = 0;
  virtual ZelNode* queryInterface(InterfaceType type) = 0;
};

using ZelNodeList = RWClassicTValOrderedVector<ZelNode*>;

// The interface I of a node, or null; also for a null node. Interfaces name their number as I::interfaceType.
template <class I>
I* zelQuery(ZelNode* node) {
  return node ? static_cast<I*>(node->queryInterface(I::interfaceType)) : nullptr;
}
template <class I>
const I* zelQuery(const ZelNode* node) {
  return node ? static_cast<const I*>(node->queryInterface(I::interfaceType)) : nullptr;
}

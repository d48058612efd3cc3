#include "zelstudy/NodeNames.h"

#include "node/ZelXmlNodeKinds.h"

namespace zelstudy {

namespace {

struct Name {
  int number;
  std::string_view text;
};

constexpr Name interfaceNames[] = {
    {ZelNode::Operation, "Operation"},
    {ZelNode::Physical, "Physical"},
    {ZelNode::Collection, "Collection"},
    {ZelNode::Link, "Link"},
    {ZelNode::VorLabel, "VorLabel"},
    {ZelNode::Prototype, "Prototype"},
    {ZelNode::Instance, "Instance"},
    {ZelNode::ResourceInstance, "ResourceInstance"},
    {ZelNode::CompoundPart, "CompoundPart"},
    {ZelNode::CompoundResource, "CompoundResource"},
    {ZelNode::PrototypeAssignment, "PrototypeAssignment"},
    {ZelNode::VorLabelsContainer, "VorLabelsContainer"},
    {ZelNode::VorNode, "VorNode"},
    {ZelNode::PlcOperation, "PlcOperation"},
    {ZelNode::PlcLink, "PlcLink"},
    {ZelNode::VorCompoundPart, "VorCompoundPart"},
    {ZelNode::VorCompoundResource, "VorCompoundResource"},
    {ZelNode::VorCompoundOperation, "VorCompoundOperation"},
    {ZelNode::VorPlaceholder, "VorPlaceholder"},
    {ZelNode::VorProcessAssembly, "VorProcessAssembly"},
    {ZelNode::VorResourcePlaceholder, "VorResourcePlaceholder"},
    {ZelNode::PlcResourceInstance, "PlcResourceInstance"},
    {ZelNode::VorStudy, "VorStudy"},
    {ZelNode::VorCollection, "VorCollection"},
    {ZelNode::PlcProgram, "PlcProgram"},
    {ZelNode::PlcK9Program, "PlcK9Program"},
    {ZelNode::PlcDeviceInstance, "PlcDeviceInstance"},
    {ZelNode::PlcRobotInstance, "PlcRobotInstance"},
    {ZelNode::LightSensor, "LightSensor"},
    {ZelNode::LightSensorPrototype, "LightSensorPrototype"},
    {ZelNode::ProximitySensor, "ProximitySensor"},
    {ZelNode::PropertyProjector, "PropertyProjector"},
    {ZelNode::PropertySensor, "PropertySensor"},
    {ZelNode::PropertySensorPrototype, "PropertySensorPrototype"},
    {ZelNode::DeviceSensor, "DeviceSensor"},
    {ZelNode::DeviceDistanceSensor, "DeviceDistanceSensor"},
    {ZelNode::DeviceGroup, "DeviceGroup"},
    {ZelNode::GroupPose, "GroupPose"},
    {ZelNode::PlcPoseHoldingResourceInstance, "PlcPoseHoldingResourceInstance"},
    {ZelNode::Pose, "Pose"},
    {ZelNode::Signal, "Signal"},
    {ZelNode::Control, "Control"},
    {ZelNode::ControlCall, "ControlCall"},
    {ZelNode::SignalInstance, "SignalInstance"},
    {ZelNode::MaterialFlow, "MaterialFlow"},
    {ZelNode::VorResourceInstance, "VorResourceInstance"},
    {ZelNode::PropertySensorOnProgram, "PropertySensorOnProgram"},
    {ZelNode::Tool, "Tool"},
    {ZelNode::VorPrototypeOccurrence, "VorPrototypeOccurrence"},
    {ZelNode::CompoundObject, "CompoundObject"},
    {ZelNode::VorInstance, "VorInstance"},
    {ZelNode::VariantFilter, "VariantFilter"},
    {ZelNode::VariantSet, "VariantSet"},
    {ZelNode::PlcGenericConveyorInstance, "PlcGenericConveyorInstance"},
    {ZelNode::GlobalAttachment, "GlobalAttachment"},
};

}  // namespace

std::string_view nodeTypeName(int type) { return ZelXmlNodeKinds::of(static_cast<ZelNodeType>(type)).word; }

std::string_view interfaceName(int number) {
  for (const Name& name : interfaceNames)
    if (name.number == number) return name.text;
  return {};
}

}  // namespace zelstudy

#include "zelstudy/NodeNames.h"

#include <span>

#include "zel/ZelNode.h"

namespace zelstudy {

namespace {

struct Name {
  int number;
  std::string_view text;
};

constexpr Name typeNames[] = {
    {ZEL_STUDY, "study"},
    {ZEL_PART_INSTANCE, "part instance"},
    {ZEL_RESOURCE_INSTANCE, "resource instance"},
    {ZEL_COMPOUND_PART, "compound part"},
    {ZEL_COMPOUND_RESOURCE, "compound resource"},
    {ZEL_PART_PLACEHOLDER, "part placeholder"},
    {ZEL_RESOURCE_PLACEHOLDER, "resource placeholder"},
    {ZEL_PART_PROTOTYPE, "part prototype"},
    {ZEL_RESOURCE_PROTOTYPE, "resource prototype"},
    {ZEL_LIGHT_SENSOR_PROTOTYPE, "light sensor prototype"},
    {ZEL_LABEL, "label"},
    {ZEL_PART_PROTOTYPE_ASSIGNMENT, "part prototype assignment"},
    {ZEL_RESOURCE_PROTOTYPE_ASSIGNMENT, "resource prototype assignment"},
    {ZEL_FLOW, "flow"},
    {ZEL_PROCESS_ASSEMBLY, "process assembly"},
    {ZEL_OPERATION, "operation"},
    {ZEL_LIGHT_SENSOR_INSTANCE, "light sensor instance"},
    {ZEL_PROPERTY_SENSOR_INSTANCE, "property sensor instance"},
    {ZEL_PLC_PROGRAM, "PLC program"},
    {ZEL_DEVICE_SENSOR, "device sensor"},
    {ZEL_DEVICE_DISTANCE_SENSOR, "device distance sensor"},
    {ZEL_DEVICE_GROUP, "device group"},
    {ZEL_GROUP_POSE, "group pose"},
    {ZEL_POSE, "pose"},
    {ZEL_SIGNAL, "signal"},
    {ZEL_CONTROL, "control"},
    {ZEL_CONTROL_CALL, "control call"},
    {ZEL_PROXIMITY_SENSOR, "proximity sensor"},
    {ZEL_PROPERTY_PROJECTOR, "property projector"},
    {ZEL_SIGNAL_INSTANCE, "signal instance"},
    {ZEL_MATERIAL_FLOW, "material flow"},
    {ZEL_PROPERTY_SENSOR_ON_PROGRAM, "property sensor on program"},
    {ZEL_PROPERTY_SENSOR_PROTOTYPE, "property sensor prototype"},
    {ZEL_EQUIPMENT_INSTANCE, "equipment instance"},
    {ZEL_EQUIPMENT_PROTOTYPE, "equipment prototype"},
    {ZEL_EQUIPMENT_PROTOTYPE_ASSIGNMENT, "equipment prototype assignment"},
    {ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE, "equipment prototype occurrence"},
    {ZEL_VARIANT_FILTER_LIBRARY, "variant filter library"},
    {ZEL_VARIANT_FILTER, "variant filter"},
    {ZEL_VARIANT_SET, "variant set"},
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

std::string_view find(std::span<const Name> names, int number) {
  for (const Name& name : names)
    if (name.number == number) return name.text;
  return {};
}

}  // namespace

std::string_view nodeTypeName(int type) { return find(typeNames, type); }
std::string_view interfaceName(int number) { return find(interfaceNames, number); }

}  // namespace zelstudy

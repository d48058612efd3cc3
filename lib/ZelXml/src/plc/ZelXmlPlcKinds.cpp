#include "plc/ZelXmlPlcKinds.h"

#include "plc/ZelXmlDeviceGroup.h"
#include "plc/ZelXmlPlcK9Program.h"

namespace {

using Kind = ZelXmlNodeKind;
using Import = Kind::Import;
using Shape = ZelXmlShape;

constexpr Kind inner(ZelNodeType type, std::string_view word, std::string_view pattern,
                     ZelNode::InterfaceType face) {
  return {.type = type, .word = word, .order = 0, .pattern = pattern, .innerInterface = face};
}

constexpr Kind kinds[] = {
    {ZEL_PLC_PROGRAM, "PLC program", 23, "PLCProgram", "PLCProgram", Shape::any, "", Kind::plcData,
     Import::nothing, &zelXmlAllocator<ZelXmlPlcK9Program>},
    {ZEL_DEVICE_GROUP, "device group", 24, "Resource", "DeviceGroup", Shape::namedWithChildren, "",
     Kind::collection | Kind::entersChildren | Kind::plcData, Import::nothing,
     &zelXmlAllocator<ZelXmlDeviceGroup>},
    {.type = ZEL_PLC_RESERVED, .word = {}, .order = 0, .traits = Kind::plcData},
    // Inside `plcInfo`.
    inner(ZEL_SIGNAL, "signal", "Signal", ZelNode::Signal),
    inner(ZEL_CONTROL, "control", "Control", ZelNode::Control),
    inner(ZEL_CONTROL_CALL, "control call", "ControlCall", ZelNode::ControlCall),
    inner(ZEL_DEVICE_SENSOR, "device sensor", "JointSensor", ZelNode::DeviceSensor),
    inner(ZEL_DEVICE_DISTANCE_SENSOR, "device distance sensor", "DistanceSensor",
          ZelNode::DeviceDistanceSensor),
    inner(ZEL_POSE, "pose", "Pose", ZelNode::Pose),
    inner(ZEL_GROUP_POSE, "group pose", "GroupPose", ZelNode::GroupPose),
    inner(ZEL_PROXIMITY_SENSOR, "proximity sensor", "ProximitySensor", ZelNode::ProximitySensor),
    inner(ZEL_SIGNAL_INSTANCE, "signal instance", "SignalInstance", ZelNode::SignalInstance),
    inner(ZEL_PROPERTY_SENSOR_ON_PROGRAM, "property sensor on program", "PropertySensorOnProgram",
          ZelNode::PropertySensorOnProgram),
    inner(ZEL_PROPERTY_PROJECTOR, "property projector", "PropertyProjector", ZelNode::PropertyProjector),
};

}  // namespace

ZelXmlNodeKinds::Rows zelXmlPlcKinds() { return kinds; }

#pragma once

#include "zel/ZelNodeType.h"

// The types of inner nodes that documents name by a text, one row each. No number and no text stands twice; a
// text that documents hold is kept for good.
namespace plc {

struct Type {
  ZelNodeType number;
  const char* text;
};

inline constexpr Type types[] = {
    {ZEL_DEVICE_SENSOR, "PlcDeviceSensor"},
    {ZEL_DEVICE_DISTANCE_SENSOR, "PlcDeviceDistanceSensor"},
    {ZEL_GROUP_POSE, "PlcGroupPose"},
    {ZEL_POSE, "PlcPose"},
    {ZEL_SIGNAL, "PlcSignal"},
    {ZEL_CONTROL, "PlcControl"},
    {ZEL_CONTROL_CALL, "PlcControlCall"},
    {ZEL_KEY_SIGNAL, "PlcKeySignal"},
    {ZEL_DEVICE_SENSOR_SIGNAL, "PlcDeviceSensorSignal"},
    {ZEL_TO_ROBOT_SIGNAL, "PlcToRobotSignal"},
    {ZEL_FROM_ROBOT_SIGNAL, "PlcFromRobotSignal"},
    {ZEL_RESOURCE_INPUT_SIGNAL, "PlcResourceInputSignal"},
    {ZEL_RESOURCE_OUTPUT_SIGNAL, "PlcResourceOutputSignal"},
    {ZEL_DEVICE_POSE_SENSOR, "PlcDevicePoseSensor"},
    {ZEL_PROXIMITY_SENSOR, "PlcProximitySensor"},
    {ZEL_PROPERTY_PROJECTOR, "PlcPropertyProjector"},
    {ZEL_SIGNAL_INSTANCE, "PlcSignalInstance"},
    {ZEL_PROPERTY_SENSOR_ON_PROGRAM, "PlcPropertySensorOnProgram"},
};

// Null for a type without text.
constexpr const char* textOf(ZelNodeType number) {
  for (const Type& type : types)
    if (type.number == number) return type.text;
  return nullptr;
}

}  // namespace plc

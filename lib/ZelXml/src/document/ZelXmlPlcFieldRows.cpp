#include "document/ZelXmlPlcFieldRows.h"

std::span<const ZelFieldGroup> zelXmlPlcNodeFieldGroups() {
  static const ZelFieldGroup groups[] = {
      {"", zelFieldRows<ZelPlcNodeFields>()},
      {"Signal", zelFieldRows<ZelSignalFields>()},
      {"Control", zelFieldRows<ZelControlFields>()},
      {"ControlCall", zelFieldRows<ZelControlCallFields>()},
      {"JointSensor", zelFieldRows<ZelDeviceSensorFields>()},
      {"DistanceSensor", zelFieldRows<ZelDistanceSensorFields>()},
      {"ProximitySensor", zelFieldRows<ZelProximitySensorFields>()},
      {"Pose", zelFieldRows<ZelPoseFields>()},
      {"GroupPose", zelFieldRows<ZelGroupPoseFields>()},
      {"PropertyProjector", zelFieldRows<ZelPropertyProjectorFields>()},
      {"PropertySensorOnProgram", zelFieldRows<ZelPropertySensorOnProgramFields>()},
  };
  return groups;
}

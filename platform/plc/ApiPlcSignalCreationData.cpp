#include "api/ApiPlcSignalCreationData.h"

#include "plc/PlcTypeTable.h"

namespace {

// A row that is missing fails to compile.
template <ZelNodeType number>
RWClassicCString text() {
  static_assert(plc::textOf(number) != nullptr);
  return plc::textOf(number);
}

}  // namespace

RWClassicCString ApiPlcKeySignalCreationData::typeText() const { return text<ZEL_KEY_SIGNAL>(); }
RWClassicCString ApiPlcDeviceSensorSignalCreationData::typeText() const {
  return text<ZEL_DEVICE_SENSOR_SIGNAL>();
}
RWClassicCString ApiPlcToRobotSignalCreationData::typeText() const { return text<ZEL_TO_ROBOT_SIGNAL>(); }
RWClassicCString ApiPlcFromRobotSignalCreationData::typeText() const { return text<ZEL_FROM_ROBOT_SIGNAL>(); }
RWClassicCString ApiPlcResourceInputSignalCreationData::typeText() const {
  return text<ZEL_RESOURCE_INPUT_SIGNAL>();
}
RWClassicCString ApiPlcResourceOutputSignalCreationData::typeText() const {
  return text<ZEL_RESOURCE_OUTPUT_SIGNAL>();
}

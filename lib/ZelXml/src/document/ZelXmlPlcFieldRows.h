#pragma once

#include "document/ZelXmlFieldRows.h"

// The plain fields of control logic: those of the nodes inside `plcInfo`, which stand below the element of
// the node, and those that operations, flows and resources keep in `plcInfo` itself.

// Of all nodes inside `plcInfo`; name and comment of sensors, poses and projectors alone.
struct ZelPlcNodeFields : ZelFieldWords {
  ZelField<std::string> StringType{"StringType", "its type", adds};
  ZelField<int> Type{"Type", "its type by an older number"};
  ZelField<std::string> name{"name", "its name", adds, words};
  ZelField<std::string> comment{"comment", "description of it", adds, words};
};

struct ZelSignalFields : ZelFieldWords {
  ZelField<std::string> Stream{"Stream", "content in serialised form", adds};
  ZelField<ApiPmId> SigOp{"SigOp", "the operation that it belongs to", adds};
  ZelField<ApiPmId> SigSFC{"SigSFC", "its sequence element", adds};
  ZelField<ApiPmId> SigTar{"SigTar", "its target object", adds};
  ZelField<ApiPmId> SigDev{"SigDev", "its device", adds};
  ZelField<std::string> SigPose{"SigPose", "name of its pose", adds};
  ZelField<std::string> Property{"Property", "name of its property", adds};
  ZelField<std::string> SigExternalConnectionName{"SigExternalConnectionName",
                                                  "name of the external connection", adds};
  ZelField<std::string> SigOpcConnectionName{"SigOpcConnectionName",
                                             "name of the external connection in older documents"};
};

struct ZelControlFields : ZelFieldWords {
  ZelField<std::string> Stream{"Stream", "content in serialised form", adds};
  ZelField<ZelHeldIds> CallsToCtrls{"CallsToCtrls", "its calls"};
};

struct ZelControlCallFields : ZelFieldWords {
  ZelField<std::string> Stream{"Stream", "content in serialised form", adds};
  ZelField<ApiPmId> CalledControl{"CalledControl", "the control that is called", adds};
  ZelField<ApiPmId> DataBlock{"DataBlock", "its data block", adds};
  ZelField<ApiPmId> TargetSig{"TargetSig", "the signal that it sets", adds};
  ZelField<std::string> SourceExpr{"SourceExpr", "the expression that it takes", adds};
  ZelField<ZelHeldIds> CallsToCtrls{"CallsToCtrls", "the calls below it"};
  ZelField<ZelHeldId> ElseCompoundControlCall{"ElseCompoundControlCall", "the call of its else branch"};
};

struct ZelDeviceSensorFields : ZelFieldWords {
  ZelField<std::uint32_t> PrimaryJoint{"PrimaryJoint", "number of its joint", adds};
  ZelField<double> RangeValue{"RangeValue", "joint value that it answers to", adds};
  ZelField<double> RangeLow{"RangeLow", "low end of the range", adds};
  ZelField<double> RangeHigh{"RangeHigh", "high end of the range", adds};
  ZelField<bool> IsInverse{"IsInverse", "it answers outside the range", adds};
  ZelField<ZelHeldId> SensorSig{"SensorSig", "its signal"};
  ZelField<ApiPmExtendedId> PoseRef{"PoseRef", "its pose", adds};
  ZelField<std::string> PoseName{"PoseName", "name of its pose", adds};
  ZelField<ApiPmId> SensorDevice{"SensorDevice", "its device", adds};
};

struct ZelDistanceSensorFields : ZelFieldWords {
  ZelField<std::uint32_t> PrimaryJoint{"PrimaryJoint", "number of its joint", adds};
  ZelField<ZelHeldId> SensorSig{"SensorSig", "its signal"};
  ZelField<std::int32_t> ValueUnits{"ValueUnits", "unit of its values", adds};
};

struct ZelProximitySensorFields : ZelFieldWords {
  ZelField<ZelHeldId> SensorSig{"SensorSig", "its signal"};
  ZelField<ApiPmId> TargetObjRef{"TargetObjRef", "its target object", adds};
  ZelField<ApiPmIdList> PartsRefs{"PartsRefs", "the parts that it answers to", adds};
  ZelField<std::int32_t> OperatingMode{"OperatingMode", "its mode", adds};
  ZelField<double> RangeValue{"RangeValue", "its range", adds, length};
};

struct ZelPoseFields : ZelFieldWords {
  ZelField<ZelHeldId> MoveToPoseSig{"MoveToPoseSig", "the signal that moves the device there"};
  ZelField<ZelHeldId> MoveInDirSig{"MoveInDirSig", "the signal that moves the device in its direction"};
  ZelField<ZelHeldId> KeySig{"KeySig", "its key signal"};
  ZelField<std::string> PoseDevice{"PoseDevice", "its device", adds};
};

struct ZelGroupPoseFields : ZelFieldWords {
  ZelField<std::uint32_t> PrimaryJoint{"PrimaryJoint", "number of its joint", adds};
  ZelField<ZelHeldId> MoveToPoseSig{"MoveToPoseSig", "the signal that moves the devices there"};
  ZelField<ZelHeldId> MoveInDirSig{"MoveInDirSig", "the signal that moves the devices in its direction"};
  ZelField<ZelHeldId> KeySig{"KeySig", "its key signal"};
  ZelField<ZelXmlList<ApiPmNameExtendedId>> PosesRef{"PosesRef", "the poses that form it", adds};
  ZelField<ApiPmId> DeviceGroup{"DeviceGroup", "the group of its devices", adds};
};

struct ZelPropertyProjectorFields : ZelFieldWords {
  ZelField<ZelHeldIds> PPSignals{"PPSignals", "its signals, one for each property"};
  ZelField<ApiPmIdList> PartsRefs{"PartsRefs", "the parts that it gives properties", adds};
  ZelField<double> RangeValue{"RangeValue", "its range", adds, length};
  ZelField<bool> Simulated{"Simulated", "it is simulated", adds};
};

struct ZelPropertySensorOnProgramFields : ZelFieldWords {
  ZelField<bool> isActive{"isActive", "it is active", adds};
  ZelField<ApiPmIdList> PartsRefs{"PartsRefs", "the parts that it answers to", adds};
  ZelField<double> maximalRange{"maximalRange", "greatest range", adds, length};
  ZelField<double> Height{"Height", "height of the shape that it looks in", adds, length};
  ZelField<double> StartBase{"StartBase", "width of that shape at its start", adds, length};
  ZelField<double> EndBase{"EndBase", "width of that shape at its end", adds, length};
  ZelField<double> RangeValue{"RangeValue", "its range", adds, length};
  ZelField<std::string> Property{"Property", "name of its property", adds};
  ZelField<std::int32_t> DataType{"DataType", "type of the property", adds};
};

struct ZelOperationFields : ZelFieldWords {
  ZelField<ZelHeldId> StartingSig{"StartingSig", "the signal that starts it", plcInfo};
  ZelField<ZelHeldId> EndingSig{"EndingSig", "the signal that tells its end", plcInfo};
  ZelField<ZelHeldId> MemorySig{"MemorySig", "the signal that keeps its state", plcInfo};
  ZelField<std::string> Transition{"Transition", "the condition for going on", plcInfo, adds};
  ZelField<ApiPmId> GoToOperation{"GoToOperation", "the operation to go on with", plcInfo, adds};
  ZelField<bool> JumpToEnd{"JumpToEnd", "it jumps to its end", plcInfo, adds};
  ZelField<bool> UseDfltAction{"UseDfltAction", "it takes the default action", plcInfo, adds};
  ZelField<bool> JumpToStart{"JumpToStart", "it jumps to its start", plcInfo, adds};
  ZelField<std::string> Interlock{"Interlock", "expression that keeps it from running", plcInfo, adds};
  ZelField<std::string> Supervision{"Supervision", "expression that is watched while it runs", plcInfo, adds};
  ZelField<std::string> JumpToEndCond{"JumpToEndCond", "condition of the jump to its end", plcInfo, adds};
  ZelField<std::string> JumpToStartCond{"JumpToStartCond", "condition of the jump to its start", plcInfo,
                                        adds};
  ZelField<ZelXmlList<std::string>> StepActions{"StepActions", "what it does, step by step", plcInfo, adds,
                                                isFalse};
  ZelField<bool> ShouldGenerateParts{"ShouldGenerateParts", "it makes parts", plcInfo, adds};
};

struct ZelFlowFields : ZelFieldWords {
  // Read at any depth of the group.
  ZelField<int> BranchType{"BranchType", "how it stands to others that leave the same step", plcInfo, adds};
  ZelField<std::string> Condition{"Condition", "when it is taken", plcInfo, adds};
};

struct ZelMaterialFlowFields : ZelFieldWords {
  ZelField<int> BranchType{"BranchType", "how it stands to others that leave the same step", plcInfo, adds};
  ZelField<std::string> AlternativeGroup{"AlternativeGroup", "the flows of which one is taken", plcInfo,
                                         adds};
};

struct ZelPlcResourceFields : ZelFieldWords {
  ZelField<std::string> DeviceClass{"DeviceClass", "kind of device", plcInfo, adds};
  ZelField<std::int32_t> ValveType{"ValveType", "kind of valve that moves it", plcInfo, adds};
  ZelField<ZelHeldId> ConveyorSig{"ConveyorSig", "its signal as a conveyor", plcInfo};
  // Written by hand: a setter adds to the list that is there.
  ZelField<ApiPmIdList> ConveyorTrackingRobots{"ConveyorTrackingRobots", "the robots that follow it",
                                               plcInfo};
  ZelField<ZelHeldId> ProgStartSig{"ProgStartSig", "the signal that starts the program", plcInfo};
  ZelField<ZelHeldId> ProgNumberSig{"ProgNumberSig", "the signal that tells the number of the program",
                                    plcInfo};
  ZelField<ZelHeldId> ProgStopSig{"ProgStopSig", "the signal that stops the program", plcInfo};
  ZelField<ZelHeldId> ProgEndedSig{"ProgEndedSig", "the signal that tells that the program has ended",
                                   plcInfo};
  ZelField<ZelHeldId> ProgMirrorSig{"ProgMirrorSig", "the signal that repeats the number of the program",
                                    plcInfo};
  ZelField<ZelHeldId> ProgErrorSig{"ProgErrorSig", "the signal that tells a fault of the program", plcInfo};
  ZelField<ZelHeldId> ProgPauseSig{"ProgPauseSig", "the signal that holds the program", plcInfo};
  ZelField<ZelHeldId> RobotReadySig{"RobotReadySig", "the signal that tells that the robot is ready",
                                    plcInfo};
  ZelField<ZelHeldId> GenericConveyorSignal{"GenericConveyorSignal", "its signal as a conveyor of any kind",
                                            plcInfo};
  ZelField<ZelHeldIds> FromRobSignals{"FromRobSignals", "signals that the robot gives", plcInfo};
  ZelField<ZelHeldIds> ToRobSignals{"ToRobSignals", "signals that the robot takes", plcInfo};
  ZelField<ZelHeldIds> ConveyorTriggerSignals{"ConveyorTriggerSignals",
                                              "signals that a conveyor gives at a part", plcInfo};
  ZelField<ZelHeldIds> ConveyorPositionSignals{"ConveyorPositionSignals",
                                               "signals that tell where a conveyor stands", plcInfo};
  ZelField<ZelHeldIds> Sensors{"Sensors", "its sensors", plcInfo};
  ZelField<ZelHeldIds> Poses{"Poses", "its poses", plcInfo};
};

inline constexpr ZelPlcNodeFields zelPlcNodeFields;
inline constexpr ZelSignalFields zelSignalFields;
inline constexpr ZelControlFields zelControlFields;
inline constexpr ZelControlCallFields zelControlCallFields;
inline constexpr ZelDeviceSensorFields zelDeviceSensorFields;
inline constexpr ZelDistanceSensorFields zelDistanceSensorFields;
inline constexpr ZelProximitySensorFields zelProximitySensorFields;
inline constexpr ZelPoseFields zelPoseFields;
inline constexpr ZelGroupPoseFields zelGroupPoseFields;
inline constexpr ZelPropertyProjectorFields zelPropertyProjectorFields;
inline constexpr ZelPropertySensorOnProgramFields zelPropertySensorOnProgramFields;
inline constexpr ZelOperationFields zelOperationFields;
inline constexpr ZelFlowFields zelFlowFields;
inline constexpr ZelMaterialFlowFields zelMaterialFlowFields;
inline constexpr ZelPlcResourceFields zelPlcResourceFields;

// The rows of the nodes inside `plcInfo`, by the name of their elements; an empty name for those of all.
// Those of objects are among zelXmlFieldGroups.
std::span<const ZelFieldGroup> zelXmlPlcNodeFieldGroups();

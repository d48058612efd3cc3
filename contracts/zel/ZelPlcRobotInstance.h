#pragma once

#include <cstdint>

#include "rw/RWClassicTValHashDictionary.h"
#include "zel/ZelNode.h"

// The signals between a controller and a robot. For what holds of all values see ZelPlcDeviceInstance.
class ZelPlcRobotInstance : public ZelNode {
 public:
  // From the id of a signal to the number of its conveyor.
  using ConveyorNumbers = RWClassicTValHashDictionary<ApiPmId, std::int16_t>;
  static constexpr InterfaceType interfaceType = PlcRobotInstance;
  static ZelPlcRobotInstance* queryZelPlcRobotInstance(ZelNode* node) {
    return zelQuery<ZelPlcRobotInstance>(node);
  }

  // One signal each, in a holder of this name.
  virtual ZelNode* createProgStartSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getProgStartSig(ApiPmId& id) const = 0;
  virtual ZelNode* createProgNumberSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getProgNumberSig(ApiPmId& id) const = 0;
  virtual ZelNode* createProgStopSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getProgStopSig(ApiPmId& id) const = 0;
  virtual ZelNode* createProgEndedSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getProgEndedSig(ApiPmId& id) const = 0;
  virtual ZelNode* createProgMirrorSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getProgMirrorSig(ApiPmId& id) const = 0;
  virtual ZelNode* createProgErrorSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getProgErrorSig(ApiPmId& id) const = 0;
  virtual ZelNode* createRobotReadySig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getRobotReadySig(ApiPmId& id) const = 0;
  // Lists `FromRobSignals` and `ToRobSignals`. Reading appends each id once, at its first place; ids that the
  // vector held before do not count. No list is true; an entry without id ends it with false.
  virtual ZelNode* createFromRobSignal(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getFromRobSignals(ApiPmIdList& signals) const = 0;
  virtual ZelNode* createToRobSignal(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getToRobSignals(ApiPmIdList& signals) const = 0;
  // Lists `ConveyorTriggerSignals` and `ConveyorPositionSignals`: signals, each with the number of a conveyor
  // and, in the second list, the conveyor itself unless that is null. Number and conveyor are written also
  // when the signal could not be made.
  //
  // Reading replaces `numbers` by the signals of the whole list, and `conveyors` by four ids: those of the
  // conveyors 1 to 4, null where there is none. Other numbers have no place there. False, and nothing
  // touched, for a list without entries; an entry that lacks signal or number ends it with false, with those
  // before it in `numbers` and `conveyors` untouched.
  virtual ZelNode* createConveyorTriggerSignal(ZelNodeType type, std::int16_t conveyor,
                                               const ApiPmId& id) = 0;
  virtual bool getConveyorTriggerSignals(ConveyorNumbers& numbers) const = 0;
  virtual ZelNode* createConveyorPositionSignal(ZelNodeType type, std::int16_t conveyor,
                                                const ApiPmId& conveyorId, const ApiPmId& id) = 0;
  virtual bool getConveyorPositionSignals(ConveyorNumbers& numbers, ApiPmIdList& conveyors) const = 0;
  // As in ZelPlcResourceInstance.
  virtual bool isOriginalPlcData(bool& original) const = 0;
  // As the signals above.
  virtual ZelNode* createProgPauseSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getProgPauseSig(ApiPmId& id) const = 0;
};

#pragma once

#include "zel/ZelNode.h"

// Control logic of an operation: what starts it and tells its end, what its events set, where it jumps to.
//
// Unless told otherwise values are fields of `plcInfo`, which the first write makes. A setter adds a field
// beside one that is there and publishes nothing; a getter takes the first, and is false without `plcInfo`
// and without the field. A setter that answers false may leave the field that it has added.
class ZelPlcOperation : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PlcOperation;
  static ZelPlcOperation* queryZelPlcOperation(ZelNode* node) { return zelQuery<ZelPlcOperation>(node); }

  // The signal that tells the end, in the holder `EndingSig`. Made as said at ZelSignal.
  virtual ZelNode* createEndingSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getEndingSig(ApiPmId& id) const = 0;
  // Field `Transition`: the condition for going on.
  virtual bool setTransition(const RWClassicWString& condition) = 0;
  virtual bool getTransition(RWClassicWString& condition) const = 0;
  // Appends to the table of the event `key` that the signal takes this value then. Keys are those of the
  // whole document: under a key of another operation the entry goes into the table of that one, goes with
  // its `plcInfo` and is published with it. The key is data: no character in it has a meaning. A failure
  // leaves what was made before it.
  virtual bool addEventSig(const RWClassicWString& key, const RWClassicWString& signal,
                           const RWClassicCString& value) = 0;
  // Appends the ids of the signals and their values at the event `key`, in the order in which they were
  // added, two vectors in step. False for an unknown key, and when the last entry lacks id or value; an entry
  // without id appends nothing, one without value the id alone.
  virtual bool getEventSigs(const RWClassicWString& key, ApiPmIdList& signals,
                            RWClassicTValOrderedVector<RWClassicCString>& values) const = 0;
  // Field `GoToOperation`: the operation to go on with.
  virtual bool setGoToOperation(const ApiPmId& operation) = 0;
  virtual bool getGoToOperation(ApiPmId& operation) const = 0;
  // Fields of these names.
  virtual bool setJumpToEnd(bool jump) = 0;
  virtual bool getJumpToEnd(bool& jump) const = 0;
  virtual bool setUseDfltAction(bool use) = 0;
  virtual bool getUseDfltAction(bool& use) const = 0;
  virtual bool setJumpToStart(bool jump) = 0;
  virtual bool getJumpToStart(bool& jump) const = 0;
  // The signal that starts the operation, and the one that keeps its state: holders `StartingSig` and
  // `MemorySig`.
  virtual ZelNode* createStartingSig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getStartingSig(ApiPmId& id) const = 0;
  virtual ZelNode* createMemorySig(ZelNodeType type, const ApiPmId& id) = 0;
  virtual bool getMemorySig(ApiPmId& id) const = 0;
  // Expressions, in fields of these names.
  virtual bool setInterlock(const RWClassicWString& expression) = 0;
  virtual bool getInterlock(RWClassicWString& expression) const = 0;
  virtual bool setSupervision(const RWClassicWString& expression) = 0;
  virtual bool getSupervision(RWClassicWString& expression) const = 0;
  virtual bool setJumpToEndCond(const RWClassicWString& expression) = 0;
  virtual bool getJumpToEndCond(RWClassicWString& expression) const = 0;
  virtual bool setJumpToStartCond(const RWClassicWString& expression) = 0;
  virtual bool getJumpToStartCond(RWClassicWString& expression) const = 0;
  // List `StepActions`. Reading appends the entries of all fields of this name: lists that were set one after
  // the other read as one.
  virtual bool setStepActions(const RWClassicTValOrderedVector<RWClassicWString>& actions) = 0;
  virtual bool getStepActions(RWClassicTValOrderedVector<RWClassicWString>& actions) const = 0;
  // Lists `inputMaterialFlows` and `outputMaterialFlows` of the object itself. Setting removes the first
  // list, adds the ids without the null ones, and publishes the field. Reading replaces `flows`, repeated ids
  // kept; an absent list is false, and `flows` empty then.
  virtual bool setInputMaterialFlows(const ApiPmIdList& flows) = 0;
  virtual bool getInputMaterialFlows(ApiPmIdList& flows) const = 0;
  virtual bool setOutputMaterialFlows(const ApiPmIdList& flows) = 0;
  virtual bool getOutputMaterialFlows(ApiPmIdList& flows) const = 0;
  // Field `ShouldGenerateParts`.
  virtual bool setShouldGenerateParts(bool generate) = 0;
  virtual bool getShouldGenerateParts(bool& generate) const = 0;

  // As in ZelPlcResourceInstance.
  virtual bool publishPlcInfo() = 0;
  virtual bool removePlcInfo() = 0;
  virtual bool isOriginalPlcData(bool& original) const = 0;
  virtual bool setPlcVersion(const RWClassicCString& version) = 0;
  virtual bool getPlcVersion(RWClassicCString& version) const = 0;
};

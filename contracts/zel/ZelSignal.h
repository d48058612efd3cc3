#pragma once

#include "zel/ZelNode.h"

// A signal of the control logic: an inner node. Inner nodes are no objects of the document. They stand in
// `plcInfo` of the object around them, each as the only child of a holder: a field of that object or of
// another inner node (`StartingSig`), or an item of a list (`Sensors/item`). They have neither caption nor
// parent; name and description belong to sensors, poses and projectors only, whose setName and setDescription
// add a field `name` or `comment`. Their class name is the text of their type.
//
// Operations that make an inner node always make a new holder, behind those that are there. They answer null
// for a null id, an id that XML cannot hold and a type that ZelPlcTypeConvertor has no text for; holder and
// element are left in the document then, but no node. A node that had the id before is no longer found by it.
// Getters of an id take the first element that stands in a holder of the name, whatever its own name.
//
// A setter adds a field to the signal's element beside one that is there and publishes nothing; a getter
// takes the first, and is false without it.
class ZelSignal : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Signal;
  static ZelSignal* queryZelSignal(ZelNode* node) { return zelQuery<ZelSignal>(node); }

  // Field `Stream`: the signal's content in serialised form.
  virtual bool setStream(const RWClassicWString& stream) = 0;
  virtual bool getStream(RWClassicWString& stream) const = 0;
  // Ids in fields of these names: operation, sequence element, target object and device of the signal. A null
  // id is written as an empty field, and read as the null id, true.
  virtual bool setSigOp(const ApiPmId& operation) = 0;
  virtual bool getSigOp(ApiPmId& operation) const = 0;
  virtual bool setSigSFC(const ApiPmId& element) = 0;
  virtual bool getSigSFC(ApiPmId& element) const = 0;
  virtual bool setSigTar(const ApiPmId& target) = 0;
  virtual bool getSigTar(ApiPmId& target) const = 0;
  virtual bool setSigDev(const ApiPmId& device) = 0;
  virtual bool getSigDev(ApiPmId& device) const = 0;
  // Fields `SigPose` and `Property`: names.
  virtual bool setSigPose(const RWClassicWString& pose) = 0;
  virtual bool getSigPose(RWClassicWString& pose) const = 0;
  virtual bool setProperty(const RWClassicWString& property) = 0;
  virtual bool getProperty(RWClassicWString& property) const = 0;
  // Field `SigExternalConnectionName`. Without it, but not with an empty one, reading takes the older
  // `SigOpcConnectionName`, which is never written.
  virtual bool setSigExternalConnectionName(const RWClassicWString& name) = 0;
  virtual bool getSigExternalConnectionName(RWClassicWString& name) const = 0;
  // Two slots without meaning, kept for the order of the table.
  virtual bool reservedTrue() { return true; }
  virtual bool reservedFalse() { return false; }
};

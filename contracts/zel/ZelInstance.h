#pragma once

#include "zel/ZelNode.h"

// A placed object whose data lie in its prototype.
class ZelInstance : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = Instance;
  static ZelInstance* queryZelInstance(ZelNode* node) { return zelQuery<ZelInstance>(node); }

  // Field `prototype`, else `masterObj`; when that names a prototype occurrence, the occurrence's prototype.
  virtual bool getPrototypeId(ApiPmId& id) const = 0;
  // Sets and publishes the prototype of an instance that has none. False, and nothing changed, for one that
  // has a text there, "NULL" included, and without the field.
  virtual bool setPrototypeId(const ApiPmDocument& prototype) = 0;
};

class ZelVorInstance : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorInstance;
  static ZelVorInstance* queryZelVorInstance(ZelNode* node) { return zelQuery<ZelVorInstance>(node); }

  // Field `humanLoadData`, made if need be; publishes the object.
  virtual bool setHumanLoadData(const RWClassicWString& data) = 0;
  virtual bool getHumanLoadData(RWClassicWString& data) const = 0;
};

#pragma once

#include "zel/ZelNode.h"

class ZelVorNode : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorNode;
  static ZelVorNode* queryZelVorNode(ZelNode* node) { return zelQuery<ZelVorNode>(node); }

  // Field `SolvaneName`.
  virtual bool getSolvaneName(RWClassicWString& name) const = 0;
  // Class name of the object that shows this one: of the prototype for an instance that has one.
  virtual bool getDisplayStringType(RWClassicWString& type) const = 0;
  // The data store's number of the object, field `NodeInfo/Id`.
  virtual bool getInternalId(ApiPmInternalId& id) const = 0;
  // As setName, without publication.
  virtual bool setNameLocally(const RWClassicWString& name) = 0;
};

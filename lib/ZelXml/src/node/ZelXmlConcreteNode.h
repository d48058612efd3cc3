#pragma once

#include <tuple>

#include "node/ZelXmlFace.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeAccess.h"

// A node class from its parts: `Self` is the class, `Base` its ZelXmlNode class, `Faces` the interfaces that
// it serves, the first of which is the one that stands for the object (pmNode). All operations of ZelNode are
// answered here, once for all interfaces; queryInterface answers from the list. A class writes out only what
// it answers otherwise.
template <class Self, class Base, ZelNodeType Type, class... Faces>
class ZelXmlConcreteNode : public ZelXmlFace<Faces, Self>..., public ZelXmlNodeAccess, public Base {
 public:
  using Base::Base;

  bool getExternalId(ApiPmId& id) const override { return Base::getExternalId(id); }
  ZelNodeType type() const override { return Type; }
  bool getName(RWClassicWString& name) const override { return Base::getName(name); }
  bool getCaption(RWClassicWString& caption) const override { return Base::getCaption(caption); }
  bool setName(const RWClassicWString& name) override { return Base::setName(name); }
  const ZelNode* getParent() const override { return Base::getParent(); }
  ZelNode* getParent() override { return Base::getParent(); }
  bool getParentId(ApiPmId& id) const override { return Base::getParentId(id); }
  bool getStringType(RWClassicWString& type) const override { return Base::getStringType(type); }
  bool getDescription(RWClassicWString& description) const override {
    return Base::getDescription(description);
  }
  bool setDescription(const RWClassicWString& description) override {
    return Base::setDescription(description);
  }
  const ZelNode* queryInterface(ZelNode::InterfaceType type) const override {
    return const_cast<ZelXmlConcreteNode*>(this)->queryInterface(type);
  }
  ZelNode* queryInterface(ZelNode::InterfaceType type) override {
    ZelNode* found = nullptr;
    (void)((type == Faces::interfaceType && (found = static_cast<Faces*>(this))) || ... ||
           (type == ZelXmlNodeAccess::interfaceType && (found = static_cast<ZelXmlNodeAccess*>(this))));
    return found;
  }

  ZelNode* pmNode() override {
    using First = std::tuple_element_t<0, std::tuple<Faces..., ZelXmlNodeAccess>>;
    return static_cast<First*>(this);
  }
  using Base::pmNode;
  ZelNodeType zelType() const override { return type(); }
  ZelXmlNode* zelXmlNode() override { return this; }
};

#pragma once

#include <tuple>
#include <type_traits>

#include "node/ZelXmlFace.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeAccess.h"

// A node class from its parts: `Self` is the class, `Base` its ZelXmlElementNode class, `Faces` the
// interfaces that it serves, the first of which is the one that stands for the object (pmNode). All
// operations of ZelNode are answered here, once for all interfaces, by the read and write operations of Base;
// queryInterface answers from the list. A class writes out only what it answers otherwise, and it alone: what
// Base calls stays.
template <class Self, class Base, ZelNodeType Type, class... Faces>
class ZelXmlConcreteNode : public ZelXmlFace<Faces, Self>..., public ZelXmlNodeAccess, public Base {
 public:
  using Base::Base;

  bool getExternalId(ApiPmId& id) const override { return Base::readId(id); }
  ZelNodeType type() const override { return Type; }
  bool getName(RWClassicWString& name) const override { return Base::readName(name); }
  bool getCaption(RWClassicWString& caption) const override { return Base::readCaption(caption); }
  bool setName(const RWClassicWString& name) override { return Base::writeName(name); }
  const ZelNode* getParent() const override { return Base::shownParent(); }
  ZelNode* getParent() override { return Base::shownParent(); }
  bool getParentId(ApiPmId& id) const override { return Base::readShownParentId(id); }
  bool getStringType(RWClassicWString& type) const override { return Base::readStringType(type); }
  bool getDescription(RWClassicWString& text) const override { return Base::readDescription(text); }
  bool setDescription(const RWClassicWString& text) override { return Base::writeDescription(text); }
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
  ZelXmlElementNode* zelXmlElementNode() override { return this; }
  ZelXmlNode* zelXmlNode() override {
    if constexpr (std::is_base_of_v<ZelXmlNode, Base>) {
      return this;
    } else {
      return nullptr;
    }
  }
};

#pragma once

#include "node/ZelXmlConcreteNode.h"

// A placed object with its own 3D representation and no prototype in use. Its new element would have to come
// from its caller, which no way of making children gives: a placeholder cannot be made.
class ZelXmlPlaceholderNode : public ZelXmlNode {
 public:
  // Adds the fields of an instance to `element`; false for a null element and for a class without family.
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;

  bool getDocument(ApiPmDocument& document) const;
  bool getThreeDRepPath(ApiFullPathDocument& path) const;
};

template <class Self>
class ZelXmlFace<ZelVorPlaceholder, Self> : public ZelVorPlaceholder {
 public:
  bool getDocument(ApiPmDocument& document) const override { return node().getDocument(document); }
  bool getThreeDRepPath(ApiFullPathDocument& path) const override { return node().getThreeDRepPath(path); }

 private:
  const ZelXmlPlaceholderNode& node() const { return static_cast<const Self&>(*this); }
};

template <class Self>
class ZelXmlFace<ZelVorResourcePlaceholder, Self> : public ZelVorResourcePlaceholder {
 public:
  bool setRobotSetupTime(double seconds) override {
    return static_cast<ZelXmlNode&>(static_cast<Self&>(*this)).setRobotSetupTime(seconds);
  }
  bool getRobotSetupTime(double& seconds) const override {
    return static_cast<const ZelXmlNode&>(static_cast<const Self&>(*this)).getRobotSetupTime(seconds);
  }
};

class ZelXmlPartPlaceholder final
    : public ZelXmlConcreteNode<ZelXmlPartPlaceholder, ZelXmlPlaceholderNode, ZEL_PART_PLACEHOLDER,
                                ZelVorNode, ZelPhysical, ZelVorPlaceholder, ZelVorLabelsContainer> {};

class ZelXmlResourcePlaceholder final
    : public ZelXmlConcreteNode<ZelXmlResourcePlaceholder, ZelXmlPlaceholderNode, ZEL_RESOURCE_PLACEHOLDER,
                                ZelVorNode, ZelPhysical, ZelVorPlaceholder, ZelVorLabelsContainer,
                                ZelPlcResourceInstance, ZelVorResourcePlaceholder> {};

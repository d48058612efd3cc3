#pragma once

#include "node/ZelXmlConcreteNode.h"

// A placed object with its own 3D representation and no prototype in use. Its new element would have to come
// from its caller, which no way of making children gives: a placeholder cannot be made.
class ZelXmlPlaceholderNode : public ZelXmlNode {
 public:
  // Adds the fields of an instance to `element`; false for a null element and for a class without family.
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;

  bool readDocument(ApiPmDocument& document) const;
};

template <class Self>
class ZelXmlFace<ZelVorPlaceholder, Self> : public ZelXmlSharedFace<ZelVorPlaceholder, Self> {
  using ZelXmlSharedFace<ZelVorPlaceholder, Self>::self;

 public:
  bool getDocument(ApiPmDocument& document) const override { return self().readDocument(document); }
  bool getThreeDRepPath(ApiFullPathDocument& path) const override {
    return self().readThreeDRepPath(path.path);
  }
};

class ZelXmlPartPlaceholder final
    : public ZelXmlConcreteNode<ZelXmlPartPlaceholder, ZelXmlPlaceholderNode, ZEL_PART_PLACEHOLDER,
                                ZelVorNode, ZelPhysical, ZelVorPlaceholder, ZelVorLabelsContainer> {};

class ZelXmlResourcePlaceholder final
    : public ZelXmlConcreteNode<ZelXmlResourcePlaceholder, ZelXmlPlaceholderNode, ZEL_RESOURCE_PLACEHOLDER,
                                ZelVorNode, ZelPhysical, ZelVorPlaceholder, ZelVorLabelsContainer,
                                ZelPlcResourceInstance, ZelVorResourcePlaceholder> {
 public:
  bool setRobotSetupTime(double seconds) override {
    return zelXmlSetField(*this, zelPlcDataFields.robotSetupTime, seconds);
  }
  bool getRobotSetupTime(double& seconds) const override {
    return zelXmlGetField(*this, zelPlcDataFields.robotSetupTime, seconds);
  }
};

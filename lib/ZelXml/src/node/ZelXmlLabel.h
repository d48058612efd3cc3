#pragma once

#include "node/ZelXmlConcreteNode.h"

// A note attached to one object. Its placement is one text, relative to the object.
class ZelXmlLabel final
    : public ZelXmlConcreteNode<ZelXmlLabel, ZelXmlNode, ZEL_LABEL, ZelVorLabel, ZelPhysical, ZelVorNode> {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;

  bool getText(RWClassicWString& text) const override { return readDescription(text); }
  bool setText(const RWClassicWString& text) override { return writeDescription(text); }
  bool getAssignedObjId(ApiPmId& id) const override { return zelXmlGetField(*this, zelLabelFields.node, id); }
  bool setAssignedObjId(const ApiPmId& id) override { return zelXmlSetField(*this, zelLabelFields.node, id); }
  bool getAppearanceData(RWClassicWString& data) const override {
    return zelXmlGetField(*this, zelLabelFields.displayInfo, data);
  }
  bool setAppearanceData(const RWClassicWString& data) override {
    return zelXmlSetField(*this, zelLabelFields.displayInfo, data);
  }
  bool removeLabelElement() override;

  // True without change of `location` when the text has fewer than six parts.
  bool getLocation(RTTran3D& location) const override;
  bool setLocation(const RTTran3D& location) override;
  // The absolute placement of the labelled object times the inverse of the label's own.
  bool getAbsoluteLocation(RTTran3D& location) const override;
};

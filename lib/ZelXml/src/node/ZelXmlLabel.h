#pragma once

#include "node/ZelXmlConcreteNode.h"

// The base of a label's node: its own fields. A write goes to an existing field only and is not published,
// but for the text.
class ZelXmlLabelNode : public ZelXmlNode {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;

  bool getField(std::string_view field, RWClassicWString& text) const;
  bool setField(std::string_view field, std::string_view text);
  bool removeLabelElement();
};

template <class Self>
class ZelXmlFace<ZelVorLabel, Self> : public ZelVorLabel {
 public:
  bool getText(RWClassicWString& text) const override { return node().getField("comment", text); }
  bool setText(const RWClassicWString& text) override { return node().setDescription(text); }
  bool getAssignedObjId(ApiPmId& id) const override {
    RWClassicWString text;
    if (!node().getField("node", text)) return false;
    id = ApiPmId(text);
    return true;
  }
  bool setAssignedObjId(const ApiPmId& id) override { return node().setField("node", id.text()); }
  bool getAppearanceData(RWClassicWString& data) const override {
    return node().getField("displayInfo", data);
  }
  bool setAppearanceData(const RWClassicWString& data) override {
    return node().setField("displayInfo", data);
  }
  bool removeLabelElement() override { return node().removeLabelElement(); }

 private:
  ZelXmlLabelNode& node() { return static_cast<Self&>(*this); }
  const ZelXmlLabelNode& node() const { return static_cast<const Self&>(*this); }
};

// A note attached to one object. Its placement is one text, relative to the object.
class ZelXmlLabel final : public ZelXmlConcreteNode<ZelXmlLabel, ZelXmlLabelNode, ZEL_LABEL, ZelVorLabel,
                                                    ZelPhysical, ZelVorNode> {
 public:
  // True without change of `location` when the text has fewer than six parts.
  bool getLocation(RTTran3D& location) const override;
  bool setLocation(const RTTran3D& location) override;
  // The absolute placement of the labelled object times the inverse of the label's own.
  bool getAbsoluteLocation(RTTran3D& location) const override;
};

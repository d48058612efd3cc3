#pragma once

#include "node/ZelXmlFace.h"
#include "node/ZelXmlNode.h"
#include "zel/ZelInstance.h"

// A placed object without children whose data lie in its prototype.
class ZelXmlInstanceNode : public ZelXmlNode {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;
  bool getDataElement(IXMLDOMNode& element) const override;
  bool getDisplayElement(IXMLDOMNode& element) const override;

  bool getPrototypeId(ApiPmId& id) const;
  bool setPrototypeId(const ApiPmDocument& prototype);
  bool getHumanLoadData(RWClassicWString& data) const;
  bool setHumanLoadData(const RWClassicWString& data);
};

template <class Self>
class ZelXmlFace<ZelInstance, Self> : public ZelInstance {
 public:
  bool getPrototypeId(ApiPmId& id) const override {
    return static_cast<const ZelXmlInstanceNode&>(static_cast<const Self&>(*this)).getPrototypeId(id);
  }
  bool setPrototypeId(const ApiPmDocument& prototype) override {
    return static_cast<ZelXmlInstanceNode&>(static_cast<Self&>(*this)).setPrototypeId(prototype);
  }
};

template <class Self>
class ZelXmlFace<ZelVorInstance, Self> : public ZelVorInstance {
 public:
  bool setHumanLoadData(const RWClassicWString& data) override {
    return static_cast<ZelXmlInstanceNode&>(static_cast<Self&>(*this)).setHumanLoadData(data);
  }
  bool getHumanLoadData(RWClassicWString& data) const override {
    return static_cast<const ZelXmlInstanceNode&>(static_cast<const Self&>(*this)).getHumanLoadData(data);
  }
};

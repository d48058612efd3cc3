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

  bool readPrototypeId(ApiPmId& id) const;
  bool writePrototypeId(const ApiPmDocument& prototype);
};

template <class Self>
class ZelXmlFace<ZelInstance, Self> : public ZelXmlSharedFace<ZelInstance, Self> {
  using ZelXmlSharedFace<ZelInstance, Self>::self;

 public:
  bool getPrototypeId(ApiPmId& id) const override { return self().readPrototypeId(id); }
  bool setPrototypeId(const ApiPmDocument& prototype) override { return self().writePrototypeId(prototype); }
};

template <class Self>
class ZelXmlFace<ZelVorInstance, Self> : public ZelXmlSharedFace<ZelVorInstance, Self> {
  using ZelXmlSharedFace<ZelVorInstance, Self>::self;

 public:
  bool setHumanLoadData(const RWClassicWString& data) override {
    return zelXmlSetField(self(), zelInstanceFields.humanLoadData, data);
  }
  bool getHumanLoadData(RWClassicWString& data) const override {
    return zelXmlGetField(self(), zelInstanceFields.humanLoadData, data);
  }
};

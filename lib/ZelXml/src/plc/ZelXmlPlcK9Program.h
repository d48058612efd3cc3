#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNewElements.h"

// A PLC program. It stands in no tree: it has neither caption nor parent.
class ZelXmlPlcK9Program final : public ZelXmlConcreteNode<ZelXmlPlcK9Program, ZelXmlNode, ZEL_PLC_PROGRAM> {
 public:
  bool getCaption(RWClassicWString&) const override { return false; }
  bool readShownParentId(ApiPmId&) const override { return false; }
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override {
    return getWrapper() && zelXmlCreatePlainElement(*getWrapper(), record, element);
  }
};

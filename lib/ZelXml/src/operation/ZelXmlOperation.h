#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNewElements.h"

// The process side of a study: operations, the flows between them, and flows of material.
class ZelXmlOperation final
    : public ZelXmlConcreteNode<ZelXmlOperation, ZelXmlNode, ZEL_OPERATION, ZelVorNode> {};

class ZelXmlFlow final : public ZelXmlConcreteNode<ZelXmlFlow, ZelXmlNode, ZEL_FLOW, ZelVorNode> {};

class ZelXmlMaterialFlow final
    : public ZelXmlConcreteNode<ZelXmlMaterialFlow, ZelXmlNode, ZEL_MATERIAL_FLOW> {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override {
    return getWrapper() && zelXmlCreatePlainElement(*getWrapper(), record, element);
  }
};

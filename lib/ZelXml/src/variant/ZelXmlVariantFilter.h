#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNewElements.h"

// Variant filters and variant sets.
class ZelXmlVariantNode : public ZelXmlNode {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override {
    return getWrapper() && zelXmlCreatePlainElement(*getWrapper(), record, element);
  }
};

class ZelXmlVariantFilter final
    : public ZelXmlConcreteNode<ZelXmlVariantFilter, ZelXmlVariantNode, ZEL_VARIANT_FILTER, ZelVorNode> {};

class ZelXmlVariantSet final
    : public ZelXmlConcreteNode<ZelXmlVariantSet, ZelXmlVariantNode, ZEL_VARIANT_SET, ZelVorNode> {};

#pragma once

#include "node/ZelXmlCollectionNode.h"
#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlNewElements.h"

// A collection of a class that has no node class of its own; its type is given to it.
class ZelXmlGenericVorCollection final
    : public ZelXmlConcreteNode<ZelXmlGenericVorCollection, ZelXmlCollectionNode, ZEL_VARIANT_FILTER_LIBRARY,
                                ZelCollection, ZelVorCollection, ZelVorNode> {
 public:
  explicit ZelXmlGenericVorCollection(ZelNodeType type = ZEL_VARIANT_FILTER_LIBRARY) : type_(type) {}

  ZelNodeType type() const override { return type_; }
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override {
    return getWrapper() && zelXmlCreatePlainElement(*getWrapper(), record, element);
  }

 private:
  ZelNodeType type_;
};

#include "node/ZelXmlElementNode.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeAccess.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlElementNode::setXmlNode(const IXMLDOMNode& element) {
  element_ = element;
  return true;
}

bool ZelXmlElementNode::readId(ApiPmId& id) const {
  if (id_.isNull()) return zelXmlGetExternalId(element_, id);
  id = id_;
  return true;
}

IXMLDOMDocument ZelXmlElementNode::document() const {
  return wrapper_ ? wrapper_->DOMDocument() : IXMLDOMDocument();
}

IXMLDOMDocument ZelXmlElementNode::outDocument() const {
  return wrapper_ ? wrapper_->OUTDocument() : IXMLDOMDocument();
}

ZelXmlElementNode* zelXmlElementNodeOf(ZelNode* node) {
  auto* access = zelQuery<ZelXmlNodeAccess>(node);
  return access ? access->zelXmlElementNode() : nullptr;
}

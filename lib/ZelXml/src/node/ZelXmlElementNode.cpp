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

bool ZelXmlElementNode::getFieldHolder(ZelFieldPlace place, IXMLDOMNode& holder) const {
  if (place == ZelFieldPlace::plcInfo) return getPlcInfo(holder);
  holder = element_;
  return static_cast<bool>(holder);
}

bool ZelXmlElementNode::getOrCreateFieldHolder(ZelFieldPlace place, IXMLDOMNode& holder) {
  return place == ZelFieldPlace::plcInfo ? getOrCreatePlcInfo(holder) : getFieldHolder(place, holder);
}

bool ZelXmlElementNode::publishField(ZelFieldPublication publication, const IXMLDOMNode& field) const {
  switch (publication) {
    case ZelFieldPublication::sendsField:
      return zelXmlPublishField(outDocument(), field);
    case ZelFieldPublication::sendsObject:
      return zelXmlPublishUpdate(outDocument(), element_);
    case ZelFieldPublication::unpublished:
      break;
  }
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

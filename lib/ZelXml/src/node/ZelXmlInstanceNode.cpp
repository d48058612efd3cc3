#include "node/ZelXmlInstanceNode.h"

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNewElements.h"
#include "node/ZelXmlNodeHost.h"

bool ZelXmlInstanceNode::createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) {
  return getWrapper() && zelXmlCreateInstanceElement(*getWrapper(), record, element);
}

bool ZelXmlInstanceNode::getDataElement(IXMLDOMNode& element) const {
  return zelXmlGetPrototypeElement(document(), getXmlNode(), element);
}

bool ZelXmlInstanceNode::getDisplayElement(IXMLDOMNode& element) const {
  if (!getWrapper() ||
      !zelXmlGetPrototypeElement(getWrapper()->prototypesDOMDocument(), getXmlNode(), element)) {
    element = getXmlNode();
  }
  return true;
}

bool ZelXmlInstanceNode::readPrototypeId(ApiPmId& id) const {
  std::string text;
  if ((!zelXmlGetString(getXmlNode(), "prototype", text) || !zelXmlIsReference(text)) &&
      (!zelXmlGetString(getXmlNode(), "masterObj", text) || !zelXmlIsReference(text))) {
    return false;
  }
  const ZelXmlNode* named = getWrapper() ? getWrapper()->zelXmlNodeFromId(ApiPmId(text)) : nullptr;
  if (named && named->zelType() == ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE &&
      (!zelXmlGetString(named->getXmlNode(), "prototype", text) || !zelXmlIsReference(text))) {
    return false;
  }
  id = ApiPmId(text);
  return true;
}

bool ZelXmlInstanceNode::writePrototypeId(const ApiPmDocument& prototype) {
  ApiPmId present;
  return zelXmlGetField(*this, zelInstanceFields.prototype, present) && present.isNull() &&
         zelXmlSetField(*this, zelInstanceFields.prototype, prototype.id);
}

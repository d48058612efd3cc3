#include "equipment/ZelXmlEquipmentInstance.h"

#include "document/ZelXmlFunctions.h"

bool ZelXmlEquipmentInstanceNode::createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) {
  IXMLDOMNode children;
  return ZelXmlResInstanceBaseNode::createXmlElement(record, element) &&
         zelXmlAddChild(element, "children", children);
}

bool ZelXmlEquipmentInstance::setPrototypeId(const ApiPmDocument& prototype) {
  if (!prototype.id.isNull() &&
      !zelXmlAddChildWithText(document(), getXmlNode(), "masterObj", prototype.id.text())) {
    return false;
  }
  return zelXmlPublishUpdate(outDocument(), getXmlNode());
}

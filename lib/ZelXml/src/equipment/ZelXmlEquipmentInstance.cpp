#include "equipment/ZelXmlEquipmentInstance.h"

#include "document/ZelXmlFunctions.h"

bool ZelXmlEquipmentInstanceNode::createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) {
  IXMLDOMNode children;
  return ZelXmlResInstanceBaseNode::createXmlElement(record, element) &&
         zelXmlAddChild(element, "children", children);
}

bool ZelXmlEquipmentInstance::setPrototypeId(const ApiPmDocument& prototype) {
  const bool written = prototype.id.isNull()
                           ? zelXmlPublishUpdate(outDocument(), getXmlNode())
                           : zelXmlSetField(*this, zelInstanceFields.masterObj, prototype.id);
  gainPlcSide();
  return written;
}

#include "equipment/ZelXmlEquipmentPrototypeOccurrence.h"

#include "api/ApiLogLogger.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNewElements.h"

bool ZelXmlEquipmentPrototypeOccurrence::createXmlElement(const ZelXmlCreationRecord& record,
                                                          IXMLDOMNode& element) {
  return getWrapper() && zelXmlCreateOccurrenceElement(*getWrapper(), record, element);
}

bool ZelXmlEquipmentPrototypeOccurrence::getLocation(RTTran3D& location) const {
  IXMLDOMNode layout;
  return referenced("layout", layout) && zelXmlGetLayoutTransform(layout, location);
}

bool ZelXmlEquipmentPrototypeOccurrence::setLocation(const RTTran3D& location) {
  IXMLDOMNode layout;
  return referenced("layout", layout) && zelXmlSetLayoutTransform(layout, location) &&
         zelXmlSetAbsoluteLocation(layout, location);
}

bool ZelXmlEquipmentPrototypeOccurrence::getChildId(ApiPmPrototypeChildId& id) const {
  std::string text;
  ApiPmId own;
  if (!zelXmlGetField(*this, zelPrototypeFields.cloneStableId, text)) return false;
  if (text.empty() && readId(own)) {
    text = own.text();
    ZEL_LOG("VorIntegration    ", ApiLogLogger::error,
            "Clone stable id is missing - using external id instead: " + text);
  }
  id = ApiPmPrototypeChildId(text);
  return true;
}

bool ZelXmlEquipmentPrototypeOccurrence::setChildId(const ApiPmPrototypeChildId& id) {
  return zelXmlSetField(*this, zelPrototypeFields.cloneStableId, id.getAsString());
}

bool ZelXmlEquipmentPrototypeOccurrence::getPrototypeId(ApiPmId& id) const {
  IXMLDOMNode prototype;
  return referenced("prototype", prototype) && zelXmlGetExternalId(prototype, id);
}

bool ZelXmlEquipmentPrototypeOccurrence::setPrototypeId(const ApiPmId& id) {
  return zelXmlSetField(*this, zelInstanceFields.prototype, id);
}

bool ZelXmlEquipmentPrototypeOccurrence::setParentPrototype(const ApiPmId& id) {
  return zelXmlSetField(*this, zelPrototypeFields.parentPrototype, id.asString());
}

void ZelXmlEquipmentPrototypeOccurrence::copyFrom(ZelNode* node) {
  const auto* source = zelQuery<ZelVorPrototypeOccurrence>(node);
  if (!source) return;
  RWClassicWString name;
  RTTran3D location;
  ApiPmPrototypeChildId child;
  if (source->getName(name)) setName(name);
  if (source->getLocation(location)) setLocation(location);
  if (source->getChildId(child)) setChildId(child);
}

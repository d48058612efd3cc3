#include "plc/ZelXmlPropertyProjector.h"

#include "document/ZelXmlFunctions.h"
#include "plc/ZelXmlSensors.h"

bool ZelXmlPropertyProjector::createSubnodes() {
  return zelXmlAdoptAll(getWrapper(), getXmlNode(), "PPSignals/item/*", adoptPlcSignal);
}

bool ZelXmlPropertyProjector::removeRequisites() {
  ZelXmlNodeHost* wrapper = getWrapper();
  if (!wrapper) return false;
  ApiPmIdList signals;
  const bool whole = zelXmlGetField(*this, zelPropertyProjectorFields.PPSignals, signals);
  wrapper->removeAndDeletePlcInternalNodes(signals);  // this node may be among them
  return whole;
}

bool ZelXmlPropertyProjector::getSignalOfProperty(const RWClassicWString& property, ApiPmId& id) const {
  IXMLDOMNodeList signals;
  if (!zelXmlSelectChildren(getXmlNode(), "PPSignals/item/*", signals)) return false;
  for (const IXMLDOMNode& signal : signals) {
    std::string named;
    if (!zelXmlReadField(signal, zelSignalFields.Property, named)) return false;
    if (named == property) return zelXmlGetExternalId(signal, id);
  }
  return false;
}

bool ZelXmlPropertyProjector::getParts(ApiPmIdList& parts) const { return zelXmlReadParts(*this, parts); }

bool ZelXmlPropertyProjector::setProperties(const SimulationProperties& properties) {
  IXMLDOMNode list;
  if (!zelXmlAddChild(getXmlNode(), "Properties", list)) return false;
  for (const ApiPlcSimulationProperty& property : properties) {
    RWClassicWString name;
    const bool isNamed = property.name(name);
    IXMLDOMNode item;
    if (!zelXmlAddChild(list, "item", item) || !isNamed || !zelXmlAddWideString(item, "name", name))
      return false;
  }
  return true;
}

bool ZelXmlPropertyProjector::getProperties(SimulationProperties& properties) const {
  IXMLDOMNodeList entries;
  if (!zelXmlSelectChildren(getXmlNode(), "Properties/*", entries)) return false;
  properties.clear();
  for (const IXMLDOMNode& entry : entries) {
    RWClassicWString name;
    if (!zelXmlGetWideString(entry, "name", name)) return false;
    properties.append(ApiPlcSimulationProperty(name));
  }
  return true;
}

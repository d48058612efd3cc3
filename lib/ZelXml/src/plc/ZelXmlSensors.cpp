#include "plc/ZelXmlSensors.h"

#include "document/ZelXmlFunctions.h"

bool zelXmlReadParts(const ZelXmlElementNode& node, ApiPmIdList& parts) {
  ZelXmlList<std::string> texts;
  if (!zelXmlGetWideStringList(node.getXmlNode(), "PartsRefs", texts)) return false;
  parts.clear();
  for (const std::string& text : texts) parts.append(ApiPmId(text));
  return true;
}

bool ZelXmlPropertySensorOnProgram::setRelativeLocation(const RTTran3D& location) {
  IXMLDOMNode list;
  // A second call fills the items of the first lists once more: those are read.
  return zelXmlAddVec3List(getXmlNode(), "PropertySensorRelLocation", list) &&
         zelXmlAddVec3List(getXmlNode(), "PropertySensorRelRotation", list) &&
         zelXmlSetTransformPaths(getXmlNode(), "PropertySensorRelLocation/item",
                                 "PropertySensorRelRotation/item", location);
}

bool ZelXmlPropertySensorOnProgram::getRelativeLocation(RTTran3D& location) const {
  return getXmlNode() && zelXmlGetTransformPaths(getXmlNode(), "PropertySensorRelLocation/item",
                                                 "PropertySensorRelRotation/item", location);
}

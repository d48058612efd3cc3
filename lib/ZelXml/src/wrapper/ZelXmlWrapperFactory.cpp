#include <memory>

#include "api/ApiLogLogger.h"
#include "api/ApiPmClassTypes.h"
#include "api/ApiPmSessionManager.h"
#include "api/ApiVorTools.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlGenericVorCollection.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFactory.h"
#include "wrapper/ZelXmlWrapper.h"

// Which node class stands for an object element, and the making of its node.

namespace {

constexpr auto noNode = static_cast<ZelNodeType>(-1);

// Families whose objects are all of one class.
struct FamilyOfOneClass {
  std::string_view family;
  ZelNodeType type;
};
constexpr FamilyOfOneClass familiesOfOneClass[] = {
    {"PartPrototype", ZEL_PART_PROTOTYPE},
    {"EquipmentPrototype", ZEL_EQUIPMENT_PROTOTYPE},
    {"PartPrototypeUsage", ZEL_PART_PROTOTYPE_ASSIGNMENT},
    {"Study", ZEL_STUDY},
    {"Label", ZEL_LABEL},
    {"Operation", ZEL_OPERATION},
    {"PmFlow", ZEL_FLOW},
    {"PLCProgram", ZEL_PLC_PROGRAM},
    {"PmMaterialFlow", ZEL_MATERIAL_FLOW},
};

bool has(const IXMLDOMNode& element, std::string_view child) { return element.selects(child); }

// Nodes of these types enter their children with the relevant parent finder before they are made.
bool entersItsChildren(ZelNodeType type) {
  switch (type) {
    case ZEL_PROCESS_ASSEMBLY:
    case ZEL_COMPOUND_PART:
    case ZEL_COMPOUND_RESOURCE:
    case ZEL_DEVICE_GROUP:
    case ZEL_EQUIPMENT_INSTANCE:
    case ZEL_EQUIPMENT_PROTOTYPE:
    case ZEL_VARIANT_FILTER_LIBRARY:
      return true;
    default:
      return false;
  }
}

bool isOfClass(const IXMLDOMNode& element, std::string_view base) {
  return ApiVorToolsClassTypesWrapper::the().IsDerivedFromClass(element.nodeName(), base);
}

}  // namespace

ZelNode* ZelXmlWrapper::createNodeByFamilyXmlNode(const IXMLDOMNode& familyElement) {
  if (!familyElement) return nullptr;
  std::string buffer;
  const std::string_view family = familyElement.textView(buffer);
  const IXMLDOMNode element = familyElement.parentNode().parentNode();
  return element ? handleNodeCreation(element, family) : nullptr;
}

ZelNode* ZelXmlWrapper::handleNodeCreation(const IXMLDOMNode& element, std::string_view family) {
  ZelNode* node = nullptr;
  ApiPmId id;
  zelXmlGetExternalId(element, id);
  if (family == "Shortcut") {
    addShortcutToShortcutFinder(element);
  } else {
    node = createNode(element, id, family);
  }
  handleNewNodeCaches(element, id);
  return node;
}

bool ZelXmlWrapper::handleNewNodeCaches(const IXMLDOMNode& element, const ApiPmId& id) {
  if (id.isNull()) return false;
  ApiPmSessionManager::the().cacheNode(DOMDocument(), id, element);
  std::string buffer;
  std::string_view number;
  if (element.selectText("NodeInfo/Id", buffer, number)) {
    const auto value = static_cast<std::int32_t>(zelXmlParseLong(number));
    ApiVorToolsIdConverter::the().insertIdPair(ApiPmInternalId(value), id);
  }
  return true;
}

ZelNode* ZelXmlWrapper::createNode(const IXMLDOMNode& element, const ApiPmId& id, std::string_view family) {
  ZelNodeType type = noNode;
  if (family == "Product") {
    type = classOfProduct(element);
  } else if (family == "Resource") {
    type = classOfResource(element);
  } else if (family == "ToolPrototype") {
    type = isLightSensorPrototype(element)      ? ZEL_LIGHT_SENSOR_PROTOTYPE
           : isPropertySensorPrototype(element) ? ZEL_PROPERTY_SENSOR_PROTOTYPE
                                                : ZEL_RESOURCE_PROTOTYPE;
  } else if (family == "ToolPrototypeUsage") {
    type = isEquipmentPrototypeAssignment(element) ? ZEL_EQUIPMENT_PROTOTYPE_ASSIGNMENT
                                                   : ZEL_RESOURCE_PROTOTYPE_ASSIGNMENT;
  } else {
    for (const FamilyOfOneClass& known : familiesOfOneClass) {
      if (known.family == family) type = known.type;
    }
    if (type == noNode && !isVariantClass(element, type)) return nullptr;
  }
  if (entersItsChildren(type) && !addParentAndChildrenToRelevantParentFinder(element)) return nullptr;

  std::unique_ptr<ZelXmlNode> made(type == ZEL_VARIANT_FILTER_LIBRARY
                                       ? new ZelXmlGenericVorCollection(type)
                                       : ZelXmlNodeFactory::the().create(type));
  if (!made) return nullptr;
  ZelXmlNode* xmlNode = made.release();
  ZelNode* node = xmlNode->pmNode();
  if (id.isNull()) {
    convertor_.keepUnregistered(node);
    return node;
  }
  xmlNode->setId(id);
  xmlNode->setXmlNode(element);
  xmlNode->setWrapper(this);
  insertNode(id, node);
  if (type == ZEL_STUDY) {
    studyId_ = id.asString();
    ZEL_LOG("MarvekIntegration ", ApiLogLogger::trace, "ZelXmlWrapper::createNode old study id " + studyId_);
  }
  xmlNode->createSubnodes();
  return node;
}

ZelNodeType ZelXmlWrapper::classOfProduct(const IXMLDOMNode& element) const {
  if (element.nodeName() == "PmDvProcessAssembly") return ZEL_PROCESS_ASSEMBLY;
  if (has(element, "children")) return ZEL_COMPOUND_PART;
  return has(element, "threeDRep") ? ZEL_PART_PLACEHOLDER : ZEL_PART_INSTANCE;
}

ZelNodeType ZelXmlWrapper::classOfResource(const IXMLDOMNode& element) const {
  if (has(element, "children")) {
    if (element.nodeName() == "DeviceGroup") return ZEL_DEVICE_GROUP;
    return element.nodeName() == "PmEquipmentInstance" ? ZEL_EQUIPMENT_INSTANCE : ZEL_COMPOUND_RESOURCE;
  }
  if (isPrototypeOccurrence(element)) return ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE;
  if (has(element, "threeDRep")) return ZEL_RESOURCE_PLACEHOLDER;
  if (isLightSensorInstance(element)) return ZEL_LIGHT_SENSOR_INSTANCE;
  return isPropertySensorInstance(element) ? ZEL_PROPERTY_SENSOR_INSTANCE : ZEL_RESOURCE_INSTANCE;
}

bool ZelXmlWrapper::isVariantClass(const IXMLDOMNode& element, ZelNodeType& type) {
  const ApiVorToolsClassTypesWrapper& types = ApiVorToolsClassTypesWrapper::the();
  int typeId = 0;
  if (!types.ClassNameToClassTypeId(element.nodeName(), typeId)) return false;
  if (types.IsDerivedFromClass(typeId, "PmVariantFilterLibrary")) {
    type = ZEL_VARIANT_FILTER_LIBRARY;
  } else if (types.IsDerivedFromClass(typeId, "PmVariantFilter")) {
    type = ZEL_VARIANT_FILTER;
  } else if (types.IsDerivedFromClass(typeId, "PmVariantSet")) {
    type = ZEL_VARIANT_SET;
  } else {
    return false;
  }
  return true;
}

bool ZelXmlWrapper::isPrototypeOccurrence(const IXMLDOMNode& element) const {
  if (element.nodeName() == "PmEquipmentPrototypeOccurrence") return true;
  if (element.nodeName() != "PmToolInstance") return false;
  std::string parentPrototype;
  if (zelXmlGetParentPrototype(element, parentPrototype) && zelXmlIsReference(parentPrototype) &&
      cachedDOMDocument().isNodeCached(ApiPmId(parentPrototype))) {
    return true;
  }
  ApiPmId id;
  return zelXmlGetExternalId(element, id) && toolInstanceMasterObjects_.contains(id);
}

bool ZelXmlWrapper::isEquipmentPrototypeAssignment(const IXMLDOMNode& element) const {
  IXMLDOMNode used;
  std::string family;
  return zelXmlGetReferencedNode(DOMDocument(), element, "uses", used) && zelXmlGetFamily(used, family) &&
         family == "EquipmentPrototype";
}

bool ZelXmlWrapper::isLightSensorNode(const IXMLDOMNode& element) const {
  return isOfClass(element, "LightSensor");
}
bool ZelXmlWrapper::isLightSensorPrototype(const IXMLDOMNode& element) const {
  return isLightSensorNode(element);
}
bool ZelXmlWrapper::isLightSensorInstance(const IXMLDOMNode& element) const {
  IXMLDOMNode prototype;
  return zelXmlGetPrototypeElement(DOMDocument(), element, prototype) && isLightSensorNode(prototype);
}
bool ZelXmlWrapper::isPropertySensorNode(const IXMLDOMNode& element) const {
  return isOfClass(element, "PropertySensor");
}
bool ZelXmlWrapper::isPropertySensorPrototype(const IXMLDOMNode& element) const {
  return isPropertySensorNode(element);
}
bool ZelXmlWrapper::isPropertySensorInstance(const IXMLDOMNode& element) const {
  IXMLDOMNode prototype;
  return zelXmlGetPrototypeElement(DOMDocument(), element, prototype) && isPropertySensorNode(prototype);
}

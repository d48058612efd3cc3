#include <memory>

#include "api/ApiPmClassTypes.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "wrapper/ZelXmlNodeFactory.h"
#include "wrapper/ZelXmlWrapper.h"

// New prototypes. They are never roots, and nothing of them is published.

namespace {

// The node type of a prototype; false for a family whose objects get no node here.
bool prototypeType(const ApiPmTypeData& type, ZelNodeType& nodeType) {
  const ApiVorToolsClassTypesWrapper& types = ApiVorToolsClassTypesWrapper::the();
  if (type.family() == "PartPrototype") {
    nodeType = ZEL_PART_PROTOTYPE;
  } else if (type.family() == "EquipmentPrototype") {
    nodeType = ZEL_EQUIPMENT_PROTOTYPE;
  } else if (type.family() == "ToolPrototype") {
    nodeType = types.IsDerivedFromClass(type.className(), "LightSensor")      ? ZEL_LIGHT_SENSOR_PROTOTYPE
               : types.IsDerivedFromClass(type.className(), "PropertySensor") ? ZEL_PROPERTY_SENSOR_PROTOTYPE
                                                                              : ZEL_RESOURCE_PROTOTYPE;
  } else {
    return false;
  }
  return true;
}

}  // namespace

bool ZelXmlWrapper::createNewPrototype(const ApiPmPrototypeData& data, const RWClassicWString& name,
                                       ApiPmId& id) {
  ApiPmPrototypeData copy = data;
  if (!generateUniqueId(copy.id) || !createPrototypeNode(copy, name)) return false;
  id = copy.id;
  return true;
}

bool ZelXmlWrapper::createPrototypeNode(const ApiPmPrototypeData& data, const RWClassicWString& name) {
  const IXMLDOMDocument document = DOMDocument();
  IXMLDOMNode element;
  if (data.id.isNull() || !zelXmlAddObjectElement(document, data.type.className(), data.id.text(), element) ||
      !zelXmlSetFamily(document, element, data.type.family())) {
    return false;
  }
  ZelNodeType type{};
  std::unique_ptr<ZelXmlNode> node;
  if (prototypeType(data.type, type)) node.reset(ZelXmlNodeFactory::the().create(type));
  IXMLDOMNode children;
  if (node && type == ZEL_EQUIPMENT_PROTOTYPE && !zelXmlAddChild(element, "children", children)) return false;
  if (!name.empty() && !zelXmlAddChildWithText(document, element, "name", name)) return false;
  if (!zelXmlAddDouble(element, "weight", data.weight)) return false;
  if (!node) return true;
  node->setXmlNode(element);
  node->setId(data.id);
  node->setWrapper(this);
  insertNode(data.id, node.release()->pmNode());
  return true;
}

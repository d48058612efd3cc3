#include "equipment/ZelXmlEquipmentPrototype.h"

#include "equipment/ZelXmlEquipmentPrototypeOccurrence.h"
#include "node/ZelXmlNodeHost.h"

ZelNode* ZelXmlEquipmentPrototype::createChild(ZelNodeType type, const RWClassicWString& className,
                                               const ApiPmId& id) {
  ZelNode* child = nullptr;
  if (!service_.createChild({type, className, id}, child)) return nullptr;
  service_.addOccurrence(child);  // a child that cannot be entered exists all the same
  return child;
}

ZelNode* ZelXmlEquipmentPrototype::createOccurrence(const ApiPmId& prototype) {
  ZelXmlNodeHost* wrapper = getWrapper();
  const ZelNode* named = wrapper ? wrapper->getZelNodeFromId(prototype) : nullptr;
  if (!named || (named->type() != ZEL_EQUIPMENT_PROTOTYPE && named->type() != ZEL_RESOURCE_PROTOTYPE)) {
    return nullptr;
  }
  ApiPmId own;
  ApiPmId id;
  if (!readId(own) || !wrapper->generateUniqueId(id)) return nullptr;
  ZelNode* child = createChild(
      ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE,
      named->type() == ZEL_EQUIPMENT_PROTOTYPE ? "PmEquipmentPrototypeOccurrence" : "PmToolInstance", id);
  if (!child) return nullptr;
  auto& occurrence = static_cast<ZelXmlEquipmentPrototypeOccurrence&>(*zelXmlNodeOf(child));
  const bool written = occurrence.setPrototypeId(prototype) && occurrence.setParentPrototype(own);
  return written ? child : nullptr;
}

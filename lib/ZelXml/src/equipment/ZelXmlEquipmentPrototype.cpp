#include "equipment/ZelXmlEquipmentPrototype.h"

ZelNode* ZelXmlEquipmentPrototype::createChild(ZelNodeType type, const RWClassicWString& className,
                                               const ApiPmId& id) {
  ZelNode* child = nullptr;
  if (!service_.createChild({type, className, id}, child)) return nullptr;
  service_.addOccurrence(child);  // a child that cannot be entered exists all the same
  return child;
}

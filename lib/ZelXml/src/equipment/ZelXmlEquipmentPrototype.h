#pragma once

#include "node/ZelXmlCollectionService.h"
#include "node/ZelXmlConcreteNode.h"
#include "prototype/ZelXmlPrototypeNode.h"

// The definition of an equipment: a prototype whose children are occurrences of other prototypes. It has no
// place of its own, so an occurrence is placed by its own layout alone.
class ZelXmlEquipmentPrototype final
    : public ZelXmlConcreteNode<ZelXmlEquipmentPrototype, ZelXmlResPrototypeBaseNode, ZEL_EQUIPMENT_PROTOTYPE,
                                ZelPrototype, ZelVorNode, ZelCollection> {
 public:
  bool addChild(ZelNode* child) override { return service_.addOccurrence(child); }
  ZelNode* createChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id) override;
  ZelNode* createChild(ZelNodeType type, const ApiPmId& id) override { return createChild(type, {}, id); }
  // A new occurrence, at the origin, of a prototype of a tool (class PmToolInstance) or of an equipment
  // (PmEquipmentPrototypeOccurrence), entered here and published. Null, with nothing made, for any other id;
  // null too when a field cannot be written, and then the occurrence stays.
  ZelNode* createOccurrence(const ApiPmId& prototype);

  ZelXmlCollectionService& collectionService() { return service_; }
  const ZelXmlCollectionService& collectionService() const { return service_; }

 private:
  ZelXmlCollectionService service_{this};
};

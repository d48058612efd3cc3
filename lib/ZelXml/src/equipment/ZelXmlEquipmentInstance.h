#pragma once

#include "resource/ZelXmlResourceInstance.h"

// An equipment: a resource instance that is also a collection.
class ZelXmlEquipmentInstanceNode : public ZelXmlResInstanceBaseNode {
 public:
  // The element of an instance, with `children`.
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;
  bool addChild(ZelNode* child) override { return service_.addChild(child); }

  ZelXmlCollectionService& collectionService() { return service_; }
  const ZelXmlCollectionService& collectionService() const { return service_; }

 private:
  ZelXmlCollectionService service_{this};
};

class ZelXmlEquipmentInstance final
    : public ZelXmlPlcResourceInstanceClass<ZelXmlEquipmentInstance, ZelXmlEquipmentInstanceNode,
                                            ZEL_EQUIPMENT_INSTANCE, ZelCollection, ZelVorCollection> {
 public:
  // The prototype goes into a new field `masterObj`; the whole element is published. An empty id only
  // publishes.
  bool setPrototypeId(const ApiPmDocument& prototype) override;
};

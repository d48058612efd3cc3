#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelVorPrototypeOccurrence.h"

class ZelXmlEquipmentPrototypeOccurrence final
    : public ZelXmlConcreteNode<ZelXmlEquipmentPrototypeOccurrence, ZelXmlNode,
                                ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE, ZelVorPrototypeOccurrence, ZelVorNode> {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override;

  bool getLocation(RTTran3D& location) const override;
  bool setLocation(const RTTran3D& location) override;
  bool getChildId(ApiPmPrototypeChildId& id) const override;
  bool setChildId(const ApiPmPrototypeChildId& id) override;
  bool getPrototypeId(ApiPmId& id) const override;
  bool setPrototypeId(const ApiPmId& id) override;

  // Field `parentPrototype`, made if need be; not published.
  bool setParentPrototype(const ApiPmId& id);
  // Takes name, placement and child id over from another occurrence, as far as it has them. Does nothing for
  // a node that is none.
  void copyFrom(ZelNode* node);
};

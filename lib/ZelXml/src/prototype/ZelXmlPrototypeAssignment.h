#pragma once

#include "node/ZelXmlConcreteNode.h"

// A use of a prototype, named by `uses`. What shows an assignment is the prototype.
class ZelXmlPrototypeAssignment : public ZelXmlNode {
 public:
  // The element that `uses` refers to; false without one.
  bool getDisplayElement(IXMLDOMNode& element) const override { return referenced("uses", element); }
};

class ZelXmlPartPrototypeAssignment final
    : public ZelXmlConcreteNode<ZelXmlPartPrototypeAssignment, ZelXmlPrototypeAssignment,
                                ZEL_PART_PROTOTYPE_ASSIGNMENT, ZelVorNode, ZelPhysical,
                                ZelVorLabelsContainer> {};

class ZelXmlResourcePrototypeAssignment final
    : public ZelXmlConcreteNode<ZelXmlResourcePrototypeAssignment, ZelXmlPrototypeAssignment,
                                ZEL_RESOURCE_PROTOTYPE_ASSIGNMENT, ZelVorNode, ZelPhysical,
                                ZelVorLabelsContainer> {};

class ZelXmlEquipmentPrototypeAssignment final
    : public ZelXmlConcreteNode<ZelXmlEquipmentPrototypeAssignment, ZelXmlPrototypeAssignment,
                                ZEL_EQUIPMENT_PROTOTYPE_ASSIGNMENT, ZelVorNode, ZelPhysical,
                                ZelVorLabelsContainer> {};

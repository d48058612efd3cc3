#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelPrototypeAssignment.h"

// A use of a prototype, named by `uses`. What shows an assignment is the prototype.
class ZelXmlPrototypeAssignment : public ZelXmlNode {
 public:
  // The element that `uses` refers to; false without one.
  bool getDisplayElement(IXMLDOMNode& element) const override { return referenced("uses", element); }

  ZelNode* prototypeNode() const;
  bool readPrototypeId(ApiPmId& id) const;
};

template <class Self>
class ZelXmlFace<ZelPrototypeAssignment, Self> : public ZelXmlSharedFace<ZelPrototypeAssignment, Self> {
  using ZelXmlSharedFace<ZelPrototypeAssignment, Self>::self;

 public:
  ZelNode* getPrototype() const override { return self().prototypeNode(); }
  bool getPrototypeId(ApiPmId& id) const override { return self().readPrototypeId(id); }
};

template <class Self, ZelNodeType Type>
using ZelXmlPrototypeAssignmentClass =
    ZelXmlConcreteNode<Self, ZelXmlPrototypeAssignment, Type, ZelPrototypeAssignment, ZelPhysical, ZelVorNode,
                       ZelVorLabelsContainer>;

class ZelXmlPartPrototypeAssignment final
    : public ZelXmlPrototypeAssignmentClass<ZelXmlPartPrototypeAssignment, ZEL_PART_PROTOTYPE_ASSIGNMENT> {};

class ZelXmlResourcePrototypeAssignment final
    : public ZelXmlPrototypeAssignmentClass<ZelXmlResourcePrototypeAssignment,
                                            ZEL_RESOURCE_PROTOTYPE_ASSIGNMENT> {};

class ZelXmlEquipmentPrototypeAssignment final
    : public ZelXmlPrototypeAssignmentClass<ZelXmlEquipmentPrototypeAssignment,
                                            ZEL_EQUIPMENT_PROTOTYPE_ASSIGNMENT> {};

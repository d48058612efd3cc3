#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "zel/ZelPrototypeAssignment.h"

// A use of a prototype, named by `uses`. What shows an assignment is the prototype.
class ZelXmlPrototypeAssignment : public ZelXmlNode {
 public:
  // The element that `uses` refers to; false without one.
  bool getDisplayElement(IXMLDOMNode& element) const override { return referenced("uses", element); }

  ZelNode* getPrototype() const;
  bool getPrototypeId(ApiPmId& id) const;
};

template <class Self>
class ZelXmlFace<ZelPrototypeAssignment, Self> : public ZelPrototypeAssignment {
 public:
  ZelNode* getPrototype() const override { return node().getPrototype(); }
  bool getPrototypeId(ApiPmId& id) const override { return node().getPrototypeId(id); }

 private:
  const ZelXmlPrototypeAssignment& node() const { return static_cast<const Self&>(*this); }
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

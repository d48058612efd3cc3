#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "prototype/ZelXmlPrototypeNode.h"

// The definition of an equipment, and an occurrence of a prototype in one.
class ZelXmlEquipmentPrototype final
    : public ZelXmlConcreteNode<ZelXmlEquipmentPrototype, ZelXmlResPrototypeBaseNode, ZEL_EQUIPMENT_PROTOTYPE,
                                ZelPrototype, ZelVorNode> {};

class ZelXmlEquipmentPrototypeOccurrence final
    : public ZelXmlConcreteNode<ZelXmlEquipmentPrototypeOccurrence, ZelXmlNode,
                                ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE, ZelVorNode> {};

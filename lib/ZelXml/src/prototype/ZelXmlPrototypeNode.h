#pragma once

#include "node/ZelXmlConcreteNode.h"

// Prototypes: reusable definitions behind instances. They stand beside the tree.
class ZelXmlPrototypeNode : public ZelXmlNode {};
class ZelXmlResPrototypeBaseNode : public ZelXmlPrototypeNode {};

class ZelXmlPartPrototype final
    : public ZelXmlConcreteNode<ZelXmlPartPrototype, ZelXmlPrototypeNode, ZEL_PART_PROTOTYPE, ZelVorNode> {};

class ZelXmlResourcePrototype final
    : public ZelXmlConcreteNode<ZelXmlResourcePrototype, ZelXmlResPrototypeBaseNode, ZEL_RESOURCE_PROTOTYPE,
                                ZelVorNode> {};

class ZelXmlLightSensorPrototype final
    : public ZelXmlConcreteNode<ZelXmlLightSensorPrototype, ZelXmlResPrototypeBaseNode,
                                ZEL_LIGHT_SENSOR_PROTOTYPE, ZelVorNode> {};

class ZelXmlPropertySensorPrototype final
    : public ZelXmlConcreteNode<ZelXmlPropertySensorPrototype, ZelXmlResPrototypeBaseNode,
                                ZEL_PROPERTY_SENSOR_PROTOTYPE, ZelVorNode> {};

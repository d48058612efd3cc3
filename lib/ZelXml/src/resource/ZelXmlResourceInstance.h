#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "node/ZelXmlInstanceNode.h"

// A placed resource: tool, robot, device or conveyor, by what its element holds.
class ZelXmlResInstanceBaseNode : public ZelXmlAttachableNode<ZelXmlInstanceNode> {};

// Interfaces that all resource instances serve.
template <class Self, class Base, ZelNodeType Type, class... More>
using ZelXmlResourceInstanceClass =
    ZelXmlConcreteNode<Self, Base, Type, ZelInstance, ZelPhysical, ZelVorNode, ZelVorLabelsContainer,
                       ZelPlcResourceInstance, ZelGlobalAttachment, More...>;

class ZelXmlResourceInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlResourceInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_RESOURCE_INSTANCE, ZelVorInstance> {};

class ZelXmlLightSensorInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlLightSensorInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_LIGHT_SENSOR_INSTANCE> {};

class ZelXmlPropertySensorInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlPropertySensorInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_PROPERTY_SENSOR_INSTANCE> {};

#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "resource/ZelXmlResInstanceBaseNode.h"
#include "resource/ZelXmlResourceFaces.h"

// Interfaces that all resource instances serve.
template <class Self, class Base, ZelNodeType Type, class... More>
using ZelXmlResourceInstanceClass =
    ZelXmlConcreteNode<Self, Base, Type, ZelResourceInstance, ZelInstance, ZelPhysical, ZelVorNode,
                       ZelVorLabelsContainer, ZelPlcResourceInstance, ZelGlobalAttachment, ZelTool,
                       ZelVorResourceInstance, More...>;

class ZelXmlResourceInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlResourceInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_RESOURCE_INSTANCE, ZelVorInstance> {};

class ZelXmlLightSensorInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlLightSensorInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_LIGHT_SENSOR_INSTANCE> {};

class ZelXmlPropertySensorInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlPropertySensorInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_PROPERTY_SENSOR_INSTANCE> {};

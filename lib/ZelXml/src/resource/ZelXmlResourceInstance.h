#pragma once

#include "node/ZelXmlConcreteNode.h"
#include "resource/ZelXmlPlcResource.h"
#include "resource/ZelXmlResInstanceBaseNode.h"
#include "resource/ZelXmlResourceFaces.h"

// Interfaces that all resource instances serve.
template <class Self, class Base, ZelNodeType Type, class... More>
using ZelXmlResourceInstanceClass =
    ZelXmlConcreteNode<Self, Base, Type, ZelResourceInstance, ZelInstance, ZelPhysical, ZelVorNode,
                       ZelVorLabelsContainer, ZelPlcResourceInstance, ZelGlobalAttachment, ZelTool,
                       ZelVorResourceInstance, More...>;

// The same for those that a controller knows as robots, devices and conveyors.
template <class Self, class Base, ZelNodeType Type, class... More>
using ZelXmlPlcResourceInstanceClass =
    ZelXmlResourceInstanceClass<Self, ZelXmlPlcResourceNode<Base>, Type, ZelVorInstance, ZelPlcDeviceInstance,
                                ZelPlcRobotInstance, ZelPlcPoseHoldingResourceInstance,
                                ZelPlcGenericConveyorInstance, More...>;

class ZelXmlResourceInstance final
    : public ZelXmlPlcResourceInstanceClass<ZelXmlResourceInstance, ZelXmlResInstanceBaseNode,
                                            ZEL_RESOURCE_INSTANCE> {
 public:
  bool setPrototypeId(const ApiPmDocument& prototype) override {
    const bool written = writePrototypeId(prototype);
    gainPlcSide();
    return written;
  }
};

class ZelXmlLightSensorInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlLightSensorInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_LIGHT_SENSOR_INSTANCE> {};

class ZelXmlPropertySensorInstance final
    : public ZelXmlResourceInstanceClass<ZelXmlPropertySensorInstance, ZelXmlResInstanceBaseNode,
                                         ZEL_PROPERTY_SENSOR_INSTANCE> {};

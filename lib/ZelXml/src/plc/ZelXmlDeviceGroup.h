#pragma once

#include "node/ZelXmlCompoundNode.h"

// A compound resource that groups devices.
class ZelXmlDeviceGroup final
    : public ZelXmlConcreteNode<ZelXmlDeviceGroup, ZelXmlCompoundNode, ZEL_DEVICE_GROUP, ZelPhysical,
                                ZelCompoundResource, ZelCollection, ZelVorNode, ZelVorCollection,
                                ZelVorCompoundResource, ZelVorLabelsContainer> {};

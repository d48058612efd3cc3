#pragma once

#include "node/ZelXmlCompoundPart.h"

// A compound resource that groups devices.
class ZelXmlDeviceGroupNode : public ZelXmlCollectionNode {
 public:
  bool createXmlElement(const ZelXmlCreationRecord& record, IXMLDOMNode& element) override {
    return getWrapper() && zelXmlCreateCompoundElement(*getWrapper(), record, element);
  }
};

class ZelXmlDeviceGroup final
    : public ZelXmlConcreteNode<ZelXmlDeviceGroup, ZelXmlDeviceGroupNode, ZEL_DEVICE_GROUP, ZelPhysical,
                                ZelCompoundResource, ZelCollection, ZelVorNode, ZelVorCollection,
                                ZelVorCompoundResource, ZelVorLabelsContainer> {};

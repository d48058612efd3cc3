#include "plc/ZelXmlPlcNodes.h"

#include <memory>

#include "document/ZelXmlFunctions.h"
#include "plc/ZelXmlControl.h"
#include "plc/ZelXmlPose.h"
#include "plc/ZelXmlPropertyProjector.h"
#include "plc/ZelXmlSensors.h"
#include "plc/ZelXmlSignal.h"

namespace {

using Inner = ZelXmlPlcInternalNode;

// A node that could not be made goes again.
ZelNode* make(std::unique_ptr<ZelXmlPlcInternalNode> node, ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent,
              std::string_view name, const ApiPmId& id, std::optional<ZelNodeType> type = {},
              IXMLDOMNode* made = nullptr) {
  IXMLDOMNode holder;
  if (!wrapper || !zelXmlAddChild(parent, name, holder)) return nullptr;
  if (made) *made = holder;
  return node->create(wrapper, holder, id, type) ? node.release()->pmNode() : nullptr;
}

ZelNode* adoptAs(std::unique_ptr<ZelXmlPlcInternalNode> node, ZelXmlNodeHost* wrapper,
                 const IXMLDOMNode& element) {
  return node->adopt(wrapper, element) ? node.release()->pmNode() : nullptr;
}

// A node of this class that stands on the element already stays.
template <class Node>
ZelNode* adopt(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  ApiPmId id;
  if (wrapper && zelXmlGetExternalId(element, id)) {
    ZelNode* present = wrapper->findPlcInternalNode(id);
    const auto* node = dynamic_cast<Node*>(zelXmlElementNodeOf(present));
    if (node && node->getXmlNode() == element) return present;
  }
  return adoptAs(std::make_unique<Node>(), wrapper, element);
}

// The class of a sensor; null for a type that is none.
std::unique_ptr<ZelXmlPlcInternalNode> sensorOf(ZelNodeType type) {
  switch (type) {
    case ZEL_DEVICE_SENSOR:
    case ZEL_DEVICE_POSE_SENSOR:
      return std::make_unique<ZelXmlDeviceSensor>(type);
    case ZEL_DEVICE_DISTANCE_SENSOR:
      return std::make_unique<ZelXmlDeviceDistanceSensor>();
    case ZEL_PROXIMITY_SENSOR:
      return std::make_unique<ZelXmlProximitySensor>();
    default:
      return nullptr;
  }
}

bool isOf(const IXMLDOMNode& element, ZelNodeType type) {
  return element.nodeName() == ZelXmlNodeKinds::of(type).pattern;
}

}  // namespace

ZelNode* createPlcSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                         ZelNodeType type, const ApiPmId& id, IXMLDOMNode* made) {
  return make(std::make_unique<ZelXmlSignal>(), wrapper, parent, holder, id, type, made);
}

ZelNode* createPlcControl(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                          ZelNodeType type, const ApiPmId& id) {
  return make(std::make_unique<ZelXmlControl>(), wrapper, parent, holder, id, type);
}

ZelNode* createPlcControlCall(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                              ZelNodeType type, const ApiPmId& id) {
  return make(std::make_unique<ZelXmlControlCall>(), wrapper, parent, holder, id, type);
}

ZelNode* createPlcSignalInstance(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                                 const ApiPmId& id) {
  return make(std::make_unique<ZelXmlSignalInstance>(), wrapper, parent, holder, id);
}

ZelNode* createPlcPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                       const ApiPmId& id) {
  return make(std::make_unique<ZelXmlPose>(), wrapper, parent, holder, id);
}

ZelNode* createPlcGroupPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                            const ApiPmId& id) {
  IXMLDOMElement present;
  if (parent.ownerDocument().findByAttribute("ExternalId", id.text(), present))
    return adoptAs(std::make_unique<ZelXmlGroupPose>(), wrapper, present);
  return make(std::make_unique<ZelXmlGroupPose>(), wrapper, parent, holder, id);
}

ZelNode* createPlcProjector(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                            ZelNodeType type, const ApiPmId& id) {
  if (type != ZEL_PROPERTY_PROJECTOR) return nullptr;
  return make(std::make_unique<ZelXmlPropertyProjector>(), wrapper, parent, holder, id);
}

ZelNode* createPlcPropertySensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                                 const ApiPmId& id) {
  return make(std::make_unique<ZelXmlPropertySensorOnProgram>(), wrapper, parent, holder, id);
}

ZelNode* createPlcSensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& parent, std::string_view holder,
                         ZelNodeType type, const ApiPmId& id) {
  auto node = sensorOf(type);
  if (!node) return nullptr;
  const bool isTyped = type == ZEL_DEVICE_SENSOR || type == ZEL_DEVICE_POSE_SENSOR;
  return make(std::move(node), wrapper, parent, holder, id,
              isTyped ? std::optional(type) : std::optional<ZelNodeType>());
}

ZelNode* adoptPlcSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return adopt<ZelXmlSignal>(wrapper, element);
}

ZelNode* adoptPlcControl(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return adopt<ZelXmlControl>(wrapper, element);
}

ZelNode* adoptPlcControlCall(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return adopt<ZelXmlControlCall>(wrapper, element);
}

ZelNode* adoptPlcSignalInstance(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return adopt<ZelXmlSignalInstance>(wrapper, element);
}

ZelNode* adoptPlcPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return adopt<ZelXmlPose>(wrapper, element);
}

ZelNode* adoptPlcGroupPose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return adopt<ZelXmlGroupPose>(wrapper, element);
}

ZelNode* adoptPlcProjector(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return isOf(element, ZEL_PROPERTY_PROJECTOR) ? adopt<ZelXmlPropertyProjector>(wrapper, element) : nullptr;
}

ZelNode* adoptPlcPropertySensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  return isOf(element, ZEL_PROPERTY_SENSOR_ON_PROGRAM)
             ? adopt<ZelXmlPropertySensorOnProgram>(wrapper, element)
             : nullptr;
}

ZelNode* adoptPlcSensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element) {
  if (isOf(element, ZEL_DEVICE_SENSOR)) return adopt<ZelXmlDeviceSensor>(wrapper, element);
  if (isOf(element, ZEL_DEVICE_DISTANCE_SENSOR)) return adopt<ZelXmlDeviceDistanceSensor>(wrapper, element);
  return isOf(element, ZEL_PROXIMITY_SENSOR) ? adopt<ZelXmlProximitySensor>(wrapper, element) : nullptr;
}

ZelNode* zelXmlCreateSignal(ZelXmlElementNode& owner, const ZelField<ZelHeldId>& row, ZelNodeType type,
                            const ApiPmId& id) {
  IXMLDOMNode parent;
  return owner.getOrCreateFieldHolder(row.place, parent)
             ? createPlcSignal(owner.getWrapper(), parent, row.name, type, id)
             : nullptr;
}

ZelNode* zelXmlCreateSignal(ZelXmlElementNode& owner, const ZelField<ZelHeldIds>& row, ZelNodeType type,
                            const ApiPmId& id) {
  IXMLDOMNode parent;
  IXMLDOMNode list;
  return owner.getWrapper() && owner.getOrCreateFieldHolder(row.place, parent) &&
                 zelXmlGetOrAddChild(parent, row.name, list)
             ? createPlcSignal(owner.getWrapper(), list, "item", type, id)
             : nullptr;
}

bool zelXmlAdoptHeldSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element,
                           const ZelField<ZelHeldId>& row) {
  IXMLDOMNode signal;
  return !zelXmlGetFirstChild(element, row.name, signal) || adoptPlcSignal(wrapper, signal);
}

bool zelXmlAdoptAll(ZelXmlNodeHost* wrapper, const IXMLDOMNode& element, std::string_view path,
                    ZelXmlAdopt adoptOne) {
  IXMLDOMNodeList found;
  if (!zelXmlSelectChildren(element, path, found)) return false;
  for (const IXMLDOMNode& each : found) {
    ZelNode* node = adoptOne(wrapper, each);
    if (!node || !zelXmlElementNodeOf(node)->createSubnodes()) return false;
  }
  return true;
}

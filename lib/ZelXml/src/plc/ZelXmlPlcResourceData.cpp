#include "plc/ZelXmlPlcResourceData.h"

#include <array>

#include "api/ApiPmIdSet.h"
#include "document/ZelXmlFunctions.h"
#include "document/ZelXmlItems.h"
#include "node/ZelXmlElementNode.h"
#include "plc/ZelXmlPlcNodes.h"

namespace {

constexpr const auto& fields = zelPlcResourceFields;
constexpr int conveyorPlaces = 4;

// In the order in which their nodes go.
constexpr const ZelField<ZelHeldId>* namedSignals[] = {
    &fields.ProgStartSig, &fields.ProgNumberSig,         &fields.ProgStopSig,  &fields.ProgPauseSig,
    &fields.ProgEndedSig, &fields.ProgMirrorSig,         &fields.ProgErrorSig, &fields.RobotReadySig,
    &fields.ConveyorSig,  &fields.GenericConveyorSignal,
};

bool getList(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, const ZelFieldInfo& row, IXMLDOMNode& list) {
  return wrapper && zelXmlGetOrAddChild(info, row.name, list);
}

// Sensors and poses: what is inside them goes first.
void removeWithRequisites(ZelXmlNodeHost& wrapper, const IXMLDOMNode& info, const ZelField<ZelHeldIds>& row) {
  ApiPmIdList ids;
  zelXmlReadField(info, row, ids);
  for (const ApiPmId& id : ids) {
    if (ZelXmlElementNode* node = zelXmlElementNodeOf(wrapper.findPlcInternalNode(id)))
      node->removeRequisites();
    wrapper.removeAndDeletePlcInternalNode(id);
  }
}

// All but the signal that has its node already.
bool adoptSignals(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, std::string_view path,
                  const IXMLDOMNode& adopted) {
  IXMLDOMNodeList signals;
  if (!zelXmlSelectChildren(info, path, signals)) return false;
  for (const IXMLDOMNode& signal : signals)
    if (!(signal == adopted) && !adoptPlcSignal(wrapper, signal)) return false;
  return true;
}

}  // namespace

ZelNode* zelXmlCreatePlcResourceSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                       const ZelField<ZelHeldId>& row, ZelNodeType type, const ApiPmId& id) {
  return createPlcSignal(wrapper, info, row.name, type, id);
}

ZelNode* zelXmlCreatePlcResourceSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                       const ZelField<ZelHeldIds>& row, ZelNodeType type, const ApiPmId& id) {
  IXMLDOMNode list;
  return getList(wrapper, info, row, list) ? createPlcSignal(wrapper, list, "item", type, id) : nullptr;
}

ZelNode* zelXmlCreatePlcConveyorSignal(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                       const ZelField<ZelHeldIds>& row, ZelNodeType type, std::int16_t number,
                                       const ApiPmId& conveyor, const ApiPmId& id) {
  IXMLDOMNode list;
  IXMLDOMNode item;
  if (!getList(wrapper, info, row, list)) return nullptr;
  ZelNode* signal = createPlcSignal(wrapper, list, "item", type, id, &item);
  if (item && zelXmlAddInt(item, "ConveyorNumber", number) && !conveyor.isNull())
    zelXmlAddWideString(item, "ConveyorObject", conveyor.text());
  return signal;
}

ZelNode* zelXmlCreatePlcResourceSensor(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, ZelNodeType type,
                                       const ApiPmId& id) {
  IXMLDOMNode list;
  return getList(wrapper, info, fields.Sensors, list) ? createPlcSensor(wrapper, list, "item", type, id)
                                                      : nullptr;
}

ZelNode* zelXmlCreatePlcResourcePose(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, const ApiPmId& id) {
  IXMLDOMNode list;
  return getList(wrapper, info, fields.Poses, list) ? createPlcPose(wrapper, list, "item", id) : nullptr;
}

bool zelXmlGetPlcSignals(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, const ZelField<ZelHeldIds>& row,
                         ApiPmIdList& ids) {
  if (!wrapper || !info) return false;
  ApiPmIdList all;
  ApiPmIdSet seen;
  const bool whole = zelXmlReadField(info, row, all);
  for (const ApiPmId& id : all)
    if (seen.insert(id)) ids.append(id);
  return whole;
}

bool zelXmlGetPlcConveyorSignals(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info,
                                 const ZelField<ZelHeldIds>& row,
                                 ZelPlcRobotInstance::ConveyorNumbers& numbers, ApiPmIdList& conveyors) {
  IXMLDOMNodeList items;
  if (!wrapper || !zelXmlSelectChildren(info, std::string(row.name) + "/item", items) || items.length() == 0)
    return false;
  numbers = ZelPlcRobotInstance::ConveyorNumbers(RWGrowth::never(), static_cast<std::size_t>(items.length()));
  std::array<ApiPmId, conveyorPlaces> byNumber;
  for (const IXMLDOMNode& item : items) {
    IXMLDOMNode signal;
    ApiPmId id;
    int value = 0;
    if (!zelXmlSelectChild(item, "Signal", signal) || !zelXmlGetExternalId(signal, id) ||
        !zelXmlGetInt(item, "ConveyorNumber", value)) {
      return false;
    }
    const auto number = static_cast<std::int16_t>(value);
    numbers.insert(id, number);
    std::string conveyor;
    zelXmlGetWideString(item, "ConveyorObject", conveyor);
    if (number >= 1 && number <= conveyorPlaces)
      byNumber[static_cast<std::size_t>(number - 1)] = ApiPmId(conveyor);
  }
  conveyors.clear();
  for (const ApiPmId& conveyor : byNumber) conveyors.append(conveyor);
  return true;
}

bool zelXmlSetPlcTrackingRobots(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, const ApiPmIdList& robots) {
  IXMLDOMNode list;
  if (!getList(wrapper, info, fields.ConveyorTrackingRobots, list)) return false;
  for (const ApiPmId& robot : robots)
    if (!robot.isNull() && !zelXmlAddWideString(list, "item", robot.text())) return false;
  return true;
}

bool zelXmlGetPlcTrackingRobots(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info, ApiPmIdList& robots) {
  ZelXmlList<std::string> texts;
  if (!wrapper || !zelXmlGetWideStringList(info, fields.ConveyorTrackingRobots.name, texts) ||
      texts.isEmpty()) {
    return false;
  }
  robots.clear();
  for (const std::string& text : texts)
    if (ApiPmId id(text); !id.isNull()) robots.append(id);
  return true;
}

bool zelXmlCreatePlcResourceNodes(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
  if (!wrapper) return false;
  if (!info) return true;
  IXMLDOMNode conveyor;
  return zelXmlAdoptAll(wrapper, info, "Sensors/item/*", adoptPlcSensor) &&
         zelXmlAdoptAll(wrapper, info, "Poses/item/*", adoptPlcPose) &&
         (!zelXmlGetFirstChild(info, fields.ConveyorSig.name, conveyor) ||
          adoptPlcSignal(wrapper, conveyor)) &&
         adoptSignals(wrapper, info, "*/item/Signal", {}) &&
         adoptSignals(wrapper, info, "*/Signal", conveyor);
}

bool zelXmlRemovePlcResourceNodes(ZelXmlNodeHost* wrapper, const IXMLDOMNode& info) {
  if (!wrapper) return false;
  if (!info) return true;
  removeWithRequisites(*wrapper, info, fields.Sensors);
  removeWithRequisites(*wrapper, info, fields.Poses);
  for (const auto* row : {&fields.ToRobSignals, &fields.FromRobSignals}) {
    ApiPmIdList ids;
    zelXmlGetPlcSignals(wrapper, info, *row, ids);
    wrapper->removeAndDeletePlcInternalNodes(ids);
  }
  for (const auto* row : namedSignals) {
    ApiPmId id;
    if (zelXmlReadField(info, *row, id)) wrapper->removeAndDeletePlcInternalNode(id);
  }
  for (const auto* row : {&fields.ConveyorPositionSignals, &fields.ConveyorTriggerSignals}) {
    ZelPlcRobotInstance::ConveyorNumbers numbers;
    ApiPmIdList conveyors;
    zelXmlGetPlcConveyorSignals(wrapper, info, *row, numbers, conveyors);
    for (const auto* entry : numbers.listing()) wrapper->removeAndDeletePlcInternalNode(entry->key);
  }
  return true;
}

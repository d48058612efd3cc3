#include "wrapper/ZelXmlIdConvertor.h"

#include <limits>

#include "api/ApiLogLogger.h"
#include "node/ZelXmlNodeAccess.h"

namespace {

constexpr RWGrowth registryGrowth = RWGrowth::before(3, 2);

}  // namespace

ZelXmlIdConvertor::ZelXmlIdConvertor() : vorNodes_(registryGrowth), plcInternalNodes_(registryGrowth) {}

ZelXmlIdConvertor::~ZelXmlIdConvertor() { clear(); }

void ZelXmlIdConvertor::deleteNodes(Dictionary& nodes) {
  const auto listed = nodes.listing();
  std::vector<ZelNode*> doomed;
  doomed.reserve(listed.size());
  for (const auto* entry : listed) doomed.push_back(entry->value);
  nodes.clear();
  for (ZelNode* node : doomed) delete node;
}

void ZelXmlIdConvertor::clear() {
  deleteNodes(vorNodes_);
  deleteNodes(plcInternalNodes_);
  for (ZelNode* node : std::exchange(unregistered_, {})) delete node;
}

ZelNode* ZelXmlIdConvertor::findNode(const ApiPmId& id) const {
  if (const auto* entry = vorNodes_.find(id)) return entry->value;
  if (const auto* entry = plcInternalNodes_.find(id)) return entry->value;
  return nullptr;
}

ZelNode* ZelXmlIdConvertor::findPlcInternalNode(const ApiPmId& id) const {
  const auto* entry = plcInternalNodes_.find(id);
  return entry ? entry->value : nullptr;
}

ZelNode* ZelXmlIdConvertor::insertNode(const ApiPmId& id, ZelNode* node) {
  Dictionary& nodes = isPlcInternalNode(node) ? plcInternalNodes_ : vorNodes_;
  const auto* present = nodes.find(id);
  ZelNode* former = present && present->value != node ? present->value : nullptr;
  if (former) keepUnregistered(former);
  nodes.insert(id, node);
  return former;
}

void ZelXmlIdConvertor::removeNode(const ApiPmId& id) {
  if (!vorNodes_.remove(id)) plcInternalNodes_.remove(id);
}

bool ZelXmlIdConvertor::removeAndDelete(Dictionary& nodes, const ApiPmId& id) {
  auto* entry = nodes.find(id);
  if (!entry) return false;
  ZelNode* node = entry->value;
  nodes.erase(entry);
  delete node;
  return true;
}

void ZelXmlIdConvertor::removeAndDeleteNode(const ApiPmId& id) {
  if (!removeAndDelete(vorNodes_, id)) removeAndDelete(plcInternalNodes_, id);
}

void ZelXmlIdConvertor::removeAndDeletePlcInternalNode(const ApiPmId& id) {
  removeAndDelete(plcInternalNodes_, id);
}

void ZelXmlIdConvertor::getAllNodes(ZelNodeList& nodes) const {
  for (const Dictionary* dictionary : {&vorNodes_, &plcInternalNodes_}) {
    for (const auto* entry : dictionary->listing()) nodes.append(entry->value);
  }
}

void ZelXmlIdConvertor::getVorNodesAndIds(ZelNodeList& nodes,
                                          RWClassicTValOrderedVector<const ApiPmId*>& ids) const {
  for (const auto* entry : vorNodes_.listing()) {
    nodes.append(entry->value);
    ids.append(&entry->key);
  }
}

void ZelXmlIdConvertor::getAllNodesAndIds(ZelNodeList& nodes,
                                          RWClassicTValOrderedVector<const ApiPmId*>& ids) const {
  getVorNodesAndIds(nodes, ids);
  for (const auto* entry : plcInternalNodes_.listing()) {
    nodes.append(entry->value);
    ids.append(&entry->key);
  }
}

void ZelXmlIdConvertor::getPlcInternalIds(RWClassicTValOrderedVector<const ApiPmId*>& ids) const {
  for (const auto* entry : plcInternalNodes_.listing()) ids.append(&entry->key);
}

int ZelXmlIdConvertor::nodesNum() const {
  const std::size_t count = vorNodes_.entries() + plcInternalNodes_.entries();
  if (count > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
    ZEL_LOG("ApiBaseToolsLogger", ApiLogLogger::trace, "Data lost from converting size_t to int.");
  }
  return static_cast<int>(count);
}

bool ZelXmlIdConvertor::isPlcInternalNode(const ZelNode* node) {
  // All that is behind a node and is no object lives inside one: a question less for each kind of them.
  auto* access = zelQuery<ZelXmlNodeAccess>(const_cast<ZelNode*>(node));
  return access && !access->zelXmlNode();
}

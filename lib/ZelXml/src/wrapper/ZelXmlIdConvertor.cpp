#include "wrapper/ZelXmlIdConvertor.h"

#include <limits>

#include "api/ApiLogLogger.h"
#include "plc/ZelXmlPlcKinds.h"

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

void ZelXmlIdConvertor::insertNode(const ApiPmId& id, ZelNode* node) {
  Dictionary& nodes = isPlcInternalNode(node) ? plcInternalNodes_ : vorNodes_;
  if (const auto* present = nodes.find(id); present && present->value && present->value != node) {
    keepUnregistered(present->value);
  }
  nodes.insert(id, node);
}

void ZelXmlIdConvertor::removeNode(const ApiPmId& id) {
  if (!vorNodes_.remove(id)) plcInternalNodes_.remove(id);
}

void ZelXmlIdConvertor::removeAndDeleteNode(const ApiPmId& id) {
  for (Dictionary* nodes : {&vorNodes_, &plcInternalNodes_}) {
    if (auto* entry = nodes->find(id)) {
      ZelNode* node = entry->value;
      nodes->erase(entry);
      delete node;
      return;
    }
  }
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
  if (!node) return false;
  for (const ZelXmlNodeKind& kind : zelXmlPlcKinds()) {
    if (kind.isInner() && node->queryInterface(kind.innerInterface)) return true;
  }
  return false;
}

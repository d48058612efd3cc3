#include <memory>
#include <unordered_map>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlCollectionService.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFactory.h"
#include "node/ZelXmlNodeKinds.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelVorLabel.h"

// Edits of the structure by the application: roots, deletion, order.

namespace {

bool isCollection(const ZelXmlNode& node) {
  return ZelXmlNodeKinds::of(node.zelType()).has(ZelXmlNodeKind::collection);
}

}  // namespace

ZelNode* ZelXmlWrapper::createRoot(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id,
                                   const ApiPmId&) {
  std::unique_ptr<ZelXmlNode> made(ZelXmlNodeFactory::the().create(type));
  if (!made) return nullptr;
  made->setWrapper(this);
  IXMLDOMNode element;
  if (!made->createXmlElement({type, className, id}, element) || !element) return nullptr;
  made->setXmlNode(element);
  made->setId(id);
  ZelNode* node = made.release()->pmNode();
  insertNode(id, node);
  roots_.append(node);
  return node;
}

bool ZelXmlWrapper::deleteNode(ApiPmId& given) {
  const ApiPmId id = given;
  ZelNode* node = getZelNodeFromId(id);
  if (auto* label = zelQuery<ZelVorLabel>(node)) return deleteLabel(*label, id);
  ZelXmlNode* xmlNode = zelXmlNodeOf(node);
  if (!xmlNode) return false;
  // The parent that counts, also for classes that tell callers of no parent.
  ApiPmId parentId;
  if (xmlNode->readParentId(parentId)) {
    const ZelXmlNode* parent = zelXmlNodeFromId(parentId);
    if (parent && isCollection(*parent) &&
        !zelXmlRemoveChildAndPublish(outDocument_, parent->getXmlNode(), id)) {
      return false;
    }
  }
  // Before the deletion, which may be refused: no tree shows the object then.
  roots_.remove(node);
  return xmlNode->deleteNode();
}

bool ZelXmlWrapper::deleteLabel(ZelVorLabel& label, const ApiPmId& id) {
  ApiPmId assigned;
  if (!label.getAssignedObjId(assigned)) return false;
  ZelNode* object = getZelNodeFromId(assigned);
  if (!object) return label.removeLabelElement();
  ZelXmlNode* xmlNode = zelXmlNodeOf(object);
  return xmlNode && xmlNode->removeLabel(id);
}

bool ZelXmlWrapper::deleteNodesList(const ApiPmIdList& ids) {
  bool deleted = false;
  for (ApiPmId id : ids) {
    deleted = deleteNode(id);
    if (!deleted) break;
  }
  return deleted;
}

bool ZelXmlWrapper::addRootFromOtherParent(ZelNode* node) {
  ZelXmlNode* xmlNode = zelXmlNodeOf(node);
  if (!xmlNode) return false;
  ApiPmId parentId;
  const ZelXmlNode* parent = xmlNode->readParentId(parentId) ? zelXmlNodeFromId(parentId) : nullptr;
  if (!parent) return true;
  if (!isCollection(*parent) || !zelXmlDetachFromParent(*this, xmlNode->getXmlNode(), parentId)) {
    return false;
  }
  roots_.append(xmlNode->pmNode());
  return true;
}

bool ZelXmlWrapper::reorderRoots(const ApiPmIdList& ids) {
  std::unordered_map<ApiPmId, std::size_t> places;
  for (std::size_t i = 0; i < ids.entries(); ++i) places.emplace(ids[i], i);
  std::vector<ZelNode*> ordered(ids.entries(), nullptr);
  std::vector<ZelNode*> rest;
  for (ZelNode* root : roots_.list()) {
    ApiPmId id;
    if (!root->getExternalId(id)) continue;
    const auto place = places.find(id);
    if (place == places.end()) {
      rest.push_back(root);
    } else {
      ordered[place->second] = root;
    }
  }
  ordered.insert(ordered.end(), rest.begin(), rest.end());
  roots_.assign(ordered);
  return true;
}

#include "node/ZelXmlCollectionService.h"

#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeFactory.h"
#include "node/ZelXmlNodeHost.h"

bool zelXmlDetachFromParent(ZelXmlNodeHost& wrapper, const IXMLDOMNode& child, const ApiPmId& given) {
  const ApiPmId parent = given;
  ApiPmId id;
  IXMLDOMNode parentElement;
  return zelXmlGetExternalId(child, id) && zelXmlFindNodeById(wrapper.DOMDocument(), parent, parentElement) &&
         zelXmlRemoveChildAndPublish(wrapper.OUTDocument(), parentElement, id) &&
         wrapper.relevantParentFinder().removeRelevantParent(id) &&
         zelXmlRemoveParentItem(child, wrapper.OUTDocument(), parent);
}

bool zelXmlDetachFromRelevantParent(ZelXmlNodeHost& wrapper, const IXMLDOMNode& child) {
  ApiPmId id;
  ApiPmId parent;
  if (!zelXmlGetExternalId(child, id)) return false;
  if (!wrapper.relevantParentFinder().findRelevantParent(id, parent)) return true;
  IXMLDOMNode parentElement;
  return zelXmlFindNodeById(wrapper.DOMDocument(), parent, parentElement) &&
         zelXmlRemoveChildItem(parentElement, id) &&
         wrapper.relevantParentFinder().removeRelevantParent(id) && zelXmlRemoveParentEntry(child, parent);
}

bool zelXmlDetachLayout(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                        const IXMLDOMNode& layout) {
  ApiPmId id;
  IXMLDOMNode parent;
  if (!zelXmlGetExternalId(layout, id)) return false;
  if (!zelXmlGetReferencedNode(document, layout, "parent", parent)) return true;
  return out ? zelXmlRemoveChildAndPublish(out, parent, id) : zelXmlRemoveChildItem(parent, id);
}

namespace {

// Whether a walk from one object comes to another, each step going to the ids that `next` appends.
template <class Next>
bool leadsTo(const ApiPmId& from, const ApiPmId& to, Next next) {
  std::vector<ApiPmId> waiting{from};
  std::unordered_set<ApiPmId> seen{from};
  while (!waiting.empty()) {
    const ApiPmId current = waiting.back();
    waiting.pop_back();
    if (current == to) return true;
    ApiPmIdList ids;
    next(current, ids);
    for (const ApiPmId& id : ids) {
      if (seen.insert(id).second) waiting.push_back(id);
    }
  }
  return false;
}

}  // namespace

// Whether `id` is this collection or stands above it: by any parent that the objects on the way up name, or
// by any child that those on the way down name, since the lists of a document need not agree.
bool ZelXmlCollectionService::isBelow(const ApiPmId& id) const {
  ZelXmlNodeHost& wrapper = *owner().getWrapper();
  const IXMLDOMDocument document = wrapper.DOMDocument();
  ApiPmId own;
  if (!owner().readId(own)) return false;
  const auto parents = [&](const ApiPmId& of, ApiPmIdList& ids) {
    IXMLDOMNode element;
    ApiPmId relevant;
    if (zelXmlFindNodeById(document, of, element)) zelXmlGetParentItemIds(element, ids);
    if (wrapper.relevantParentFinder().findRelevantParent(of, relevant)) ids.append(relevant);
  };
  const auto children = [&](const ApiPmId& of, ApiPmIdList& ids) {
    IXMLDOMNode element;
    if (zelXmlFindNodeById(document, of, element)) zelXmlGetChildIds(element, ids);
  };
  return leadsTo(own, id, parents) || leadsTo(id, own, children);
}

// Whether the numbers of a document can tell where the object stands in this collection. False only when they
// cannot: what has no placement, or none that can be read, fails later or needs none.
bool ZelXmlCollectionService::canHold(const ZelXmlNode& node) const {
  const IXMLDOMDocument document = owner().getWrapper()->DOMDocument();
  IXMLDOMNode own;
  IXMLDOMNode layout;
  RTTran3D relative;
  return !zelXmlGetReferencedNode(document, getXmlNode(), "layout", own) ||
         !zelXmlGetReferencedNode(document, node.getXmlNode(), "layout", layout) ||
         !zelXmlGetRelativeTransform(layout, own, relative) || zelXmlIsFinite(relative);
}

// The same for an object that keeps its relative placement, with all below it.
bool ZelXmlCollectionService::canHoldLocally(const ZelXmlNode& node) const {
  const IXMLDOMDocument document = owner().getWrapper()->DOMDocument();
  IXMLDOMNode own;
  IXMLDOMNode layout;
  RTTran3D absolute;
  RTTran3D relative;
  return !zelXmlGetReferencedNode(document, getXmlNode(), "layout", own) ||
         !zelXmlGetReferencedNode(document, node.getXmlNode(), "layout", layout) ||
         !zelXmlGetAbsoluteLocation(own, absolute) || !zelXmlGetLayoutTransform(layout, relative) ||
         zelXmlCanPropagateAbsoluteLocation(document, layout, absolute * relative);
}

bool ZelXmlCollectionService::removeChild(const ApiPmId& child) {
  const ApiPmId id = child;
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ZelXmlNode* node = wrapper ? wrapper->zelXmlNodeFromId(id) : nullptr;
  return node && zelXmlRemoveChildAndPublish(wrapper->OUTDocument(), getXmlNode(), id) && node->deleteNode();
}

bool ZelXmlCollectionService::removeChildLocally(const ApiPmId& child) {
  const ApiPmId id = child;
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ZelXmlNode* node = wrapper ? wrapper->zelXmlNodeFromId(id) : nullptr;
  if (!node) return false;
  const IXMLDOMDocument document = wrapper->DOMDocument();
  ApiPmXmlCachedDocument& cached = wrapper->cachedDOMDocument();
  IXMLDOMNode layout;
  if (!zelXmlGetReferencedNode(document, node->getXmlNode(), "layout", layout) ||
      !zelXmlDetachLayout(document, {}, layout) || !zelXmlRemoveCachedElement(cached, layout) ||
      !zelXmlRemoveChildItem(getXmlNode(), id) || !zelXmlRemoveCachedElement(cached, node->getXmlNode())) {
    return false;
  }
  wrapper->removeAndDeleteNodeObject(id);
  return true;
}

bool ZelXmlCollectionService::addExistingChild(ZelNode* child) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ZelXmlNode* node = zelXmlNodeOf(child);
  ApiPmId id;
  if (!wrapper || !node || !node->readId(id) || isBelow(id) || !canHold(*node)) return false;
  const IXMLDOMNode element = node->getXmlNode();
  return addChildElement(element) && addLayoutChild(element) && node->attachToParent(getXmlNode()) &&
         wrapper->addParentAndChildToRelevantParentFinder(owner(), *node);
}

bool ZelXmlCollectionService::addChildElement(const IXMLDOMNode& child) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ApiPmId id;
  ApiPmId parent;
  if (!wrapper || !zelXmlGetExternalId(child, id)) return false;
  if (wrapper->relevantParentFinder().findRelevantParent(id, parent)) {
    if (!zelXmlDetachFromParent(*wrapper, child, parent)) return false;
  } else {
    takeFromRoots(id);
  }
  return listChild(id);
}

bool ZelXmlCollectionService::addOccurrence(ZelNode* occurrence) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  const ZelXmlNode* node = zelXmlNodeOf(occurrence);
  ApiPmId own;
  ApiPmId id;
  if (!wrapper || !node || !node->readId(id) || !owner().readId(own)) return false;
  std::string holderId;
  if (zelXmlGetParentPrototype(node->getXmlNode(), holderId) && zelXmlIsReference(holderId)) {
    IXMLDOMNode holder;
    if (!zelXmlFindNodeById(wrapper->DOMDocument(), holderId, holder) ||
        !zelXmlRemoveChildAndPublish(wrapper->OUTDocument(), holder, id) ||
        !wrapper->relevantParentFinder().removeRelevantParent(id)) {
      return false;
    }
  } else {
    takeFromRoots(id);
  }
  return listChild(id) && zelXmlSetParentPrototype(wrapper->DOMDocument(), node->getXmlNode(), own.text()) &&
         wrapper->addParentAndChildToRelevantParentFinder(owner(), *node);
}

void ZelXmlCollectionService::takeFromRoots(const ApiPmId& id) {
  ZelXmlNodeHost& wrapper = *owner().getWrapper();
  if (ZelXmlNode* node = wrapper.zelXmlNodeFromId(id)) wrapper.roots().remove(node->pmNode());
}

bool ZelXmlCollectionService::listChild(const ApiPmId& id) {
  return zelXmlAddChildItem(getXmlNode(), id) &&
         zelXmlPublishUpdate(owner().getWrapper()->OUTDocument(), getXmlNode());
}

namespace {

// A layout stays under its old parent's layout when its object becomes a root or moves into a study. That is
// harmless until that parent, or what stands above it, is put below the object: then the layouts would close
// a cycle, and no placement could hold. So when `lower` stands below `upper`, every link on the way up whose
// objects are not parent and child is released; the layout keeps its absolute placement.
bool releaseOutlivedLinks(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                          const IXMLDOMNode& lower, const IXMLDOMNode& upper) {
  std::vector<std::pair<IXMLDOMNode, IXMLDOMNode>> links;
  std::unordered_set<IXMLDOMNode> seen;
  IXMLDOMNode parent;
  for (IXMLDOMNode at = lower; !(at == upper); at = parent) {
    if (!seen.insert(at).second || !zelXmlGetReferencedNode(document, at, "parent", parent)) return true;
    links.emplace_back(at, parent);
  }
  for (const auto& [layout, above] : links) {
    ApiPmId layoutId;
    ApiPmId owner;
    ApiPmId ownerAbove;
    IXMLDOMNode object;
    ApiPmIdList parents;
    if (zelXmlGetLayoutOwnerId(document, layout, owner) &&
        zelXmlGetLayoutOwnerId(document, above, ownerAbove) && zelXmlFindNodeById(document, owner, object) &&
        zelXmlGetParentItemIds(object, parents) && parents.contains(ownerAbove)) {
      continue;
    }
    RTTran3D absolute;
    if (!zelXmlGetExternalId(layout, layoutId) || !zelXmlRemoveChildItem(above, layoutId) ||
        !zelXmlSetParentText(layout, "NULL") || !zelXmlGetAbsoluteLocation(layout, absolute) ||
        !zelXmlSetLayoutTransform(layout, absolute) || !zelXmlPublishUpdate(out, above) ||
        !zelXmlPublishUpdate(out, layout)) {
      return false;
    }
  }
  return true;
}

}  // namespace

// With a null `out` nothing is published.
bool ZelXmlCollectionService::takeLayout(const IXMLDOMNode& child, const IXMLDOMDocument& out) {
  const IXMLDOMDocument document = owner().getWrapper()->DOMDocument();
  IXMLDOMNode own;
  IXMLDOMNode layout;
  ApiPmId layoutId;
  return zelXmlGetReferencedNode(document, getXmlNode(), "layout", own) &&
         zelXmlGetReferencedNode(document, child, "layout", layout) &&
         zelXmlGetExternalId(layout, layoutId) && releaseOutlivedLinks(document, out, own, layout) &&
         zelXmlDetachLayout(document, out, layout) && zelXmlAddChildItem(own, layoutId) &&
         zelXmlPublishUpdate(out, own);
}

bool ZelXmlCollectionService::addLayoutChild(const IXMLDOMNode& child) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  return wrapper && takeLayout(child, wrapper->OUTDocument());
}

bool ZelXmlCollectionService::addLayoutChildLocally(const IXMLDOMNode& child) {
  return owner().getWrapper() && takeLayout(child, {});
}

bool ZelXmlCollectionService::addChild(ZelNode* child) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ZelXmlNode* node = zelXmlNodeOf(child);
  ApiPmId id;
  IXMLDOMNode own;
  ApiPmId layoutId;
  return wrapper && node && node->readId(id) && zelXmlAddChildItem(getXmlNode(), id) &&
         zelXmlGetReferencedNode(wrapper->DOMDocument(), getXmlNode(), "layout", own) &&
         zelXmlGetLayoutId(node->getXmlNode(), layoutId) && zelXmlAddChildItem(own, layoutId) &&
         wrapper->addParentAndChildToRelevantParentFinder(owner(), *node);
}

bool ZelXmlCollectionService::createChild(const ZelXmlCreationRecord& record, ZelNode*& child) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  std::unique_ptr<ZelXmlNode> node(ZelXmlNodeFactory::the().create(record.type));
  if (!wrapper || !node) return false;
  node->setWrapper(wrapper);
  IXMLDOMNode element;
  if (!node->createXmlElement(record, element) || !element) return false;
  node->setXmlNode(element);
  node->setId(record.id);
  child = node.release()->pmNode();
  wrapper->insertNode(record.id, child);
  return true;
}

bool ZelXmlCollectionService::getChildNodes(ZelNodeList& children) const {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ApiPmId own;
  ApiPmIdList ids;
  if (!wrapper || !owner().readId(own) || !getChildIds(ids)) return false;
  for (const ApiPmId& id : ids) {
    ApiPmId parent;
    if (!wrapper->relevantParentFinder().findRelevantParent(id, parent) || !(parent == own)) continue;
    if (ZelNode* node = wrapper->getZelNodeFromId(id)) children.append(node);
  }
  return true;
}

bool ZelXmlCollectionService::getChildIds(ApiPmIdList& ids) const {
  return zelXmlGetChildIds(getXmlNode(), ids);
}

ZelNode* ZelXmlCollectionService::createPlacedChild(ZelNodeType type, const RWClassicWString& className,
                                                    const ApiPmId& id) {
  ZelNode* child = nullptr;
  if (!createChild({type, className, id}, child)) return nullptr;
  addExistingChild(child);  // a child that cannot be placed exists all the same
  return child;
}

bool ZelXmlCollectionService::moveChild(ZelNode* child) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ZelXmlNode* node = zelXmlNodeOf(child);
  ApiPmId id;
  ApiPmId shortcut;
  if (!wrapper || !node || !node->readId(id) || isBelow(id) || !canHold(*node)) return false;
  if (wrapper->shortcutFinder().findShortcut(id, shortcut)) {
    if (!zelXmlRemoveStudyShortcut(wrapper->cachedDOMDocument(), wrapper->OUTDocument(),
                                   ApiPmId(wrapper->studyId()), shortcut)) {
      return false;
    }
    wrapper->shortcutFinder().removeNodeAndShortcut(id, shortcut);
  }
  return addExistingChild(child);
}

bool ZelXmlCollectionService::moveChildLocally(ZelNode* child) {
  ZelXmlNodeHost* wrapper = owner().getWrapper();
  ZelXmlNode* node = zelXmlNodeOf(child);
  ApiPmId id;
  ApiPmId shortcut;
  if (!wrapper || !node || !node->readId(id) || isBelow(id) || !canHoldLocally(*node)) return false;
  wrapper->shortcutFinder().removeNodeAndShortcut(id, shortcut);
  const IXMLDOMNode element = node->getXmlNode();
  if (!zelXmlDetachFromRelevantParent(*wrapper, element) || !zelXmlAddChildItem(getXmlNode(), id) ||
      !addLayoutChildLocally(element) || !node->setAsChildOfElement(getXmlNode()) ||
      !wrapper->addParentAndChildToRelevantParentFinder(owner(), *node)) {
    return false;
  }
  wrapper->roots().remove(node->pmNode());
  return true;
}

#include "document/ZelXmlFunctions.h"
#include "merge/ZelXmlUpdateFromExternalDocument.h"
#include "node/ZelXmlCollectionService.h"
#include "node/ZelXmlNode.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelPrototype.h"

// How the current object comes into the study.

bool ZelXmlUpdateFromExternalDocument::updateCurrentNode() {
  bool updated = false;
  if (currentZelXmlNode_) {
    logAction("UPDATING");
    if (currentZelXmlNode_->removeRequisites()) {
      updateXmlNode();
      updated = currentZelXmlNode_->createSubnodes();
    }
  }
  handle3DRepNodes();
  return updated;
}

void ZelXmlUpdateFromExternalDocument::updateXmlNode() {
  if (isDryRun() || replaceXmlNode()) collectRelations();
}

bool ZelXmlUpdateFromExternalDocument::replaceXmlNode() {
  if (!wrapper_->cachedDOMDocument().isNodeCached(currentRealNodeId_)) {
    return wrapper_->appendNewXmlNode(currentRealNode_, currentFamily_) &&
           wrapper_->addNewChildToExistingParent(currentRealNode_);
  }
  IXMLDOMElement existing;
  if (!wrapper_->cachedDOMDocument().getNodeById(wrapper_->DOMDocument(), currentRealNodeId_, existing, true))
    return false;
  if (!currentZelXmlNode_)
    return wrapper_->updateExistingXmlNodeAsNew(currentRealNode_, existing, currentFamily_);
  return disconnectFromRemovedChildren(existing) &&
         wrapper_->updateExistingXmlNode(currentRealNode_, existing) &&
         wrapper_->addNewChildToExistingParent(currentRealNode_) && addRootFromOtherParent(currentRealNode_);
}

bool ZelXmlUpdateFromExternalDocument::createNewNode() {
  logAction("CREATING");
  if (!isDryRun()) {
    // A new parent counts for its children only where no other does.
    disconnectChildrenFromOtherParents();
    ApiPmId id;
    wrapper_->updateXmlNodeIncremental(currentItemNode_, id);
  }
  const IXMLDOMNode item = currentItemNode_;
  acquireRealNodeData(item, false);
  handle3DRepNodes();
  collectRelations();
  return true;
}

bool ZelXmlUpdateFromExternalDocument::disconnectChildrenFromOtherParents() {
  ApiPmIdList children;
  if (!zelXmlGetChildIds(currentRealNode_, children)) return false;
  ZelXmlParentFinder& parents = wrapper_->relevantParentFinder();
  for (const ApiPmId& child : children) {
    ApiPmId parent;
    if (parents.findRelevantParent(child, parent) && !(parent == currentRealNodeId_) &&
        !parents.removeRelevantParent(child)) {
      return false;
    }
  }
  return true;
}

bool ZelXmlUpdateFromExternalDocument::disconnectFromRemovedChildren(const IXMLDOMNode& existing) {
  List<_bstr_t> missing;
  if (!wrapper_->accumulateMissingChildren(currentRealNode_, existing, missing)) return false;
  ZelXmlParentFinder& parents = wrapper_->relevantParentFinder();
  for (const _bstr_t& text : missing) {
    removedChildren_.append(text);
    const ApiPmId child(text);
    ApiPmId parent;
    if (parents.findRelevantParent(child, parent) && parent == currentRealNodeId_ &&
        !parents.removeRelevantParent(child)) {
      return false;
    }
  }
  return true;
}

// An object that the external document has without parent becomes a root.
bool ZelXmlUpdateFromExternalDocument::addRootFromOtherParent(const IXMLDOMNode& node) {
  ApiPmId id;
  ZelNode* zelNode = zelXmlGetExternalId(node, id) ? wrapper_->getZelNodeFromId(id) : nullptr;
  if (!zelNode) return true;
  IXMLDOMNode firstParent;
  std::string prototype;
  const bool hasParent = zelXmlSelectChild(node, "parents/item", firstParent) ||
                         // An occurrence stands below an equipment prototype.
                         (currentFamily_ == "Resource" && zelXmlGetParentPrototype(node, prototype) &&
                          zelXmlIsReference(prototype));
  if (hasParent || !zelNode->getParent()) return true;
  // False, though the parent has let go: the replaced element names it no more.
  wrapper_->addRootFromOtherParent(zelNode);
  IXMLDOMNode layout;
  const IXMLDOMDocument study = wrapper_->DOMDocument();
  if (!wrapper_->relevantParentFinder().hasRelevantParent(id) &&
      zelXmlGetReferencedNode(study, node, "layout", layout)) {
    zelXmlDetachLayout(study, {}, layout);
  }
  return true;
}

bool ZelXmlUpdateFromExternalDocument::handle3DRepNodes() {
  if (currentPrototypeFullPath_.empty()) return false;
  auto* prototype = zelQuery<ZelPrototype>(currentZelNode_);
  return !prototype || prototype->setPrototypePath(currentPrototypeFullPath_);
}

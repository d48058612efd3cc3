#include "node/ZelXmlStudy.h"

#include <memory>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeFactory.h"
#include "node/ZelXmlNodeHost.h"

ZelNode* zelXmlNodeOfShortcut(ZelXmlNodeHost& wrapper, const IXMLDOMNode& shortcut) {
  IXMLDOMNode shown;
  ApiPmId id;
  return zelXmlGetReferencedNode(wrapper.DOMDocument(), shortcut, "linkExternalID", shown) &&
                 zelXmlGetExternalId(shown, id)
             ? wrapper.getZelNodeFromId(id)
             : nullptr;
}

bool ZelXmlStudy::getLocation(RTTran3D& location) const {
  location = RTTran3D::unit;
  return true;
}

ZelNode* ZelXmlStudy::createChild(ZelNodeType type, const RWClassicWString& className, const ApiPmId& id) {
  ZelNode* child = nullptr;
  if (!collectionService().createChild({type, className, id}, child)) return nullptr;
  const ZelXmlNode* node = zelXmlNodeOf(child);
  if (!node || !zelXmlPublishUpdate(outDocument(), node->getXmlNode())) return nullptr;
  addExistingChild(child);  // a child that cannot be shown exists all the same
  return child;
}

bool ZelXmlStudy::addExistingChild(ZelNode* child) {
  ZelXmlNodeHost* wrapper = getWrapper();
  ZelXmlNode* node = zelXmlNodeOf(child);
  ApiPmId own;
  ApiPmId id;
  if (!wrapper || !node || node == this || !readId(own) || !zelXmlGetExternalId(node->getXmlNode(), id))
    return false;
  std::string name;
  if (!zelXmlGetName(node->getXmlNode(), name) || name.empty()) name = "PmShortcut";
  IXMLDOMNode shortcut;
  if (!zelXmlCreateShortcut(document(), outDocument(), getXmlNode(), name, shortcut) ||
      !zelXmlSetLinkText(shortcut, id.text()) || !collectionService().addChildElement(shortcut) ||
      !zelXmlSetParentText(shortcut, own.text()) || !zelXmlPublishClone(outDocument(), shortcut)) {
    return false;
  }
  wrapper->addShortcutToShortcutFinder(shortcut);
  wrapper->roots().append(node->pmNode());
  return true;
}

bool ZelXmlStudy::moveChild(ZelNode* child) {
  ZelXmlNodeHost* wrapper = getWrapper();
  ZelXmlNode* node = zelXmlNodeOf(child);
  ApiPmId id;
  ApiPmId parent;
  if (!wrapper || !node || node == this || !node->readId(id)) return false;
  if (wrapper->relevantParentFinder().findRelevantParent(id, parent) &&
      (!wrapper->getZelNodeFromId(parent) || !zelXmlDetachFromParent(*wrapper, node->getXmlNode(), parent))) {
    return false;
  }
  return addExistingChild(child);
}

bool ZelXmlStudy::findShortcutOf(const ZelNode* node, ApiPmId& shortcut) const {
  ApiPmId id;
  return getWrapper() && node && node->getExternalId(id) &&
         getWrapper()->shortcutFinder().findShortcut(id, shortcut);
}

bool ZelXmlStudy::containsNode(const ZelNode* node) const {
  ApiPmId shortcutId;
  ApiPmId own;
  IXMLDOMNode shortcut;
  std::string parent;
  return findShortcutOf(node, shortcutId) && zelXmlFindNodeById(document(), shortcutId, shortcut) &&
         zelXmlGetParentId(shortcut, parent) && readId(own) && parent == own.text();
}

bool ZelXmlStudy::hasShortcutChild(const ZelNode* node) const {
  ApiPmId shortcut;
  return findShortcutOf(node, shortcut) && zelXmlContainsChild(getXmlNode(), shortcut);
}

bool ZelXmlStudy::getChildrenOfType(ZelNodeType type, ZelNodeList& nodes) const {
  ApiPmIdList ids;
  if (!getWrapper() || !zelXmlGetChildIds(getXmlNode(), ids)) return false;
  ZelNodeList found;
  for (const ApiPmId& id : ids) {
    IXMLDOMNode shortcut;
    if (!zelXmlFindNodeById(document(), id, shortcut)) return false;
    ZelNode* node = zelXmlNodeOfShortcut(*getWrapper(), shortcut);
    if (node && node->type() == type) found.append(node);
  }
  nodes = found;
  return true;
}

ZelNode* ZelXmlStudy::createOperationNode(const ApiPmId& id) {
  return createSubjectNode(id, ZEL_OPERATION, ZelNode::Operation);
}

ZelNode* ZelXmlStudy::createFlowNode(const ApiPmId& id) {
  return createSubjectNode(id, ZEL_FLOW, ZelNode::Link);
}

ZelNode* ZelXmlStudy::createSubjectNode(const ApiPmId& id, ZelNodeType type, ZelNode::InterfaceType face) {
  IXMLDOMNode element;
  if (!getWrapper() || !zelXmlFindNodeById(document(), id, element)) return nullptr;
  std::unique_ptr<ZelXmlNode> node(ZelXmlNodeFactory::the().create(type));
  if (!node) return nullptr;
  node->setXmlNode(element);
  node->setId(id);
  node->setWrapper(getWrapper());
  ZelNode* answer = node->pmNode()->queryInterface(face);
  getWrapper()->insertNode(id, node.release()->pmNode());
  return answer;
}

bool ZelXmlStudy::removeNodeShortcut(const ApiPmId& id) {
  ApiPmId shortcut;
  if (!getWrapper() || !getWrapper()->shortcutFinder().findShortcut(id, shortcut)) return false;
  return zelXmlRemoveStudyShortcut(getWrapper()->cachedDOMDocument(), outDocument(),
                                   ApiPmId(getWrapper()->studyId()), shortcut) &&
         getWrapper()->shortcutFinder().removeNodeAndShortcut(id, shortcut);
}

bool ZelXmlStudy::removeChild(const ApiPmId& id) {
  ApiPmId shortcutId;
  IXMLDOMNode shortcut;
  if (!getWrapper() || !getWrapper()->shortcutFinder().findShortcut(id, shortcutId) ||
      !zelXmlFindNodeById(document(), shortcutId, shortcut)) {
    return false;
  }
  ZelXmlNode* node = zelXmlNodeOf(zelXmlNodeOfShortcut(*getWrapper(), shortcut));
  // The object's own deletion takes the shortcut out of the study: doing it here as well would fail there.
  return node && node->deleteNode();
}

bool ZelXmlStudy::removeStudyInfo(const ApiPmId& shortcut) {
  IXMLDOMNode infoItem;
  IXMLDOMNode childItem;
  IXMLDOMNode info;
  IXMLDOMNode layout;
  std::string infoId;
  if (!zelXmlFindShortcutItems(getXmlNode(), shortcut.text(), infoItem, childItem) ||
      !zelXmlGetText(infoItem, infoId) || !zelXmlFindNodeById(document(), infoId, info)) {
    return false;
  }
  ApiPmXmlCachedDocument& cached = getWrapper()->cachedDOMDocument();
  return zelXmlRemoveCachedElement(cached, info) &&
         zelXmlGetReferencedNode(document(), info, "layout", layout) &&
         zelXmlRemoveCachedElement(cached, layout) && zelXmlRemoveItem(getXmlNode(), infoItem);
}

bool ZelXmlStudy::removeChildLocally(const ApiPmId& shown) {
  const ApiPmId id = shown;
  ApiPmId shortcut;
  ZelXmlNodeHost* wrapper = getWrapper();
  if (!wrapper || !wrapper->shortcutFinder().findShortcut(id, shortcut) || !removeStudyInfo(shortcut) ||
      !zelXmlRemoveChildItem(getXmlNode(), shortcut) ||
      !wrapper->shortcutFinder().removeNodeAndShortcut(id, shortcut)) {
    return false;
  }
  return wrapper->refreshDeleteRoot(wrapper->getZelNodeFromId(id));
}

bool ZelXmlStudy::addShortcutInfo(ZelNode* node) {
  ApiPmId shortcutId;
  IXMLDOMNode shortcut;
  return findShortcutOf(node, shortcutId) && zelXmlFindNodeById(document(), shortcutId, shortcut) &&
         zelXmlCreateShortcutInfo(document(), outDocument(), getXmlNode()) &&
         collectionService().addChildElement(shortcut);
}

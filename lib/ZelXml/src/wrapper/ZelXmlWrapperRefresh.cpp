#include <utility>

#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlCollectionService.h"
#include "node/ZelXmlNode.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelCollection.h"
#include "zel/ZelVorStudy.h"

// Changes that have happened in the data store already: study document and caches follow, nothing is
// published.

bool ZelXmlWrapper::refreshParentWithNewChild(const ApiPmId& parent, ZelNode* node) {
  ZelXmlNode* parentNode = zelXmlNodeFromId(parent);
  return !parentNode || addChildLocally(*parentNode, node);
}

// Some collections publish a child that they take in; here its OUT document is out of reach meanwhile.
bool ZelXmlWrapper::addChildLocally(ZelXmlNode& parent, ZelNode* child) {
  struct Withheld {
    explicit Withheld(IXMLDOMDocument& place) : document(place), kept(std::exchange(place, {})) {}
    ~Withheld() { document = std::move(kept); }
    IXMLDOMDocument& document;
    IXMLDOMDocument kept;
  };
  const Withheld out(outDocument_);
  return parent.addChild(child);
}

bool ZelXmlWrapper::refreshDeleteRoot(ZelNode* node) {
  const ZelXmlNode* xmlNode = zelXmlNodeOf(node);
  ApiPmId id;
  if (!xmlNode || !roots_.contains(xmlNode->pmNode()) || !xmlNode->readId(id)) return false;
  ZelNode* study = getZelNodeFromId(ApiPmId(studyId_));
  const auto* shows = zelQuery<ZelVorStudy>(study);
  if (shows && shows->hasShortcutChild(node)) {
    // It removes the shortcut, then comes here again: node and id are gone when it answers true.
    auto* collection = zelQuery<ZelVorCollection>(study);
    return collection && collection->removeChildLocally(id);
  }
  IXMLDOMNode layout;
  if (!zelXmlGetReferencedNode(DOMDocument(), xmlNode->getXmlNode(), "layout", layout) ||
      !zelXmlRemoveCachedElement(cachedDOMDocument(), layout) ||
      !zelXmlRemoveCachedElement(cachedDOMDocument(), xmlNode->getXmlNode())) {
    return false;
  }
  removeAndDeleteNodeObject(id);
  return true;
}

bool ZelXmlWrapper::refreshSetChildAsRoot(ZelNode* node, const ApiPmId& parent, const ApiPmId& parentLayout,
                                          const RTTran3D& location) {
  ZelXmlNode* xmlNode = zelXmlNodeOf(node);
  if (!xmlNode || !zelXmlDetachFromRelevantParent(*this, xmlNode->getXmlNode())) return false;
  // Once `parent` of the layout names the new one, nothing leads to the old parent layout: note it before, so
  // that it does not keep the child and move it later.
  IXMLDOMNode layout;
  IXMLDOMNode oldParentLayout;
  ApiPmId layoutId;
  const IXMLDOMDocument document = DOMDocument();
  if (zelXmlGetReferencedNode(document, xmlNode->getXmlNode(), "layout", layout)) {
    zelXmlGetReferencedNode(document, layout, "parent", oldParentLayout);
  }
  if (!xmlNode->setAsChildOf(parent, parentLayout, location) || !zelXmlGetExternalId(layout, layoutId) ||
      (oldParentLayout && !zelXmlRemoveChildItem(oldParentLayout, layoutId)) ||
      !zelXmlDetachLayout(document, {}, layout)) {
    return false;
  }
  return refreshRoots();
}

bool ZelXmlWrapper::refreshShortcutRemovalFromStudy(const ApiPmId& shortcutId, const ApiPmId& nodeId) {
  const IXMLDOMDocument document = DOMDocument();
  const ApiPmId studyId(studyId_);
  IXMLDOMNode study;
  IXMLDOMNode shortcut;
  IXMLDOMNode info;
  IXMLDOMNode layout;
  IXMLDOMNode infoItem;
  IXMLDOMNode childItem;
  ApiPmXmlCachedDocument& cached = cachedDOMDocument();
  return zelXmlFindNodeById(document, studyId, study) && zelXmlFindNodeById(document, shortcutId, shortcut) &&
         zelXmlGetShortcutStudyObjects(document, studyId, shortcutId, info, layout) &&
         zelXmlRemoveCachedElement(cached, info) && zelXmlRemoveCachedElement(cached, layout) &&
         zelXmlRemoveCachedElement(cached, shortcut) &&
         zelXmlFindShortcutItems(study, shortcutId.text(), infoItem, childItem) &&
         zelXmlRemoveShortcutItems(study, infoItem, childItem) && parentFinder_.removeRelevantParent(nodeId);
}

bool ZelXmlWrapper::refreshAllShortcutsRemovalFromStudy() {
  ApiPmIdList shortcuts;
  ApiPmIdList nodes;
  shortcutFinder_.getAllShortcuts(shortcuts, nodes);
  bool removed = false;
  for (std::size_t i = 0; i < shortcuts.entries(); ++i) {
    removed = refreshShortcutRemovalFromStudy(shortcuts[i], nodes[i]);
    if (!removed) break;
  }
  shortcutFinder_.clear();
  return removed;
}

bool ZelXmlWrapper::refreshStudyNodeDeletion() {
  IXMLDOMNode study;
  return zelXmlFindNodeById(DOMDocument(), ApiPmId(studyId_), study) &&
         zelXmlRemoveCachedElement(cachedDOMDocument(), study);
}

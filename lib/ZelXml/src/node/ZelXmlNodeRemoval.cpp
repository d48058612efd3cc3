#include "api/ApiPmSessionManager.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeHost.h"

// How an object leaves the study, or leaves its parents but one.

bool ZelXmlNode::deleteNode() {
  ApiPmId own;
  if (!wrapper_ || !readId(own)) return false;
  bool left = true;
  ApiPmId shortcut;
  if (wrapper_->shortcutFinder().findShortcut(own, shortcut)) {
    left = zelXmlRemoveStudyShortcut(wrapper_->cachedDOMDocument(), outDocument(),
                                     ApiPmId(wrapper_->studyId()), shortcut) &&
           wrapper_->shortcutFinder().removeNodeAndShortcut(own, shortcut);
  }
  if (!removeElement() || !left) return false;
  wrapper_->removeAndDeleteNodeObject(own);
  return true;
}

bool ZelXmlNode::removeElement() {
  if (!wrapper_ || !element_) return false;
  IXMLDOMNodeList parents;
  if (!zelXmlSelectChildren(element_, "parents/item", parents)) return false;
  ApiPmId relevant;
  const bool hasRelevant = readParentId(relevant);
  ApiPmXmlCachedDocument& cached = wrapper_->cachedDOMDocument();
  if (parents.length() > 1) {
    return hasRelevant && zelXmlRemoveParentItem(element_, outDocument(), relevant);
  }
  if (parents.length() == 1) {
    IXMLDOMNode layout;
    if (ApiPmSessionManager::the().deleteMode != 1 && !hasRelevant) return false;
    if (!referenced("layout", layout) || !zelXmlPublishDeletion(cached, outDocument(), layout)) return false;
  }
  return zelXmlPublishDeletion(cached, outDocument(), element_);
}

bool ZelXmlNode::removeSharing() {
  ApiPmId own;
  ApiPmId relevant;
  ApiPmIdList parents;
  IXMLDOMNode second;
  if (!element_) return false;
  if (!zelXmlFindItemAt(element_, "parents", 1, second)) return true;  // as nearly always
  if (!zelXmlGetParentItemIds(element_, parents)) return false;
  if (parents.entries() < 2 || !readId(own) || !readParentId(relevant)) return true;

  for (const ApiPmId& parent : parents) {
    if (parent == relevant) continue;
    if (!zelXmlRemoveParentEntry(element_, parent)) return false;
    IXMLDOMNode parentElement;
    if (zelXmlFindNodeByIdQuiet(document(), parent.text(), parentElement) &&
        !zelXmlRemoveChildItem(parentElement, own)) {
      return false;
    }
  }

  IXMLDOMNode layout;
  IXMLDOMNode parentLayout;
  std::string owner;
  ApiPmId layoutId;
  if (!zelXmlGetReferencedNodeQuiet(document(), element_, "layout", layout) ||
      !zelXmlGetReferencedNodeQuiet(document(), layout, "parent", parentLayout) ||
      !zelXmlGetString(parentLayout, "node", owner) || owner == relevant.text()) {
    return true;
  }
  return zelXmlGetExternalId(layout, layoutId) && zelXmlRemoveChildItem(parentLayout, layoutId) &&
         zelXmlClearField(layout, "parent");
}

#include <utility>

#include "document/ZelXmlFunctions.h"
#include "merge/ZelXmlUpdateXmlWrapper.h"
#include "node/ZelXmlNode.h"

// Parents and children: cut before the objects are replaced, tied again afterwards, and the search for
// objects that nothing leads to any more.

namespace {

std::string quoted(std::string_view id) { return "\"" + std::string(id) + "\""; }

// The objects that shortcuts in the list of a study lead to, for a run in which no shortcut is added.
class ShownObjects {
 public:
  ShownObjects(const IXMLDOMDocument& document, const ApiPmId& study) : document_(document), study_(study) {
    IXMLDOMNode element;
    ApiPmIdList children;
    if (!zelXmlFindNodeById(document, study, element) || !zelXmlGetChildIds(element, children)) return;
    for (const ApiPmId& child : children) {
      IXMLDOMNode shortcut;
      IXMLDOMNode shown;
      ApiPmId id;
      if (zelXmlFindNodeById(document, child, shortcut) &&
          zelXmlGetReferencedNode(document, shortcut, "linkExternalID", shown) &&
          zelXmlGetExternalId(shown, id)) {
        shortcuts_.emplace(id, child);
      }
    }
  }

  // As doesStudyContainNodeByShortcut.
  bool contain(const ApiPmId& id, bool& contained) const {
    contained = false;
    IXMLDOMNode found;
    if (!zelXmlFindNodeById(document_, study_, found)) return false;
    const auto [first, last] = shortcuts_.equal_range(id);
    for (auto at = first; at != last && !contained; ++at)
      contained = zelXmlFindNodeById(document_, at->second, found);
    return true;
  }

 private:
  IXMLDOMDocument document_;
  ApiPmId study_;
  std::unordered_multimap<ApiPmId, ApiPmId> shortcuts_;
};

}  // namespace

bool ZelXmlUpdateXmlWrapper::getNodeToBeReplaced(const IXMLDOMNode& family, bool isMain,
                                                 IXMLDOMElement& existing) {
  existing = {};
  ApiPmId id;
  const IXMLDOMNode object = family.parentNode().parentNode();
  if (!zelXmlGetExternalId(object, id)) {
    return failed("an object of the update has no id: " + std::string(object.nodeName()) +
                  (object.line() ? ", line " + std::to_string(object.line()) : ""));
  }
  std::string buffer;
  if (zelXmlIsMainFamily(family.textView(buffer)) == isMain)
    cachedDOMDocument().getNodeById(DOMDocument(), id, existing, true);
  return true;
}

bool ZelXmlUpdateXmlWrapper::preUpdateNodesAndElementsRemoval(const IXMLDOMDocument& updateDocument,
                                                              Suspects& suspects) {
  IXMLDOMNodeList families;
  if (!zelXmlSelectChildren(updateDocument, "Data/Objects/*/NodeInfo/family", families)) return true;
  for (const IXMLDOMNode& family : families)
    if (!removeParentsToBeReplacedFromChildren(family, suspects)) return false;
  for (const IXMLDOMNode& family : families) {
    if (!removeChildrenItemElementsFromNodesToBeReplaced(family)) return false;
    removeChildrenToBeReplacedFromParents(family);
  }
  return true;
}

bool ZelXmlUpdateXmlWrapper::removeParentsToBeReplacedFromChildren(const IXMLDOMNode& family,
                                                                   Suspects& suspects) {
  IXMLDOMElement existing;
  return getNodeToBeReplaced(family, true, existing) &&
         (!existing || removeParentItemFromChildren(existing, suspects));
}

bool ZelXmlUpdateXmlWrapper::removeChildrenItemElementsFromNodesToBeReplaced(const IXMLDOMNode& family) {
  IXMLDOMElement existing;
  return getNodeToBeReplaced(family, true, existing) &&
         (!existing || replaceChildrenElementWithEmptyOne(existing));
}

bool ZelXmlUpdateXmlWrapper::removeChildrenToBeReplacedFromParents(const IXMLDOMNode& family) {
  IXMLDOMElement existing;
  if (!getNodeToBeReplaced(family, true, existing)) return false;
  if (!existing) return true;
  IXMLDOMNode layout;
  if (!removeChildItemFromParents(existing)) return false;
  // A layout whose `parent` names none ends this too: the shortcut of such an object stays.
  if (zelXmlGetReferencedNode(DOMDocument(), existing, "layout", layout) &&
      !removeChildItemFromParent(layout)) {
    return false;
  }
  ApiPmId id;
  ApiPmId shortcutId;
  IXMLDOMNode shortcut;
  if (!zelXmlGetExternalId(existing, id) || !findShortcut(id, shortcutId)) return true;
  return zelXmlFindNodeById(DOMDocument(), shortcutId, shortcut) &&
         zelXmlRemoveShortcut(cachedDOMDocument(), shortcut) &&
         shortcutFinder().removeNodeAndShortcut(id, shortcutId);
}

bool ZelXmlUpdateXmlWrapper::removeParentItemFromChildren(const IXMLDOMNode& element, Suspects& suspects) {
  const IXMLDOMDocument document = DOMDocument();
  IXMLDOMNodeList children;
  ApiPmId id;
  if (!zelXmlSelectChildren(element, "children/item", children) || !zelXmlGetExternalId(element, id)) {
    return failed("the children of " + quoted(id.text()) + " cannot be read");
  }
  for (const IXMLDOMNode& item : children) {
    const ApiPmId child(item.text());
    IXMLDOMNode childElement;
    if (!zelXmlFindNodeById(document, child, childElement)) continue;
    if (!zelXmlRemoveParentEntry(childElement, id)) {
      return failed(quoted(child.text()) + ", a child of " + quoted(id.text()) +
                    ", does not name it among its parents");
    }
    suspects.add(child);
  }
  return true;
}

bool ZelXmlUpdateXmlWrapper::replaceChildrenElementWithEmptyOne(const IXMLDOMNode& element) {
  IXMLDOMNode children;
  return !zelXmlSelectChild(element, "children", children) ||
         (zelXmlRemoveChild(element, children) &&
          zelXmlAddChildWithText(DOMDocument(), element, "children", "")) ||
         failed("an object cannot be given an empty list of children");
}

bool ZelXmlUpdateXmlWrapper::removeChildItemFromParents(const IXMLDOMNode& element) {
  const IXMLDOMDocument document = DOMDocument();
  IXMLDOMNodeList parents;
  ApiPmId id;
  if (!zelXmlSelectChildren(element, "parents/item", parents) || !zelXmlGetExternalId(element, id))
    return false;
  for (const IXMLDOMNode& item : parents) {
    IXMLDOMNode parent;
    if (zelXmlFindNodeById(document, item.text(), parent) && !zelXmlRemoveChildItem(parent, id)) return false;
  }
  return true;
}

bool ZelXmlUpdateXmlWrapper::removeChildItemFromParent(const IXMLDOMNode& element) {
  ApiPmId id;
  IXMLDOMNode parent;
  return zelXmlGetExternalId(element, id) &&
         zelXmlGetReferencedNode(DOMDocument(), element, "parent", parent) &&
         zelXmlRemoveChildItem(parent, id);
}

bool ZelXmlUpdateXmlWrapper::addMissingChildItemToParentsOfHandledNodes(const ApiPmIdList& handled) {
  for (const ApiPmId& id : handled) {
    IXMLDOMNode element;
    std::string family;
    if (!zelXmlFindNodeById(DOMDocument(), id, element) || !zelXmlGetFamily(element, family))
      return failed("the object " + quoted(id.text()) + " could not be taken from the update");
    if (zelXmlIsMainFamily(family) && !addMissingChildItemToParents(element)) return false;
  }
  return true;
}

bool ZelXmlUpdateXmlWrapper::addMissingChildItemToParents(const IXMLDOMNode& element) {
  IXMLDOMNodeList parents;
  ApiPmId id;
  ZelNode* node = zelXmlGetExternalId(element, id) ? getZelNodeFromId(id) : nullptr;
  if (!node || !zelXmlSelectChildren(element, "parents/item", parents))
    return failed("the object " + quoted(id.text()) + " has no node");
  for (const IXMLDOMNode& item : parents) {
    const ApiPmId parentId(item.text());
    ZelNode* parent = getZelNodeFromId(parentId);
    if (!parent) continue;
    ZelXmlNode* parentNode = zelXmlNodeOf(parent);
    if (!parentNode || !parentNode->addChild(node))
      return failed("its parent " + quoted(parentId.text()) + " does not take the object " +
                    quoted(id.text()));
  }
  return true;
}

// Depth first: what an orphan leaves behind is judged before the other suspects. The chain of orphans may be
// as long as the tree is deep, so it is no recursion.
bool ZelXmlUpdateXmlWrapper::handleRemovalOfNodesSuspectedAsOrphans(const Suspects& suspects) {
  const IXMLDOMDocument document = DOMDocument();
  const ShownObjects shownObjects(document, ApiPmId(studyId()));
  std::vector<ApiPmId> waiting(suspects.ids.rbegin(), suspects.ids.rend());
  while (!waiting.empty()) {
    const ApiPmId id = std::move(waiting.back());
    waiting.pop_back();
    IXMLDOMNode element;
    bool hasParent = false;
    bool isShown = false;
    if (!zelXmlFindNodeById(document, id, element) ||
        !getDoesDocumentContainAnyParentReferencedInNode(document, element, hasParent)) {
      return failed("the object " + quoted(id.text()) +
                    ", which lost a parent, has been removed with another one");
    }
    if (hasParent) continue;
    if (!shownObjects.contain(id, isShown)) return failed("there is no study object " + quoted(studyId()));
    if (isShown) continue;
    Suspects next;
    if (!removeOrphan(id, element, next)) return false;
    waiting.insert(waiting.end(), next.ids.rbegin(), next.ids.rend());
  }
  return true;
}

bool ZelXmlUpdateXmlWrapper::removeOrphan(const ApiPmId& id, const IXMLDOMNode& element, Suspects& next) {
  if (!removeParentItemFromChildren(element, next)) return false;
  IXMLDOMNode layout;
  if (zelXmlGetReferencedNode(DOMDocument(), element, "layout", layout))
    zelXmlRemoveCachedElement(cachedDOMDocument(), layout);
  if (!zelXmlRemoveCachedElement(cachedDOMDocument(), element))
    return failed("the object " + quoted(id.text()) + ", which has no parent left, cannot be removed");
  removeAndDeleteNodeObject(id);
  return true;
}

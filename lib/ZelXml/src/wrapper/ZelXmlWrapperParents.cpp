#include "api/ApiErrStream.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "wrapper/ZelXmlWrapper.h"

// The finders: which parent counts for a child, and which shortcut leads to a node.

void ZelXmlWrapper::addShortcutToShortcutFinder(const IXMLDOMNode& shortcut) {
  IXMLDOMNode shown;
  ApiPmId shownId;
  ApiPmId shortcutId;
  if (zelXmlGetReferencedNode(DOMDocument(), shortcut, "linkExternalID", shown) &&
      zelXmlGetExternalId(shown, shownId) && zelXmlGetExternalId(shortcut, shortcutId)) {
    shortcutFinder_.addNodeAndShortcut(shownId, shortcutId);
  }
}

void ZelXmlWrapper::setRelevantParent(const ApiPmId& child, const ApiPmId& parent) {
  parentFinder_.addNodeAndRelevantParent(child, parent);
}

bool ZelXmlWrapper::addParentAndChildToRelevantParentFinder(const IXMLDOMNode& parent, const ApiPmId& child,
                                                            bool force) {
  ApiPmId parentId;
  return zelXmlGetExternalId(parent, parentId) && enterRelevantParent(parent, parentId, child, force);
}

bool ZelXmlWrapper::enterRelevantParent(const IXMLDOMNode& parent, const ApiPmId& parentId,
                                        const ApiPmId& child, bool force) {
  ApiPmId present;
  if (!force && parentFinder_.findRelevantParent(child, present) && !present.isNull()) {
    if (!(present == parentId)) issueSharedNodeAdditionalParentIgnoredWarning(child, parent);
    return true;
  }
  return !zelXmlIsRelevantParent(DOMDocument(), updateDocument_, parent, child) ||
         parentFinder_.addNodeAndRelevantParent(child, parentId);
}

bool ZelXmlWrapper::addParentAndChildrenToRelevantParentFinder(const IXMLDOMNode& parent) {
  ApiPmIdList children;
  if (!zelXmlGetChildIds(parent, children) || children.isEmpty()) return true;
  ApiPmId parentId;
  if (!zelXmlGetExternalId(parent, parentId)) return false;
  for (const ApiPmId& child : children) {
    if (!enterRelevantParent(parent, parentId, child, false)) return false;
  }
  return true;
}

void ZelXmlWrapper::issueSharedNodeAdditionalParentIgnoredWarning(const ApiPmId& child,
                                                                  const IXMLDOMNode& parent) {
  IXMLDOMNode element;
  std::string childName;
  std::string parentName;
  if (!zelXmlFindNodeById(DOMDocument(), child, element) &&
      !zelXmlFindNodeById(updateDocument_, child, element)) {
    return;
  }
  if (!zelXmlGetName(element, childName) || !zelXmlGetName(parent, parentName)) return;
  apiErr << ApiErrCode("ZELXML_SHARED_NODE_ADDITIONAL_PARENT_IGNORED")
         << ApiErrPosition{__FILE__, __LINE__, "ZelXmlWrapper::issueSharedNodeAdditionalParentIgnoredWarning"}
         << childName << parentName << endErr;
}

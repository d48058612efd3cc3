#include "api/ApiPmClassTypes.h"
#include "document/ZelXmlFunctions.h"
#include "merge/ZelXmlUpdateXmlWrapper.h"

// Objects that an update of nodes passes over, and the shortcut by which the study shows the update root.

namespace {

// An object without family is no object to an update. Study infos come without one.
void fillInMissingFamily(const IXMLDOMNode& element) {
  std::string family;
  if (!zelXmlGetFamily(element, family) &&
      ApiPmClassTypeDataMgr::the().getFamilyFromClassName(element.nodeName(), family)) {
    zelXmlSetFamily(element.ownerDocument(), element, family);
  }
}

}  // namespace

bool ZelXmlUpdateXmlWrapper::updateNodesWithNoZelXmlRep(const IXMLDOMDocument& updateDocument) {
  IXMLDOMNodeList families;
  if (!zelXmlSelectChildren(updateDocument, "Data/Objects/*/NodeInfo/family", families)) return true;
  for (const IXMLDOMNode& family : families)
    if (!updateNodeWithNoZelXmlRep(family)) return false;
  return true;
}

bool ZelXmlUpdateXmlWrapper::updateNodeWithNoZelXmlRep(const IXMLDOMNode& family) {
  IXMLDOMElement existing;
  IXMLDOMNode result;
  return getNodeToBeReplaced(family, false, existing) &&
         (!existing || replaceNodeWithCloning(family.parentNode().parentNode(), result));
}

bool ZelXmlUpdateXmlWrapper::replaceNodeWithCloning(const IXMLDOMNode& source, IXMLDOMNode& result) {
  ApiPmId id;
  IXMLDOMNode clone;
  if (!zelXmlGetExternalId(source, id) || !getDeepCloneNode(source, clone) ||
      !replaceDOMDocumentNode(id, clone)) {
    return failed("the object \"" + id.asString() + "\" cannot be replaced");
  }
  result = clone;
  return true;
}

bool ZelXmlUpdateXmlWrapper::getDeepCloneNode(const IXMLDOMNode& node, IXMLDOMNode& clone) {
  const IXMLDOMNode made = node.cloneNode(true);
  if (made) clone = made;
  return static_cast<bool>(made);
}

bool ZelXmlUpdateXmlWrapper::getShortcutNodeLinkingToNodeFromDocument(const IXMLDOMDocument& document,
                                                                      const ApiPmId& id,
                                                                      IXMLDOMNode& shortcut) {
  IXMLDOMNode section;
  if (!zelXmlGetObjectsSection(document, section)) return false;
  for (auto object = section.firstElementChild(); object; object = object.nextElementSibling()) {
    std::string linked;
    if (object.tagName() == "PmShortcut" && zelXmlGetString(object, "linkExternalID", linked) &&
        linked == id.text()) {
      return getDeepCloneNode(object, shortcut);
    }
  }
  return false;
}

bool ZelXmlUpdateXmlWrapper::getShortcutRelatedNodesFromDocument(const IXMLDOMDocument& document,
                                                                 const ApiPmId& id, ShortcutNodes& nodes) {
  ApiPmId shortcutId;
  IXMLDOMNode info;
  IXMLDOMNode layout;
  if (!getShortcutNodeLinkingToNodeFromDocument(document, id, nodes.shortcut) ||
      !zelXmlGetExternalId(nodes.shortcut, shortcutId) ||
      !zelXmlGetShortcutStudyObjects(document, ApiPmId(studyId()), shortcutId, info, layout) ||
      !getDeepCloneNode(info, nodes.info) || !getDeepCloneNode(layout, nodes.layout)) {
    return failed("the session's document has no whole shortcut to \"" + id.asString() +
                  "\": the shortcut, its study info or the layout of that is missing");
  }
  return true;
}

bool ZelXmlUpdateXmlWrapper::appendShortcutRelatedNodesToDocumentIfNotContained(
    const IXMLDOMDocument& document, const ShortcutNodes& nodes) {
  for (const IXMLDOMNode& node : {nodes.shortcut, nodes.info, nodes.layout}) {
    fillInMissingFamily(node);
    if (!appendNodeToDocument(document, node)) return failed("the update has no Data/Objects");
  }
  return true;
}

bool ZelXmlUpdateXmlWrapper::appendNodeToDocument(const IXMLDOMDocument& document, const IXMLDOMNode& node) {
  IXMLDOMNode section;
  return zelXmlGetObjectsSection(document, section) && zelXmlAppendChild(section, node);
}

bool ZelXmlUpdateXmlWrapper::updateMarvekStudyNodeShortcutData(const IXMLDOMNode& shortcut,
                                                               const IXMLDOMNode& info) {
  ApiPmId shortcutId;
  ApiPmId infoId;
  IXMLDOMNode study;
  IXMLDOMNode childItem;
  IXMLDOMNode infoItem;
  long index = 0;
  if (!zelXmlGetExternalId(shortcut, shortcutId) || !zelXmlGetExternalId(info, infoId) ||
      !zelXmlGetStudyOfShortcut(DOMDocument(), shortcut, study)) {
    return failed("the study of the shortcut \"" + shortcutId.asString() + "\" is not in " + documentPath_);
  }
  if (!zelXmlFindChildItem(study, shortcutId.text(), childItem, index))
    return createAndAppendChildrenAndInfoItems(study, shortcutId, infoId);
  if (!zelXmlFindShortcutItems(study, shortcutId.text(), infoItem, childItem))
    return failed("the study lists no study info for the shortcut \"" + shortcutId.asString() + "\"");
  if (infoItem.text() == infoId.text()) return true;
  return zelXmlRemoveShortcutItems(study, infoItem, childItem) &&
         createAndAppendChildrenAndInfoItems(study, shortcutId, infoId);
}

bool ZelXmlUpdateXmlWrapper::createAndAppendChildrenAndInfoItems(const IXMLDOMNode& study,
                                                                 const ApiPmId& shortcutId,
                                                                 const ApiPmId& infoId) {
  IXMLDOMNode list;
  return (zelXmlSelectChild(study, "children", list) && zelXmlSelectChild(study, "info", list) &&
          zelXmlAddItem(study, "children", shortcutId.text()) &&
          zelXmlAddItem(study, "info", infoId.text())) ||
         failed("the study of the shortcut \"" + shortcutId.asString() + "\" has no `children` or no `info`");
}

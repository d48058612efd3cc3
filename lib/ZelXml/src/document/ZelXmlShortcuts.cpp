#include "document/ZelXmlShortcuts.h"

#include <algorithm>
#include <array>

#include "document/ZelXmlFields.h"
#include "document/ZelXmlLayouts.h"
#include "document/ZelXmlListEdits.h"
#include "document/ZelXmlLookup.h"
#include "document/ZelXmlStream.h"
#include "dom/IXMLDOMElement.h"
#include "rt/RTTran3D.h"

// Making shortcuts, the walk from a shortcut to what belongs to it, and its removal.

namespace {

constexpr std::array<std::string_view, 6> OPERATION_FAMILIES = {
    "Operation", "WeldPoint", "Mfg", "ContinuousMfg", "RoboticProgram", "OperationRoute"};
// The families that count when content moves to a new study are the first of these.
constexpr std::size_t MOVED_FAMILIES = 4;

bool hasOperationFamily(const IXMLDOMNode& element, std::size_t families) {
  IXMLDOMNode family;
  std::string buffer;
  if (!element.selectSingleNode("NodeInfo/family", family)) return false;
  const auto end = OPERATION_FAMILIES.begin() + families;
  return std::find(OPERATION_FAMILIES.begin(), end, family.textView(buffer)) != end;
}

// The element that a list item names.
bool resolveItem(const IXMLDOMDocument& document, const IXMLDOMNode& item, IXMLDOMNode& element) {
  std::string buffer;
  return item && zelXmlFindNodeById(document, item.textView(buffer), element);
}

bool getStudyObjects(const IXMLDOMDocument& document, const IXMLDOMNode& infoItem, IXMLDOMNode& info,
                     IXMLDOMNode& layout) {
  IXMLDOMNode found;
  if (!resolveItem(document, infoItem, found)) return false;
  if (!zelXmlGetReferencedNode(document, found, "layout", layout)) return false;
  info = std::move(found);
  return true;
}

}  // namespace

bool zelXmlStudyInfoClassName(const IXMLDOMNode& study, std::string& className) {
  if (study.nodeName() == "MarvekStudy")
    className = "MarvekStudyInfo";
  else if (study.nodeName() == "LineSimulationStudy")
    className = "LineSimulationStudyInfo";
  else
    return false;
  return true;
}

bool zelXmlCreateStudyInfo(const IXMLDOMDocument& document, const IXMLDOMNode& study, IXMLDOMNode& info) {
  const std::string id = api::newGuidText();
  std::string className;
  IXMLDOMNode made;
  if (!zelXmlStudyInfoClassName(study, className)) return false;
  if (!zelXmlAddObjectElement(document, className, id, made)) return false;
  if (!zelXmlAddItem(study, "info", id)) return false;
  info = std::move(made);
  return true;
}

bool zelXmlCreateShortcutInfo(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                              const IXMLDOMNode& study) {
  IXMLDOMNode info;
  return zelXmlCreateStudyInfo(document, study, info) &&
         zelXmlCreateStudyLayout(document, out, info, RTTran3D::unit) && zelXmlPublishClone(out, info);
}

bool zelXmlCreateShortcut(const IXMLDOMDocument& document, const IXMLDOMDocument& out,
                          const IXMLDOMNode& study, std::string_view name, IXMLDOMNode& shortcut) {
  const std::string id = api::newGuidText();
  IXMLDOMNode made;
  if (!zelXmlAddObjectElement(document, "PmShortcut", id, made)) return false;
  if (!zelXmlAddChildWithText(document, made, "name", name)) return false;
  if (!zelXmlAddChildWithText(document, made, "parent", "")) return false;
  if (!zelXmlAddChildWithText(document, made, "linkExternalID", "")) return false;
  if (!zelXmlCreateShortcutInfo(document, out, study)) return false;
  if (!zelXmlSetFamily(document, made, "Shortcut")) return false;
  shortcut = std::move(made);
  return true;
}

bool zelXmlFindShortcutItems(const IXMLDOMNode& study, std::string_view shortcutId, IXMLDOMNode& infoItem,
                             IXMLDOMNode& childItem) {
  IXMLDOMNode child, info;
  long index = 0;
  if (!zelXmlFindChildItem(study, shortcutId, child, index) ||
      !zelXmlFindItemAt(study, "info", index, info)) {
    return false;
  }
  infoItem = std::move(info);
  childItem = std::move(child);
  return true;
}

bool zelXmlRemoveShortcutItems(const IXMLDOMNode& study, const IXMLDOMNode& infoItem,
                               const IXMLDOMNode& childItem) {
  return zelXmlRemoveItem(study, infoItem) && zelXmlRemoveItem(study, childItem);
}

bool zelXmlGetStudyOfShortcut(const IXMLDOMDocument& document, const IXMLDOMNode& shortcut,
                              IXMLDOMNode& study) {
  return zelXmlGetReferencedNode(document, shortcut, "parent", study);
}

bool zelXmlFindStudyInfo(const IXMLDOMDocument& document, const ApiPmId& shortcutId, IXMLDOMNode& info) {
  IXMLDOMNode shortcut, study, infoItem, childItem;
  return zelXmlFindNodeById(document, shortcutId, shortcut) &&
         zelXmlGetStudyOfShortcut(document, shortcut, study) &&
         zelXmlFindShortcutItems(study, shortcutId.text(), infoItem, childItem) &&
         resolveItem(document, infoItem, info);
}

bool zelXmlGetShortcutStudyObjects(const IXMLDOMDocument& document, const ApiPmId& studyId,
                                   const ApiPmId& shortcutId, IXMLDOMNode& info, IXMLDOMNode& layout) {
  IXMLDOMNode study, shortcut, infoItem, childItem;
  return zelXmlFindNodeById(document, studyId, study) && zelXmlFindNodeById(document, shortcutId, shortcut) &&
         zelXmlFindShortcutItems(study, shortcutId.text(), infoItem, childItem) &&
         getStudyObjects(document, infoItem, info, layout);
}

bool zelXmlIsOperationShortcut(const IXMLDOMDocument& document, std::string_view shortcutId) {
  IXMLDOMNode shortcut, linked, object;
  std::string_view id;
  return zelXmlFindNodeById(document, shortcutId, shortcut) &&
         zelXmlGetReferencedNode(document, shortcut, "linkExternalID", linked) &&
         linked.getAttribute("ExternalId", id) && zelXmlFindNodeById(document, id, object) &&
         hasOperationFamily(object, OPERATION_FAMILIES.size());
}

bool zelXmlIsOperationShortcutElement(const IXMLDOMNode& shortcut) {
  IXMLDOMNode linked;
  return zelXmlGetReferencedNode(shortcut.ownerDocument(), shortcut, "linkExternalID", linked) &&
         hasOperationFamily(linked, MOVED_FAMILIES);
}

bool zelXmlRemoveShortcut(ApiPmXmlCachedDocument& cached, const IXMLDOMNode& shortcut) {
  const IXMLDOMDocument document = cached.importedDocument();
  IXMLDOMNode study, info, layout, infoItem, childItem;
  ApiPmId studyId, shortcutId;
  if (!zelXmlGetStudyOfShortcut(document, shortcut, study)) return false;
  if (!zelXmlGetExternalId(study, studyId) || !zelXmlGetExternalId(shortcut, shortcutId)) return false;
  if (zelXmlGetShortcutStudyObjects(document, studyId, shortcutId, info, layout)) {
    zelXmlRemoveCachedElement(cached, info);
    zelXmlRemoveCachedElement(cached, layout);
  }
  if (zelXmlFindShortcutItems(study, shortcutId.text(), infoItem, childItem)) {
    zelXmlRemoveShortcutItems(study, infoItem, childItem);
  }
  return zelXmlRemoveCachedElement(cached, shortcut);
}

bool zelXmlRemoveOperationShortcuts(ApiPmXmlCachedDocument& cached) {
  IXMLDOMNode section;
  IXMLDOMNodeList shortcuts;
  if (!zelXmlGetObjectsSection(cached.importedDocument(), section)) return false;
  if (!section.selectNodes("PmShortcut", shortcuts)) return false;
  for (const IXMLDOMNode& shortcut : shortcuts)
    if (zelXmlIsOperationShortcutElement(shortcut) && !zelXmlRemoveShortcut(cached, shortcut)) return false;
  return true;
}

bool zelXmlRemoveStudyShortcut(ApiPmXmlCachedDocument& cached, const IXMLDOMDocument& out,
                               const ApiPmId& studyId, const ApiPmId& shortcutId) {
  const IXMLDOMDocument document = cached.importedDocument();
  // The id by value: the caller's may be a part of what goes away with the shortcut.
  const ApiPmId id = shortcutId;
  IXMLDOMNode study, shortcut, infoItem, childItem, info, layout;
  if (!zelXmlFindNodeById(document, studyId, study)) return false;
  if (!zelXmlFindNodeById(document, id, shortcut)) return false;
  if (!zelXmlPublishDeletion(cached, out, shortcut)) return false;
  if (!zelXmlFindShortcutItems(study, id.text(), infoItem, childItem)) return false;
  if (!getStudyObjects(document, infoItem, info, layout)) return false;
  if (!zelXmlPublishDeletion(cached, out, info)) return false;
  if (!zelXmlPublishDeletion(cached, out, layout)) return false;
  return zelXmlRemoveShortcutItems(study, infoItem, childItem) && zelXmlPublishUpdate(out, study);
}

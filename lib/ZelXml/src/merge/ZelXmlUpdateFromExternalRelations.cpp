#include "api/ApiLogLogger.h"
#include "document/ZelXmlFunctions.h"
#include "merge/ZelXmlUpdateFromExternalDocument.h"
#include "node/ZelXmlNodeKinds.h"
#include "rw/RWTextHash.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelInstance.h"
#include "zel/ZelVorPrototypeOccurrence.h"

// What the objects of the external document name, and how it is found there.

namespace {

constexpr const char* LOG_CATEGORY = "Infrastructure    ";

}  // namespace

bool ZelXmlUpdateFromExternalDocument::getXmlNodeById(const IXMLDOMDocument& document, std::string_view id,
                                                      IXMLDOMNode& node) {
  ZEL_LOG(LOG_CATEGORY, ApiLogLogger::trace, "Start search node: " + std::string(id) + " in document");
  IXMLDOMElement found;
  const bool isFound = zelXmlIsReference(id) && document.findByAttribute("ExternalId", id, found);
  if (isFound) node = std::move(found);
  ZEL_LOG(LOG_CATEGORY, ApiLogLogger::trace, "End search node: " + std::string(id) + " in document");
  return isFound;
}

bool ZelXmlUpdateFromExternalDocument::zelXmlFindNodeByPattern(const IXMLDOMDocument& document,
                                                               const IXMLDOMNode& node,
                                                               std::string_view pattern, IXMLDOMNode& found) {
  IXMLDOMNode field;
  std::string buffer;
  return zelXmlSelectChild(node, pattern, field) && getXmlNodeById(document, field.textView(buffer), found);
}

bool ZelXmlUpdateFromExternalDocument::getLinkNodeFromShortcut(const IXMLDOMDocument& document,
                                                               const IXMLDOMNode& shortcut,
                                                               IXMLDOMNode& link) {
  return zelXmlFindNodeByPattern(document, shortcut, "linkExternalID", link);
}

bool ZelXmlUpdateFromExternalDocument::getThreeDRepPathStringNode(const IXMLDOMDocument& document,
                                                                  const IXMLDOMNode& rep,
                                                                  IXMLDOMNode& element) {
  IXMLDOMNode file;
  return zelXmlFindNodeByPattern(document, rep, "file", file) && zelXmlSelectChild(file, "fileName", element);
}

bool ZelXmlUpdateFromExternalDocument::getThreeDRepPmPathString(const IXMLDOMDocument& document,
                                                                const IXMLDOMNode& rep,
                                                                RWClassicWString& text) {
  IXMLDOMNode element;
  return getThreeDRepPathStringNode(document, rep, element) && zelXmlGetWideText(element, text);
}

bool ZelXmlUpdateFromExternalDocument::getPrototypeFromNode(const IXMLDOMDocument& document,
                                                            const IXMLDOMNode& node, IXMLDOMNode& prototype) {
  return zelXmlFindNodeByPattern(document, node, "prototype", prototype);
}

bool ZelXmlUpdateFromExternalDocument::getPrototypeFromInstance(const IXMLDOMDocument& document,
                                                                const IXMLDOMNode& instance,
                                                                IXMLDOMNode& prototype) {
  if (getPrototypeFromNode(document, instance, prototype)) return true;
  IXMLDOMNode master;
  if (!zelXmlGetReferencedNode(document, instance, "masterObj", master)) return false;
  if (getPrototypeFromNode(document, master, prototype)) return true;
  std::string family;
  if (!zelXmlGetFamily(master, family) || (family != "EquipmentPrototype" && family != "ToolPrototype"))
    return false;
  prototype = master;
  return true;
}

bool ZelXmlUpdateFromExternalDocument::getPrototypeIdFromInstance(const IXMLDOMDocument& document,
                                                                  const IXMLDOMNode& instance, ApiPmId& id) {
  IXMLDOMNode prototype;
  return getPrototypeFromInstance(document, instance, prototype) && zelXmlGetExternalId(prototype, id);
}

bool ZelXmlUpdateFromExternalDocument::collectRelations() {
  bool collected = true;
  using Import = ZelXmlNodeKind::Import;
  switch (currentZelNode_ ? ZelXmlNodeKinds::of(currentZelNode_->type()).import : Import::nothing) {
    case Import::instance:
      collected = collectRelationsInstance();
      break;
    case Import::compound:
      collected = collectRelationsCompundPhysical();
      break;
    case Import::prototype:
      collected = collectRelationsPrototype(currentRealNode_);
      break;
    case Import::nothing:
      break;
  }
  return currentFamily_ == "Shortcut" ? collectLayoutFromMarvekStudyInfo() : collected;
}

bool ZelXmlUpdateFromExternalDocument::collectRelationsCompundPhysical() { return collectRelatedLayout(); }

bool ZelXmlUpdateFromExternalDocument::getRelatedPrototypeId(ApiPmId& id) const {
  if (getPrototypeIdFromInstance(addDocument_, currentRealNode_, id)) return true;
  const auto* instance = zelQuery<ZelInstance>(currentZelNode_);
  const auto* occurrence = zelQuery<ZelVorPrototypeOccurrence>(currentZelNode_);
  return (instance ? instance->getPrototypeId(id) : occurrence && occurrence->getPrototypeId(id)) &&
         !id.isNull();
}

bool ZelXmlUpdateFromExternalDocument::collectRelationsInstance() {
  ApiPmId id;
  if (!getRelatedPrototypeId(id)) return false;
  if (relatedPrototypes_.appendNew(id)) {
    ZEL_LOG(LOG_CATEGORY, ApiLogLogger::trace, "RELATED PROTOTYPE " + id.asString());
  }
  // The layout comes along only where the external document has the prototype.
  IXMLDOMNode prototype;
  return getPrototypeFromInstance(addDocument_, currentRealNode_, prototype) && collectRelatedLayout();
}

bool ZelXmlUpdateFromExternalDocument::collectRelationsPrototype(const IXMLDOMNode& node) {
  IXMLDOMNode rep;
  IXMLDOMNode file;
  std::string id;
  if (!zelXmlFindNodeByPattern(addDocument_, node, "threeDRep", rep) || !zelXmlGetExternalId(rep, id))
    return false;
  if (relatedTreeDReps_.appendNew(id)) {
    ZEL_LOG(LOG_CATEGORY, ApiLogLogger::trace, "RELATED THREEDREP " + id);
  }
  if (!zelXmlFindNodeByPattern(addDocument_, rep, "file", file) || !zelXmlGetExternalId(file, id))
    return false;
  if (relatedReferenceFiles_.appendNew(id)) {
    ZEL_LOG(LOG_CATEGORY, ApiLogLogger::trace, "RELATED FILE " + id);
  }
  return true;
}

bool ZelXmlUpdateFromExternalDocument::collectRelatedLayout() {
  ApiPmId layout;
  if (zelXmlGetLayoutId(currentRealNode_, layout)) relatedLayouts_.append(layout);
  return true;
}

bool ZelXmlUpdateFromExternalDocument::collectLayoutFromMarvekStudyInfo() {
  IXMLDOMNode link;
  IXMLDOMNode node;
  std::string id;
  if (!getLinkNodeFromShortcut(addDocument_, currentRealNode_, link) || !zelXmlGetExternalId(link, id) ||
      !getXmlNodeById(addDocument_, id, node) || !isHandled(ApiPmId(id))) {
    return true;
  }
  const auto* info = shortcutToMarvekStudyInfo_.find(currentRealNodeId_);
  ApiPmId layout;
  if (info && getXmlNodeById(addDocument_, info->value.text(), node) && zelXmlGetLayoutId(node, layout))
    relatedLayouts_.append(layout);
  return true;
}

bool ZelXmlUpdateFromExternalDocument::collectMarvekStudyInfo(const IXMLDOMNode& externalStudy,
                                                              const IXMLDOMNode& study, bool hasStudy) {
  IXMLDOMNodeList shortcuts;
  IXMLDOMNodeList infos;
  if (!zelXmlSelectChildren(externalStudy, "children/item", shortcuts) ||
      !zelXmlSelectChildren(externalStudy, "info/item", infos)) {
    return false;
  }
  const auto entries = static_cast<std::size_t>(shortcuts.length());
  for (IdMap* map : {&shortcutToMarvekStudyInfo_, &marvekStudyInfoToLayout_, &layoutToMarvekStudyInfo_}) {
    *map = IdMap(RWGrowth::never(), entries);
  }
  IXMLDOMNode children;
  IXMLDOMNode info;
  IXMLDOMNodeList known;
  if (hasStudy &&
      (!zelXmlSelectChild(study, "children", children) || !zelXmlSelectChild(study, "info", info) ||
       !zelXmlSelectChildren(study, "children/item", known))) {
    return false;
  }
  std::unordered_set<std::string, RWTextHash> shortcutsOfStudy;
  for (const IXMLDOMNode& item : known) shortcutsOfStudy.insert(item.text());

  for (long i = 0; i < shortcuts.length(); ++i) {
    const IXMLDOMNode shortcut = shortcuts.item(i);
    const std::string shortcutId = shortcut.text();
    const bool moves = hasStudy && shortcutsOfStudy.count(shortcutId) == 0;
    const IXMLDOMNode infoItem = infos.item(i);
    if ((moves && !zelXmlAppendChild(children, shortcut)) || !infoItem ||
        (moves && !zelXmlAppendChild(info, infoItem))) {
      return false;
    }
    noteStudyInfo(ApiPmId(shortcutId), ApiPmId(infoItem.text()));
  }
  return true;
}

void ZelXmlUpdateFromExternalDocument::noteStudyInfo(const ApiPmId& shortcut, const ApiPmId& info) {
  if (shortcutToMarvekStudyInfo_.find(shortcut)) return;
  shortcutToMarvekStudyInfo_.insert(shortcut, info);
  IXMLDOMNode element;
  ApiPmId layout;
  if (!getXmlNodeById(addDocument_, info.text(), element) || !zelXmlGetLayoutId(element, layout)) return;
  marvekStudyInfoToLayout_.insert(info, layout);
  layoutToMarvekStudyInfo_.insert(layout, info);
  relatedLayouts_.append(layout);
}

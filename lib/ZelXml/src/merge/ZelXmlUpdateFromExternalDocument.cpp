#include "merge/ZelXmlUpdateFromExternalDocument.h"

#include <iterator>

#include "api/ApiErrStream.h"
#include "api/ApiLogLogger.h"
#include "api/ApiPmSessionManager.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeKinds.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelPrototype.h"

// The order of a run, the walk, and the choice of objects.

ZelXmlUpdateFromExternalDocument::ZelXmlUpdateFromExternalDocument(
    const IXMLDOMDocument& document, const ApiPmAddToStudyFromFileData& settings,
    const ZelVorWrapper& wrapper, ImportType importType)
    : settings_(&settings),
      wrapper_(dynamic_cast<ZelXmlWrapper*>(const_cast<ZelVorWrapper*>(&wrapper))),
      addDocument_(document),
      importType_(importType) {}

bool ZelXmlUpdateFromExternalDocument::execute() {
  if (!wrapper_ || !wrapper_->preBuild(wrapper_->DOMDocument(), true) || !fillInMissingFamilyNodes() ||
      !gatherExternalStudyInfo() ||
      (importType_ == ApiPmAddToStudyFromFileData::importPartsAndResources &&
       !checkForEquipments(addDocument_))) {
    return false;
  }
  // By value: a key of the registry dies with the node that the walk deletes.
  List<const ApiPmId*> plcKeys;
  wrapper_->convertor().getPlcInternalIds(plcKeys);
  List<ApiPmId> plcIds(plcKeys.entries());
  for (const ApiPmId* key : plcKeys) plcIds.append(*key);

  if (!fromFileUpdate() || !fromFileUpdate()) return false;
  addRemovedPlcInternalToRemovedNodes(plcIds);
  const bool removed = wrapper_->removeMissingNodes(removedChildren_, handled_.members(), removedNodes_);
  forgetDeletedNode();
  if (!removed) return false;
  wrapper_->refreshRoots();
  return filterImportedRoots();
}

bool ZelXmlUpdateFromExternalDocument::fillInMissingFamilyNodes() {
  return zelXmlFillFamily(addDocument_, "MarvekStudyInfo");
}

bool ZelXmlUpdateFromExternalDocument::gatherExternalStudyInfo() {
  constexpr std::string_view studies = "Data/Objects/*[NodeInfo/family='Study']";
  IXMLDOMNode study;
  const bool hasStudy = zelXmlSelectChild(wrapper_->DOMDocument(), studies, study);
  if (!zelXmlSelectChild(addDocument_, studies, externalStudy_)) return true;
  externalStudyId_ = {};
  // From here on the external study carries the id of the study that it is merged into.
  return zelXmlGetExternalId(externalStudy_, externalStudyId_) &&
         zelXmlSetAttribute(externalStudy_, "ExternalId", ApiPmSessionManager::the().rootNodeId) &&
         collectMarvekStudyInfo(externalStudy_, study, hasStudy);
}

bool ZelXmlUpdateFromExternalDocument::checkForEquipments(const IXMLDOMDocument& document) {
  const bool checks = choice() == ApiPmAddToStudyFromFileData::importPartsAndResources
                          ? settings_->addResources()
                          : choice() <= ApiPmAddToStudyFromFileData::importSelected;
  if (!checks || !hasEquipments(document)) return true;
  apiErr << ApiErrCode("ZEL_EXISTING_EQIPMENT_WILL_NOT_BE_MODIFIED")
         << ApiErrPosition{__FILE__, __LINE__, "ZelXmlUpdateFromExternalDocument::checkForEquipments"}
         << ApiErrSeverity{2} << endErr;
  return false;
}

bool ZelXmlUpdateFromExternalDocument::hasEquipments(const IXMLDOMDocument& document) const {
  ZelNodeList nodes;
  List<const ApiPmId*> ids;
  wrapper_->convertor().getVorNodesAndIds(nodes, ids);
  for (const ZelNode* node : nodes) {
    if (node->type() == ZEL_EQUIPMENT_INSTANCE) return true;
  }
  IXMLDOMNodeList equipments;
  return !zelXmlSelectChildren(document, "Data/Objects/PmEquipmentInstance", equipments) ||
         equipments.length() > 0;
}

bool ZelXmlUpdateFromExternalDocument::fromFileUpdate() {
  IXMLDOMNodeList families;
  zelXmlSelectChildren(addDocument_, "Data/Objects/*/NodeInfo/family", families);
  for (const IXMLDOMNode& family : families) {
    const bool exists = acquireRealNodeData(family, true) && currentZelNode_;
    // The class is looked at first: an object that would be passed over ends the walk all the same.
    const bool fits = !exists || chackThereIsCorrespondingWrapperNode();
    const bool belongs = shouldHandle();
    if (!belongs) logAction("SKIPPING");
    if (!fits || (belongs && !handleCurrentObject(exists))) return false;
  }
  return true;
}

bool ZelXmlUpdateFromExternalDocument::handleCurrentObject(bool exists) {
  handled_.appendNew(currentRealNodeId_);
  if (currentFamily_ == "Shortcut" && !fixShortcutNodeBeforeImport()) return false;
  if (exists) return updateCurrentNode();
  if ((currentFamily_ == "PmLayout" || currentFamily_ == "PmToolboxUsage") &&
      wrapper_->cachedDOMDocument().isNodeCached(currentRealNodeId_)) {
    updateXmlNode();
    return true;
  }
  return createNewNode();
}

bool ZelXmlUpdateFromExternalDocument::acquireRealNodeData(const IXMLDOMNode& item, bool resetPath) {
  if (resetPath) currentPrototypeFullPath_.clear();
  currentItemNode_ = item;
  currentRealNode_ = item.parentNode().parentNode();
  currentRealNodeId_ = {};
  bool found = zelXmlGetExternalId(currentRealNode_, currentRealNodeId_);
  if (found) {
    currentZelNode_ = wrapper_->getZelNodeFromId(currentRealNodeId_);
    currentZelNodeId_ = currentRealNodeId_;
  }
  currentZelXmlNode_ = zelXmlNodeOf(currentZelNode_);
  currentFamily_ = item.text();
  if (found && isTheCurrentNodeAPrototype() && currentPrototypeFullPath_.empty() && currentZelNode_) {
    found = acquirePrototypePath();
  }
  return found;
}

// The external document's path comes first, the study's second.
bool ZelXmlUpdateFromExternalDocument::acquirePrototypePath() {
  bool resolved = true;
  IXMLDOMNode rep;
  std::string stored;
  if (zelXmlFindNodeByPattern(addDocument_, currentRealNode_, "threeDRep", rep) &&
      getThreeDRepPmPathString(addDocument_, rep, stored)) {
    resolved = zelXmlResolveFileName(stored, currentPrototypeFullPath_);
  }
  const auto* prototype = zelQuery<ZelPrototype>(currentZelNode_);
  if (currentPrototypeFullPath_.empty() && prototype) {
    prototype->getPrototypePath(currentPrototypeFullPath_);
  }
  return resolved;
}

bool ZelXmlUpdateFromExternalDocument::chackThereIsCorrespondingWrapperNode() const {
  std::string nodeClass;
  std::string className;
  if (!currentZelXmlNode_ || !currentZelNode_->getStringType(nodeClass) ||
      !zelXmlGetNodeName(currentRealNode_, className)) {
    return false;
  }
  if (nodeClass == className) return true;
  std::string name;
  if (!currentZelNode_->getName(name) || name.empty()) name = currentRealNodeId_.text();
  apiErr << ApiErrCode("ZELXML_ATTEMPT_TO_CHANGE_OBJECT_TYPE")
         << ApiErrPosition{__FILE__, __LINE__,
                           "ZelXmlUpdateFromExternalDocument::chackThereIsCorrespondingWrapperNode"}
         << name << nodeClass << className << endErr;
  return false;
}

bool ZelXmlUpdateFromExternalDocument::shouldHandle() {
  // Nothing could be found or told of an object without id.
  if (currentRealNodeId_.isNull()) return false;
  if (isHandled(currentRealNodeId_)) {
    logAction("HANDLED");
    return false;
  }
  switch (choice()) {
    case ApiPmAddToStudyFromFileData::importAll:
      return true;
    case ApiPmAddToStudyFromFileData::importSelected:
      return shouldHandleFamilies(SELECTED_IMPORT_FAMILIES, std::size(SELECTED_IMPORT_FAMILIES));
    case ApiPmAddToStudyFromFileData::importPartsAndResources:
      return (settings_->addParts() &&
              shouldHandleFamilies(PART_IMPORT_FAMILIES, std::size(PART_IMPORT_FAMILIES))) ||
             (settings_->addResources() &&
              shouldHandleFamilies(RESOURCE_IMPORT_FAMILIES, std::size(RESOURCE_IMPORT_FAMILIES)));
    default:
      return false;
  }
}

bool ZelXmlUpdateFromExternalDocument::shouldHandleFamilies(const RTAutoPtr<ZelXmlImportCondition>* table,
                                                            std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    if (table[i]->family() == currentFamily_ && table[i]->shouldImport(*this)) return true;
  }
  return false;
}

bool ZelXmlUpdateFromExternalDocument::fixShortcutNodeBeforeImport() {
  IXMLDOMNode parent;
  std::string buffer;
  if (!zelXmlSelectChild(currentRealNode_, "parent", parent)) return false;
  return parent.textView(buffer) != externalStudyId_.text() ||
         zelXmlSetText(parent, ApiPmSessionManager::the().rootNodeId);
}

bool ZelXmlUpdateFromExternalDocument::isTheCurrentNodeAPrototype() const {
  return currentFamily_ == "PartPrototype" || currentFamily_ == "ToolPrototype" ||
         currentFamily_ == "EquipmentPrototype";
}

// The results.

void ZelXmlUpdateFromExternalDocument::handledNodes(List<_bstr_t>& ids) const {
  ids.clear();
  for (const ApiPmId& id : handled_.list()) ids.append(id.asString());
}

bool ZelXmlUpdateFromExternalDocument::addRemovedPlcInternalToRemovedNodes(const List<ApiPmId>& ids) {
  for (const ApiPmId& id : ids) {
    if (!wrapper_->convertor().findNode(id)) removedNodes_.append(id);
  }
  return true;
}

// An object whose data cannot be had leaves the node of the object before it in place, which the run may
// delete later.
void ZelXmlUpdateFromExternalDocument::forgetDeletedNode() {
  if (!currentZelNode_ || wrapper_->getZelNodeFromId(currentZelNodeId_) == currentZelNode_) return;
  currentZelNode_ = nullptr;
  currentZelXmlNode_ = nullptr;
}

void ZelXmlUpdateFromExternalDocument::getVectorAsSet(const List<ApiPmId>& ids, ApiPmIdSet& set) {
  for (const ApiPmId& id : ids) set.insert(id);
}

bool ZelXmlUpdateFromExternalDocument::getNodeParent(const ZelNode* node, ApiPmId& id) {
  const ZelNode* parent = node->getParent();
  return parent && parent->getExternalId(id);
}

bool ZelXmlUpdateFromExternalDocument::isOrphanNodeAnImportedRoot(const ZelNode* node) {
  return !ZelXmlNodeKinds::of(node->type()).isPrototype();
}

bool ZelXmlUpdateFromExternalDocument::filterImportedRoots() {
  handledRoots_.clear();
  handledRoots_.reserve(handled_.list().entries());
  ApiPmIdSet handled;
  getVectorAsSet(handled_.list(), handled);
  for (const ApiPmId& id : handled_.list()) {
    ZelNode* node = wrapper_->getZelNodeFromId(id);
    if (!node) continue;
    ApiPmId parent;
    const bool isRoot =
        getNodeParent(node, parent) ? !handled.contains(parent) : isOrphanNodeAnImportedRoot(node);
    if (isRoot) handledRoots_.append(node);
  }
  return true;
}

void ZelXmlUpdateFromExternalDocument::logAction(std::string_view action) const {
  ZEL_LOG("Infrastructure    ", ApiLogLogger::trace,
          (currentRealNodeId_.asString() + " (" + currentFamily_ + ":NULL) ").append(action));
}

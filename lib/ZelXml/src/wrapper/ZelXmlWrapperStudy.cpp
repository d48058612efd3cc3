#include "api/ApiLogLogger.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNode.h"
#include "wrapper/ZelXmlWrapper.h"

// Operations on a study as a whole: its shortcuts, sharing, another study, and what was exported of it.

bool ZelXmlWrapper::filterOtherTechnologiesShortcutsFromStudy() {
  if (!outDocument_) return false;
  ZEL_LOG("MarvekIntegration ", ApiLogLogger::trace,
          "ZelXmlWrapper::filterOtherTechnologiesShortcutsFromStudy - study id " + studyId_);
  return zelXmlPublishFilteredStudy(DOMDocument(), ApiPmId(studyId_), outDocument_);
}

bool ZelXmlWrapper::doesStudyContainNodeByShortcut(const ApiPmId& id, bool& contained) {
  contained = false;
  const IXMLDOMDocument document = DOMDocument();
  IXMLDOMNode study;
  ApiPmIdList children;
  if (!zelXmlFindNodeById(document, ApiPmId(studyId_), study) || !zelXmlGetChildIds(study, children)) {
    return false;
  }
  for (const ApiPmId& child : children) {
    IXMLDOMNode shortcut;
    IXMLDOMNode shown;
    ApiPmId shownId;
    contained = zelXmlFindNodeById(document, child, shortcut) &&
                zelXmlGetReferencedNode(document, shortcut, "linkExternalID", shown) &&
                zelXmlGetExternalId(shown, shownId) && shownId == id;
    if (contained) break;
  }
  return true;
}

bool ZelXmlWrapper::removeSharing() {
  constexpr std::string_view category = "ZelXmlWrapper::removeSharing";
  ZelNodeList nodes;
  getAllNodes(nodes);
  ZEL_LOG(category, ApiLogLogger::progress, "Start re-cache of the document");
  const IXMLDOMDocument document = DOMDocument();
  ApiPmXmlCachedDocument* cached = nullptr;
  IXMLDOMNode section;
  if (ApiPmXmlCacheDocumentMgr::the().getCachedDocument(document, cached) &&
      zelXmlGetObjectsSection(document, section)) {
    cached->reCacheAllChildrenNodes(document, section);
  }
  ZEL_LOG(category, ApiLogLogger::progress, "End re-cache of the document");
  for (ZelNode* node : nodes) {
    ZelXmlNode* xmlNode = zelXmlNodeOf(node);
    // A local prototype has no element, and so nothing to share.
    if (xmlNode && xmlNode->getXmlNode() && !xmlNode->removeSharing()) return false;
  }
  return true;
}

bool ZelXmlWrapper::moveContentToNewStudy(const IXMLDOMDocument& document, const ApiPmId&) {
  if (!refreshAllShortcutsRemovalFromStudy() || !zelXmlRemoveOperationShortcuts(cachedDOMDocument()) ||
      !refreshStudyNodeDeletion()) {
    return false;
  }
  removeAndDeleteNodeObject(ApiPmId(studyId_));
  setUpdateDocument(document);
  ApiPmIdList updated;
  return incrementalUpdate(updated, true);
}

bool ZelXmlWrapper::isNodeCachedInExportedDoc(const ApiPmId& id, bool& cached) const {
  ApiPmXmlCachedDocument* exported = nullptr;
  if (!ApiPmXmlCacheDocumentMgr::the().getCachedDocument(outDocument_, exported)) return false;
  cached = exported->isNodeCached(id);
  return true;
}

bool ZelXmlWrapper::isNodeInExportedNodes(const ApiPmId& id, bool& result) {
  bool cached = false;
  if (!isNodeCachedInExportedDoc(id, cached)) return false;
  result = cached && getZelNodeFromId(id);
  return true;
}

bool ZelXmlWrapper::isNodeInExportDeletedNodes(const ApiPmId& id, bool& result) {
  bool cached = false;
  if (!isNodeCachedInExportedDoc(id, cached)) return false;
  result = cached && !getZelNodeFromId(id);
  return true;
}

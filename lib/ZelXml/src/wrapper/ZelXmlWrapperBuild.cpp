#include "api/ApiLogLogger.h"
#include "api/ApiPmSessionManager.h"
#include "api/ApiVorTools.h"
#include "api/LocalFilesCacheClientFilesManager.h"
#include "document/ZelXmlFunctions.h"
#include "node/ZelXmlNodeKinds.h"
#include "wrapper/ZelXmlWrapper.h"

// From a study document to nodes and roots.

bool ZelXmlWrapper::build(bool download) {
  ZEL_LOG("VorIntegration    ", ApiLogLogger::trace, "ZelXml Build - Start");
  clear();
  const bool prepared = preBuild(DOMDocument(), download);
  const IXMLDOMDocument document = DOMDocument();
  builtDocument_ = document;
  if (document && ApiPmSessionManager::the().localDocument) ApiVorToolsFieldsCache::the().append(document);
  if (prepared && document) {
    // Before the walk: an occurrence may stand ahead of the instance that names it.
    collectToolInstanceMasterObjects(document);
    document.visitNodes("Data/Objects/*/NodeInfo/family",
                        [this](const IXMLDOMNode& family) { createNodeByFamilyXmlNode(family); });
    updateRoots();
  }
  ZEL_LOG("VorIntegration    ", ApiLogLogger::trace, "ZelXml Build - End");
  return prepared;
}

bool ZelXmlWrapper::preBuild(const IXMLDOMDocument& document, bool download) {
  LocalFilesCacheClientFilesManager& files = LocalFilesCacheClientFilesManager::the();
  if (!download || !files.isActive()) return true;
  IXMLDOMNodeList names;
  if (!zelXmlSelectChildren(document, "Data/Objects/PmReferenceFile/fileName", names)) return false;
  for (const IXMLDOMNode& name : names) {
    std::string stored;
    std::string resolved;
    if (zelXmlGetText(name, stored) && zelXmlResolveFileName(stored, resolved) &&
        !files.registerFileForDownload(resolved)) {
      return false;
    }
  }
  return files.downloadFiles();
}

bool ZelXmlWrapper::collectToolInstanceMasterObjects(const IXMLDOMDocument& document) {
  IXMLDOMNodeList references;
  if (!zelXmlSelectChildren(document, "Data/Objects/PmToolInstance/masterObj", references)) return false;
  for (const IXMLDOMNode& reference : references) {
    std::string buffer;
    const std::string_view id = reference.textView(buffer);
    if (zelXmlIsReference(id)) toolInstanceMasterObjects_.insert(ApiPmId(id));
  }
  return true;
}

void ZelXmlWrapper::updateRoots() {
  ZelNodeList nodes;
  RWClassicTValOrderedVector<const ApiPmId*> ids;
  convertor_.getVorNodesAndIds(nodes, ids);
  for (std::size_t i = 0; i < nodes.entries(); ++i) {
    if (!parentFinder_.hasRelevantParent(*ids[i]) &&
        !ZelXmlNodeKinds::of(nodes[i]->type()).has(ZelXmlNodeKind::besideTree)) {
      roots_.append(nodes[i]);
    }
  }
}

bool ZelXmlWrapper::refreshRoots() {
  roots_.clear();
  updateRoots();
  return true;
}

#include "wrapper/ZelXmlWrapper.h"

#include <ostream>

#include "api/ApiLogLogger.h"
#include "api/ApiPmSessionManager.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "api/ApiVorTools.h"
#include "document/ZelXmlFunctions.h"
#include "dom/DomSave.h"
#include "node/ZelXmlNode.h"
#include "wrapper/ZelXmlBehaviorRestrictionsMgr.h"

// Life, documents, registry and saving.

ZelXmlWrapper::ZelXmlWrapper() = default;

ZelXmlWrapper::~ZelXmlWrapper() {
  ApiPmXmlCacheDocumentMgr::the().removeDocument(updateDocument_);
  ApiPmXmlCacheDocumentMgr::the().removeDocument(outDocument_);
}

void ZelXmlWrapper::clear() {
  convertor_.clear();
  shortcutFinder_.clear();
  parentFinder_.clear();
  roots_.clear();
}

IXMLDOMDocument ZelXmlWrapper::DOMDocument() { return ApiPmSessionManager::the().importedDocument(); }

ApiPmXmlCachedDocument& ZelXmlWrapper::cachedDOMDocument() const {
  const IXMLDOMDocument document = DOMDocument();
  ApiPmXmlCachedDocument* cached = &ApiPmSessionManager::the().cachedDocument();
  if (cached->importedDocument() == document ||
      ApiPmXmlCacheDocumentMgr::the().getCachedDocument(document, cached)) {
    return *cached;
  }
  static ApiPmXmlCachedDocument none;  // of no document: it takes nothing in
  return none;
}

void ZelXmlWrapper::setUpdateDocument(const IXMLDOMDocument& document) {
  ApiPmXmlCacheDocumentMgr::the().removeDocument(updateDocument_);
  ApiPmXmlCacheDocumentMgr::the().addDocument(document);
  updateDocument_ = document;
  if (document) ApiVorToolsFieldsCache::the().append(document);
}

void ZelXmlWrapper::setOutDocument(const IXMLDOMDocument& document) {
  ApiPmXmlCacheDocumentMgr::the().removeDocument(outDocument_);
  ApiPmXmlCacheDocumentMgr::the().addDocument(document);
  outDocument_ = document;
}

bool ZelXmlWrapper::createOutDocumentNode(const IXMLDOMDocument& document, std::string_view command,
                                          IXMLDOMNode& node) {
  return zelXmlEnsureStreamSection(document, command, node);
}

ZelBehaviorRestrictionsMgr& ZelXmlWrapper::getBehaviorRestrictionsManager() const {
  static ZelXmlBehaviorRestrictionsMgr manager;
  return manager;
}

bool ZelXmlWrapper::getAllNodes(ZelNodeList& nodes) {
  convertor_.getAllNodes(nodes);
  return true;
}

int ZelXmlWrapper::nodesNum() { return convertor_.nodesNum(); }

const ZelNode* ZelXmlWrapper::getZelNodeFromId(const ApiPmId& id) const { return convertor_.findNode(id); }
ZelNode* ZelXmlWrapper::getZelNodeFromId(const ApiPmId& id) { return convertor_.findNode(id); }

bool ZelXmlWrapper::getRoots(ApiPmIdList& ids) const {
  for (const ZelNode* root : roots_.list()) {
    ApiPmId id;
    if (root->getExternalId(id)) ids.append(id);
  }
  return true;
}

bool ZelXmlWrapper::isIdInUse(const ApiPmId& id) const {
  IXMLDOMElement element;
  return getZelNodeFromId(id) || cachedDOMDocument().getNodeById(DOMDocument(), id, element, true);
}

bool ZelXmlWrapper::generateUniqueId(ApiPmId& id) const {
  id = ApiPmId(api::newGuidText());
  return true;
}

void ZelXmlWrapper::insertNode(const ApiPmId& id, ZelNode* node) {
  if (const ZelNode* former = convertor_.insertNode(id, node)) roots_.remove(former);
}

void ZelXmlWrapper::removeAndDeleteNodeObject(const ApiPmId& given) {
  const ApiPmId id = given;
  ZelXmlElementNode* dying = zelXmlElementNodeOf(convertor_.findNode(id));
  if (dying) dying->removeRequisites();
  // A control call that lists itself is gone by now.
  if (const ZelNode* node = convertor_.findNode(id)) {
    roots_.remove(node);
    parentFinder_.removeRelevantParent(id);
    convertor_.removeAndDeleteNode(id);
  }
}

void ZelXmlWrapper::removeAndDeleteNodeObjectsList(const ApiPmIdList& ids) {
  for (const ApiPmId& id : ids) removeAndDeleteNodeObject(id);
}

bool ZelXmlWrapper::findShortcut(const ApiPmId& id, ApiPmId& shortcut) const {
  return shortcutFinder_.findShortcut(id, shortcut);
}

bool ZelXmlWrapper::read() {
  const bool built = build(true);
  if (built) readSessionMngInformation();
  return built;
}

void ZelXmlWrapper::tellOfAnotherDocument() const {
  if (builtDocument_ && !(DOMDocument() == builtDocument_)) {
    ZEL_LOG("ZelXml", ApiLogLogger::error,
            "ZelXmlWrapper::write saves the session's document, which is not the one that was built");
  }
}

bool ZelXmlWrapper::write(const RWClassicWString& fileName) const {
  tellOfAnotherDocument();
  writeSessionMngInformation();
  return DOMDocument().save(fileName);
}

bool ZelXmlWrapper::prepareWrite(DomSave& save, const RWClassicWString& fileName,
                                 DomOverwrite overwrite) const {
  writeSessionMngInformation();
  return save.prepare(DOMDocument(), fileName, overwrite);
}

bool ZelXmlWrapper::write(std::ostream& stream) const {
  tellOfAnotherDocument();
  writeSessionMngInformation();
  return DOMDocument().save(stream);
}

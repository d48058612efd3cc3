#include "api/ApiPmSessionManager.h"

#include "api/ApiPmXmlCacheDocumentMgr.h"

namespace {

// Stands for the study while the session has none.
ApiPmXmlCachedDocument& noDocument() {
  static auto& none = *new ApiPmXmlCachedDocument;
  return none;
}

}  // namespace

ApiPmSessionManager::ApiPmSessionManager() : cached_(&noDocument()) {}
ApiPmSessionManager::~ApiPmSessionManager() = default;

ApiPmSessionManager& ApiPmSessionManager::the() {
  static auto& session = *new ApiPmSessionManager;
  return session;
}

ApiPmXmlCachedDocument& ApiPmSessionManager::cachedDocument() { return *cached_; }
IXMLDOMDocument ApiPmSessionManager::importedDocument() { return cached_->importedDocument(); }
const ApiDocumentRef& ApiPmSessionManager::documentRef() const { return reference_; }
int ApiPmSessionManager::sessionMode() const { return mode; }

void ApiPmSessionManager::setImportedDocumentAndDocRef(const IXMLDOMDocument& document,
                                                       const ApiDocumentRef& reference) {
  reference_ = reference;
  const IXMLDOMDocument former = importedDocument();
  if (former == document) return;
  auto& manager = ApiPmXmlCacheDocumentMgr::the();
  cached_ = document ? &manager.holdForSession(document) : &noDocument();
  if (former) manager.releaseFromSession(former);
}

void ApiPmSessionManager::cacheNode(const IXMLDOMDocument& document, const ApiPmId& id,
                                    const IXMLDOMElement& element) {
  ApiPmXmlCachedDocument* cached = nullptr;
  if (ApiPmXmlCacheDocumentMgr::the().getCachedDocument(document, cached)) cached->cacheNode(id, element);
}

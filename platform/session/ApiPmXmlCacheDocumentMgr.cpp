#include "api/ApiPmXmlCacheDocumentMgr.h"

#include <cstddef>
#include <memory>
#include <unordered_map>

struct ApiPmXmlCacheDocumentMgr::Registry {
  struct Registration {
    std::size_t added = 0;
    bool ofSession = false;
    std::unique_ptr<ApiPmXmlCachedDocument> cached;
  };
  std::unordered_map<IXMLDOMDocument, Registration> registrations;
  // The last answer: look-ups of one document come in long runs. An identity is not reused while its
  // registration keeps the document alive.
  const void* lastIdentity = nullptr;
  ApiPmXmlCachedDocument* lastCached = nullptr;

  Registration& registrationOf(const IXMLDOMDocument& document) {
    Registration& registration = registrations[document];
    if (!registration.cached) registration.cached = std::make_unique<ApiPmXmlCachedDocument>(document);
    return registration;
  }
  void dropIfUnused(const IXMLDOMDocument& document, const Registration& registration) {
    if (registration.added > 0 || registration.ofSession) return;
    lastIdentity = nullptr;
    const IXMLDOMDocument kept = document;  // the argument may stand in what goes
    registrations.erase(kept);
  }
};

ApiPmXmlCacheDocumentMgr::ApiPmXmlCacheDocumentMgr() : registry_(new Registry) {}

ApiPmXmlCacheDocumentMgr& ApiPmXmlCacheDocumentMgr::the() {
  static auto& manager = *new ApiPmXmlCacheDocumentMgr;
  return manager;
}

bool ApiPmXmlCacheDocumentMgr::addDocument(const IXMLDOMDocument& document) {
  if (!document) return false;
  ++registry_->registrationOf(document).added;
  return true;
}

bool ApiPmXmlCacheDocumentMgr::removeDocument(const IXMLDOMDocument& document) {
  const auto found = registry_->registrations.find(document);
  if (found == registry_->registrations.end() || found->second.added == 0) return false;
  --found->second.added;
  registry_->dropIfUnused(document, found->second);
  return true;
}

bool ApiPmXmlCacheDocumentMgr::getCachedDocument(const IXMLDOMDocument& document,
                                                 ApiPmXmlCachedDocument*& cached) const {
  if (!document) return false;
  if (document.identity() != registry_->lastIdentity) {
    const auto found = registry_->registrations.find(document);
    if (found == registry_->registrations.end()) return false;
    registry_->lastIdentity = document.identity();
    registry_->lastCached = found->second.cached.get();
  }
  cached = registry_->lastCached;
  return true;
}

ApiPmXmlCachedDocument& ApiPmXmlCacheDocumentMgr::holdForSession(const IXMLDOMDocument& document) {
  Registry::Registration& registration = registry_->registrationOf(document);
  registration.ofSession = true;
  return *registration.cached;
}

void ApiPmXmlCacheDocumentMgr::releaseFromSession(const IXMLDOMDocument& document) {
  const auto found = registry_->registrations.find(document);
  if (found == registry_->registrations.end()) return;
  found->second.ofSession = false;
  registry_->dropIfUnused(document, found->second);
}

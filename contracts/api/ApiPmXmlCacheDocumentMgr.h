#pragma once

#include "api/ApiPmXmlCachedDocument.h"

// Which documents have an index. Registration is counted: a document keeps its index until it has been
// removed as often as it was added. The session's registration of its study stands beside the count, and only
// the session ends it. A registered document is kept alive.
class ApiPmXmlCacheDocumentMgr {
 public:
  static ApiPmXmlCacheDocumentMgr& the();
  ApiPmXmlCacheDocumentMgr(const ApiPmXmlCacheDocumentMgr&) = delete;
  ApiPmXmlCacheDocumentMgr& operator=(const ApiPmXmlCacheDocumentMgr&) = delete;

  // Registers a document and indexes it, the first time. False for null.
  bool addDocument(const IXMLDOMDocument& document);
  // False for a document that has not been added, or removed as often already.
  bool removeDocument(const IXMLDOMDocument& document);
  // False, and `cached` untouched, for a document that is not registered. The index is good until the last
  // registration of its document ends.
  bool getCachedDocument(const IXMLDOMDocument& document, ApiPmXmlCachedDocument*& cached) const;

 private:
  friend class ApiPmSessionManager;
  ApiPmXmlCacheDocumentMgr();
  ApiPmXmlCachedDocument& holdForSession(const IXMLDOMDocument& document);
  void releaseFromSession(const IXMLDOMDocument& document);
  struct Registry;
  Registry* registry_;
};

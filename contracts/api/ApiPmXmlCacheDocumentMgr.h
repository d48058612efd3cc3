#pragma once

#include "api/ApiPmXmlCachedDocument.h"

// Which documents have an index. Registration is counted: a document keeps its index until it has been
// removed as often as it was added.
class ApiPmXmlCacheDocumentMgr {
 public:
  static ApiPmXmlCacheDocumentMgr& the();

  // Registers a document and indexes it, the first time. False for null.
  bool addDocument(const IXMLDOMDocument& document);
  // False for a document that is not registered.
  bool removeDocument(const IXMLDOMDocument& document);
  // False, and `cached` untouched, for a document that is not registered.
  bool getCachedDocument(const IXMLDOMDocument& document, ApiPmXmlCachedDocument*& cached) const;

 private:
  friend class ApiPmSessionManager;
  ApiPmXmlCacheDocumentMgr();
  struct Registry;
  Registry* registry_;
};

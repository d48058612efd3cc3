#pragma once

#include <memory>

#include "api/ApiPmId.h"
#include "dom/IXMLDOMDocument.h"
#include "dom/IXMLDOMElement.h"

// A document with an index from id to object element. Indexed are the children of all Data/Objects sections
// at registration, then what `cacheNode` of the session and the operations here say. Ids that are empty or
// "NULL" are never indexed. Of several elements with one id the first in document order counts at indexing;
// a later cacheNode takes the entry. Entries of elements that stand outside the tree are served like others.
//
// Every operation names the document that it means; for any other than this one it does nothing and answers
// false.
class ApiPmXmlCachedDocument {
 public:
  explicit ApiPmXmlCachedDocument(const IXMLDOMDocument& document = {});
  ~ApiPmXmlCachedDocument();
  ApiPmXmlCachedDocument(const ApiPmXmlCachedDocument&) = delete;
  ApiPmXmlCachedDocument& operator=(const ApiPmXmlCachedDocument&) = delete;

  const IXMLDOMDocument& importedDocument() const { return document_; }

  bool isNodeCached(const ApiPmId& id) const;
  // True and the element if the index knows the id; `quiet` makes no difference.
  bool getNodeById(const IXMLDOMDocument& document, const ApiPmId& id, IXMLDOMElement& element,
                   bool quiet) const;
  // True if there was an entry.
  bool removeEntry(const IXMLDOMDocument& document, const ApiPmId& id);
  // The entry of `id` leads to `element` from now on; it is made if there is none. False for an id that is
  // never indexed and for a null element.
  bool replaceCachedNode(const IXMLDOMDocument& document, const ApiPmId& id, const IXMLDOMElement& element);
  // The entry of `oldId` is found under `newId` from now on, in place of a former one, and no longer under
  // `oldId`; the element's own attribute is left alone. False, and nothing changed, for an unknown `oldId`
  // and for a `newId` that is never indexed.
  bool replaceCachedNodeId(const ApiPmId& oldId, const ApiPmId& newId);
  // Rebuilds the index from the child elements of `section` alone; all other entries go. False for null.
  bool reCacheAllChildrenNodes(const IXMLDOMDocument& document, const IXMLDOMElement& section);
  // Puts `element` under `id`, in place of a former entry.
  void cacheNode(const ApiPmId& id, const IXMLDOMElement& element);

  // The id that the document itself carries: the attribute `cachedId` of its root element. A copy of a file
  // carries the id of its original. False, and `id` untouched, when there is none or it is empty.
  static bool getCachedDocId(const IXMLDOMDocument& document, ApiPmId& id);

 private:
  bool isFor(const IXMLDOMDocument& document) const { return document && document == document_; }

  struct Index;
  IXMLDOMDocument document_;
  std::unique_ptr<Index> index_;
};

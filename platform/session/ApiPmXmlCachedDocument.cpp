#include "api/ApiPmXmlCachedDocument.h"

#include <string_view>

#include "session/IdMap.h"

struct ApiPmXmlCachedDocument::Index {
  IdMap<IXMLDOMElement> elements;

  static bool holds(const ApiPmId& id) { return !id.isNull() && id.text() != "NULL"; }

  void addFirst(const IXMLDOMElement& element) {
    std::string_view text;
    if (!element.getAttribute("ExternalId", text)) return;
    const ApiPmId id(text);
    if (holds(id)) elements.putFirst(id, element);
  }
  void addChildrenOf(const IXMLDOMElement& section) {
    for (auto child = section.firstElementChild(); child; child = child.nextElementSibling()) addFirst(child);
  }
};

ApiPmXmlCachedDocument::ApiPmXmlCachedDocument(const IXMLDOMDocument& document)
    : document_(document), index_(std::make_unique<Index>()) {
  const IXMLDOMElement root = document_.documentElement();
  if (root.nodeName() != "Data") return;
  for (auto section = root.firstElementChild(); section; section = section.nextElementSibling()) {
    if (section.nodeName() == "Objects") index_->addChildrenOf(section);
  }
}

ApiPmXmlCachedDocument::~ApiPmXmlCachedDocument() = default;

bool ApiPmXmlCachedDocument::isNodeCached(const ApiPmId& id) const {
  return index_->elements.find(id) != nullptr;
}

bool ApiPmXmlCachedDocument::getNodeById(const IXMLDOMDocument& document, const ApiPmId& id,
                                         IXMLDOMElement& element, bool /*quiet*/) const {
  const IXMLDOMElement* found = isFor(document) ? index_->elements.find(id) : nullptr;
  if (found) element = *found;
  return found != nullptr;
}

bool ApiPmXmlCachedDocument::removeEntry(const IXMLDOMDocument& document, const ApiPmId& id) {
  return isFor(document) && index_->elements.remove(id);
}

bool ApiPmXmlCachedDocument::replaceCachedNode(const IXMLDOMDocument& document, const ApiPmId& id,
                                               const IXMLDOMElement& element) {
  if (!isFor(document) || !Index::holds(id) || !element) return false;
  index_->elements.put(id, element);
  return true;
}

bool ApiPmXmlCachedDocument::replaceCachedNodeId(const ApiPmId& oldId, const ApiPmId& newId) {
  const IXMLDOMElement* found = index_->elements.find(oldId);
  if (!found || !Index::holds(newId)) return false;
  const IXMLDOMElement element = *found;
  index_->elements.remove(oldId);
  index_->elements.put(newId, element);
  return true;
}

bool ApiPmXmlCachedDocument::reCacheAllChildrenNodes(const IXMLDOMDocument& document,
                                                     const IXMLDOMElement& section) {
  if (!isFor(document) || !section) return false;
  index_->elements.clear();
  index_->addChildrenOf(section);
  return true;
}

void ApiPmXmlCachedDocument::cacheNode(const ApiPmId& id, const IXMLDOMElement& element) {
  replaceCachedNode(document_, id, element);
}

bool ApiPmXmlCachedDocument::getCachedDocId(const IXMLDOMDocument& document, ApiPmId& id) {
  std::string_view text;
  if (!document.documentElement().getAttribute("cachedId", text) || text.empty()) return false;
  id = ApiPmId(text);
  return true;
}

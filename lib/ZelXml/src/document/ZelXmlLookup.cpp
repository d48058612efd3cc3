#include "document/ZelXmlLookup.h"

#include <string>
#include <utility>

#include "api/ApiLogLogger.h"
#include "api/ApiPmXmlCacheDocumentMgr.h"
#include "document/ZelXmlFields.h"
#include "dom/IXMLDOMElement.h"

namespace {

// A document without an index is searched as a whole, for any element with this id.
bool searchNode(const IXMLDOMDocument& document, std::string_view id, IXMLDOMNode& element) {
  ZEL_LOG("ZelXml", ApiLogLogger::progress, "Start search node: " + std::string(id) + " in document");
  if (!zelXmlIsReference(id)) return false;
  IXMLDOMElement found;
  const bool isFound = document.findByAttribute("ExternalId", id, found);
  if (isFound) element = std::move(found);
  ZEL_LOG("ZelXml", ApiLogLogger::progress, "End search node: " + std::string(id) + " in document");
  return isFound;
}

bool lookUp(const ApiPmXmlCachedDocument& cached, const IXMLDOMDocument& document, const ApiPmId& id,
            IXMLDOMNode& element, bool quiet) {
  IXMLDOMElement found;
  if (id.isNull() || !cached.getNodeById(document, id, found, quiet)) return false;
  element = std::move(found);
  return true;
}

bool findNode(const IXMLDOMDocument& document, std::string_view id, IXMLDOMNode& element, bool quiet) {
  ApiPmXmlCachedDocument* cached = nullptr;
  if (!ApiPmXmlCacheDocumentMgr::the().getCachedDocument(document, cached))
    return searchNode(document, id, element);
  // An id that no object has ever had is not made for the sake of a question.
  return lookUp(*cached, document, ApiPmId::existing(id), element, quiet);
}

bool resolve(const IXMLDOMDocument& document, const IXMLDOMNode& element, std::string_view field,
             IXMLDOMNode& referenced, bool quiet) {
  std::string buffer;
  std::string_view id;
  return element.selectText(field, buffer, id) && findNode(document, id, referenced, quiet);
}

}  // namespace

bool zelXmlFindNodeById(const IXMLDOMDocument& document, std::string_view id, IXMLDOMNode& element) {
  return findNode(document, id, element, true);
}

bool zelXmlFindNodeById(const IXMLDOMDocument& document, const ApiPmId& id, IXMLDOMNode& element) {
  ApiPmXmlCachedDocument* cached = nullptr;
  if (!ApiPmXmlCacheDocumentMgr::the().getCachedDocument(document, cached))
    return searchNode(document, id.text(), element);
  return lookUp(*cached, document, id, element, true);
}

bool zelXmlFindNodeByIdQuiet(const IXMLDOMDocument& document, std::string_view id, IXMLDOMNode& element) {
  return findNode(document, id, element, false);
}

bool zelXmlGetReferencedNode(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                             std::string_view field, IXMLDOMNode& referenced) {
  return resolve(document, element, field, referenced, true);
}

bool zelXmlGetReferencedNodeQuiet(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                                  std::string_view field, IXMLDOMNode& referenced) {
  return resolve(document, element, field, referenced, false);
}

bool zelXmlFindInDocuments(const ApiPmId& id, const IXMLDOMDocument& first, const IXMLDOMDocument& second,
                           IXMLDOMNode& element) {
  for (const IXMLDOMDocument* document : {&first, &second}) {
    ApiPmXmlCachedDocument* cached = nullptr;
    if (*document && ApiPmXmlCacheDocumentMgr::the().getCachedDocument(*document, cached) &&
        cached->isNodeCached(id))
      return lookUp(*cached, *document, id, element, true);
  }
  return false;
}

bool zelXmlGetObjectsSection(const IXMLDOMDocument& document, IXMLDOMNode& section) {
  return zelXmlSelectChild(document, "Data/Objects", section);
}

bool zelXmlGetLayoutOwnerId(const IXMLDOMDocument& document, const IXMLDOMNode& layout, ApiPmId& owner) {
  IXMLDOMNode node;
  if (layout.selectSingleNode("node", node)) {
    std::string buffer;
    const std::string_view id = node.textView(buffer);
    if (!zelXmlIsReference(id)) return false;
    owner = ApiPmId(id);
    return true;
  }
  std::string_view id;
  IXMLDOMElement found;
  return layout.getAttribute("ExternalId", id) && zelXmlIsReference(id) &&
         document.findByChildText("layout", id, found) && zelXmlGetExternalId(found, owner);
}

bool zelXmlGetPrototypeElement(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                               IXMLDOMNode& prototype) {
  if (zelXmlGetReferencedNode(document, element, "prototype", prototype)) return true;
  IXMLDOMNode master;
  if (!zelXmlGetReferencedNode(document, element, "masterObj", master)) return false;
  if (zelXmlGetReferencedNode(document, master, "prototype", prototype)) return true;
  std::string family;
  if (!zelXmlGetFamily(master, family)) return false;
  if (family != "EquipmentPrototype" && family != "ToolPrototype") return false;
  prototype = master;
  return true;
}

bool zelXmlIsRelevantParent(const IXMLDOMDocument& study, const IXMLDOMDocument& update,
                            const IXMLDOMNode& parent, const ApiPmId& child) {
  constexpr std::string_view assembly = "PmDvProcessAssembly";
  IXMLDOMNode family, element;
  std::string buffer;
  if (!parent.selectSingleNode("NodeInfo/family", family) || family.textView(buffer) != "Product")
    return true;
  // What is not found counts as no assembly.
  const bool isAssembly =
      zelXmlFindInDocuments(child, study, update, element) && element.nodeName() == assembly;
  return (parent.nodeName() == assembly) == isAssembly;
}

#include "document/ZelXmlStream.h"

#include "api/ApiPmSessionManager.h"
#include "document/ZelXmlFields.h"
#include "document/ZelXmlLongLists.h"
#include "document/ZelXmlLookup.h"
#include "dom/IXMLDOMElement.h"

namespace {

// First child of exactly this name: the name of a field that is there already is no path.
IXMLDOMElement childNamed(const IXMLDOMNode& element, std::string_view name) {
  IXMLDOMElement child = element.firstElementChild();
  while (child && child.nodeName() != name) child = child.nextElementSibling();
  return child;
}

bool appendCopy(const IXMLDOMNode& parent, const IXMLDOMNode& node) {
  return parent.appendChild(node.cloneNode(true));
}

// Data of a document that has none, with the XML declaration ahead of it.
bool addData(const IXMLDOMDocument& document, IXMLDOMNode& data) {
  // Another root element would make the declaration stand behind it, and leave no place for Data.
  if (document.documentElement()) return false;
  IXMLDOMNode made = document.createElement("Data");
  bool isDeclared = false;
  for (const IXMLDOMNode& node : document.childNodes())
    isDeclared = isDeclared || (node.nodeType() == NODE_PROCESSING_INSTRUCTION && node.nodeName() == "xml");
  IXMLDOMNode declaration;
  if (!isDeclared && !(zelXmlCreateDomNode(document, NODE_PROCESSING_INSTRUCTION, "xml", declaration) &&
                       document.appendChild(declaration)))
    return false;
  if (!document.appendChild(made)) return false;
  data = std::move(made);
  return true;
}

}  // namespace

bool zelXmlEnsureStreamSection(const IXMLDOMDocument& document, std::string_view command,
                               IXMLDOMNode& section) {
  IXMLDOMNodeList sections;
  if (!document.selectNodes("Data/Objects", sections)) return false;
  for (const IXMLDOMNode& candidate : sections) {
    std::string_view value;
    if (candidate.getAttribute("command", value) && value == command) {
      section = candidate;
      return true;
    }
  }
  IXMLDOMNode data;
  if (!zelXmlSelectChild(document, "Data", data) && !addData(document, data)) return false;
  IXMLDOMNode made = document.createElement("Objects");
  if (!made.setAttribute("command", command) || !data.appendChild(made)) return false;
  section = std::move(made);
  return true;
}

bool zelXmlCreateObjectElement(const IXMLDOMDocument& document, std::string_view className,
                               std::string_view id, IXMLDOMNode& element) {
  IXMLDOMElement made = document.createElement(className);
  if (!made.setAttribute("ExternalId", id)) return false;
  ApiPmSessionManager::the().cacheNode(document, ApiPmId(id), made);
  element = std::move(made);
  return true;
}

bool zelXmlAddObjectElement(const IXMLDOMDocument& document, std::string_view className, std::string_view id,
                            IXMLDOMNode& element) {
  IXMLDOMNode section, made;
  if (!zelXmlGetObjectsSection(document, section)) return false;
  if (!zelXmlCreateObjectElement(document, className, id, made) || !section.appendChild(made)) return false;
  element = std::move(made);
  return true;
}

bool zelXmlAppendObjectClone(const IXMLDOMDocument& document, const IXMLDOMNode& element,
                             IXMLDOMNode& clone) {
  IXMLDOMNode section;
  if (!zelXmlGetObjectsSection(document, section)) return false;
  IXMLDOMNode made = element.cloneNode(true);
  if (!section.appendChild(made)) return false;
  clone = std::move(made);
  return true;
}

bool zelXmlPublishUpdate(const IXMLDOMDocument& out, const IXMLDOMNode& element) {
  if (!out) return true;
  ApiPmId id;
  if (!zelXmlGetExternalId(element, id)) return false;
  std::vector<IXMLDOMNode> kept;
  IXMLDOMNode former;
  if (zelXmlFindNodeById(out, id, former)) {
    // A copy that lacks only items appended since gets these, and the place that a new one would have.
    const IXMLDOMNode section = former.parentNode();
    std::string_view command;
    if (section.getAttribute("command", command) && command == ZELXML_UPDATE_COMMAND &&
        zelXmlLongLists().patch(element, former)) {
      return section.appendChild(former);
    }
    for (const std::string_view name : {"comment", "name"}) {
      IXMLDOMNode field;
      if (zelXmlSelectChild(former, name, field)) kept.push_back(field.cloneNode(true));
    }
    if (!zelXmlRemoveFromParent(former)) return false;
  }
  return zelXmlPublishClone(out, element, kept);
}

bool zelXmlPublishClone(const IXMLDOMDocument& out, const IXMLDOMNode& element,
                        const std::vector<IXMLDOMNode>& extra) {
  if (!out) return true;
  IXMLDOMNode section;
  if (!zelXmlEnsureStreamSection(out, ZELXML_UPDATE_COMMAND, section)) return false;
  const IXMLDOMElement copy = element.cloneNode(true);
  for (const std::string_view name : {"caption", "comment", "name"}) zelXmlRemoveNamedChild(copy, name);
  for (const IXMLDOMNode& node : extra)
    if (!copy.appendChild(node)) return false;
  if (!section.appendChild(copy)) return false;
  std::string_view id;
  if (!copy.getAttribute("ExternalId", id)) return false;
  ApiPmSessionManager::the().cacheNode(out, ApiPmId(id), copy);
  zelXmlLongLists().published(element, copy);
  return true;
}

bool zelXmlPublishField(const IXMLDOMDocument& out, const IXMLDOMNode& field) {
  if (!out) return true;
  const IXMLDOMNode element = field.parentNode();
  ApiPmId id;
  if (!zelXmlGetExternalId(element, id)) return false;
  IXMLDOMNode published;
  if (!zelXmlFindNodeById(out, id, published) &&
      !(zelXmlPublishUpdate(out, element) && zelXmlFindNodeById(out, id, published)))
    return false;
  if (const IXMLDOMElement former = childNamed(published, field.nodeName())) published.removeChild(former);
  return appendCopy(published, field);
}

bool zelXmlPublishFields(const IXMLDOMDocument& out, const IXMLDOMNode& element,
                         const std::vector<std::string_view>& fields) {
  if (!out) return true;
  ApiPmId id;
  if (!zelXmlGetExternalId(element, id)) return false;
  IXMLDOMNode published;
  if (zelXmlFindNodeById(out, id, published)) {
    for (const std::string_view field : fields) zelXmlRemoveNamedChild(published, field);
  } else {
    // The section comes first: without one the index must not learn of an element that stands nowhere.
    IXMLDOMNode section;
    if (!zelXmlEnsureStreamSection(out, ZELXML_UPDATE_COMMAND, section)) return false;
    if (!zelXmlCreateObjectElement(out, element.nodeName(), id.text(), published)) return false;
    if (!section.appendChild(published)) return false;
  }
  for (const std::string_view field : fields) {
    IXMLDOMNode node;
    if (zelXmlSelectChild(element, field, node) && !appendCopy(published, node)) return false;
  }
  return true;
}

bool zelXmlPublishDeletion(ApiPmXmlCachedDocument& cached, const IXMLDOMDocument& out,
                           const IXMLDOMNode& element) {
  if (out) {
    IXMLDOMNode section, skeleton;
    ApiPmId id;
    if (!zelXmlEnsureStreamSection(out, ZELXML_DELETE_COMMAND, section)) return false;
    if (!zelXmlGetExternalId(element, id)) return false;
    if (!zelXmlCreateObjectElement(out, element.nodeName(), id.text(), skeleton)) return false;
    if (!section.appendChild(skeleton)) return false;
  }
  return zelXmlRemoveCachedElement(cached, element);
}

bool zelXmlRemoveCachedElement(ApiPmXmlCachedDocument& cached, const IXMLDOMNode& element) {
  // A handle of our own: `element` may be the one that the index is about to drop.
  const IXMLDOMNode removed = element;
  ApiPmId id;
  if (!zelXmlGetExternalId(removed, id)) return false;
  cached.removeEntry(cached.importedDocument(), id);
  return zelXmlRemoveFromParent(removed);
}

bool zelXmlReplaceObject(ApiPmXmlCachedDocument& cached, const IXMLDOMNode& oldElement,
                         const IXMLDOMNode& newElement, IXMLDOMNode& clone) {
  const IXMLDOMDocument document = cached.importedDocument();
  IXMLDOMNode section;
  if (!newElement || !zelXmlGetObjectsSection(document, section)) return false;
  if (!section.removeChild(oldElement)) return false;
  IXMLDOMElement made = newElement.cloneNode(true);
  if (!section.appendChild(made)) return false;
  clone = made;
  ApiPmId id;
  return zelXmlGetExternalId(made, id) && cached.replaceCachedNode(document, id, made);
}

#include "document/ZelXmlListEdits.h"

#include <string>

#include "api/ApiPmClassTypes.h"
#include "document/ZelXmlFields.h"
#include "document/ZelXmlLongLists.h"
#include "document/ZelXmlStream.h"

namespace {

bool setText(const IXMLDOMNode& element, std::string_view field, std::string_view text) {
  IXMLDOMNode node;
  return zelXmlSelectChild(element, field, node) && node.putText(text);
}

}  // namespace

bool zelXmlAddChildItem(const IXMLDOMNode& element, const ApiPmId& id) {
  return zelXmlContainsChild(element, id) || zelXmlAddItem(element, "children", id.text());
}

bool zelXmlAddParentItem(const IXMLDOMNode& element, const ApiPmId& id) {
  IXMLDOMNode item;
  long index = 0;
  return zelXmlFindParentItem(element, id.text(), item, index) ||
         zelXmlAddItem(element, "parents", id.text());
}

bool zelXmlAddItem(const IXMLDOMNode& element, std::string_view list, std::string_view text) {
  return element && zelXmlLongLists().append(element, list, text);
}

bool zelXmlRemoveItem(const IXMLDOMNode& element, const IXMLDOMNode& item) {
  return element && item && zelXmlLongLists().remove(element, item);
}

bool zelXmlContainsChild(const IXMLDOMNode& element, const ApiPmId& id) {
  IXMLDOMNode item;
  long index = 0;
  return zelXmlFindChildItem(element, id.text(), item, index);
}

bool zelXmlRemoveChildItem(const IXMLDOMNode& element, const ApiPmId& id) {
  if (!element) return false;
  IXMLDOMNode item;
  long index = 0;
  return !zelXmlFindChildItem(element, id.text(), item, index) || zelXmlRemoveItem(element, item);
}

bool zelXmlRemoveChildAndPublish(const IXMLDOMDocument& out, const IXMLDOMNode& element, const ApiPmId& id) {
  return zelXmlRemoveChildItem(element, id) && zelXmlPublishUpdate(out, element);
}

bool zelXmlRemoveParentEntry(const IXMLDOMNode& element, const ApiPmId& id) {
  IXMLDOMNode item;
  long index = 0;
  return zelXmlFindParentItem(element, id.text(), item, index) && zelXmlRemoveItem(element, item);
}

bool zelXmlRemoveParentItem(const IXMLDOMNode& element, const IXMLDOMDocument& out, const ApiPmId& id) {
  return zelXmlRemoveParentEntry(element, id) && zelXmlPublishUpdate(out, element);
}

bool zelXmlSetParentText(const IXMLDOMNode& element, std::string_view id) {
  return setText(element, "parent", id);
}

bool zelXmlSetParentTextFromElement(const IXMLDOMNode& element, const IXMLDOMNode& other) {
  std::string id;
  return zelXmlGetExternalId(other, id) && setText(element, "parent", id);
}

bool zelXmlSetLinkText(const IXMLDOMNode& element, std::string_view id) {
  return setText(element, "linkExternalID", id);
}

bool zelXmlClearField(const IXMLDOMNode& element, std::string_view field) {
  return setText(element, field, "");
}

bool zelXmlFillFamily(const IXMLDOMDocument& document, std::string_view className) {
  IXMLDOMNodeList objects;
  if (!document.selectNodes("Data/Objects/*", objects)) return false;
  for (const IXMLDOMNode& object : objects) {
    if (!className.empty() && object.nodeName() != className) continue;
    // An object of a class that has no family keeps what it holds.
    std::string family;
    if (!ApiPmClassTypeDataMgr::the().getFamilyFromClassName(object.nodeName(), family)) continue;
    if (!zelXmlSetFamily(document, object, family)) return false;
  }
  return true;
}

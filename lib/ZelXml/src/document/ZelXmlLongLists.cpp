#include "document/ZelXmlLongLists.h"

#include <algorithm>
#include <string>

#include "document/ZelXmlDom.h"
#include "document/ZelXmlItems.h"

namespace {

constexpr std::size_t longList = 64;

}  // namespace

ZelXmlLongLists& zelXmlLongLists() {
  static ZelXmlLongLists& lists = *new ZelXmlLongLists;
  return lists;
}

ZelXmlLongLists::Entry* ZelXmlLongLists::find(const IXMLDOMNode& element) {
  for (Entry& entry : entries_) {
    if (entry.element && entry.element == element.identity() && entry.stamp == element.changeStamp()) {
      return &entry;
    }
  }
  return nullptr;
}

bool ZelXmlLongLists::contains(const IXMLDOMNode& element, const ApiPmId& id) {
  if (const Entry* known = find(element)) return known->ids.count(id) != 0;
  std::size_t walked = 0;
  bool found = false;
  zelXmlVisitItems(element, "children", [&](const IXMLDOMElement& item) {
    std::string buffer;
    found = item.textView(buffer) == id.text();
    return !found && ++walked < longList;
  });
  if (found || walked < longList) return found;
  Entry entry;
  entry.element = element.identity();
  entry.stamp = element.changeStamp();
  zelXmlVisitItems(element, "children", [&](const IXMLDOMElement& item) {
    std::string buffer;
    entry.ids.insert(ApiPmId(item.textView(buffer)));
    return true;
  });
  std::rotate(entries_.begin(), entries_.end() - 1, entries_.end());
  entries_.front() = std::move(entry);
  return entries_.front().ids.count(id) != 0;
}

void ZelXmlLongLists::published(const IXMLDOMNode& element, const IXMLDOMNode& copy) {
  if (Entry* known = find(element)) {
    known->copy = copy.identity();
    known->copyStamp = copy.changeStamp();
    known->appended.clear();
  }
}

bool ZelXmlLongLists::patch(const IXMLDOMNode& element, const IXMLDOMNode& copy) {
  Entry* known = find(element);
  IXMLDOMNode list;
  if (!known || !known->copy || known->copy != copy.identity() || known->copyStamp != copy.changeStamp() ||
      !zelXmlSelectChild(copy, "children", list)) {
    return false;
  }
  const IXMLDOMDocument document = copy.ownerDocument();
  for (const ApiPmId& id : known->appended) {
    if (!zelXmlAddChildWithText(document, list, "item", id.text())) return false;
  }
  known->copyStamp = copy.changeStamp();
  known->appended.clear();
  return true;
}

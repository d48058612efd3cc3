#include "document/ZelXmlLongLists.h"

#include <algorithm>
#include <utility>

#include "document/ZelXmlDom.h"

namespace {

// A shorter list is copied as fast as it is patched.
constexpr long longList = 64;

bool hasLongList(const IXMLDOMNode& element) {
  for (const std::string_view list : {"children", "info", "mountedTools"}) {
    IXMLDOMNode field;
    IXMLDOMNode item;
    if (zelXmlSelectChild(element, list, field) && field.childAt("item", longList - 1, item)) return true;
  }
  return false;
}

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

void ZelXmlLongLists::note(Entry* known, const IXMLDOMNode& element, Change change) {
  if (!known) return;
  known->stamp = element.changeStamp();
  known->changes.push_back(std::move(change));
}

bool ZelXmlLongLists::append(const IXMLDOMNode& element, std::string_view list, std::string_view text) {
  Entry* known = find(element);
  IXMLDOMNode field;
  if (!zelXmlSelectChild(element, list, field) ||
      !zelXmlAddChildWithText(element.ownerDocument(), field, "item", text)) {
    return false;
  }
  note(known, element, {std::string(list), -1, std::string(text)});
  return true;
}

bool ZelXmlLongLists::remove(const IXMLDOMNode& element, const IXMLDOMNode& item) {
  const IXMLDOMNode list = item.parentNode();
  const std::string name(list.nodeName());
  IXMLDOMNode first;
  IXMLDOMNode named;
  long index = 0;
  // Only the first of equal items in the first list of its name has a place that the copy has too.
  Entry* known = find(element);
  if (known && !(zelXmlSelectChild(element, name, named) && named == list &&
                 list.findChild("item", item.text(), first, index) && first == item)) {
    known = nullptr;
  }
  if (!zelXmlRemoveFromParent(item)) return false;
  note(known, element, {name, index, {}});
  return true;
}

void ZelXmlLongLists::published(const IXMLDOMNode& element, const IXMLDOMNode& copy) {
  Entry* known = find(element);
  if (!known) {
    if (!hasLongList(element)) return;
    std::rotate(entries_.begin(), entries_.end() - 1, entries_.end());
    known = &entries_.front();
  }
  *known = {element.identity(), element.changeStamp(), copy.identity(), copy.changeStamp(), {}};
}

bool ZelXmlLongLists::patch(const IXMLDOMNode& element, const IXMLDOMNode& copy) {
  Entry* known = find(element);
  if (!known || known->copy != copy.identity() || known->copyStamp != copy.changeStamp()) return false;
  const IXMLDOMDocument document = copy.ownerDocument();
  for (const Change& change : known->changes) {
    IXMLDOMNode list;
    IXMLDOMNode item;
    if (!zelXmlSelectChild(copy, change.list, list)) return false;
    if (change.removed < 0) {
      zelXmlAddChildWithText(document, list, "item", change.appended);
    } else if (list.childAt("item", change.removed, item)) {
      zelXmlRemoveFromParent(item);
    }
  }
  known->copyStamp = copy.changeStamp();
  known->changes.clear();
  return true;
}

#include "document/ZelXmlListEdits.h"

#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>

#include "api/ApiPmClassTypes.h"
#include "document/ZelXmlFields.h"
#include "document/ZelXmlItems.h"
#include "document/ZelXmlStream.h"

namespace {

// What the long `children` lists that were asked last hold, so that adding n children to one parent does not
// walk the list n times. An entry counts while its element has the change stamp that it had then. Stamps are
// never given twice, so an entry can be out of date but never wrong, also when another element comes to stand
// at the same address. It holds no node, and so keeps no document alive.
class ChildSets {
 public:
  bool contains(const IXMLDOMNode& element, const ApiPmId& id) {
    if (const Set* known = find(element)) return known->ids.count(id) != 0;
    std::size_t walked = 0;
    bool found = false;
    zelXmlVisitItems(element, "children", [&](const IXMLDOMElement& item) {
      std::string buffer;
      found = item.textView(buffer) == id.text();
      return !found && ++walked < longList;
    });
    if (found || walked < longList) return found;
    Set set{element.identity(), element.changeStamp(), {}};
    zelXmlVisitItems(element, "children", [&](const IXMLDOMElement& item) {
      std::string buffer;
      set.ids.insert(ApiPmId(item.textView(buffer)));
      return true;
    });
    std::rotate(sets_.begin(), sets_.end() - 1, sets_.end());
    sets_.front() = std::move(set);
    return sets_.front().ids.count(id) != 0;
  }

  // Appends an item by `append`, which says whether it did; the list is known to go without the id.
  template <class Append>
  bool add(const IXMLDOMNode& element, const ApiPmId& id, Append append) {
    Set* known = find(element);
    if (!append()) return false;
    if (known) {
      known->ids.insert(id);
      known->stamp = element.changeStamp();
    }
    return true;
  }

 private:
  struct Set {
    const void* element = nullptr;
    std::uint32_t stamp = 0;
    std::unordered_set<ApiPmId> ids;
  };
  static constexpr std::size_t longList = 64;

  Set* find(const IXMLDOMNode& element) {
    for (Set& set : sets_) {
      if (set.element == element.identity() && set.element && set.stamp == element.changeStamp()) return &set;
    }
    return nullptr;
  }

  std::array<Set, 8> sets_;
};

ChildSets& childSets() {
  static ChildSets& sets = *new ChildSets;
  return sets;
}

bool addItem(const IXMLDOMNode& element, std::string_view list, const ApiPmId& id) {
  IXMLDOMNode field;
  return zelXmlSelectChild(element, list, field) &&
         zelXmlAddChildWithText(element.ownerDocument(), field, "item", id.text());
}

bool setText(const IXMLDOMNode& element, std::string_view field, std::string_view text) {
  IXMLDOMNode node;
  return zelXmlSelectChild(element, field, node) && node.putText(text);
}

}  // namespace

bool zelXmlAddChildItem(const IXMLDOMNode& element, const ApiPmId& id) {
  return zelXmlContainsChild(element, id) ||
         childSets().add(element, id, [&] { return addItem(element, "children", id); });
}

bool zelXmlAddParentItem(const IXMLDOMNode& element, const ApiPmId& id) {
  IXMLDOMNode item;
  long index = 0;
  return zelXmlFindParentItem(element, id.text(), item, index) || addItem(element, "parents", id);
}

bool zelXmlContainsChild(const IXMLDOMNode& element, const ApiPmId& id) {
  return element && childSets().contains(element, id);
}

bool zelXmlRemoveChildItem(const IXMLDOMNode& element, const ApiPmId& id) {
  if (!element) return false;
  IXMLDOMNode item;
  long index = 0;
  return !zelXmlFindChildItem(element, id.text(), item, index) || zelXmlRemoveFromParent(item);
}

bool zelXmlRemoveChildAndPublish(const IXMLDOMDocument& out, const IXMLDOMNode& element, const ApiPmId& id) {
  return zelXmlRemoveChildItem(element, id) && zelXmlPublishUpdate(out, element);
}

bool zelXmlRemoveParentEntry(const IXMLDOMNode& element, const ApiPmId& id) {
  IXMLDOMNode item;
  long index = 0;
  return zelXmlFindParentItem(element, id.text(), item, index) && zelXmlRemoveFromParent(item);
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

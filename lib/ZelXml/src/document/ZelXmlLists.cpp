#include <algorithm>
#include <cmath>
#include <string>
#include <unordered_set>

#include "document/ZelXmlFields.h"
#include "document/ZelXmlItems.h"
#include "dom/IXMLDOMElement.h"

// List fields, ids with a relative part, and references held as nested elements.

namespace {

std::string below(std::string_view field, std::string_view rest) {
  std::string path;
  path.reserve(field.size() + rest.size());
  return path.append(field).append(rest);
}

// Hands each text of a list to `read`. A field that is itself a path has its items selected by path.
template <class Read>
bool readItems(const IXMLDOMNode& element, std::string_view field, Read&& read) {
  std::string buffer;
  const auto readItem = [&](const IXMLDOMNode& item) {
    read(item.textView(buffer));
    return true;
  };
  if (field.find('/') == std::string_view::npos) return zelXmlVisitItems(element, field, readItem);
  IXMLDOMNodeList items;
  if (!element.selectNodes(below(field, "/item"), items)) return false;
  for (const IXMLDOMNode& item : items) readItem(item);
  return true;
}

// Appends one item per value, as `write(list, value)` does it.
template <class T, class Write>
bool addItems(const IXMLDOMNode& element, std::string_view field, const ZelXmlList<T>& values, bool reuse,
              Write&& write) {
  IXMLDOMNode list;
  if (!(reuse ? zelXmlGetOrAddChild(element, field, list) : zelXmlAddChild(element, field, list)))
    return false;
  const IXMLDOMDocument document = element.ownerDocument();
  for (const T& value : values)
    if (!write(document, list, value)) return false;
  return true;
}

bool addTextItem(const IXMLDOMDocument& document, const IXMLDOMNode& list, std::string_view text) {
  return zelXmlAddChildWithText(document, list, "item", text);
}

bool getTexts(const IXMLDOMNode& element, std::string_view field, ZelXmlList<std::string>& values) {
  return readItems(element, field, [&](std::string_view text) { values.append(std::string(text)); });
}

bool addTexts(const IXMLDOMNode& element, std::string_view field, const ZelXmlList<std::string>& values,
              bool reuse) {
  return addItems(element, field, values, reuse, addTextItem);
}

// Which ids of a list have been read. Most lists are short, and looking through a few ids that are one
// pointer each costs less than a set; a long list gets one.
class IdsSeen {
 public:
  explicit IdsSeen(const ApiPmIdList& ids) : ids_(ids), first_(ids.entries()) {}

  bool contains(const ApiPmId& id) {
    const std::size_t count = ids_.entries();
    if (count - first_ < 16) {
      for (std::size_t i = first_; i < count; ++i)
        if (ids_[i] == id) return true;
      return false;
    }
    for (std::size_t i = first_ + set_.size(); i < count; ++i) set_.insert(ids_[i]);
    return set_.contains(id);
  }

 private:
  const ApiPmIdList& ids_;
  const std::size_t first_;
  std::unordered_set<ApiPmId> set_;
};

bool replaceIds(const IXMLDOMNode& element, std::string_view field, ApiPmIdList& ids) {
  if (!element) return false;
  ids.clear();
  return zelXmlGetIdList(element, field, ids);
}

// The two parts of an id with a relative part, from and to its field.
bool getRelative(const IXMLDOMNode& field, ApiPmId& id, std::string& relative) {
  if (!field) return false;
  std::string buffer;
  IXMLDOMNode group, node;
  if (!field.selectSingleNode("BrimID", group)) {
    id = ApiPmId(field.textView(buffer));
    relative.clear();
    return true;
  }
  IXMLDOMNode model;
  if (!group.selectSingleNode("ProcessModelID", model)) return false;
  if (!group.selectSingleNode("BrimRelativeID", node)) return false;
  id = ApiPmId(model.textView(buffer));
  relative = node.textView(buffer);
  return true;
}

bool addRelative(const IXMLDOMNode& field, const ApiPmId& id, std::string_view relative) {
  if (relative.empty()) return field.putText(id.text());
  IXMLDOMNode group;
  const IXMLDOMDocument document = field.ownerDocument();
  return zelXmlAddChild(field, "BrimID", group) &&
         zelXmlAddChildWithText(document, group, "ProcessModelID", id.text()) &&
         zelXmlAddChildWithText(document, group, "BrimRelativeID", relative);
}

}  // namespace

bool zelXmlGetTextList(const IXMLDOMNode& element, std::string_view field, ZelXmlList<std::string>& values) {
  return getTexts(element, field, values);
}

bool zelXmlAddTextList(const IXMLDOMNode& element, std::string_view field,
                       const ZelXmlList<std::string>& values, bool reuse) {
  return addTexts(element, field, values, reuse);
}

bool zelXmlGetWideStringList(const IXMLDOMNode& element, std::string_view field,
                             ZelXmlList<std::string>& values) {
  return getTexts(element, field, values);
}

bool zelXmlAddWideStringList(const IXMLDOMNode& element, std::string_view field,
                             const ZelXmlList<std::string>& values, bool reuse) {
  return addTexts(element, field, values, reuse);
}

bool zelXmlGetDoubleList(const IXMLDOMNode& element, std::string_view field, ZelXmlList<double>& values) {
  return readItems(element, field, [&](std::string_view text) { values.append(zelXmlParseDouble(text)); });
}

bool zelXmlAddDoubleList(const IXMLDOMNode& element, std::string_view field, const ZelXmlList<double>& values,
                         bool reuse) {
  if (!std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); }))
    return false;
  return addItems(element, field, values, reuse,
                  [](const IXMLDOMDocument& document, const IXMLDOMNode& list, double value) {
                    return addTextItem(document, list, zelXmlFormatDouble(value));
                  });
}

bool zelXmlGetIdList(const IXMLDOMNode& element, std::string_view field, ApiPmIdList& ids) {
  IdsSeen seen(ids);
  return readItems(element, field, [&](std::string_view text) {
    ApiPmId id(text);
    if (!seen.contains(id)) ids.append(std::move(id));
  });
}

bool zelXmlAddIdList(const IXMLDOMNode& element, std::string_view field, const ApiPmIdList& ids, bool reuse) {
  return addItems(element, field, ids, reuse,
                  [](const IXMLDOMDocument& document, const IXMLDOMNode& list, const ApiPmId& id) {
                    return addTextItem(document, list, id.text());
                  });
}

bool zelXmlGetExtendedId(const IXMLDOMNode& field, ApiPmExtendedId& id) {
  ApiPmId object;
  std::string relative;
  if (!getRelative(field, object, relative)) return false;
  id = {std::move(object), ApiKey(relative)};
  return true;
}

bool zelXmlAddExtendedId(const IXMLDOMNode& field, const ApiPmExtendedId& id) {
  return addRelative(field, id.id, id.key.getSelfAsString());
}

bool zelXmlGetNameExtendedId(const IXMLDOMNode& field, ApiPmNameExtendedId& id) {
  return getRelative(field, id.id, id.name);
}

bool zelXmlAddNameExtendedId(const IXMLDOMNode& field, const ApiPmNameExtendedId& id) {
  return addRelative(field, id.id, id.name);
}

bool zelXmlGetNameExtendedIdList(const IXMLDOMNode& element, std::string_view field,
                                 ZelXmlList<ApiPmNameExtendedId>& ids) {
  IXMLDOMNodeList items;
  if (!element.selectNodes(below(field, "/item"), items)) return false;
  for (const IXMLDOMNode& item : items) {
    ApiPmNameExtendedId id;
    if (!zelXmlGetNameExtendedId(item, id)) return false;
    ids.append(std::move(id));
  }
  return true;
}

bool zelXmlAddNameExtendedIdList(const IXMLDOMNode& element, std::string_view field,
                                 const ZelXmlList<ApiPmNameExtendedId>& ids, bool reuse) {
  return addItems(element, field, ids, reuse,
                  [](const IXMLDOMDocument&, const IXMLDOMNode& list, const ApiPmNameExtendedId& id) {
                    IXMLDOMNode item;
                    return zelXmlAddChild(list, "item", item) && zelXmlAddNameExtendedId(item, id);
                  });
}

bool zelXmlGetNestedRef(const IXMLDOMNode& element, std::string_view field, ApiPmId& id) {
  IXMLDOMNode node;
  std::string_view value;
  if (!zelXmlGetFirstChild(element, field, node) || !node.getAttribute("ExternalId", value)) return false;
  id = ApiPmId(value);
  return true;
}

bool zelXmlGetNestedRefList(const IXMLDOMNode& element, std::string_view field, ApiPmIdList& ids) {
  IXMLDOMNodeList nodes;
  if (!element.selectNodes(below(field, "/item/*"), nodes)) return false;
  for (const IXMLDOMNode& node : nodes) {
    std::string_view value;
    if (!node.getAttribute("ExternalId", value)) return false;
    ids.append(ApiPmId(value));
  }
  return true;
}

bool zelXmlGetFirstChild(const IXMLDOMNode& element, std::string_view field, IXMLDOMNode& node) {
  return zelXmlSelectChild(element, below(field, "/*"), node);
}

bool zelXmlAddNode(const IXMLDOMNode& element, std::string_view field, const IXMLDOMNode& node) {
  IXMLDOMNode added;
  return zelXmlAddChild(element, field, added) && added.appendChild(node);
}

bool zelXmlGetChildIds(const IXMLDOMNode& element, ApiPmIdList& ids) {
  return replaceIds(element, "children", ids);
}

bool zelXmlGetLabelIds(const IXMLDOMNode& element, ApiPmIdList& ids) {
  return replaceIds(element, "labels", ids);
}

bool zelXmlGetParentItemIds(const IXMLDOMNode& element, ApiPmIdList& ids) {
  return replaceIds(element, "parents", ids);
}

bool zelXmlFindListItem(const IXMLDOMNodeList& list, std::string_view text, IXMLDOMNode& item, long& index) {
  std::string buffer;
  long at = 0;
  for (const IXMLDOMNode& node : list) {
    if (node.textView(buffer) == text) {
      item = node;
      index = at;
      return true;
    }
    ++at;
  }
  return false;
}

namespace {

IXMLDOMElement nextNamed(const IXMLDOMElement& element, std::string_view name) {
  IXMLDOMElement next = element.nextElementSibling();
  while (next && next.nodeName() != name) next = next.nextElementSibling();
  return next;
}

}  // namespace

bool zelXmlFindItem(const IXMLDOMNode& element, std::string_view list, std::string_view text,
                    IXMLDOMNode& item, long& index) {
  IXMLDOMNode first;
  if (!zelXmlSelectChild(element, list, first)) return false;
  long before = 0;
  for (IXMLDOMElement field = first; field;) {
    if (field.findChild("item", text, item, index)) {
      index += before;
      return true;
    }
    const IXMLDOMElement next = nextNamed(field, list);
    if (next) {
      for (IXMLDOMElement each = field.firstElementChild(); each; each = each.nextElementSibling())
        before += each.nodeName() == "item" ? 1 : 0;
    }
    field = next;
  }
  return false;
}

bool zelXmlFindChildItem(const IXMLDOMNode& element, std::string_view id, IXMLDOMNode& item, long& index) {
  return zelXmlFindItem(element, "children", id, item, index);
}

bool zelXmlFindParentItem(const IXMLDOMNode& element, std::string_view id, IXMLDOMNode& item, long& index) {
  return zelXmlFindItem(element, "parents", id, item, index);
}

bool zelXmlFindItemAt(const IXMLDOMNode& element, std::string_view list, long index, IXMLDOMNode& item) {
  IXMLDOMNode first;
  if (!zelXmlSelectChild(element, list, first)) return false;
  const IXMLDOMElement field = first;
  if (!nextNamed(field, list)) return field.childAt("item", index, item);
  IXMLDOMNode found;
  zelXmlVisitItems(element, list, [&](const IXMLDOMElement& entry) {
    if (index-- > 0) return true;
    found = entry;
    return false;
  });
  if (found) item = found;
  return static_cast<bool>(found);
}

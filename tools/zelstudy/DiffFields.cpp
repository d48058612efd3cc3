#include "zelstudy/DiffFields.h"

#include <algorithm>
#include <unordered_map>

#include "document/ZelXmlFieldRows.h"
#include "rw/RWTextHash.h"

namespace zelstudy {

namespace {

using Elements = std::vector<DomView>;

Elements elementsOf(DomView element) {
  Elements children;
  for (DomView child = element.firstElementChild(); child; child = child.nextElementSibling())
    children.push_back(child);
  return children;
}

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

// What people write counts to the last blank; elsewhere white space alone is layout of the file.
std::string leafText(DomView leaf) {
  std::string text = leaf.text();
  if (!isBlank(text)) return text;
  const ZelFieldInfo* row = zelXmlFindFieldRow(leaf.nodeName());
  if (!row || row->unit != ZelFieldUnit::words) text.clear();
  return text;
}

// Text that stands beside elements; white space alone is none.
std::string ownText(DomView group) {
  std::string text, buffer;
  const auto add = [&](DomView node) {
    const std::string_view part = node.textView(buffer);
    if (!isBlank(part)) text += part;
  };
  const DomView first = group.firstChild();
  if (!first) add(group);
  for (DomView child = first; child; child = child.nextSibling())
    if (child.nodeType() == NODE_TEXT || child.nodeType() == NODE_CDATA_SECTION) add(child);
  return text;
}

bool isList(const Elements& elements) {
  return !elements.empty() && std::all_of(elements.begin(), elements.end(),
                                          [](DomView each) { return each.nodeName() == "item"; });
}

// An empty element tells a list only by its name.
bool isListName(std::string_view name) {
  const ZelFieldInfo* row = zelXmlFindFieldRow(name);
  return row && zelFieldIsList(row->type);
}

// The second field of one name is "name[2]".
std::string fieldName(std::string_view name, std::size_t ordinal) {
  return std::string(name) + (ordinal ? "[" + std::to_string(ordinal + 1) + "]" : "");
}

// The id of the one object within an item; empty for any other content.
std::string heldId(DomView item) {
  const DomView held = item.firstElementChild();
  std::string_view id;
  if (!held || held.nextElementSibling() || !held.getAttribute("ExternalId", id)) return {};
  return std::string(id);
}

class Comparison {
 public:
  std::vector<FieldChange> changes;

  void attributes(DomView before, DomView after, std::string_view except = {}) {
    const auto tell = [&](std::string_view name, Json was, Json is) {
      if (name == except || was == is) return;
      changes.push_back({path_ + "@" + std::string(name), std::move(was), std::move(is)});
    };
    const auto valueIn = [](DomView element, std::string_view name) {
      std::string_view value;
      return element.getAttribute(name, value) ? Json(value) : Json();
    };
    for (DomView each = before.firstAttribute(); each; each = each.nextSibling())
      tell(each.nodeName(), each.text(), valueIn(after, each.nodeName()));
    for (DomView each = after.firstAttribute(); each; each = each.nextSibling())
      if (valueIn(before, each.nodeName()).is_null()) tell(each.nodeName(), Json(), each.text());
  }

  void group(DomView before, DomView after) {
    add("#text", ownText(before), ownText(after));
    const Elements was = elementsOf(before), is = elementsOf(after);
    // How many of a name were met, and where those of the later version stand.
    struct Named {
      std::size_t met = 0;
      std::vector<std::size_t> later;
    };
    std::unordered_map<std::string_view, Named, RWTextHash> byName;
    for (std::size_t i = 0; i < is.size(); ++i) byName[is[i].nodeName()].later.push_back(i);
    for (const DomView each : was) {
      Named& named = byName[each.nodeName()];
      const std::size_t ordinal = named.met++;
      field(each, ordinal < named.later.size() ? is[named.later[ordinal]] : DomView(),
            fieldName(each.nodeName(), ordinal));
    }
    for (auto& [name, named] : byName) named.met = std::min(named.met, named.later.size());
    for (std::size_t i = 0; i < is.size(); ++i) {
      Named& named = byName[is[i].nodeName()];
      if (named.met < named.later.size() && named.later[named.met] == i)
        field({}, is[i], fieldName(is[i].nodeName(), named.met++));
    }
  }

 private:
  // The path to where the comparison is, which grows and shrinks with it: most fields do not differ, and
  // theirs is never copied.
  class Step {
   public:
    Step(std::string& path, std::string_view separator, std::string_view name)
        : path_(path), size_(path.size()) {
      if (!path.empty()) path += separator;
      path += name;
    }
    ~Step() { path_.resize(size_); }
    Step(const Step&) = delete;
    Step& operator=(const Step&) = delete;

   private:
    std::string& path_;
    std::size_t size_;
  };

  // Of the place itself, or of a field below it.
  void add(std::string_view name, Json before, Json after) {
    if (before == after) return;
    const Step step(path_, name.empty() ? "" : "/", name);
    changes.push_back({path_, std::move(before), std::move(after)});
  }

  void field(DomView before, DomView after, std::string_view name) {
    const Step step(path_, "/", name);
    if (!before || !after) {
      changes.push_back({path_, fieldJson(before), fieldJson(after)});
      return;
    }
    const Elements was = elementsOf(before), is = elementsOf(after);
    const auto isEmpty = [](DomView element, const Elements& children) {
      return children.empty() && isBlank(element.text());
    };
    const bool listed = isList(was), lists = isList(is);
    if ((listed || lists) && (listed || isEmpty(before, was)) && (lists || isEmpty(after, is))) {
      attributes(before, after);
      list(was, is);
    } else if (was.empty() != is.empty()) {
      add({}, fieldJson(before), fieldJson(after));
    } else if (was.empty()) {
      attributes(before, after);
      add({}, leafText(before), leafText(after));
    } else {
      attributes(before, after);
      group(before, after);
    }
  }

  void list(const Elements& was, const Elements& is) {
    if (objects(was, is)) return;
    Json before = Json::array(), after = Json::array();
    for (const DomView item : was) before.push_back(fieldJson(item));
    for (const DomView item : is) after.push_back(fieldJson(item));
    add({}, std::move(before), std::move(after));
  }

  // Items that hold one object each are held against each other by the ids of those.
  bool objects(const Elements& was, const Elements& is) {
    std::unordered_map<std::string, DomView, RWTextHash> later, earlier;
    const auto collect = [](const Elements& items, auto& byId, Json& ids) {
      for (const DomView item : items) {
        const std::string id = heldId(item);
        if (id.empty() || !byId.emplace(id, item).second) return false;
        ids.push_back(id);
      }
      return true;
    };
    Json before = Json::array(), after = Json::array();
    if (!collect(was, earlier, before) || !collect(is, later, after)) return false;
    add({}, before, after);
    for (const Json& id : before) {
      const auto found = later.find(id.get<std::string>());
      if (found == later.end()) continue;
      const DomView item = earlier[found->first];
      const Step step(path_, "", "[" + found->first + "]");
      attributes(item, found->second);
      group(item, found->second);
    }
    return true;
  }

  std::string path_;
};

}  // namespace

std::vector<FieldChange> compareFields(DomView before, DomView after) {
  Comparison comparison;
  comparison.attributes(before, after, "ExternalId");
  comparison.group(before, after);
  return std::move(comparison.changes);
}

Json fieldJson(DomView field) {
  if (!field) return {};
  const Elements children = elementsOf(field);
  const DomView attribute = field.firstAttribute();
  if (children.empty() && !attribute) {
    std::string text = leafText(field);
    return text.empty() && isListName(field.nodeName()) ? Json::array() : Json(std::move(text));
  }
  // Its entries one behind the other: the keys are known to differ, and an access by key would look at all.
  Json::object_t value;
  for (DomView each = attribute; each; each = each.nextSibling())
    value.emplace_back("@" + std::string(each.nodeName()), each.text());
  if (std::string text = children.empty() ? leafText(field) : ownText(field); !text.empty())
    value.emplace_back("#text", std::move(text));
  if (value.empty() && isList(children)) {
    Json list = Json::array();
    for (const DomView item : children) list.push_back(fieldJson(item));
    return list;
  }
  std::unordered_map<std::string_view, std::size_t, RWTextHash> met;
  for (const DomView child : children)
    value.emplace_back(fieldName(child.nodeName(), met[child.nodeName()]++), fieldJson(child));
  return Json(std::move(value));
}

std::string contentKey(DomView element) {
  return std::string(element.nodeName()) + nlohmann::json(fieldJson(element)).dump();
}

IXMLDOMElement childOf(const IXMLDOMElement& element, std::string_view name) {
  IXMLDOMElement child = element.firstElementChild();
  while (child && child.nodeName() != name) child = child.nextElementSibling();
  return child;
}

}  // namespace zelstudy

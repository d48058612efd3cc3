#include "zelstudy/DiffFields.h"

#include <algorithm>
#include <unordered_map>

#include "dom/IXMLDOMNodeList.h"

namespace zelstudy {

namespace {

using Elements = std::vector<IXMLDOMElement>;

Elements elementsOf(const IXMLDOMElement& element) {
  Elements children;
  for (IXMLDOMElement child = element.firstElementChild(); child; child = child.nextElementSibling())
    children.push_back(child);
  return children;
}

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == std::string_view::npos; }

// What people write counts to the last blank; elsewhere white space alone is layout of the file.
std::string leafText(const IXMLDOMElement& leaf) {
  std::string text = leaf.text();
  const std::string_view name = leaf.nodeName();
  if (name != "name" && name != "comment" && name != "caption" && isBlank(text)) text.clear();
  return text;
}

// Text that stands beside elements; white space alone is none.
std::string ownText(const IXMLDOMElement& group) {
  std::string text;
  for (const IXMLDOMNode& child : group.childNodes()) {
    if (child.nodeType() != NODE_TEXT && child.nodeType() != NODE_CDATA_SECTION) continue;
    const std::string part = child.text();
    if (!isBlank(part)) text += part;
  }
  return text;
}

bool isList(const Elements& elements) {
  return !elements.empty() && std::all_of(elements.begin(), elements.end(), [](const IXMLDOMElement& each) {
    return each.nodeName() == "item";
  });
}

// An empty element tells a list only by its name.
bool isListName(std::string_view name) {
  return name == "children" || name == "parents" || name == "labels" || name == "info";
}

// The second field of one name is "name[2]".
std::string fieldName(std::string_view name, std::size_t ordinal) {
  return std::string(name) + (ordinal ? "[" + std::to_string(ordinal + 1) + "]" : "");
}

// The id of the one object within an item; empty for any other content.
std::string heldId(const IXMLDOMElement& item) {
  const IXMLDOMElement held = item.firstElementChild();
  std::string_view id;
  if (!held || held.nextElementSibling() || !held.getAttribute("ExternalId", id)) return {};
  return std::string(id);
}

class Comparison {
 public:
  std::vector<FieldChange> changes;

  void attributes(const IXMLDOMElement& before, const IXMLDOMElement& after, const std::string& path,
                  std::string_view except = {}) {
    const auto tell = [&](const IXMLDOMNode& attribute, Json was, Json is) {
      if (attribute.nodeName() == except || was == is) return;
      changes.push_back({path + "@" + std::string(attribute.nodeName()), std::move(was), std::move(is)});
    };
    const auto valueIn = [](const IXMLDOMElement& element, std::string_view name) {
      std::string_view value;
      return element.getAttribute(name, value) ? Json(value) : Json();
    };
    for (const IXMLDOMNode& each : before.attributes())
      tell(each, each.nodeValue(), valueIn(after, each.nodeName()));
    for (const IXMLDOMNode& each : after.attributes())
      if (valueIn(before, each.nodeName()).is_null()) tell(each, Json(), each.nodeValue());
  }

  void group(const IXMLDOMElement& before, const IXMLDOMElement& after, const std::string& path) {
    const std::string prefix = path.empty() ? path : path + "/";
    add(prefix + "#text", ownText(before), ownText(after));
    const Elements was = elementsOf(before), is = elementsOf(after);
    // How many of a name were met, and where those of the later version stand.
    struct Named {
      std::size_t met = 0;
      std::vector<std::size_t> later;
    };
    std::unordered_map<std::string_view, Named> byName;
    for (std::size_t i = 0; i < is.size(); ++i) byName[is[i].nodeName()].later.push_back(i);
    const auto pathOf = [&](std::string_view name, std::size_t ordinal) {
      return prefix + fieldName(name, ordinal);
    };
    for (const IXMLDOMElement& each : was) {
      Named& named = byName[each.nodeName()];
      const std::size_t ordinal = named.met++;
      field(each, ordinal < named.later.size() ? is[named.later[ordinal]] : IXMLDOMElement(),
            pathOf(each.nodeName(), ordinal));
    }
    for (auto& [name, named] : byName) named.met = std::min(named.met, named.later.size());
    for (std::size_t i = 0; i < is.size(); ++i) {
      Named& named = byName[is[i].nodeName()];
      if (named.met < named.later.size() && named.later[named.met] == i)
        field({}, is[i], pathOf(is[i].nodeName(), named.met++));
    }
  }

 private:
  void add(std::string path, Json before, Json after) {
    if (before != after) changes.push_back({std::move(path), std::move(before), std::move(after)});
  }

  void field(const IXMLDOMElement& before, const IXMLDOMElement& after, const std::string& path) {
    if (!before || !after) {
      changes.push_back({path, fieldJson(before), fieldJson(after)});
      return;
    }
    const Elements was = elementsOf(before), is = elementsOf(after);
    const auto isEmpty = [](const IXMLDOMElement& element, const Elements& children) {
      return children.empty() && isBlank(element.text());
    };
    const bool listed = isList(was), lists = isList(is);
    if ((listed || lists) && (listed || isEmpty(before, was)) && (lists || isEmpty(after, is))) {
      attributes(before, after, path);
      list(was, is, path);
    } else if (was.empty() != is.empty()) {
      add(path, fieldJson(before), fieldJson(after));
    } else if (was.empty()) {
      attributes(before, after, path);
      add(path, leafText(before), leafText(after));
    } else {
      attributes(before, after, path);
      group(before, after, path);
    }
  }

  void list(const Elements& was, const Elements& is, const std::string& path) {
    if (objects(was, is, path)) return;
    Json before = Json::array(), after = Json::array();
    for (const IXMLDOMElement& item : was) before.push_back(fieldJson(item));
    for (const IXMLDOMElement& item : is) after.push_back(fieldJson(item));
    add(path, std::move(before), std::move(after));
  }

  // Items that hold one object each are held against each other by the ids of those.
  bool objects(const Elements& was, const Elements& is, const std::string& path) {
    std::unordered_map<std::string, IXMLDOMElement> later, earlier;
    const auto collect = [](const Elements& items, auto& byId, Json& ids) {
      for (const IXMLDOMElement& item : items) {
        const std::string id = heldId(item);
        if (id.empty() || !byId.emplace(id, item).second) return false;
        ids.push_back(id);
      }
      return true;
    };
    Json before = Json::array(), after = Json::array();
    if (!collect(was, earlier, before) || !collect(is, later, after)) return false;
    add(path, before, after);
    for (const Json& id : before) {
      const auto found = later.find(id.get<std::string>());
      if (found == later.end()) continue;
      const IXMLDOMElement& item = earlier[found->first];
      attributes(item, found->second, path + "[" + found->first + "]");
      group(item, found->second, path + "[" + found->first + "]");
    }
    return true;
  }
};

}  // namespace

std::vector<FieldChange> compareFields(const IXMLDOMElement& before, const IXMLDOMElement& after) {
  Comparison comparison;
  comparison.attributes(before, after, {}, "ExternalId");
  comparison.group(before, after, {});
  return std::move(comparison.changes);
}

Json fieldJson(const IXMLDOMElement& field) {
  if (!field) return {};
  const Elements children = elementsOf(field);
  const IXMLDOMNodeList attributes = field.attributes();
  if (children.empty() && attributes.length() == 0) {
    std::string text = leafText(field);
    return text.empty() && isListName(field.nodeName()) ? Json::array() : Json(std::move(text));
  }
  Json value = Json::object();
  for (const IXMLDOMNode& each : attributes) value["@" + std::string(each.nodeName())] = each.nodeValue();
  if (const std::string text = children.empty() ? leafText(field) : ownText(field); !text.empty())
    value["#text"] = text;
  if (value.empty() && isList(children)) {
    value = Json::array();
    for (const IXMLDOMElement& item : children) value.push_back(fieldJson(item));
    return value;
  }
  std::unordered_map<std::string_view, std::size_t> met;
  for (const IXMLDOMElement& child : children)
    value[fieldName(child.nodeName(), met[child.nodeName()]++)] = fieldJson(child);
  return value;
}

std::string contentKey(const IXMLDOMElement& element) {
  return std::string(element.nodeName()) + nlohmann::json(fieldJson(element)).dump();
}

IXMLDOMElement childOf(const IXMLDOMElement& element, std::string_view name) {
  IXMLDOMElement child = element.firstElementChild();
  while (child && child.nodeName() != name) child = child.nextElementSibling();
  return child;
}

}  // namespace zelstudy

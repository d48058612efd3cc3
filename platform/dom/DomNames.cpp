#include "DomNames.h"

#include <deque>
#include <string>
#include <unordered_map>
#include <vector>

namespace dom {

namespace {

struct Table {
  std::deque<std::string> store;
  std::vector<std::string_view> texts;
  std::unordered_map<std::string_view, NameId> ids;

  Table() {
    for (const char* name : {"", "#text", "#cdata-section", "#comment", "#document", "xml"}) add(name);
  }
  NameId add(std::string_view name) {
    const std::string_view kept = store.emplace_back(name);
    const auto id = static_cast<NameId>(texts.size());
    texts.push_back(kept);
    ids.emplace(kept, id);
    return id;
  }
};

// Never destroyed: handles in static variables may ask for names up to the end of the process.
Table& table() {
  static Table* const instance = new Table;
  return *instance;
}

}  // namespace

NameId internName(std::string_view name) {
  Table& names = table();
  const auto known = names.ids.find(name);
  return known != names.ids.end() ? known->second : names.add(name);
}

NameId findName(std::string_view name) noexcept {
  const Table& names = table();
  const auto known = names.ids.find(name);
  return known != names.ids.end() ? known->second : anyName;
}

std::string_view nameOf(NameId id) noexcept { return table().texts[id]; }

}  // namespace dom

#include "DomNames.h"

#include <deque>
#include <string>
#include <vector>

#include "rw/RWFlatTable.h"
#include "rw/RWTextHash.h"

namespace dom {

namespace {

struct Table {
  std::deque<std::string> store;
  std::vector<std::string_view> texts;
  RWFlatTable<NameId> ids;  // each one more than it is, since 0 is no value of the table

  Table() {
    for (const char* name : {"", "#text", "#cdata-section", "#comment", "#document", "xml"}) add(name);
  }
  NameId find(std::string_view name) const {
    const auto* slot = ids.find(RWTextHash{}(name), [&](NameId id) { return texts[id - 1] == name; });
    return slot != nullptr ? slot->value - 1 : anyName;
  }
  NameId add(std::string_view name) {
    const std::string_view kept = store.emplace_back(name);
    const auto id = static_cast<NameId>(texts.size());
    texts.push_back(kept);
    ids.add(RWTextHash{}(name), id + 1);
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
  const NameId known = names.find(name);
  return known != anyName ? known : names.add(name);
}

NameId findName(std::string_view name) noexcept { return table().find(name); }

std::string_view nameOf(NameId id) noexcept { return table().texts[id]; }

}  // namespace dom

#include "api/ApiPmClassTypes.h"

#include <algorithm>
#include <deque>
#include <unordered_map>

#include "classes/ClassTable.h"
#include "rw/RWTextHash.h"

namespace {

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
bool isDigit(char c) { return c >= '0' && c <= '9'; }

// Whether one name is the other but for one slip of a letter, or for the case.
bool isSlip(std::string_view a, std::string_view b) {
  if (std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return lower(x) == lower(y); }))
    return true;
  while (!a.empty() && !b.empty() && a.front() == b.front()) {
    a.remove_prefix(1);
    b.remove_prefix(1);
  }
  while (!a.empty() && !b.empty() && a.back() == b.back()) {
    a.remove_suffix(1);
    b.remove_suffix(1);
  }
  if (std::any_of(a.begin(), a.end(), isDigit) || std::any_of(b.begin(), b.end(), isDigit)) return false;
  const bool swapped = a.size() == 2 && b.size() == 2 && a[0] == b[1] && a[1] == b[0];
  return (a.size() <= 1 && b.size() <= 1) || swapped;
}

}  // namespace

struct ApiPmClassTypeDataMgr::Table {
  struct Row {
    ApiPmClassType type;
    const Row* base;
  };
  // Rows never move, so the keys may point into them.
  std::deque<Row> rows;
  std::unordered_map<std::string_view, const Row*, RWTextHash> byName;
  std::unordered_map<int, const Row*> byTypeId;
  int nextTypeId = classes::firstHostTypeId;

  const Row* find(std::string_view name) const {
    const auto found = byName.find(name);
    return found == byName.end() ? nullptr : found->second;
  }
  const Row* find(int typeId) const {
    const auto found = byTypeId.find(typeId);
    return found == byTypeId.end() ? nullptr : found->second;
  }
  bool add(ApiPmClassType type) {
    const Row* base = type.base.empty() ? nullptr : find(type.base);
    if (type.name.empty() || find(type.name) || find(type.typeId) || (!base && !type.base.empty()))
      return false;
    if (type.typeId == 0) {
      while (find(nextTypeId)) ++nextTypeId;
      type.typeId = nextTypeId;
    }
    const Row& row = rows.emplace_back(Row{std::move(type), base});
    byName.emplace(row.type.name, &row);
    byTypeId.emplace(row.type.typeId, &row);
    return true;
  }
  static bool isDerived(const Row* row, std::string_view base) {
    for (; row; row = row->base) {
      if (row->type.name == base) return true;
    }
    return false;
  }
};

ApiPmClassTypeDataMgr::ApiPmClassTypeDataMgr() : table_(new Table) {
  for (const classes::Row& row : classes::table) table_->add({row.name, row.base, row.family, row.typeId});
}

ApiPmClassTypeDataMgr& ApiPmClassTypeDataMgr::the() {
  static auto& manager = *new ApiPmClassTypeDataMgr;
  return manager;
}

bool ApiPmClassTypeDataMgr::getFamilyFromClassName(std::string_view className, std::string& family) const {
  for (const Table::Row* row = table_->find(className); row; row = row->base) {
    if (row->type.family.empty()) continue;
    family = row->type.family;
    return true;
  }
  return false;
}

bool ApiPmClassTypeDataMgr::addClass(const ApiPmClassType& type) { return table_->add(type); }

const ApiPmClassType* ApiPmClassTypeDataMgr::find(std::string_view className) const {
  const Table::Row* row = table_->find(className);
  return row ? &row->type : nullptr;
}

const ApiPmClassType* ApiPmClassTypeDataMgr::findMisspelt(std::string_view className) const {
  for (const Table::Row& row : table_->rows) {
    const std::string_view name = row.type.name;
    if (name.size() + 1 < className.size() || className.size() + 1 < name.size()) continue;
    if (name != className && isSlip(name, className)) return &row.type;
  }
  return nullptr;
}

ApiVorToolsClassTypesWrapper& ApiVorToolsClassTypesWrapper::the() {
  static ApiVorToolsClassTypesWrapper wrapper;
  return wrapper;
}

bool ApiVorToolsClassTypesWrapper::ClassNameToClassTypeId(std::string_view className, int& typeId) const {
  const ApiPmClassType* type = ApiPmClassTypeDataMgr::the().find(className);
  if (type) typeId = type->typeId;
  return type != nullptr;
}

bool ApiVorToolsClassTypesWrapper::IsDerivedFromClass(int typeId, std::string_view base) const {
  const auto& table = *ApiPmClassTypeDataMgr::the().table_;
  return table.isDerived(table.find(typeId), base);
}

bool ApiVorToolsClassTypesWrapper::IsDerivedFromClass(std::string_view className,
                                                      std::string_view base) const {
  const auto& table = *ApiPmClassTypeDataMgr::the().table_;
  return table.isDerived(table.find(className), base);
}

bool ApiVorToolsClassTypesWrapper::IsDerivedFromClass(int typeId, int baseTypeId) const {
  const auto& table = *ApiPmClassTypeDataMgr::the().table_;
  const auto* base = table.find(baseTypeId);
  return base && table.isDerived(table.find(typeId), base->type.name);
}

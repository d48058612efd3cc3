#include "api/ApiPmClassTypes.h"

#include <deque>
#include <unordered_map>

#include "classes/ClassTable.h"

struct ApiPmClassTypeDataMgr::Table {
  struct Row {
    ApiPmClassType type;
    const Row* base;
  };
  // Rows never move, so the keys may point into them.
  std::deque<Row> rows;
  std::unordered_map<std::string_view, const Row*> byName;
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

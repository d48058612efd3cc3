#include "node/ZelXmlNodeKinds.h"

#include <algorithm>
#include <utility>

#include "api/ApiPmClassTypes.h"
#include "node/ZelXmlNode.h"
#include "node/ZelXmlNodeFactory.h"

RTObjVectorFactory<ZelXmlNode>& ZelXmlNodeFactory::the() {
  static auto& factory = *new RTObjVectorFactory<ZelXmlNode>(100);
  return factory;
}

namespace {

using Kinds = std::vector<const ZelXmlNodeKind*>;

struct Table {
  Kinds all;
  Kinds byType;  // null where a number has no row
  std::vector<std::pair<std::string_view, Kinds>> byFamily;
  Kinds ofNoFamily;

  Kinds& ofFamily(std::string_view family) {
    for (auto& [name, kinds] : byFamily)
      if (name == family) return kinds;
    return ofNoFamily;
  }
};

Table& table() {
  static auto& table = *new Table;
  return table;
}

}  // namespace

void ZelXmlNodeKinds::fill(std::initializer_list<Rows> rooms) {
  auto& [all, byType, byFamily, ofNoFamily] = table();
  for (const Rows rows : rooms)
    for (const ZelXmlNodeKind& kind : rows) all.push_back(&kind);
  std::stable_sort(all.begin(), all.end(), [](auto* one, auto* other) { return one->order < other->order; });
  for (const ZelXmlNodeKind* kind : all) {
    const auto type = static_cast<std::size_t>(kind->type);
    if (type >= byType.size()) byType.resize(type + 1);
    byType[type] = kind;
    if (kind->order == 0) continue;
    if (!kind->has(ZelXmlNodeKind::ofDocumentsOnly))
      ZelXmlNodeFactory::the().addAllocator(kind->type, kind->allocator);
    if (!kind->family.empty() && &table().ofFamily(kind->family) == &ofNoFamily)
      byFamily.emplace_back(kind->family, Kinds());
    Kinds& kinds = table().ofFamily(kind->family);
    kinds.insert(std::upper_bound(kinds.begin(), kinds.end(), kind,
                                  [](auto* one, auto* other) { return one->shape < other->shape; }),
                 kind);
  }
}

const std::vector<const ZelXmlNodeKind*>& ZelXmlNodeKinds::all() { return table().all; }

const ZelXmlNodeKind& ZelXmlNodeKinds::of(ZelNodeType type) {
  static constexpr ZelXmlNodeKind none{static_cast<ZelNodeType>(-1), {}, 0};
  const Kinds& kinds = table().byType;
  const auto number = static_cast<std::size_t>(type);
  return number < kinds.size() && kinds[number] ? *kinds[number] : none;
}

const std::vector<const ZelXmlNodeKind*>& ZelXmlNodeKinds::ofFamily(std::string_view family) {
  return table().ofFamily(family);
}

bool zelXmlClassNameFromType(const ZelXmlCreationRecord& record, RWClassicWString& className) {
  className = record.className.empty() ? ZelXmlNodeKinds::of(record.type).className : record.className;
  return !className.empty();
}

bool zelXmlFamilyFromType(const ZelXmlCreationRecord& record, RWClassicWString& family) {
  const ZelXmlNodeKind& kind = ZelXmlNodeKinds::of(record.type);
  if (kind.className.empty())
    return ApiPmClassTypeDataMgr::the().getFamilyFromClassName(record.className, family);
  family = kind.family;
  return true;
}

bool zelXmlIsMainFamily(std::string_view family) {
  return family == "Product" || family == "Resource" || family == "Study" || family == "PLCProgram";
}

#include "document/ZelXmlFieldRows.h"

#include <unordered_map>

#include "document/ZelXmlPlcFieldRows.h"
#include "rw/RWTextHash.h"

std::span<const ZelFieldGroup> zelXmlFieldGroups() {
  static const ZelFieldGroup groups[] = {
      {"object", zelFieldRows<ZelObjectFields>()},
      {"PLC data", zelFieldRows<ZelPlcDataFields>()},
      {"instance", zelFieldRows<ZelInstanceFields>()},
      {"resource", zelFieldRows<ZelResourceFields>()},
      {"compound", zelFieldRows<ZelCompoundFields>()},
      {"label", zelFieldRows<ZelLabelFields>()},
      {"prototype", zelFieldRows<ZelPrototypeFields>()},
      {"layout", zelFieldRows<ZelLayoutFields>()},
      {"study", zelFieldRows<ZelStudyFields>()},
      {"process", zelFieldRows<ZelProcessFields>()},
      {"operation", zelFieldRows<ZelOperationFields>()},
      {"flow", zelFieldRows<ZelFlowFields>()},
      {"material flow", zelFieldRows<ZelMaterialFlowFields>()},
      {"PLC data of a resource", zelFieldRows<ZelPlcResourceFields>()},
  };
  return groups;
}

const ZelFieldInfo* zelXmlFindFieldRow(std::string_view name) {
  static const auto byName = [] {
    std::unordered_map<std::string_view, const ZelFieldInfo*, RWTextHash> map;
    for (const ZelFieldGroup& group : zelXmlFieldGroups())
      for (const ZelFieldInfo& row : group.rows)
        if (row.place == ZelFieldPlace::element) map.emplace(row.name, &row);
    return map;
  }();
  const auto found = byName.find(name);
  return found == byName.end() ? nullptr : found->second;
}

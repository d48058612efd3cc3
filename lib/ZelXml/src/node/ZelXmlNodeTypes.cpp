#include "api/ApiPmClassTypes.h"
#include "node/ZelXmlNode.h"

// Class names and family values of new elements by node type.

namespace {

struct NewElementType {
  ZelNodeType type;
  const char* className;
  const char* family;
};

constexpr NewElementType newElementTypes[] = {
    {ZEL_PART_INSTANCE, "PmPartInstance", "Product"},
    {ZEL_RESOURCE_INSTANCE, "PmToolInstance", "Resource"},
    {ZEL_LIGHT_SENSOR_INSTANCE, "PmToolInstance", "Resource"},
    {ZEL_PROPERTY_SENSOR_INSTANCE, "PmToolInstance", "Resource"},
    {ZEL_COMPOUND_PART, "PmCompoundPart", "Product"},
    {ZEL_COMPOUND_RESOURCE, "PmCompoundResource", "Resource"},
    {ZEL_LABEL, "Label", "Label"},
    {ZEL_PROCESS_ASSEMBLY, "PmDvProcessAssembly", "Product"},
    {ZEL_PLC_PROGRAM, "PLCProgram", "PLCProgram"},
    {ZEL_DEVICE_GROUP, "DeviceGroup", "Resource"},
    {ZEL_MATERIAL_FLOW, "PmMaterialFlow", "PmMaterialFlow"},
    {ZEL_EQUIPMENT_INSTANCE, "PmEquipmentInstance", "Resource"},
    {ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE, "PmEquipmentPrototypeOccurrence", "Resource"},
};

const NewElementType* find(ZelNodeType type) {
  for (const NewElementType& known : newElementTypes) {
    if (known.type == type) return &known;
  }
  return nullptr;
}

}  // namespace

bool zelXmlClassNameFromType(const ZelXmlCreationRecord& record, RWClassicWString& className) {
  const NewElementType* known = find(record.type);
  if (record.className.empty() && !known) return false;
  className = record.className.empty() ? known->className : record.className;
  return true;
}

bool zelXmlFamilyFromType(const ZelXmlCreationRecord& record, RWClassicWString& family) {
  if (const NewElementType* known = find(record.type)) {
    family = known->family;
    return true;
  }
  return ApiPmClassTypeDataMgr::the().getFamilyFromClassName(record.className, family);
}

bool zelXmlIsMainFamily(std::string_view family) {
  return family == "Product" || family == "Resource" || family == "Study" || family == "PLCProgram";
}

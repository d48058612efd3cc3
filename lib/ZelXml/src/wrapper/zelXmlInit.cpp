#include "wrapper/zelXmlInit.h"

#include "api/ApiErrStream.h"
#include "equipment/ZelXmlEquipmentInstance.h"
#include "equipment/ZelXmlEquipmentPrototype.h"
#include "equipment/ZelXmlEquipmentPrototypeOccurrence.h"
#include "node/ZelXmlCompoundPart.h"
#include "node/ZelXmlCompoundResource.h"
#include "node/ZelXmlLabel.h"
#include "node/ZelXmlNodeFactory.h"
#include "node/ZelXmlPartInstance.h"
#include "node/ZelXmlPlaceholder.h"
#include "node/ZelXmlProcessAssembly.h"
#include "node/ZelXmlStudy.h"
#include "operation/ZelXmlOperation.h"
#include "plc/ZelXmlDeviceGroup.h"
#include "plc/ZelXmlPlcK9Program.h"
#include "prototype/ZelXmlPrototypeAssignment.h"
#include "prototype/ZelXmlPrototypeNode.h"
#include "resource/ZelXmlResourceInstance.h"
#include "variant/ZelXmlVariantFilter.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelWrapperFactory.h"

RTObjVectorFactory<ZelWrapper>& ZelWrapperFactory::the() {
  static auto& factory = *new RTObjVectorFactory<ZelWrapper>;
  return factory;
}

namespace {

template <class Node>
void add(ZelNodeType type) {
  ZelXmlNodeFactory::the().addAllocator(type, RTObjAllocator<ZelXmlNode, Node>());
}

bool isDue = true;

}  // namespace

void zelXmlInit() {
  if (!isDue) return;
  add<ZelXmlStudy>(ZEL_STUDY);
  add<ZelXmlPartInstance>(ZEL_PART_INSTANCE);
  add<ZelXmlResourceInstance>(ZEL_RESOURCE_INSTANCE);
  add<ZelXmlLightSensorInstance>(ZEL_LIGHT_SENSOR_INSTANCE);
  add<ZelXmlPropertySensorInstance>(ZEL_PROPERTY_SENSOR_INSTANCE);
  add<ZelXmlCompoundPart>(ZEL_COMPOUND_PART);
  add<ZelXmlCompoundResource>(ZEL_COMPOUND_RESOURCE);
  add<ZelXmlPartPlaceholder>(ZEL_PART_PLACEHOLDER);
  add<ZelXmlResourcePlaceholder>(ZEL_RESOURCE_PLACEHOLDER);
  add<ZelXmlProcessAssembly>(ZEL_PROCESS_ASSEMBLY);
  add<ZelXmlPartPrototype>(ZEL_PART_PROTOTYPE);
  add<ZelXmlPartPrototypeAssignment>(ZEL_PART_PROTOTYPE_ASSIGNMENT);
  add<ZelXmlResourcePrototype>(ZEL_RESOURCE_PROTOTYPE);
  add<ZelXmlLightSensorPrototype>(ZEL_LIGHT_SENSOR_PROTOTYPE);
  add<ZelXmlPropertySensorPrototype>(ZEL_PROPERTY_SENSOR_PROTOTYPE);
  add<ZelXmlResourcePrototypeAssignment>(ZEL_RESOURCE_PROTOTYPE_ASSIGNMENT);
  add<ZelXmlEquipmentPrototype>(ZEL_EQUIPMENT_PROTOTYPE);
  add<ZelXmlEquipmentPrototypeOccurrence>(ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE);
  add<ZelXmlEquipmentPrototypeAssignment>(ZEL_EQUIPMENT_PROTOTYPE_ASSIGNMENT);
  add<ZelXmlLabel>(ZEL_LABEL);
  add<ZelXmlOperation>(ZEL_OPERATION);
  add<ZelXmlFlow>(ZEL_FLOW);
  add<ZelXmlPlcK9Program>(ZEL_PLC_PROGRAM);
  add<ZelXmlDeviceGroup>(ZEL_DEVICE_GROUP);
  add<ZelXmlEquipmentInstance>(ZEL_EQUIPMENT_INSTANCE);
  add<ZelXmlMaterialFlow>(ZEL_MATERIAL_FLOW);
  add<ZelXmlVariantFilter>(ZEL_VARIANT_FILTER);
  add<ZelXmlVariantSet>(ZEL_VARIANT_SET);
  apiErr.addErrDefinition("ZELXML_SHARED_NODE_ADDITIONAL_PARENT_IGNORED", 3, "");
  ZelWrapperFactory::the().addAllocator(0, RTObjAllocator<ZelWrapper, ZelXmlWrapper>());
  isDue = false;
}

#include "prototype/ZelXmlPrototypeKinds.h"

#include "prototype/ZelXmlPrototypeAssignment.h"
#include "prototype/ZelXmlPrototypeNode.h"

namespace {

using Kind = ZelXmlNodeKind;
using Import = Kind::Import;
using Shape = ZelXmlShape;

constexpr Kind kinds[] = {
    {ZEL_PART_PROTOTYPE, "part prototype", 11, "PartPrototype", "", Shape::any, "", Kind::besideTree,
     Import::prototype, &zelXmlAllocator<ZelXmlPartPrototype>, ZEL_PART_INSTANCE},
    {ZEL_PART_PROTOTYPE_ASSIGNMENT, "part prototype assignment", 12, "PartPrototypeUsage", "", Shape::any, "",
     Kind::besideTree, Import::nothing, &zelXmlAllocator<ZelXmlPartPrototypeAssignment>},
    {ZEL_RESOURCE_PROTOTYPE, "resource prototype", 13, "ToolPrototype", "", Shape::any, "", Kind::besideTree,
     Import::prototype, &zelXmlAllocator<ZelXmlResourcePrototype>, ZEL_RESOURCE_INSTANCE},
    {ZEL_LIGHT_SENSOR_PROTOTYPE, "light sensor prototype", 14, "ToolPrototype", "", Shape::classBelow,
     "LightSensor", Kind::besideTree, Import::prototype, &zelXmlAllocator<ZelXmlLightSensorPrototype>,
     ZEL_LIGHT_SENSOR_INSTANCE},
    {ZEL_PROPERTY_SENSOR_PROTOTYPE, "property sensor prototype", 15, "ToolPrototype", "", Shape::classBelow,
     "PropertySensor", Kind::besideTree | Kind::plcData, Import::prototype,
     &zelXmlAllocator<ZelXmlPropertySensorPrototype>, ZEL_PROPERTY_SENSOR_INSTANCE},
    {ZEL_RESOURCE_PROTOTYPE_ASSIGNMENT, "resource prototype assignment", 16, "ToolPrototypeUsage", "",
     Shape::any, "", Kind::besideTree, Import::nothing, &zelXmlAllocator<ZelXmlResourcePrototypeAssignment>},
    {ZEL_EQUIPMENT_PROTOTYPE_ASSIGNMENT, "equipment prototype assignment", 19, "ToolPrototypeUsage", "",
     Shape::usesEquipment, "", Kind::plain, Import::nothing,
     &zelXmlAllocator<ZelXmlEquipmentPrototypeAssignment>},
};

}  // namespace

ZelXmlNodeKinds::Rows zelXmlPrototypeKinds() { return kinds; }

#include "equipment/ZelXmlEquipmentKinds.h"

#include "equipment/ZelXmlEquipmentInstance.h"
#include "equipment/ZelXmlEquipmentPrototype.h"
#include "equipment/ZelXmlEquipmentPrototypeOccurrence.h"

namespace {

using Kind = ZelXmlNodeKind;
using Import = Kind::Import;
using Shape = ZelXmlShape;

constexpr Kind kinds[] = {
    {ZEL_EQUIPMENT_PROTOTYPE, "equipment prototype", 17, "EquipmentPrototype", "", Shape::any, "",
     Kind::collection | Kind::entersChildren | Kind::besideTree, Import::prototype,
     &zelXmlAllocator<ZelXmlEquipmentPrototype>, ZEL_EQUIPMENT_INSTANCE},
    {ZEL_EQUIPMENT_PROTOTYPE_OCCURRENCE, "equipment prototype occurrence", 18, "Resource",
     "PmEquipmentPrototypeOccurrence", Shape::occurrence, "", Kind::besideTree, Import::instance,
     &zelXmlAllocator<ZelXmlEquipmentPrototypeOccurrence>},
    {ZEL_EQUIPMENT_INSTANCE, "equipment instance", 25, "Resource", "PmEquipmentInstance",
     Shape::namedWithChildren, "", Kind::collection | Kind::entersChildren | Kind::plcData, Import::instance,
     &zelXmlAllocator<ZelXmlEquipmentInstance>},
};

}  // namespace

ZelXmlNodeKinds::Rows zelXmlEquipmentKinds() { return kinds; }

#include "operation/ZelXmlOperationKinds.h"

#include "operation/ZelXmlOperation.h"

namespace {

using Kind = ZelXmlNodeKind;
using Import = Kind::Import;
using Shape = ZelXmlShape;

constexpr Kind kinds[] = {
    {ZEL_OPERATION, "operation", 21, "Operation", "", Shape::any, "", Kind::besideTree | Kind::plcData,
     Import::nothing, &zelXmlAllocator<ZelXmlOperation>},
    {ZEL_FLOW, "flow", 22, "PmFlow", "", Shape::any, "", Kind::besideTree | Kind::plcData, Import::nothing,
     &zelXmlAllocator<ZelXmlFlow>},
    {ZEL_MATERIAL_FLOW, "material flow", 26, "PmMaterialFlow", "PmMaterialFlow", Shape::any, "",
     Kind::plcData, Import::nothing, &zelXmlAllocator<ZelXmlMaterialFlow>},
};

}  // namespace

ZelXmlNodeKinds::Rows zelXmlOperationKinds() { return kinds; }

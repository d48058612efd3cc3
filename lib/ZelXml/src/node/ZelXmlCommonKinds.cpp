#include "node/ZelXmlCommonKinds.h"

#include "node/ZelXmlCompoundPart.h"
#include "node/ZelXmlCompoundResource.h"
#include "node/ZelXmlGenericVorCollection.h"
#include "node/ZelXmlLabel.h"
#include "node/ZelXmlPartInstance.h"
#include "node/ZelXmlPlaceholder.h"
#include "node/ZelXmlProcessAssembly.h"
#include "node/ZelXmlStudy.h"

namespace {

using Kind = ZelXmlNodeKind;
using Import = Kind::Import;
using Shape = ZelXmlShape;

constexpr Kind kinds[] = {
    {ZEL_STUDY, "study", 1, "Study", "", Shape::any, "", Kind::collection, Import::nothing,
     &zelXmlAllocator<ZelXmlStudy>},
    {ZEL_PART_INSTANCE, "part instance", 2, "Product", "PmPartInstance", Shape::any, "", Kind::plain,
     Import::instance, &zelXmlAllocator<ZelXmlPartInstance>},
    {ZEL_COMPOUND_PART, "compound part", 6, "Product", "PmCompoundPart", Shape::withChildren, "",
     Kind::collection | Kind::entersChildren, Import::compound, &zelXmlAllocator<ZelXmlCompoundPart>},
    {ZEL_COMPOUND_RESOURCE, "compound resource", 7, "Resource", "PmCompoundResource", Shape::withChildren, "",
     Kind::collection | Kind::entersChildren, Import::compound, &zelXmlAllocator<ZelXmlCompoundResource>},
    {ZEL_PART_PLACEHOLDER, "part placeholder", 8, "Product", "", Shape::withThreeDRep, "", Kind::plain,
     Import::nothing, &zelXmlAllocator<ZelXmlPartPlaceholder>},
    {ZEL_RESOURCE_PLACEHOLDER, "resource placeholder", 9, "Resource", "", Shape::withThreeDRep, "",
     Kind::plcData, Import::nothing, &zelXmlAllocator<ZelXmlResourcePlaceholder>},
    {ZEL_PROCESS_ASSEMBLY, "process assembly", 10, "Product", "PmDvProcessAssembly", Shape::named, "",
     Kind::collection | Kind::entersChildren, Import::nothing, &zelXmlAllocator<ZelXmlProcessAssembly>},
    {ZEL_LABEL, "label", 20, "Label", "Label", Shape::any, "", Kind::besideTree, Import::nothing,
     &zelXmlAllocator<ZelXmlLabel>},
    {ZEL_VARIANT_FILTER_LIBRARY, "variant filter library", 27, "", "", Shape::classBelow,
     "PmVariantFilterLibrary", Kind::collection | Kind::entersChildren | Kind::ofDocumentsOnly,
     Import::nothing, &zelXmlAllocator<ZelXmlGenericVorCollection>},
};

}  // namespace

ZelXmlNodeKinds::Rows zelXmlCommonKinds() { return kinds; }

#include "variant/ZelXmlVariantKinds.h"

#include "variant/ZelXmlVariantFilter.h"

namespace {

using Kind = ZelXmlNodeKind;
using Import = Kind::Import;
using Shape = ZelXmlShape;

constexpr Kind kinds[] = {
    {ZEL_VARIANT_FILTER, "variant filter", 28, "", "", Shape::classBelow, "PmVariantFilter", Kind::plain,
     Import::nothing, &zelXmlAllocator<ZelXmlVariantFilter>},
    {ZEL_VARIANT_SET, "variant set", 29, "", "", Shape::classBelow, "PmVariantSet", Kind::besideTree,
     Import::nothing, &zelXmlAllocator<ZelXmlVariantSet>},
};

}  // namespace

ZelXmlNodeKinds::Rows zelXmlVariantKinds() { return kinds; }

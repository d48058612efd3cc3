#include "resource/ZelXmlResourceKinds.h"

#include "resource/ZelXmlResourceInstance.h"

namespace {

using Kind = ZelXmlNodeKind;
using Import = Kind::Import;
using Shape = ZelXmlShape;

constexpr Kind kinds[] = {
    {ZEL_RESOURCE_INSTANCE, "resource instance", 3, "Resource", "PmToolInstance", Shape::any, "",
     Kind::plcData, Import::instance, &zelXmlAllocator<ZelXmlResourceInstance>},
    {ZEL_LIGHT_SENSOR_INSTANCE, "light sensor instance", 4, "Resource", "PmToolInstance",
     Shape::prototypeBelow, "LightSensor", Kind::plcData, Import::instance,
     &zelXmlAllocator<ZelXmlLightSensorInstance>},
    {ZEL_PROPERTY_SENSOR_INSTANCE, "property sensor instance", 5, "Resource", "PmToolInstance",
     Shape::prototypeBelow, "PropertySensor", Kind::plcData, Import::instance,
     &zelXmlAllocator<ZelXmlPropertySensorInstance>},
};

}  // namespace

ZelXmlNodeKinds::Rows zelXmlResourceKinds() { return kinds; }

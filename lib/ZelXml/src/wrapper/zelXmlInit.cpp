#include "wrapper/zelXmlInit.h"

#include "api/ApiBaseInit.h"
#include "api/ApiErrStream.h"
#include "equipment/ZelXmlEquipmentKinds.h"
#include "node/ZelXmlCommonKinds.h"
#include "operation/ZelXmlOperationKinds.h"
#include "plc/ZelXmlPlcKinds.h"
#include "plc/ZelXmlPlcSignalHandler.h"
#include "prototype/ZelXmlPrototypeKinds.h"
#include "resource/ZelXmlResourceKinds.h"
#include "variant/ZelXmlVariantKinds.h"
#include "wrapper/ZelXmlWrapper.h"
#include "zel/ZelWrapperFactory.h"

RTObjVectorFactory<ZelWrapper>& ZelWrapperFactory::the() {
  static auto& factory = *new RTObjVectorFactory<ZelWrapper>;
  return factory;
}

void zelXmlInit() {
  static bool isDue = true;
  if (!isDue) return;
  apiBaseGmInit();
  apiBasePmInit();
  ZelXmlNodeKinds::fill({zelXmlCommonKinds(), zelXmlResourceKinds(), zelXmlPrototypeKinds(),
                         zelXmlEquipmentKinds(), zelXmlOperationKinds(), zelXmlPlcKinds(),
                         zelXmlVariantKinds()});
  zelXmlAddPlcSignalHandlers();
  apiErr.addErrDefinition("ZELXML_SHARED_NODE_ADDITIONAL_PARENT_IGNORED", 3, "");
  ZelWrapperFactory::the().addAllocator(0, RTObjAllocator<ZelWrapper, ZelXmlWrapper>());
  isDue = false;
}

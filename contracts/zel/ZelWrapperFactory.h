#pragma once

#include "rt/RTObjVectorFactory.h"
#include "zel/ZelWrapper.h"

// Makes wrappers by number. zelXmlInit registers the wrapper of XML studies under 0.
struct ZelWrapperFactory {
  static RTObjVectorFactory<ZelWrapper>& the();
};

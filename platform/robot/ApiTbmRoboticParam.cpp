#include "api/ApiTbmRoboticParam.h"

namespace {

template <class... Params>
RTObjVectorFactory<ApiTbmRoboticParam>* factoryOf() {
  auto* factory = new RTObjVectorFactory<ApiTbmRoboticParam>;
  (factory->addAllocator(Params().kind(), RTObjAllocator<ApiTbmRoboticParam, Params>()), ...);
  return factory;
}

}  // namespace

RTObjVectorFactory<ApiTbmRoboticParam>& ApiTbmRoboticParamFactory::the() {
  static auto& factory = *factoryOf<ApiTbmRoboticIntParam, ApiTbmRoboticDoubleParam, ApiTbmRoboticBoolParam,
                                    ApiTbmRoboticMatrixParam, ApiTbmRoboticStringParam,
                                    ApiTbmRoboticVec3dParam, ApiTbmRoboticXmlParam>();
  return factory;
}

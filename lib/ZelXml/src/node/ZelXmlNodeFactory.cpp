#include "node/ZelXmlNodeFactory.h"

#include "node/ZelXmlNode.h"

RTObjVectorFactory<ZelXmlNode>& ZelXmlNodeFactory::the() {
  static auto& factory = *new RTObjVectorFactory<ZelXmlNode>(100);
  return factory;
}

#pragma once

#include "rt/RTObjVectorFactory.h"
#include "zel/ZelNodeType.h"

class ZelXmlNode;

// Makes node objects by ZelNodeType. zelXmlInit fills it; it lives until the process ends.
struct ZelXmlNodeFactory {
  static RTObjVectorFactory<ZelXmlNode>& the();
};

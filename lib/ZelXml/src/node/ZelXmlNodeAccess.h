#pragma once

#include "zel/ZelNode.h"

class ZelXmlNode;

// The library's own way from a ZelNode to the object behind it, asked for by a number that callers do not
// use.
class ZelXmlNodeAccess : public ZelNode {
 public:
  static constexpr auto interfaceType = static_cast<InterfaceType>(-1);
  virtual ZelXmlNode* zelXmlNode() = 0;
};

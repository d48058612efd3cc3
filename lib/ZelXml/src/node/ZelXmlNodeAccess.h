#pragma once

#include "zel/ZelNode.h"

class ZelXmlElementNode;
class ZelXmlNode;

// The library's own way from a ZelNode to what is behind it, asked for by a number that callers do not use.
class ZelXmlNodeAccess : public ZelNode {
 public:
  static constexpr auto interfaceType = static_cast<InterfaceType>(-1);
  virtual ZelXmlElementNode* zelXmlElementNode() = 0;
  virtual ZelXmlNode* zelXmlNode() = 0;  // null for a node that is no object
};

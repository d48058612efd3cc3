#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// Control logic of a flow. Values are fields of `plcInfo`, which the first write makes. A setter adds a field
// beside one that is there and publishes nothing; a getter takes the first, and is false without it.
class ZelPlcLink : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PlcLink;
  static ZelPlcLink* queryZelPlcLink(ZelNode* node) { return zelQuery<ZelPlcLink>(node); }

  // Field `BranchType`: how the flow stands to others that leave the same step. Reading finds it at any depth
  // of `plcInfo`.
  virtual bool setBranchType(std::int32_t type) = 0;
  virtual bool getBranchType(std::int32_t& type) const = 0;
  // Field `Condition`: when the flow is taken.
  virtual bool setCondition(const RWClassicWString& condition) = 0;
  virtual bool getCondition(RWClassicWString& condition) const = 0;

  // As in ZelPlcResourceInstance.
  virtual bool publishPlcInfo() = 0;
  virtual bool removePlcInfo() = 0;
  virtual bool isOriginalPlcData(bool& original) const = 0;
  virtual bool setPlcVersion(const RWClassicCString& version) = 0;
  virtual bool getPlcVersion(RWClassicCString& version) const = 0;
};

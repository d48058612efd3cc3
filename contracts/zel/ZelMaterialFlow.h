#pragma once

#include <cstdint>

#include "zel/ZelNode.h"

// A way of material from one step to another.
class ZelMaterialFlow : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = MaterialFlow;
  static ZelMaterialFlow* queryZelMaterialFlow(ZelNode* node) { return zelQuery<ZelMaterialFlow>(node); }

  // Fields `materialPredecessor` and `materialSuccessor` of the object itself: the two ends. Setting makes or
  // overwrites the field and publishes it; reading takes its text, and is false without it.
  virtual bool setMaterialPredecessor(const ApiPmId& step) = 0;
  virtual bool getMaterialPredecessor(ApiPmId& step) const = 0;
  virtual bool setMaterialSuccessor(const ApiPmId& step) = 0;
  virtual bool getMaterialSuccessor(ApiPmId& step) const = 0;
  // As in ZelPlcLink.
  virtual bool setBranchType(std::int32_t type) = 0;
  virtual bool getBranchType(std::int32_t& type) const = 0;
  // Field `plcInfo/AlternativeGroup`. Writing adds a field; reading takes the first.
  virtual bool setAlternativeGroup(const RWClassicCString& group) = 0;
  virtual bool getAlternativeGroup(RWClassicCString& group) const = 0;

  // As in ZelPlcResourceInstance.
  virtual bool publishPlcInfo() = 0;
  virtual bool removePlcInfo() = 0;
  virtual bool isOriginalPlcData(bool& original) const = 0;
  virtual bool setPlcVersion(const RWClassicCString& version) = 0;
  virtual bool getPlcVersion(RWClassicCString& version) const = 0;
};

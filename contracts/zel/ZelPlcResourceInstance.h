#pragma once

#include "zel/ZelNode.h"

// The services that every object with PLC data has.
class ZelPlcResourceInstance : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PlcResourceInstance;
  static ZelPlcResourceInstance* queryZelPlcResourceInstance(ZelNode* node) {
    return zelQuery<ZelPlcResourceInstance>(node);
  }

  // Publishes the fields `NodeInfo` and `plcInfo`.
  virtual bool publishPlcInfo() = 0;
  // Removes `plcInfo` and the nodes made from it. Publishes nothing, and publishPlcInfo afterwards sends
  // `NodeInfo` alone.
  virtual bool removePlcInfo() = 0;
  // False when the PLC data came from another object, that is when `plcInfo/OriginalId` is not the own id.
  virtual bool isOriginalPlcData(bool& original) const = 0;
  // Field `plcInfo/version`. Writing adds a field; reading takes the first.
  virtual bool setPlcVersion(const RWClassicCString& version) = 0;
  virtual bool getPlcVersion(RWClassicCString& version) const = 0;
  // Whether the node has an element.
  virtual bool hasElement() const = 0;
};

#pragma once

#include "zel/ZelNode.h"

// A placed object with a 3D representation of its own and no prototype in use.
class ZelVorPlaceholder : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorPlaceholder;
  static ZelVorPlaceholder* queryZelVorPlaceholder(ZelNode* node) {
    return zelQuery<ZelVorPlaceholder>(node);
  }

  // The document named by the object's own id.
  virtual bool getDocument(ApiPmDocument& document) const = 0;
  virtual bool getThreeDRepPath(ApiFullPathDocument& path) const = 0;
};

class ZelVorResourcePlaceholder : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = VorResourcePlaceholder;
  static ZelVorResourcePlaceholder* queryZelVorResourcePlaceholder(ZelNode* node) {
    return zelQuery<ZelVorResourcePlaceholder>(node);
  }

  // Field `plcInfo/robotSetupTime`, in seconds. Writing adds a field; reading takes the first.
  virtual bool setRobotSetupTime(double seconds) = 0;
  virtual bool getRobotSetupTime(double& seconds) const = 0;
};

// The services that every object with PLC data has.
class ZelPlcResourceInstance : public ZelNode {
 public:
  static constexpr InterfaceType interfaceType = PlcResourceInstance;
  static ZelPlcResourceInstance* queryZelPlcResourceInstance(ZelNode* node) {
    return zelQuery<ZelPlcResourceInstance>(node);
  }

  // Publishes the fields `NodeInfo` and `plcInfo`.
  virtual bool publishPlcData() = 0;
  // Removes `plcInfo` and the nodes made from it.
  virtual bool removePlcData() = 0;
  // False when the PLC data came from another object, that is when `plcInfo/OriginalId` is not the own id.
  virtual bool isOriginal(bool& original) const = 0;
  // Field `plcInfo/version`. Writing adds a field; reading takes the first.
  virtual bool setVersion(const RWClassicWString& version) = 0;
  virtual bool getVersion(RWClassicWString& version) const = 0;
  // True, and does nothing.
  virtual bool reserved() = 0;
};

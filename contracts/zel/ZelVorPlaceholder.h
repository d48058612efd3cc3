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

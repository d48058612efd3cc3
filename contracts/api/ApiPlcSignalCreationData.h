#pragma once

#include "api/ApiPmIds.h"
#include "rw/RWClassicText.h"

// What a signal of a device or a robot is made from.
class ApiPlcSignalCreationData {
 public:
  virtual ~ApiPlcSignalCreationData() = default;

  // Text of the kind of signal: "PlcKeySignal" and so on, as the name of the class tells.
  virtual RWClassicCString typeText() const = 0;

  const ApiGlobalUniqueId& globalUniqueId() const { return globalUniqueId_; }
  void setGlobalUniqueId(const ApiGlobalUniqueId& id) { globalUniqueId_ = id; }
  const RWClassicCString& name() const { return name_; }
  void setName(const RWClassicCString& name) { name_ = name; }

 private:
  ApiGlobalUniqueId globalUniqueId_;
  RWClassicCString name_;
};

class ApiPlcKeySignalCreationData : public ApiPlcSignalCreationData {
 public:
  RWClassicCString typeText() const override;
};

class ApiPlcDeviceSensorSignalCreationData : public ApiPlcSignalCreationData {
 public:
  RWClassicCString typeText() const override;
  const RWClassicCString& poseName() const { return poseName_; }
  void setPoseName(const RWClassicCString& name) { poseName_ = name; }

 private:
  RWClassicCString poseName_;
};

// A signal between controller and robot, which has a name of its own inside the robot.
class ApiPlcRobotSignalCreationData : public ApiPlcSignalCreationData {
 public:
  const RWClassicCString& privateName() const { return privateName_; }
  void setPrivateName(const RWClassicCString& name) { privateName_ = name; }

 private:
  RWClassicCString privateName_;
};

class ApiPlcToRobotSignalCreationData : public ApiPlcRobotSignalCreationData {
 public:
  RWClassicCString typeText() const override;
};

class ApiPlcFromRobotSignalCreationData : public ApiPlcRobotSignalCreationData {
 public:
  RWClassicCString typeText() const override;
};

class ApiPlcResourceInputSignalCreationData : public ApiPlcSignalCreationData {
 public:
  RWClassicCString typeText() const override;
};

class ApiPlcResourceOutputSignalCreationData : public ApiPlcSignalCreationData {
 public:
  RWClassicCString typeText() const override;
};

#pragma once

#include <cstdint>

#include "api/ApiPmId.h"
#include "rt/RTTran3D.h"
#include "rw/RWClassicText.h"

// The use of a tool by a robot.
struct ApiPmRobotToolBoxData {
  ApiPmId usageId;
  ApiPmId toolId;
  RWClassicCString name;
  RWClassicWString comment;
  RTTran3D tcpfPosition;        // the tool centre point frame
  std::int32_t tcpfNumber = 0;  // and its number at the robot

  friend bool operator==(const ApiPmRobotToolBoxData&, const ApiPmRobotToolBoxData&) = default;
};

#pragma once

#include <cstdint>
#include <memory>

#include "api/ApiPmPersistentId.h"
#include "rt/RTTran3D.h"
#include "rw/RWClassicText.h"

// What a system frame of some kind has beyond its placement.
class ApiPmRobotSystemFrameData {
 public:
  // Kind numbers that documents can hold; a host may have others.
  enum Kind : int { MovingConveyor = 2 };

  virtual ~ApiPmRobotSystemFrameData() = default;
  virtual int kind() const = 0;
};

// The frame moves with a conveyor.
class ApiPmRobotMovingConveyorSystemFrameData : public ApiPmRobotSystemFrameData {
 public:
  explicit ApiPmRobotMovingConveyorSystemFrameData(std::uint16_t conveyorNumber)
      : conveyorNumber_(conveyorNumber) {}
  int kind() const override;
  std::uint16_t conveyorNumber() const { return conveyorNumber_; }

 private:
  std::uint16_t conveyorNumber_;
};

// A system frame of a robot: a placement with a name, relative to the object that it is attached to. Lengths
// in the unit of the document, angles in radians.
class ApiPmRobotFramesData {
 public:
  ApiPmRobotFramesData() = default;
  ApiPmRobotFramesData(const RWClassicWString& id, const RWClassicCString& name, const RTTran3D& location,
                       const ApiPmPersistentId& attachment);

  const RWClassicWString& id() const { return id_; }
  const RWClassicCString& name() const { return name_; }
  const RTTran3D& location() const { return location_; }
  const ApiPmPersistentId& attachment() const { return attachment_; }
  // Null for a frame without more. Copies of the frame share it; good as long as one of them has it.
  const ApiPmRobotSystemFrameData* Data() const { return data_.get(); }
  void setData(std::shared_ptr<const ApiPmRobotSystemFrameData> data);

 private:
  RWClassicWString id_;
  RWClassicCString name_;
  RTTran3D location_;
  ApiPmPersistentId attachment_;
  std::shared_ptr<const ApiPmRobotSystemFrameData> data_;
};

#include "api/ApiPmRobotFramesData.h"

#include <utility>

int ApiPmRobotMovingConveyorSystemFrameData::kind() const { return MovingConveyor; }

ApiPmRobotFramesData::ApiPmRobotFramesData(const RWClassicWString& id, const RWClassicCString& name,
                                           const RTTran3D& location, const ApiPmPersistentId& attachment)
    : id_(id), name_(name), location_(location), attachment_(attachment) {}

void ApiPmRobotFramesData::setData(std::shared_ptr<const ApiPmRobotSystemFrameData> data) {
  data_ = std::move(data);
}

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <typeinfo>
#include <utility>

#include "api/ApiPmRobotFramesData.h"
#include "api/ApiTbmRoboticParam.h"
#include "rt/RTAutoPtr.h"
#include "rw/RWClassicTValOrderedVector.h"
#include "rw/RWCollectionRef.h"

namespace {

TEST(RobotRecords, APersistentIdIsWhatItWasGivenLast) {
  const ApiPmExtendedId joint{ApiPmId("R"), ApiKey("joint")};
  const ApiGlobalUniqueId guid("{01234567-89AB-cdef-0123-456789abcdef}");
  ApiPmPersistentId id;
  EXPECT_FALSE(id.isPmExtendedId() || id.isGuid());
  id.setPmExtendedId(joint);
  EXPECT_TRUE(id.isPmExtendedId() && !id.isGuid() && id.pmExtendedId() == joint && id.guid().isNull());
  id.setGuid(guid);
  EXPECT_TRUE(id.isGuid() && !id.isPmExtendedId() && id.guid() == guid && id.pmExtendedId().id.isNull());
  id.setPmExtendedId({});
  EXPECT_TRUE(id.isPmExtendedId()) << "a null id is one of its kind";
}

TEST(RobotRecords, CopiesOfAFrameKeepItsExtraData) {
  RWClassicTValOrderedVector<ApiPmRobotFramesData> frames;
  RWCollectionRef<ApiPmRobotFramesData> collection = frames;
  {
    ApiPmRobotFramesData frame("F", "belt", RTTran3D({1, 2, 3}, {}), {});
    frame.setData(std::make_shared<ApiPmRobotMovingConveyorSystemFrameData>(65535));
    collection.append(frame);
    frame.setData(nullptr);
    collection.append(frame);
  }
  const auto* data = dynamic_cast<const ApiPmRobotMovingConveyorSystemFrameData*>(frames[0].Data());
  ASSERT_TRUE(data);
  EXPECT_TRUE(data->kind() == 2 && data->conveyorNumber() == 65535);
  EXPECT_EQ(frames[1].Data(), nullptr);
  EXPECT_EQ(frames[1].location(), RTTran3D({1, 2, 3}, {}));
}

TEST(RobotRecords, TheFactoryMakesTheSevenKindsOfParameters) {
  using Param = RTAutoPtr<ApiTbmRoboticParam>;
  RWClassicTValOrderedVector<Param> made;
  RWCollectionRef<Param> collection = made;
  const RWClassicTValOrderedVector<int> kinds{1, 2, 3, 4, 6, 10, 12};
  for (int kind = -1; kind < 20; ++kind) {
    Param parameter(ApiTbmRoboticParamFactory::the().create(kind));
    EXPECT_EQ(parameter != nullptr, kinds.contains(kind)) << kind;
    if (parameter) collection.append(std::move(parameter));
  }
  ASSERT_EQ(made.entries(), kinds.entries());
  const std::type_info* classes[] = {&typeid(ApiTbmRoboticIntParam),    &typeid(ApiTbmRoboticDoubleParam),
                                     &typeid(ApiTbmRoboticBoolParam),   &typeid(ApiTbmRoboticMatrixParam),
                                     &typeid(ApiTbmRoboticStringParam), &typeid(ApiTbmRoboticVec3dParam),
                                     &typeid(ApiTbmRoboticXmlParam)};
  for (std::size_t i = 0; i < made.entries(); ++i) {
    const ApiTbmRoboticParam& parameter = *made[i];
    EXPECT_EQ(parameter.kind(), kinds[i]);
    EXPECT_TRUE(typeid(parameter) == *classes[i]) << kinds[i];
  }
  auto& matrix = dynamic_cast<ApiTbmRoboticMatrixParam&>(*made[3]);
  EXPECT_EQ(matrix.value(), RTTran3D::unit);
  EXPECT_EQ(dynamic_cast<ApiTbmRoboticIntParam&>(*made[0]).value(), 0);
}

}  // namespace

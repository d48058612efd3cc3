#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <set>

#include "api/ApiPlcSignalCreationData.h"
#include "zel/ZelLink.h"
#include "zel/ZelOperation.h"
#include "zel/ZelPlcTypeConvertor.h"

namespace {

TEST(PlcTypes, InnerNodesHaveATextOfTheirOwnAndNothingElseHasOne) {
  const auto& convertor = ZelPlcTypeConvertor::the();
  std::map<RWClassicCString, int> numbers;
  std::set<int> found;
  for (int number = -1; number < 200; ++number) {
    RWClassicCString text = "untouched";
    ZelNodeType type = ZEL_STUDY;
    if (!convertor.getPlcType(static_cast<ZelNodeType>(number), text)) {
      EXPECT_EQ(text, "untouched");
      continue;
    }
    EXPECT_TRUE(numbers.emplace(text, number).second) << text << " stands twice";
    EXPECT_TRUE(convertor.getZelType(text, type) && type == number) << text;
    found.insert(number);
  }
  EXPECT_EQ(found, (std::set<int>{38, 39, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 75, 77, 80, 84, 95}));

  ZelNodeType type = ZEL_LABEL;
  for (const char* text : {"", "plcsignal", "PlcSignal ", "43"})
    EXPECT_FALSE(convertor.getZelType(text, type) || type != ZEL_LABEL) << text;

  const std::unique_ptr<ApiPlcSignalCreationData> records[] = {
      std::make_unique<ApiPlcKeySignalCreationData>(),
      std::make_unique<ApiPlcDeviceSensorSignalCreationData>(),
      std::make_unique<ApiPlcToRobotSignalCreationData>(),
      std::make_unique<ApiPlcFromRobotSignalCreationData>(),
      std::make_unique<ApiPlcResourceInputSignalCreationData>(),
      std::make_unique<ApiPlcResourceOutputSignalCreationData>()};
  const char* const texts[] = {"PlcKeySignal",       "PlcDeviceSensorSignal",  "PlcToRobotSignal",
                               "PlcFromRobotSignal", "PlcResourceInputSignal", "PlcResourceOutputSignal"};
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(records[i]->typeText(), texts[i]);
    EXPECT_EQ(numbers[texts[i]], ZEL_KEY_SIGNAL + i);
  }
}

// All reserved slots can be reached from the interface, whichever base declares them, and there are no more.
template <class Interface, int number>
concept HasSlot = requires(Interface& node) {
  node.reserved(ZelSlot<number>());
};
template <class Interface, int count, int number = 1>
constexpr bool hasSlotsTo() {
  if constexpr (number > count)
    return !HasSlot<Interface, number>;
  else
    return HasSlot<Interface, number> && hasSlotsTo<Interface, count, number + 1>();
}
static_assert(hasSlotsTo<ZelOperation, 29>());
static_assert(hasSlotsTo<ZelLink, 4>());

}  // namespace

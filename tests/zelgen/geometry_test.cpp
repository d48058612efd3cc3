#include "Geometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace zelgen {
namespace {

constexpr Millionths kQuarterTurn = 1'570'796;

TEST(GeneratorGeometry, AnglesAgreeWithTheLibrary) {
  for (int i = -4000; i <= 4000; ++i) {
    const double angle = i * (2 * std::numbers::pi / 4000);
    double sine, cosine;
    sineAndCosine(angle, sine, cosine);
    ASSERT_NEAR(sine, std::sin(angle), 1e-15) << angle;
    ASSERT_NEAR(cosine, std::cos(angle), 1e-15) << angle;
    for (const double length : {1e-3, 1.0, 1e6}) {
      const double x = length * std::cos(angle), y = length * std::sin(angle);
      ASSERT_NEAR(angleOf(y, x), std::atan2(y, x), 2e-15) << angle;
    }
  }
  EXPECT_EQ(angleOf(0, 0), 0);
  EXPECT_DOUBLE_EQ(angleOf(0, -1), std::numbers::pi);
}

TEST(GeneratorGeometry, ComposesInTheOrderYawPitchRoll) {
  const Millionths mm = 1'000'000;
  struct Case {
    const char* what;
    Placement parent, relative, expected;
  };
  const Case cases[] = {
      {"the unit placement changes nothing",
       {},
       {1 * mm, 2 * mm, 3 * mm, 100'000, 200'000, 300'000},
       {1 * mm, 2 * mm, 3 * mm, 100'000, 200'000, 300'000}},
      {"a yaw turns x to y",
       {5 * mm, 0, 0, 0, 0, kQuarterTurn},
       {1 * mm, 0, 0},
       {5 * mm, 1 * mm, 0, 0, 0, kQuarterTurn}},
      {"a pitch turns x down",
       {0, 0, 0, 0, kQuarterTurn / 2, 0},
       {1 * mm, 0, 0},
       {707'107, 0, -707'107, 0, kQuarterTurn / 2, 0}},
      {"a roll turns y up",
       {0, 0, 0, kQuarterTurn, 0, 0},
       {0, 1 * mm, 0},
       {0, 0, 1 * mm, kQuarterTurn, 0, 0}},
      {"yaws add up", {0, 0, 0, 0, 0, 1'000'000}, {0, 0, 0, 0, 0, 2'000'000}, {0, 0, 0, 0, 0, 3'000'000}},
      {"looking up, roll and yaw add up in the yaw",
       {0, 0, 0, 0, 0, 300'000},
       {0, 0, 0, 200'000, -kQuarterTurn, 0},
       {0, 0, 0, 0, -kQuarterTurn, 500'000}},
      {"looking down, the yaw is their difference",
       {0, 0, 0, 0, 0, 300'000},
       {0, 0, 0, 200'000, kQuarterTurn, 0},
       {0, 0, 0, 0, kQuarterTurn, 100'000}},
      {"a roll within a yaw stays a roll",
       {0, 0, 0, 0, 0, 700'000},
       {0, 0, 0, 400'000},
       {0, 0, 0, 400'000, 0, 700'000}}};
  for (const auto& each : cases) {
    const Placement got = compose(each.parent, each.relative);
    // The quarter turn is itself rounded, which shows in the last digit.
    const auto near = [&](Millionths actual, Millionths expected) {
      EXPECT_LE(std::abs(actual - expected), 2) << each.what << ": " << actual << " for " << expected;
    };
    near(got.x, each.expected.x);
    near(got.y, each.expected.y);
    near(got.z, each.expected.z);
    near(got.roll, each.expected.roll);
    near(got.pitch, each.expected.pitch);
    near(got.yaw, each.expected.yaw);
  }
}

}  // namespace
}  // namespace zelgen

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
}

// Other turns are checked with the placements of whole studies.
TEST(GeneratorGeometry, ComposesAtThePoles) {
  const Placement parent{0, 0, 0, 0, 0, 300'000};
  const struct { Millionths pitch, yaw; } cases[] = {{-kQuarterTurn, 500'000}, {kQuarterTurn, 100'000}};
  for (const auto& [pitch, yaw] : cases) {
    const Placement got = compose(parent, {0, 0, 0, 200'000, pitch, 0});
    // The quarter turn is itself rounded, which shows in the last digit.
    EXPECT_LE(std::abs(got.roll), 2) << pitch;
    EXPECT_LE(std::abs(got.pitch - pitch), 2) << pitch;
    EXPECT_LE(std::abs(got.yaw - yaw), 2) << pitch;
  }
}

}  // namespace
}  // namespace zelgen

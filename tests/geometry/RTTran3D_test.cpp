#include "rt/RTTran3D.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>

#include "dom/DomTesting.h"

namespace {

constexpr double pi = std::numbers::pi;

// An independent model: plain 4x4 matrices, multiplied term by term.
using Matrix4 = std::array<std::array<double, 4>, 4>;

Matrix4 product(const Matrix4& a, const Matrix4& b) {
  Matrix4 result{};
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j)
      for (std::size_t k = 0; k < 4; ++k) result[i][j] += a[i][k] * b[k][j];
  return result;
}

Matrix4 aboutX(double a) {
  return {{{1, 0, 0, 0}, {0, std::cos(a), -std::sin(a), 0}, {0, std::sin(a), std::cos(a), 0}, {0, 0, 0, 1}}};
}
Matrix4 aboutY(double a) {
  return {{{std::cos(a), 0, std::sin(a), 0}, {0, 1, 0, 0}, {-std::sin(a), 0, std::cos(a), 0}, {0, 0, 0, 1}}};
}
Matrix4 aboutZ(double a) {
  return {{{std::cos(a), -std::sin(a), 0, 0}, {std::sin(a), std::cos(a), 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}}};
}
Matrix4 moved(double x, double y, double z) {
  return {{{1, 0, 0, x}, {0, 1, 0, y}, {0, 0, 1, z}, {0, 0, 0, 1}}};
}
Matrix4 modelOf(const RTVec3D& t, const RTVec3D& rpy) {
  return product(moved(t.x, t.y, t.z), product(aboutZ(rpy.z), product(aboutY(rpy.y), aboutX(rpy.x))));
}

// What a caller can see of a transformation, as a matrix.
Matrix4 seen(const RTTran3D& t) { return modelOf(t.getTranslation(), t.getRotationRPY()); }

double worst(const Matrix4& a, const Matrix4& b) {
  double result = 0;
  for (std::size_t i = 0; i < 4; ++i)
    for (std::size_t j = 0; j < 4; ++j) result = std::max(result, std::abs(a[i][j] - b[i][j]));
  return result;
}

std::string textOf(const RTTran3D& t) {
  const RTVec3D at = t.getTranslation(), rpy = t.getRotationRPY();
  char text[200];
  std::snprintf(text, sizeof text, "%.6f %.6f %.6f %.6f %.6f %.6f", at.x, at.y, at.z, rpy.x, rpy.y, rpy.z);
  return text;
}

// What six decimals leave.
RTVec3D rounded(const RTVec3D& v) {
  return {std::round(v.x * 1e6) / 1e6, std::round(v.y * 1e6) / 1e6, std::round(v.z * 1e6) / 1e6};
}

// One link of a robot arm in the notation of Denavit and Hartenberg: about z, along z, along x, about x.
struct Link {
  double d, a, alpha;
};

// Published for the PUMA 560 with the base at the shoulder: the links, the joints of the nominal pose, and
// that pose to four decimals.
const std::vector<Link> puma = {{0, 0, pi / 2},      {0, 0.4318, 0},  {0.15005, 0.0203, -pi / 2},
                                {0.4318, 0, pi / 2}, {0, 0, -pi / 2}, {0, 0, 0}};
const double joints[] = {0, pi / 4, pi, 0, pi / 4, 0};
const Matrix4 nominal = {{{0, 0, 1, 0.5963}, {0, 1, 0, -0.15005}, {-1, 0, 0, -0.01435}, {0, 0, 0, 1}}};

TEST(RTTran3D, ARobotArmReachesThePublishedPose) {
  RTTran3D place;
  for (std::size_t i = 0; i < puma.size(); ++i) {
    const auto& [d, a, alpha] = puma[i];
    place = place * RTTran3D({a * std::cos(joints[i]), a * std::sin(joints[i]), d}, {alpha, 0, joints[i]});
  }
  EXPECT_LT(worst(seen(place), nominal), 5e-5);
}

TEST(RTTran3D, ThePolesLoseNoRotation) {
  std::mt19937_64 random(domtest::seed());
  std::uniform_real_distribution<double> angle(-pi, pi);
  const RTTran3D turn({0, 0, 0}, {0.3, -0.4, 0.5});
  for (const double side : {1.0, -1.0}) {
    for (const double distance : {0.0, 1e-16, 1e-12, 1e-9, 3.3e-7, 4.9e-7, 5.1e-7, 1e-6, 1e-4, 1e-2}) {
      for (int i = 0; i < 200; ++i) {
        const RTVec3D rpy{angle(random), side * (pi / 2 - distance), angle(random)};
        const RTTran3D set({}, rpy);
        ASSERT_EQ(set.getRotationRPY(), rpy);
        const RTTran3D back = turn.inverse() * (turn * set);
        const RTVec3D angles = back.getRotationRPY();
        const bool atPole = distance < 5e-7;
        if (atPole) {
          ASSERT_EQ(angles.x, 0) << distance;
        }
        ASSERT_LT(RTTran3D({}, angles).angleTo(set), atPole ? 2 * distance + 1e-14 : 1e-14) << distance;
        // Six decimals cost half a unit in each angle, the pole no more than it costs anyway.
        ASSERT_LT(RTTran3D({}, rounded(angles)).angleTo(set), 2 * distance * atPole + 1.6e-6) << distance;
      }
    }
  }
}

TEST(RTTran3D, AnglesStayInTheirRanges) {
  struct Case {
    RTVec3D set, expected;
  };
  const Case cases[] = {
      {{-pi, 0, 0}, {pi, 0, 0}},
      {{0, 0, -pi}, {0, 0, pi}},
      {{0, pi, 0}, {pi, 0, pi}},
      {{3 * pi / 2, 0, 0}, {-pi / 2, 0, 0}},
      {{0.5, pi / 2, 0.2}, {0, pi / 2, -0.3}},
      {{0.5, -pi / 2, 0.2}, {0, -pi / 2, 0.7}},
  };
  for (const Case& c : cases) {
    const RTVec3D got = (RTTran3D({}, c.set) * RTTran3D::unit).getRotationRPY();
    for (int k = 0; k < 3; ++k) EXPECT_NEAR(got[k], c.expected[k], 1e-15) << textOf(RTTran3D({}, c.set));
  }
}

TEST(RTTran3D, TheUnitStaysTheUnitText) {
  const std::string unitText = "0.000000 0.000000 0.000000 0.000000 0.000000 0.000000";
  const RTTran3D move({1, -2, 3}, {0, 0, 0});
  for (const RTTran3D& t : {RTTran3D::unit.inverse(), RTTran3D::unit * RTTran3D::unit, move * move.inverse(),
                            RTTran3D({-0.0, -0.0, -0.0}, {-0.0, -0.0, -0.0})}) {
    EXPECT_EQ(t, RTTran3D::unit);
    EXPECT_EQ(textOf(t), unitText);
  }
}

TEST(RTTran3D, LongChainsStayRotations) {
  std::mt19937_64 random(domtest::seed());
  std::uniform_real_distribution<double> angle(-pi, pi);
  const RTTran3D step({0.1, 0, 0}, {angle(random), angle(random) / 2, angle(random)});
  RTTran3D walked;
  for (int i = 0; i < 1000000; ++i) walked = walked * step;
  // A matrix that has drifted differs from the one that its own angles give.
  EXPECT_LT(walked.angleTo(RTTran3D({}, walked.getRotationRPY())), 1e-12);
}

TEST(RTTran3D, ComparesByLengthAndAngle) {
  const RTTran3D base({1, 2, 3}, {0.1, 0.2, 0.3});
  for (const double angle : {0.0, 1e-12, 1e-8, 1e-4, 1.0, pi - 1e-4, pi - 1e-8, pi})
    EXPECT_NEAR(base.angleTo(base * RTTran3D({}, {angle, 0, 0})), angle, 2e-15) << angle;
  RTTran3D moved = base;
  moved.setTranslation({1, 2.5, 3});
  EXPECT_TRUE(base.isNear(moved, 0.5, 0));
  EXPECT_FALSE(base.isNear(moved, 0.4, 0));
  EXPECT_FALSE(base.isNear(RTTran3D({1, 2, 3}, {std::nan(""), 0, 0}), 1, 4));
}

TEST(RTTran3D, PlacesAChildBelowItsParent) {
  std::mt19937_64 random(domtest::seed());
  std::uniform_real_distribution<double> angle(-pi, pi), offset(-5000, 5000);
  for (int i = 0; i < 5000; ++i) {
    const RTVec3D tp{offset(random), offset(random), offset(random)}, tc{offset(random), 0, -offset(random)};
    const RTVec3D rp{angle(random), angle(random) / 2, angle(random)}, rc{angle(random), angle(random), 0};
    const RTTran3D parent(tp, rp), child(tc, rc);
    ASSERT_LT(worst(seen(parent * child), product(modelOf(tp, rp), modelOf(tc, rc))), 1e-11);
    ASSERT_TRUE((parent.inverse() * (parent * child)).isNear(child, 1e-11, 1e-14));
  }
}

}  // namespace

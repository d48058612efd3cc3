#include "Geometry.h"

#include <array>
#include <cmath>

namespace zelgen {
namespace {

constexpr double kPi = 3.14159265358979323846;

// A quarter turn in millionths is no exact one: its cosine is 3e-7. What is nearer to the pole than the last
// decimal can tell counts as standing on it.
constexpr double kUpright = 1e-6;

using Matrix = std::array<std::array<double, 3>, 3>;

double toDouble(Millionths value) { return static_cast<double>(value) / 1e6; }

Millionths toMillionths(double value) { return static_cast<Millionths>(std::floor(value * 1e6 + 0.5)); }

/// Arc tangent of a ratio in [0, 1].
double arcTangent(double ratio) {
  // Halving the angle twice leaves at most tan(pi / 16), where the series needs few terms.
  for (int halving = 0; halving < 2; ++halving) ratio /= 1 + std::sqrt(1 + ratio * ratio);
  const double square = ratio * ratio;
  double sum = 0;
  for (int odd = 25; odd >= 1; odd -= 2) sum = 1.0 / odd - square * sum;
  return 4 * ratio * sum;
}

Matrix rotationOf(const Placement& placement) {
  double sr, cr, sp, cp, sy, cy;
  sineAndCosine(toDouble(placement.roll), sr, cr);
  sineAndCosine(toDouble(placement.pitch), sp, cp);
  sineAndCosine(toDouble(placement.yaw), sy, cy);
  return {{{cy * cp, cy * sp * sr - sy * cr, cy * sp * cr + sy * sr},
           {sy * cp, sy * sp * sr + cy * cr, sy * sp * cr - cy * sr},
           {-sp, cp * sr, cp * cr}}};
}

Matrix product(const Matrix& left, const Matrix& right) {
  Matrix result;
  for (std::size_t row = 0; row < 3; ++row) {
    for (std::size_t column = 0; column < 3; ++column) {
      result[row][column] =
          left[row][0] * right[0][column] + left[row][1] * right[1][column] + left[row][2] * right[2][column];
    }
  }
  return result;
}

void setRotation(Placement& placement, const Matrix& rotation) {
  const double cosinePitch = std::sqrt(rotation[0][0] * rotation[0][0] + rotation[1][0] * rotation[1][0]);
  placement.pitch = toMillionths(angleOf(-rotation[2][0], cosinePitch));
  if (cosinePitch > kUpright) {
    placement.roll = toMillionths(angleOf(rotation[2][1], rotation[2][2]));
    placement.yaw = toMillionths(angleOf(rotation[1][0], rotation[0][0]));
  } else {
    // Looking straight up or down, roll and yaw turn about one axis: all of it goes to the yaw.
    placement.roll = 0;
    placement.yaw = toMillionths(angleOf(-rotation[0][1], rotation[1][1]));
  }
}

}  // namespace

void sineAndCosine(double angle, double& sine, double& cosine) {
  const double quarters = std::floor(angle / (kPi / 2) + 0.5);
  const double rest = angle - quarters * (kPi / 2);
  const double square = rest * rest;
  double s = 1, c = 1;
  for (int n = 18; n >= 2; n -= 2) {
    s = 1 - square / (n * (n + 1)) * s;
    c = 1 - square / (n * (n - 1)) * c;
  }
  s *= rest;
  switch (static_cast<int>(quarters) & 3) {
    case 0:
      sine = s, cosine = c;
      break;
    case 1:
      sine = c, cosine = -s;
      break;
    case 2:
      sine = -s, cosine = -c;
      break;
    default:
      sine = -c, cosine = s;
      break;
  }
}

double angleOf(double y, double x) {
  const double height = std::fabs(y), width = std::fabs(x);
  if (height == 0 && width == 0) return 0;
  double angle = height <= width ? arcTangent(height / width) : kPi / 2 - arcTangent(width / height);
  if (x < 0) angle = kPi - angle;
  return y < 0 ? -angle : angle;
}

Placement compose(const Placement& parent, const Placement& relative) {
  const Matrix turn = rotationOf(parent);
  const double x = toDouble(relative.x), y = toDouble(relative.y), z = toDouble(relative.z);
  Placement result;
  result.x = toMillionths(toDouble(parent.x) + turn[0][0] * x + turn[0][1] * y + turn[0][2] * z);
  result.y = toMillionths(toDouble(parent.y) + turn[1][0] * x + turn[1][1] * y + turn[1][2] * z);
  result.z = toMillionths(toDouble(parent.z) + turn[2][0] * x + turn[2][1] * y + turn[2][2] * z);
  setRotation(result, product(turn, rotationOf(relative)));
  return result;
}

}  // namespace zelgen

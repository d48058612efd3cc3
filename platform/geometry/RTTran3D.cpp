#include "rt/RTTran3D.h"

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

using Matrix = Eigen::Matrix<double, 3, 3, Eigen::RowMajor>;
using Vector = Eigen::Vector3d;

// Roll and yaw cannot be told apart at pitch +-90 degrees. Nearer to it than this, half a unit of the sixth
// decimal, roll is taken as zero: documents hold angles in six decimals, so a right angle that was read from
// one counts as one, and no rotation is off by more than twice this angle.
constexpr double poleWidth = 5e-7;

// Products drift away from a rotation by a few units of the last place each; beyond this they are set right.
constexpr double drift = 1e-14;

double withoutNegativeZero(double value) { return value + 0.0; }
RTVec3D withoutNegativeZero(const RTVec3D& v) {
  return {withoutNegativeZero(v.x), withoutNegativeZero(v.y), withoutNegativeZero(v.z)};
}
RTVec3D withoutNegativeZero(const Vector& v) { return withoutNegativeZero(RTVec3D{v.x(), v.y(), v.z()}); }

Eigen::Map<const Matrix> asMatrix(const double (&entries)[9]) {
  return Eigen::Map<const Matrix>(static_cast<const double*>(entries));
}
Vector asVector(const RTVec3D& v) { return {v.x, v.y, v.z}; }

void store(const Matrix& matrix, double (&entries)[9]) {
  Eigen::Map<Matrix>(static_cast<double*>(entries)) = matrix.unaryExpr([](double e) { return e + 0.0; });
}

Matrix matrixOf(const RTVec3D& rpy) {
  const double sr = std::sin(rpy.x), cr = std::cos(rpy.x);
  const double sp = std::sin(rpy.y), cp = std::cos(rpy.y);
  const double sy = std::sin(rpy.z), cy = std::cos(rpy.z);
  Matrix m;
  m << cy * cp, cy * sp * sr - sy * cr, cy * sp * cr + sy * sr,  //
      sy * cp, sy * sp * sr + cy * cr, sy * sp * cr - cy * sr,   //
      -sp, cp * sr, cp * cr;
  return m;
}

double angleOf(double sine, double cosine) {
  const double angle = withoutNegativeZero(std::atan2(sine, cosine));
  return angle <= -std::numbers::pi ? std::numbers::pi : angle;
}

// Yaw is read from what is left after roll is taken off, not from the first column: near the pole the two
// are badly known each, but then their sum or difference, which counts, is as exact as the matrix.
RTVec3D anglesOf(const Matrix& m) {
  const double toPole = std::hypot(m(0, 0), m(1, 0));
  const double roll = toPole < poleWidth ? 0 : angleOf(m(2, 1), m(2, 2));
  const double pitch = withoutNegativeZero(std::atan2(-m(2, 0), toPole));
  const double sr = std::sin(roll), cr = std::cos(roll);
  return {roll, pitch, angleOf(sr * m(0, 2) - cr * m(0, 1), cr * m(1, 1) - sr * m(1, 2))};
}

// One step of Newton's iteration towards the nearest rotation; it squares the small error.
Matrix straightened(const Matrix& m) {
  const Matrix gram = m.transpose() * m;
  if ((gram - Matrix::Identity()).cwiseAbs().maxCoeff() <= drift) return m;
  return m * (1.5 * Matrix::Identity() - 0.5 * gram);
}

}  // namespace

constinit const RTTran3D RTTran3D::unit{};

RTTran3D::RTTran3D(const RTVec3D& translation, const RTVec3D& rotationRPY) {
  setTranslation(translation);
  setRotationRPY(rotationRPY);
}

RTVec3D RTTran3D::getTranslation() const { return translation_; }

void RTTran3D::setTranslation(const RTVec3D& translation) { translation_ = withoutNegativeZero(translation); }

RTVec3D RTTran3D::getRotationRPY() const { return rpy_; }

void RTTran3D::setRotationRPY(const RTVec3D& rotation) {
  rpy_ = withoutNegativeZero(rotation);
  store(matrixOf(rpy_), rotation_);
}

RTTran3D RTTran3D::inverse() const {
  const Matrix transposed = asMatrix(rotation_).transpose();
  RTTran3D result;
  store(transposed, result.rotation_);
  result.rpy_ = anglesOf(asMatrix(result.rotation_));
  result.translation_ = withoutNegativeZero(Vector(-(transposed * asVector(translation_))));
  return result;
}

RTTran3D operator*(const RTTran3D& left, const RTTran3D& right) {
  RTTran3D result;
  const auto matrix = asMatrix(left.rotation_);
  store(straightened(matrix * asMatrix(right.rotation_)), result.rotation_);
  result.rpy_ = anglesOf(asMatrix(result.rotation_));
  result.translation_ =
      withoutNegativeZero(Vector(matrix * asVector(right.translation_) + asVector(left.translation_)));
  return result;
}

bool operator==(const RTTran3D& a, const RTTran3D& b) {
  return a.translation_ == b.translation_ && std::equal(a.rotation_, a.rotation_ + 9, b.rotation_);
}

bool RTTran3D::isNear(const RTTran3D& other, double length, double angle) const {
  return std::abs(translation_.x - other.translation_.x) <= length &&
         std::abs(translation_.y - other.translation_.y) <= length &&
         std::abs(translation_.z - other.translation_.z) <= length && angleTo(other) <= angle;
}

double RTTran3D::angleTo(const RTTran3D& other) const {
  const Matrix between = asMatrix(rotation_).transpose() * asMatrix(other.rotation_);
  // The quaternion is exact for tiny angles and for angles near pi alike; the trace or an arc cosine is not.
  const Eigen::Quaterniond quaternion{Eigen::Matrix3d(between)};
  return 2 * std::atan2(quaternion.vec().norm(), std::abs(quaternion.w()));
}

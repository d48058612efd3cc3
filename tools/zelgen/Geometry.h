#pragma once

#include <cstdint>

namespace zelgen {

/// A number of the document, kept as the millionths that its text shows: what is computed with is then
/// exactly what a reader of the document gets.
using Millionths = std::int64_t;

/// A rigid placement: translation in millimetres, then roll, pitch, yaw in radians. The rotation is
/// Rz(yaw) * Ry(pitch) * Rx(roll).
struct Placement {
  Millionths x = 0, y = 0, z = 0;
  Millionths roll = 0, pitch = 0, yaw = 0;

  bool operator==(const Placement&) const = default;
};

/// The placement in the study of an object that stands at `relative` in a parent which stands at `parent`.
/// The result is rounded to millionths; since it is computed from rounded operands the error does not grow
/// with the depth of a tree.
Placement compose(const Placement& parent, const Placement& relative);

// The functions of angles are written out with the basic operations and the square root, which every
// machine rounds alike. The library's own differ in the last bit between platforms, and now and then that
// bit decides the sixth decimal. Each is good to a few units of 1e-16.

/// Sine and cosine of an angle of at most a few turns.
void sineAndCosine(double angle, double& sine, double& cosine);

/// The angle of the point (x, y) in (-pi, pi]; 0 for the origin.
double angleOf(double y, double x);

}  // namespace zelgen

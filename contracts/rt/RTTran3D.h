#pragma once

// Three numbers: a translation in the length unit of the document, or roll, pitch and yaw in radians.
struct RTVec3D {
  double x = 0;
  double y = 0;
  double z = 0;

  double operator[](int index) const { return index == 0 ? x : index == 1 ? y : z; }
  double& operator[](int index) { return index == 0 ? x : index == 1 ? y : z; }
  friend bool operator==(const RTVec3D&, const RTVec3D&) = default;
};

// A rigid transformation in three dimensions: p -> R p + t with R = Rz(yaw) * Ry(pitch) * Rx(roll), the
// convention of robot description formats. Results of products and inverses hold no negative zero, so that
// the text of the unit transformation stays the unit text.
class RTTran3D {
 public:
  constexpr RTTran3D() = default;  // the unit transformation
  RTTran3D(const RTVec3D& translation, const RTVec3D& rotationRPY);

  static const RTTran3D unit;  // there before any code runs

  RTVec3D getTranslation() const;
  void setTranslation(const RTVec3D& translation);

  // Roll, pitch and yaw in radians: as they were set, and of a product or an inverse roll and yaw in
  // (-pi, pi], pitch in [-pi/2, pi/2]. At pitch +-pi/2, where only their sum or difference counts, and nearer
  // to it than six decimals tell, computed roll is 0.
  RTVec3D getRotationRPY() const;
  void setRotationRPY(const RTVec3D& rotation);

  RTTran3D inverse() const;
  // Applies `right` first: absolute of a child = absolute of its parent * relative of the child.
  friend RTTran3D operator*(const RTTran3D& left, const RTTran3D& right);
  // Exact equality of translation and rotation matrix.
  friend bool operator==(const RTTran3D& a, const RTTran3D& b);
  // True when no entry of the translation differs by more than `length` and the rotation between the two is
  // no larger than `angle` radians.
  bool isNear(const RTTran3D& other, double length, double angle) const;
  // Angle in radians of the rotation that leads from this one to `other`, 0 .. pi.
  double angleTo(const RTTran3D& other) const;

 private:
  RTVec3D translation_;
  double rotation_[9] = {1, 0, 0, 0, 1, 0, 0, 0, 1};  // row major
  RTVec3D rpy_;  // the angles that give rotation_, as set or as computed from it
};

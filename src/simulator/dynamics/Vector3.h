#pragma once

#include <cmath>

namespace vorlent {

/// A vector of three components. Body axes: x forward, y right, z down.
struct Vector3 {
  double x = 0;
  double y = 0;
  double z = 0;

  Vector3 operator+(const Vector3& o) const { return {x + o.x, y + o.y, z + o.z}; }
  Vector3 operator-(const Vector3& o) const { return {x - o.x, y - o.y, z - o.z}; }
  Vector3 operator*(double s) const { return {x * s, y * s, z * s}; }
  Vector3& operator+=(const Vector3& o) { return *this = *this + o; }
};

inline double dot(const Vector3& a, const Vector3& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }
inline Vector3 cross(const Vector3& a, const Vector3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double length(const Vector3& a) { return std::sqrt(dot(a, a)); }
inline Vector3 unit(const Vector3& a) { return a * (1 / length(a)); }

/// A rotation, of unit length; it turns body axes into the axes of the earth.
struct Quaternion {
  double w = 1;
  double x = 0;
  double y = 0;
  double z = 0;

  Quaternion operator+(const Quaternion& o) const { return {w + o.w, x + o.x, y + o.y, z + o.z}; }
  Quaternion operator*(double s) const { return {w * s, x * s, y * s, z * s}; }
};

inline Quaternion product(const Quaternion& a, const Quaternion& b) {
  return {
      a.w * b.w - a.x * b.x - a.y * b.y - a.z * b.z, a.w * b.x + a.x * b.w + a.y * b.z - a.z * b.y,
      a.w * b.y - a.x * b.z + a.y * b.w + a.z * b.x, a.w * b.z + a.x * b.y - a.y * b.x + a.z * b.w};
}
inline Quaternion conjugate(const Quaternion& q) { return {q.w, -q.x, -q.y, -q.z}; }
inline Quaternion normalised(const Quaternion& q) {
  return q * (1 / std::sqrt(q.w * q.w + q.x * q.x + q.y * q.y + q.z * q.z));
}
/// v turned by q.
inline Vector3 rotate(const Quaternion& q, const Vector3& v) {
  const Vector3 axis{q.x, q.y, q.z};
  const Vector3 t = cross(axis, v) * 2;
  return v + t * q.w + cross(axis, t);
}
inline Vector3 rotateBack(const Quaternion& q, const Vector3& v) { return rotate(conjugate(q), v); }
/// The rotation by this angle about an axis of length 1.
inline Quaternion turnAbout(const Vector3& axis, double angle_rad) {
  const double s = std::sin(angle_rad / 2);
  return {std::cos(angle_rad / 2), axis.x * s, axis.y * s, axis.z * s};
}

}  // namespace vorlent

#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"

namespace host {

struct AngAxis;

// A rotation quaternion (x, y, z, w) in the host's handedness.
//
// Conventions, fixed once for the whole scene model:
// - Matrix(q) has the rows of the usual column-vector rotation matrix of q. For the
//   row-vector matrices of Matrix3 this means q turns the other way from
//   RotateX/Y/Z: Matrix(Quat(AngAxis(axis, +a))) equals the row-vector rotation by -a.
// - Products compose like matrices, left to right: Matrix(a * b) = Matrix(a) * Matrix(b),
//   so a * b applies a first (the Hamilton product).
// - Quat(Matrix3) and MakeMatrix are inverse to each other for pure rotations.
struct Quat {
    float x = 0.0f;
    float y = 0.0f;
    float z = 0.0f;
    float w = 1.0f;

    // The identity.
    constexpr Quat() = default;
    constexpr Quat(float x_, float y_, float z_, float w_) : x(x_), y(y_), z(z_), w(w_) {}
    // The rotation of a matrix's 3x3 part (Shepperd's method), normalised, with w >= 0. Scale in
    // the matrix distorts the result: orthogonalise first (OrthoQuat) when it may be there.
    explicit Quat(const Matrix3& m);
    Quat(const AngAxis& aa);  // NOLINT: an axis and angle converts implicitly, as in the host

    float& operator[](int i) { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }
    float operator[](int i) const { return i == 0 ? x : (i == 1 ? y : (i == 2 ? z : w)); }

    Quat operator-() const { return {-x, -y, -z, -w}; }
    Quat operator+(const Quat& q) const { return {x + q.x, y + q.y, z + q.z, w + q.w}; }
    Quat operator-(const Quat& q) const { return {x - q.x, y - q.y, z - q.z, w - q.w}; }
    Quat operator*(float f) const { return {x * f, y * f, z * f, w * f}; }
    Quat operator/(float f) const { return {x / f, y / f, z / f, w / f}; }
    // The rotation of this followed by q.
    Quat operator*(const Quat& q) const;
    Quat& operator*=(const Quat& q) { return *this = *this * q; }
    bool operator==(const Quat&) const = default;
    // Component-wise comparison within eps (q and -q differ here).
    bool Equals(const Quat& q, float eps) const;

    void Identity() { *this = Quat(); }
    bool IsIdentity() const { return x == 0.0f && y == 0.0f && z == 0.0f && w == 1.0f; }
    float Length() const;
    // Scales to unit length in place; the zero quaternion stays zero.
    Quat& Normalize();
    Quat Conjugate() const { return {-x, -y, -z, w}; }
    Point3 Vector() const { return {x, y, z}; }
    // Negates this if needed so that it lies in the same hemisphere as q.
    void MakeClosest(const Quat& q);
    void MakeMatrix(Matrix3& m) const;
};

inline Quat operator*(float f, const Quat& q) {
    return q * f;
}
float QuatDot(const Quat& a, const Quat& b);
// The inverse rotation (the conjugate over the squared length).
Quat Inverse(const Quat& q);
Quat Conjugate(const Quat& q);
// The unit quaternion along q; the zero quaternion comes back unchanged.
Quat Normalize(const Quat& q);
// The rotation matrix of q, without translation.
Matrix3 QuatMatrix(const Quat& q);
// Spherical linear interpolation from a (t = 0) to b (t = 1) along the arc between
// them as given: callers that want the short way MakeClosest first.
Quat Slerp(const Quat& a, const Quat& b, float t);
// m = Matrix(q) * m: q applied in m's local space.
void PreRotateMatrix(Matrix3& m, const Quat& q);
// m = m * Matrix(q): q applied in the outer space.
void RotateMatrix(Matrix3& m, const Quat& q);
// Quaternion logarithm and exponential (of a pure vector quaternion), and
// LnDif(p, q) = log(Inverse(p) * q), for the smooth splines of keyframe tracks.
Quat QLog(const Quat& q);
Quat QExp(const Quat& q);
Quat LnDif(const Quat& p, const Quat& q);
// The rotation vector of q: its axis times its angle, taken the shorter way (the angle
// is at most pi). RotationVectorQuat is its inverse and takes any angle.
Point3 RotationVector(const Quat& q);
Quat RotationVectorQuat(const Point3& v);

}  // namespace host

#include "host/math/AxisHelpers.h"

#include <algorithm>
#include <cassert>
#include <cmath>

#include "host/math/AngAxis.h"

namespace host {

namespace {

constexpr float kPi = 3.1415927f;
constexpr float kTwoPi = 6.2831855f;
constexpr float kHalfSqrt2 = 0.70710677f;

// Rows 0 to 2 of AxisMatrix, indexed by [axis][flip].
const Point3 kAxisRows[3][2][3] = {
    {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}},
    {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}, {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}},
    {{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}, {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}},
};

const Quat kAxisQuats[3][2] = {
    {Quat(0, 0, 0, 1), Quat(0, 0, 1, 0)},
    {Quat(0, 0, kHalfSqrt2, kHalfSqrt2), Quat(0, 0, -kHalfSqrt2, kHalfSqrt2)},
    {Quat(0, -kHalfSqrt2, 0, kHalfSqrt2), Quat(0, kHalfSqrt2, 0, kHalfSqrt2)},
};

int CheckedAxis(int axis) {
    assert(axis >= 0 && axis < 3);
    return std::clamp(axis, 0, 2);
}

float ClampedAcos(float c) {
    return std::acos(std::clamp(c, -1.0f, 1.0f));
}

}  // namespace

Matrix3 AxisMatrix(int axis, bool flip) {
    const Point3(&rows)[3] = kAxisRows[CheckedAxis(axis)][flip ? 1 : 0];
    return Matrix3(rows[0], rows[1], rows[2], Point3::Origin);
}

Quat AxisQuat(int axis, bool flip) {
    return kAxisQuats[CheckedAxis(axis)][flip ? 1 : 0];
}

float TwistAbout(const Quat& q, int axis) {
    axis = CheckedAxis(axis);
    Quat twist;
    twist[axis] = q[axis];
    twist.w = q.w;
    twist.Normalize();
    float angle = 2.0f * ClampedAcos(twist.w);
    if (twist[axis] >= 0.0f) angle = -angle;
    if (angle > kPi) angle -= kTwoPi;
    if (angle < -kPi) angle += kTwoPi;
    return angle;
}

Quat SwivelQuat(float angle) {
    return {std::sin(-angle / 2.0f), 0.0f, 0.0f, std::cos(-angle / 2.0f)};
}

Quat ArcFromX(const Point3& v) {
    const float len = v.Length();
    if (len < 0.01f) return {};
    Point3 axis = Normalize(Point3(0.0f, v.z, -v.y));
    if (axis == Point3::Origin) axis = v.x < 0.0f ? Point3::ZAxis : Point3::XAxis;
    return Quat(AngAxis(axis, ClampedAcos(v.x / len)));
}

Quat ArcBetween(const Point3& a, const Point3& b) {
    const float lengths = a.Length() * b.Length();
    if (lengths < 0.01f) return {};
    const float cosine = (a % b) / lengths;
    Point3 axis = Normalize(b ^ a);
    if (axis == Point3::Origin) axis = cosine < 0.0f ? AnyPerpendicular(a) : Point3::XAxis;
    return Quat(AngAxis(axis, ClampedAcos(cosine)));
}

float SafeDiv(float a, float b, float eps) {
    return std::fabs(b) < eps ? a / eps : a / b;
}

}  // namespace host

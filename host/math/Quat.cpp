#include "host/math/Quat.h"

#include <algorithm>
#include <cmath>

#include "host/math/AngAxis.h"

namespace host {

namespace {

// Shepperd's method: take the square root of the largest of the four diagonal
// combinations, so the division never goes through a small number.
Quat QuatOfRotationRows(const Matrix3& m) {
    const float m00 = m[0].x, m11 = m[1].y, m22 = m[2].z;
    const float trace = m00 + m11 + m22;
    Quat q;
    if (trace > 0.0f) {
        const float s = std::sqrt(trace + 1.0f) * 2.0f;
        q = {(m[2].y - m[1].z) / s, (m[0].z - m[2].x) / s, (m[1].x - m[0].y) / s, 0.25f * s};
    } else if (m00 >= m11 && m00 >= m22) {
        const float s = std::sqrt(1.0f + m00 - m11 - m22) * 2.0f;
        q = {0.25f * s, (m[0].y + m[1].x) / s, (m[0].z + m[2].x) / s, (m[2].y - m[1].z) / s};
    } else if (m11 >= m22) {
        const float s = std::sqrt(1.0f + m11 - m00 - m22) * 2.0f;
        q = {(m[0].y + m[1].x) / s, 0.25f * s, (m[1].z + m[2].y) / s, (m[0].z - m[2].x) / s};
    } else {
        const float s = std::sqrt(1.0f + m22 - m00 - m11) * 2.0f;
        q = {(m[0].z + m[2].x) / s, (m[1].z + m[2].y) / s, 0.25f * s, (m[1].x - m[0].y) / s};
    }
    if (q.w < 0.0f) q = -q;
    return q.Normalize();
}

}  // namespace

Quat::Quat(const Matrix3& m) : Quat(QuatOfRotationRows(m)) {}

Quat::Quat(const AngAxis& aa) {
    const Point3 n = host::Normalize(aa.axis);
    const float s = std::sin(aa.angle * 0.5f);
    *this = {n.x * s, n.y * s, n.z * s, std::cos(aa.angle * 0.5f)};
}

Quat Quat::operator*(const Quat& q) const {
    return {w * q.x + x * q.w + y * q.z - z * q.y, w * q.y - x * q.z + y * q.w + z * q.x,
            w * q.z + x * q.y - y * q.x + z * q.w, w * q.w - x * q.x - y * q.y - z * q.z};
}

bool Quat::Equals(const Quat& q, float eps) const {
    return std::fabs(x - q.x) <= eps && std::fabs(y - q.y) <= eps && std::fabs(z - q.z) <= eps &&
           std::fabs(w - q.w) <= eps;
}

float Quat::Length() const {
    return std::sqrt(QuatDot(*this, *this));
}

Quat& Quat::Normalize() {
    const float len = Length();
    if (len > 0.0f) *this = *this / len;
    return *this;
}

void Quat::MakeClosest(const Quat& q) {
    if (QuatDot(*this, q) < 0.0f) *this = -*this;
}

void Quat::MakeMatrix(Matrix3& m) const {
    // 2 / |q|^2 keeps the matrix a rotation for a quaternion that drifted off unit length.
    const float len2 = QuatDot(*this, *this);
    const float s = len2 > 0.0f ? 2.0f / len2 : 0.0f;
    const float xx = x * x * s, yy = y * y * s, zz = z * z * s;
    const float xy = x * y * s, xz = x * z * s, yz = y * z * s;
    const float wx = w * x * s, wy = w * y * s, wz = w * z * s;
    m = Matrix3({1.0f - yy - zz, xy - wz, xz + wy}, {xy + wz, 1.0f - xx - zz, yz - wx},
                {xz - wy, yz + wx, 1.0f - xx - yy}, Point3::Origin);
}

float QuatDot(const Quat& a, const Quat& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z + a.w * b.w;
}

Quat Conjugate(const Quat& q) {
    return q.Conjugate();
}

Quat Inverse(const Quat& q) {
    const float len2 = QuatDot(q, q);
    return len2 > 0.0f ? q.Conjugate() / len2 : q;
}

Quat Normalize(const Quat& q) {
    Quat r = q;
    return r.Normalize();
}

Matrix3 QuatMatrix(const Quat& q) {
    Matrix3 m;
    q.MakeMatrix(m);
    return m;
}

Quat Slerp(const Quat& a, const Quat& b, float t) {
    // The angle between a and b from the chord lengths: accurate also for nearly
    // equal quaternions, where acos of the dot product loses most of its digits.
    const float omega = 2.0f * std::atan2((a - b).Length(), (a + b).Length());
    const float sinOmega = std::sin(omega);
    if (sinOmega > 1e-6f) {
        return a * (std::sin((1.0f - t) * omega) / sinOmega) + b * (std::sin(t * omega) / sinOmega);
    }
    if (omega < 1.0f) return a * (1.0f - t) + b * t;
    // b is -a: turn through a quaternion perpendicular to a, half a turn in 4D.
    const Quat perpendicular(-a.y, a.x, -a.w, a.z);
    const float halfPi = 1.57079632679f;
    return a * std::sin((1.0f - t) * halfPi) + perpendicular * std::sin(t * halfPi);
}

void PreRotateMatrix(Matrix3& m, const Quat& q) {
    m = QuatMatrix(q) * m;
}

void RotateMatrix(Matrix3& m, const Quat& q) {
    m = m * QuatMatrix(q);
}

Quat QLog(const Quat& q) {
    const float vlen = q.Vector().Length();
    if (vlen == 0.0f) return {0.0f, 0.0f, 0.0f, 0.0f};
    const float theta = std::atan2(vlen, q.w) / vlen;
    return {q.x * theta, q.y * theta, q.z * theta, 0.0f};
}

Quat QExp(const Quat& q) {
    const float theta = q.Vector().Length();
    if (theta == 0.0f) return {};
    const float s = std::sin(theta) / theta;
    return {q.x * s, q.y * s, q.z * s, std::cos(theta)};
}

Quat LnDif(const Quat& p, const Quat& q) {
    return QLog(Inverse(p) * q);
}

Point3 RotationVector(const Quat& q) {
    const Quat h = q.w < 0.0f ? -q : q;
    const float vlen = h.Vector().Length();
    if (vlen == 0.0f) return {};
    return h.Vector() * (2.0f * std::atan2(vlen, h.w) / vlen);
}

Quat RotationVectorQuat(const Point3& v) {
    const float angle = v.Length();
    if (angle == 0.0f) return {};
    const float s = std::sin(0.5f * angle) / angle;
    return {v.x * s, v.y * s, v.z * s, std::cos(0.5f * angle)};
}

}  // namespace host

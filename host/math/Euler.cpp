#include "host/math/Euler.h"

#include <cassert>
#include <cfloat>
#include <cmath>

namespace host {

namespace {

constexpr double kPi = 3.14159265358979323846;
constexpr double kTwoPi = 2.0 * kPi;

// Below this |cos| (|sin| for repeating orders) of the middle angle the first and
// third axes coincide to float precision: the rotation is in gimbal lock.
constexpr float kGimbal = 16.0f * FLT_EPSILON;

void RotateAbout(Matrix3& m, int axis, float angle) {
    if (axis == 0)
        m.RotateX(angle);
    else if (axis == 1)
        m.RotateY(angle);
    else
        m.RotateZ(angle);
}

struct Extracted {
    double a[3];
    bool locked;
};

using Rows = double[3][3];

// The rotation rows of a unit quaternion, in double so that angles read near gimbal
// lock (where they hang on small differences of entries) keep their precision.
void RowsOfQuat(const Quat& q, Rows& m) {
    const double x = q.x, y = q.y, z = q.z, w = q.w;
    const double len2 = x * x + y * y + z * z + w * w;
    const double s = len2 > 0.0 ? 2.0 / len2 : 0.0;
    m[0][0] = 1.0 - s * (y * y + z * z), m[0][1] = s * (x * y - z * w),
    m[0][2] = s * (x * z + y * w);
    m[1][0] = s * (x * y + z * w), m[1][1] = 1.0 - s * (x * x + z * z),
    m[1][2] = s * (y * z - x * w);
    m[2][0] = s * (x * z - y * w), m[2][1] = s * (y * z + x * w),
    m[2][2] = 1.0 - s * (x * x + y * y);
}

void RowsOfMatrix(const Matrix3& m, Rows& rows) {
    for (int i = 0; i < 3; ++i)
        for (int j = 0; j < 3; ++j) rows[i][j] = m[i][j];
}

// The angles of a rotation given by its rows. N(r, c) reads the matrix as the
// column-vector matrix of the same rotation, in which order (i, j, k) composes as
// R_k(e2) R_j(e1) R_i(e0); the formulas hold for cyclic axis orders, and an odd
// order is the mirror image of a cyclic one, so its angles change sign.
Extracted RotationToEuler(const Rows& m, int order) {
    const int i = kEulerAxes[order][0], j = kEulerAxes[order][1];
    const int k = 3 - i - j;  // the axis named by neither i nor j
    auto N = [&m](int r, int c) { return m[c][r]; };
    Extracted e{};
    if (!IsRepeatingEulerOrder(order)) {
        const double cy = std::sqrt(N(i, i) * N(i, i) + N(j, i) * N(j, i));
        e.locked = cy <= kGimbal;
        e.a[0] = e.locked ? std::atan2(-N(j, k), N(j, j)) : std::atan2(N(k, j), N(k, k));
        e.a[1] = std::atan2(-N(k, i), cy);
        e.a[2] = e.locked ? 0.0 : std::atan2(N(j, i), N(i, i));
    } else {
        const double sy = std::sqrt(N(i, j) * N(i, j) + N(i, k) * N(i, k));
        e.locked = sy <= kGimbal;
        e.a[0] = e.locked ? std::atan2(-N(j, k), N(j, j)) : std::atan2(N(i, j), N(i, k));
        e.a[1] = std::atan2(sy, N(i, i));
        e.a[2] = e.locked ? 0.0 : std::atan2(N(j, i), -N(k, i));
    }
    if (j != (i + 1) % 3)
        for (double& v : e.a) v = -v;
    return e;
}

// v moved by whole turns to lie nearest ref.
double NearestTurn(double v, double ref) {
    return v + kTwoPi * std::round((ref - v) / kTwoPi);
}

// r brought into -pi to pi by whole turns.
double WrapPi(double r) {
    return NearestTurn(r, 0.0);
}

double Distance2(const double* a, const float* ref) {
    double d = 0.0;
    for (int n = 0; n < 3; ++n) d += (a[n] - ref[n]) * (a[n] - ref[n]);
    return d;
}

// In gimbal lock the rotation fixes only e0 - s*e2: the angles e0 + t, e2 + s*t give
// the same rotation for every t, with s = +1 when the first and third axes have come
// to turn opposite ways and -1 when the same way. Of that family (and its whole
// turns) take the pair nearest ref: the wrapped mismatch is split evenly.
void NearestLocked(const Extracted& e, int order, float* angles) {
    const double middle = e.a[1];
    double s;
    if (IsRepeatingEulerOrder(order)) {
        s = std::cos(middle) > 0.0 ? -1.0 : 1.0;
    } else {
        const bool cyclic = kEulerAxes[order][1] == (kEulerAxes[order][0] + 1) % 3;
        s = (std::sin(middle) > 0.0) == cyclic ? 1.0 : -1.0;
    }
    const double d = angles[0] - e.a[0], f = angles[2] - e.a[2];
    const double r = WrapPi(d - s * f);
    const double out0 = angles[0] - r / 2.0, out2 = angles[2] + s * r / 2.0;
    angles[1] = float(NearestTurn(middle, angles[1]));
    angles[0] = float(out0);
    angles[2] = float(out2);
}

void Store(const double* a, float* angles) {
    for (int n = 0; n < 3; ++n) angles[n] = float(a[n]);
}

}  // namespace

int EulerAxis(int order, int step) {
    assert(step >= 0 && step < 3);
    return kEulerAxes[CheckedEulerOrder(order)][step];
}

void EulerToMatrix(const float* angles, Matrix3& m, int order) {
    order = CheckedEulerOrder(order);
    m.IdentityMatrix();
    for (int n = 0; n < 3; ++n) RotateAbout(m, kEulerAxes[order][n], angles[n]);
}

void PreRotateEuler(Matrix3& m, const float* angles, int order) {
    const int* axes = EulerAxes(order);
    // R0 * R1 * R2 * m: the last rotation reaches m first.
    for (int n = 2; n >= 0; --n) m.PreRotateAbout(axes[n], angles[n]);
}

void EulerToQuat(const float* angles, Quat& q, int order) {
    order = CheckedEulerOrder(order);
    q.Identity();
    // A quaternion turns the other way from a matrix rotation of the same angle.
    for (int n = 0; n < 3; ++n) {
        Quat turn(0.0f, 0.0f, 0.0f, std::cos(angles[n] * 0.5f));
        turn[kEulerAxes[order][n]] = -std::sin(angles[n] * 0.5f);
        q *= turn;
    }
}

void MatrixToEuler(const Matrix3& m, float* angles, int order) {
    order = CheckedEulerOrder(order);
    Matrix3 rotation = m;
    if (!(m.GetIdentFlags() & Matrix3::SCL_IDENT)) rotation.Orthogonalize();
    Rows rows;
    RowsOfMatrix(rotation, rows);
    Store(RotationToEuler(rows, order).a, angles);
}

void QuatToEuler(const Quat& q, float* angles, int order) {
    order = CheckedEulerOrder(order);
    Rows rows;
    RowsOfQuat(q, rows);
    Store(RotationToEuler(rows, order).a, angles);
}

void ContinuousQuatToEuler(const Quat& q, float* angles, int order) {
    order = CheckedEulerOrder(order);
    Rows rows;
    RowsOfQuat(q, rows);
    const Extracted e = RotationToEuler(rows, order);
    if (e.locked) return NearestLocked(e, order, angles);
    // The other solution: the first and third angles half a turn on, the middle one
    // reflected (through pi/2 for orders 0 to 5, through 0 for orders 6 to 8).
    const double middle = IsRepeatingEulerOrder(order) ? -e.a[1] : kPi - e.a[1];
    const double other[3] = {e.a[0] + kPi, middle, e.a[2] + kPi};
    double best[3], alt[3];
    for (int n = 0; n < 3; ++n) {
        best[n] = NearestTurn(e.a[n], angles[n]);
        alt[n] = NearestTurn(other[n], angles[n]);
    }
    Store(Distance2(alt, angles) < Distance2(best, angles) ? alt : best, angles);
}

}  // namespace host

#pragma once

#include <cassert>

#include "host/math/Matrix3.h"
#include "host/math/Quat.h"

namespace host {

// Euler order codes. Angles are in order of application, in radians: the matrix of
// order o is the identity, then Rotate<axis 0>(e0), Rotate<axis 1>(e1),
// Rotate<axis 2>(e2), each a plain (outer-space) Matrix3 rotation.
enum EulerOrder : int {
    EULERTYPE_XYZ = 0,
    EULERTYPE_XZY = 1,
    EULERTYPE_YZX = 2,
    EULERTYPE_YXZ = 3,
    EULERTYPE_ZXY = 4,
    EULERTYPE_ZYX = 5,
    EULERTYPE_XYX = 6,
    EULERTYPE_YZY = 7,
    EULERTYPE_ZXZ = 8,
};
inline constexpr int kEulerOrderCount = 9;

// The axes (0 X, 1 Y, 2 Z) of each order in order of application.
inline constexpr int kEulerAxes[kEulerOrderCount][3] = {
    {0, 1, 2}, {0, 2, 1}, {1, 2, 0}, {1, 0, 2}, {2, 0, 1},
    {2, 1, 0}, {0, 1, 0}, {1, 2, 1}, {2, 0, 2},
};
// An order outside 0 to 8 is a broken invariant; release builds read it as XYZ.
inline int CheckedEulerOrder(int order) {
    assert(order >= 0 && order < kEulerOrderCount);
    return order >= 0 && order < kEulerOrderCount ? order : EULERTYPE_XYZ;
}
// The three axes of order, in order of application.
inline const int* EulerAxes(int order) {
    return kEulerAxes[CheckedEulerOrder(order)];
}

// The axis (0 X, 1 Y, 2 Z) that order applies at step 0, 1 or 2.
int EulerAxis(int order, int step);
// Orders 6 to 8 turn about their first axis again at the third step.
inline bool IsRepeatingEulerOrder(int order) {
    return order >= EULERTYPE_XYX;
}

void EulerToMatrix(const float* angles, Matrix3& m, int order = EULERTYPE_XYZ);
// m = EulerToMatrix(angles) * m, turning m in its own space axis by axis.
void PreRotateEuler(Matrix3& m, const float* angles, int order = EULERTYPE_XYZ);
void EulerToQuat(const float* angles, Quat& q, int order = EULERTYPE_XYZ);
// The angles of m's rotation (m is orthogonalised first unless it is flagged free of
// scale). The middle angle lies in -pi/2 to pi/2 for orders 0 to 5 and in 0 to pi
// for orders 6 to 8; the others in -pi to pi. In gimbal lock the third angle is 0.
void MatrixToEuler(const Matrix3& m, float* angles, int order = EULERTYPE_XYZ);
void QuatToEuler(const Quat& q, float* angles, int order = EULERTYPE_XYZ);
// The angles of q nearest to the angles passed in, which it overwrites: both
// equivalent solutions and whole turns of every angle are considered, and in gimbal
// lock the coupled first and third angles share the change. So a slowly turning
// rotation gives angle curves without flips or jumps of a turn.
void ContinuousQuatToEuler(const Quat& q, float* angles, int order = EULERTYPE_XYZ);

}  // namespace host

#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/math/Quat.h"
#include "host/math/ScaleValue.h"

namespace host {

// A matrix split into position, rotation and scale through decomp_affine. The mirror
// sign goes into the scale factors, so ComposeMatrix gives the matrix back, mirrored
// ones included.
void DecomposeMatrix(const Matrix3& m, Point3& pos, Quat& rot, ScaleValue& scale);
// ScaleValueMatrix(scale) * Matrix(rot) with pos as its translation.
Matrix3 ComposeMatrix(const Point3& pos, const Quat& rot, const ScaleValue& scale);
// The lengths of rows 0, 1 and 2.
Point3 RowLengths(const Matrix3& m);
// Orthogonalises m, then applies the scale in m's local space, unless its factors
// are exactly (1, 1, 1).
void ApplyScaleValue(Matrix3& m, const ScaleValue& scale);
// The rotation of m with any scale removed: the quaternion of an orthogonalised copy.
Quat OrthoQuat(const Matrix3& m);
// The rotation part of m as a matrix, scale and translation removed.
Matrix3 RotationOf(const Matrix3& m);
// m with its rotation replaced by rot; position and scale stay.
Matrix3 ReplaceRotation(const Matrix3& m, const Quat& rot);
// The blend of two transforms: rotations and scale axes by Slerp the short way,
// positions and scale factors linearly. t = 0 gives a, t = 1 gives b.
Matrix3 BlendMatrix(const Matrix3& a, const Matrix3& b, float t);

}  // namespace host

#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/math/Quat.h"

namespace host {

// The fixed rotation of a chosen axis (0 X, 1 Y, 2 Z) and flip, as a matrix without
// translation. Rows, unflipped / flipped:
//   X: identity / (-1,0,0), (0,-1,0), (0,0,1)
//   Y: (0,1,0), (-1,0,0), (0,0,1) / (0,-1,0), (1,0,0), (0,0,1)
//   Z: (0,0,1), (0,1,0), (-1,0,0) / (0,0,-1), (0,1,0), (1,0,0)
Matrix3 AxisMatrix(int axis, bool flip);
// The quaternion of a chosen axis and flip, (x, y, z, w):
//   X: identity / (0,0,1,0)
//   Y: (0,0,0.70710677,0.70710677) / (0,0,-0.70710677,0.70710677)
//   Z: (0,-0.70710677,0,0.70710677) / (0,0.70710677,0,0.70710677)
// Quaternions turn the other way from matrices, so AxisQuat(axis, flip) has the rows
// of AxisMatrix(axis, !flip) for Y and Z.
Quat AxisQuat(int axis, bool flip);
// The twist of q about a coordinate axis, in radians in -pi to pi, signed like the
// matrix rotations RotateX/Y/Z: q with its other two vector components zeroed and
// normalised, angle 2*acos(w), negated when the kept component is 0 or more.
float TwistAbout(const Quat& q, int axis);
// (sin(-a/2), 0, 0, cos(-a/2)): the quaternion of RotateX(a), a swivel about X.
Quat SwivelQuat(float angle);
// The rotation taking the X axis onto the direction of v (row 0 of its matrix is v's
// direction): angle acos(v.x/|v|), axis Normalize((0, v.z, -v.y)). The identity when
// |v| is below 0.01; half a turn about Z when v points along -X.
Quat ArcFromX(const Point3& v);
// The rotation taking the direction of a onto that of b: angle acos(a.b/(|a||b|)),
// axis Normalize(b x a). The identity when |a||b| is below 0.01; half a turn about an
// axis perpendicular to a when they are opposite.
Quat ArcBetween(const Point3& a, const Point3& b);
// a / b, dividing by eps instead when |b| is below eps.
float SafeDiv(float a, float b, float eps);

}  // namespace host

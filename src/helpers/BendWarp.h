#pragma once

#include "host/math/Box3.h"
#include "host/math/Point3.h"

namespace zorvanta {

// The bend of a flat outline: its span along one axis is rolled around an axis across
// it by amount * 2pi radians, as a sheet rolls around a tube. The warp axis picks the
// frame the bend works in: 0 bends along Y (span the length) around X, 1 along X (span
// the width), 2 along Y rolling towards X. Points beyond the span follow the tangent at
// its end. World units in and out; the origin stays where it is.
class BendWarp {
public:
    // Below this absolute angle (radians) the bend leaves every point where it is.
    static constexpr float kMinAngle = 0.01f;

    // span: the length of the bent region along the bend axis, world units.
    BendWarp(float amount, float span, int warpAxis);

    bool Active() const { return active_; }
    host::Point3 Apply(const host::Point3& p) const;
    // A box holding the bend of every point of the box -half..half.
    host::Box3 Bound(const host::Point3& half) const;

private:
    // Into the bend's frame, where the bend runs along Y and rolls towards +Z, and back.
    host::Point3 ToFrame(const host::Point3& p) const;
    host::Point3 FromFrame(const host::Point3& p) const;

    host::Point3 rows_[3];  // the frame, one row per axis: frame = x*row0 + y*row1 + z*row2
    float lower_ = 0.0f;    // the bent region along the frame's Y
    float upper_ = 0.0f;
    float radius_ = 0.0f;  // signed: the bend's radius at Z 0, negative for a negative angle
    bool active_ = false;
};

}  // namespace zorvanta

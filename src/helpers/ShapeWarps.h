#pragma once

#include "host/math/Point3.h"

namespace zorvanta {

class BendWarp;

// The saddle warp of flat round outlines, on a point of the unit curve (half extents 1):
// Z becomes -(2x^2 - 1) * amount, so a positive amount lifts the Y ends and lowers the
// X ends. Applied before the outline is scaled to its half extents.
host::Point3 SaddleWarp(const host::Point3& unit, float amount);

// The box warp: tapers the end of the outline that lies on one side of the plane
// through the origin across axis (0 X, 1 Y, 2 Z). With a negative amount the positive
// side's two other components shrink by 1 + amount; with a positive amount the negative
// side's shrink by 1 - amount. Any space: it only compares signs and scales.
host::Point3 BoxWarp(const host::Point3& p, int axis, float amount);

// How a member's points reach the object's own space: the saddle warp on the unit
// curve, the scale to half extents, then the box warp and the bend in world units.
// The drawing form maps every sampled point; the building form maps each knot and both
// of its handles.
struct PointMap {
    host::Point3 scale{1.0f, 1.0f, 1.0f};
    float saddle = 0.0f;  // saddle warp amount; 0 leaves the outline flat
    int boxAxis = -1;     // box warp axis, -1 for none
    float boxAmount = 0.0f;
    const BendWarp* bend = nullptr;  // null for no bend

    host::Point3 operator()(const host::Point3& p) const;
};

}  // namespace zorvanta

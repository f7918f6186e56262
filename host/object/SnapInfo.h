#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point2.h"
#include "host/math/Point3.h"
#include "host/object/IPoint2.h"

namespace host {

// Snap types: in the construction plane only, or anywhere in space.
inline constexpr int SNAP_2D = 1;
inline constexpr int SNAP_3D = 3;
// Snap flags: points off the construction plane are ignored even in 3D.
inline constexpr int SNAP_IN_PLANE = 1 << 0;

// One snap query as the host passes it to every object near the cursor, and the best
// point found so far, which each object's Snap may improve. A lower priority number
// wins; among equals the point nearer the cursor.
struct SnapInfo {
    int snapType = SNAP_3D;
    int flags = 0;
    // The snap radius, in pixels.
    int strength = 8;
    // The priority the host gives points (vertices, pivots); 0 turns them off.
    int vertPriority = 1;
    // The priority of the best point so far; larger than any when none was found.
    int priority = 1 << 30;
    // The construction plane, plane to world.
    Matrix3 plane;
    // The best point so far: world space, window pixels, pixel distance to the cursor.
    Point3 bestWorld;
    Point2 bestScreen;
    int bestDist = 1 << 30;
    bool found = false;
};

}  // namespace host

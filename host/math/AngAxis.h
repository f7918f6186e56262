#pragma once

#include "host/math/Point3.h"

namespace host {

struct Quat;

// A rotation as a unit axis and an angle in radians, with the handedness of Quat:
// Quat(AngAxis(axis, a)) is (axis * sin(a/2), cos(a/2)). Angles beyond one turn are
// kept as they are, so an AngAxis can carry a multi-turn increment.
struct AngAxis {
    Point3 axis = Point3::XAxis;
    float angle = 0.0f;

    constexpr AngAxis() = default;
    constexpr AngAxis(const Point3& axis_, float angle_) : axis(axis_), angle(angle_) {}
    // The rotation of q by its shorter way: the angle lies in 0 to pi, the axis flips
    // as needed. The identity gives the X axis and angle 0.
    explicit AngAxis(const Quat& q);

    void Set(const Point3& axis_, float angle_) {
        axis = axis_;
        angle = angle_;
    }
    bool operator==(const AngAxis&) const = default;
};

}  // namespace host

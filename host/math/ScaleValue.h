#pragma once

#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/math/Quat.h"

namespace host {

// A scale: factors s along the axes that the rotation q turns the coordinate axes to.
// Its matrix is Inverse(Matrix(q)) * ScaleMatrix(s) * Matrix(q).
struct ScaleValue {
    Point3 s{1.0f, 1.0f, 1.0f};
    Quat q;

    constexpr ScaleValue() = default;
    constexpr explicit ScaleValue(const Point3& s_) : s(s_) {}
    constexpr ScaleValue(const Point3& s_, const Quat& q_) : s(s_), q(q_) {}
    bool operator==(const ScaleValue&) const = default;
};

// The matrix of a ScaleValue, with the scale-axis rotation applied.
Matrix3 ScaleValueMatrix(const ScaleValue& sv);
// m = ScaleValueMatrix(sv) * m: the scale applied in m's local space.
void ApplyScaling(Matrix3& m, const ScaleValue& sv);

}  // namespace host

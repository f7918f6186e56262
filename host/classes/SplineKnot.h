#pragma once

#include "host/math/Point3.h"

namespace host {

// Knot types: how a knot's handles are made. Smooth and corner knots get their handles
// from Spline3D::ComputeBezPoints; Bezier knots keep the handles they are given.
inline constexpr int KTYPE_AUTO = 0;           // smooth: automatic, tangent-continuous
inline constexpr int KTYPE_CORNER = 1;         // handles on the knot: straight segments
inline constexpr int KTYPE_BEZIER = 2;         // given handles, kept
inline constexpr int KTYPE_BEZIER_CORNER = 3;  // given handles, broken (not collinear)

// Line types: the kind of the segment that starts at a knot.
inline constexpr int LTYPE_CURVE = 0;  // the cubic through the handles
inline constexpr int LTYPE_LINE = 1;   // the straight chord, whatever the handles say

// One knot of a Bezier spline. The point and both handles are absolute positions in the
// spline's space (not offsets from the point): the in vector is the handle of the
// segment that ends here, the out vector that of the segment that starts here.
class SplineKnot {
public:
    SplineKnot() = default;
    SplineKnot(int knotType, int lineType, const Point3& point, const Point3& inVec,
               const Point3& outVec)
        : ktype_(knotType), ltype_(lineType), point_(point), in_(inVec), out_(outVec) {}

    int Ktype() const { return ktype_; }
    void SetKtype(int type) { ktype_ = type; }
    int Ltype() const { return ltype_; }
    void SetLtype(int type) { ltype_ = type; }
    const Point3& Knot() const { return point_; }
    void SetKnot(const Point3& p) { point_ = p; }
    const Point3& InVec() const { return in_; }
    void SetInVec(const Point3& p) { in_ = p; }
    const Point3& OutVec() const { return out_; }
    void SetOutVec(const Point3& p) { out_ = p; }

    bool operator==(const SplineKnot&) const = default;

private:
    int ktype_ = KTYPE_AUTO;
    int ltype_ = LTYPE_CURVE;
    Point3 point_;
    Point3 in_;
    Point3 out_;
};

}  // namespace host

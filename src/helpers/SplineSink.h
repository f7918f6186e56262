#pragma once

#include "helpers/ShapeSink.h"
#include "host/classes/BezierShape.h"

namespace zorvanta {

// The building form: every curve becomes one spline of a BezierShape, each knot and
// both its handles mapped. Under a box warp every knot turns Bezier corner, so that its
// handles are kept as warped; Bezier points are recomputed after each spline.
class SplineSink : public ShapeSink {
public:
    SplineSink(host::BezierShape& shape, const host::Point3& target)
        : ShapeSink(target), shape_(shape) {}

    bool Drawing() const override { return false; }
    void Polyline(std::vector<host::Point3> points, bool closed) override;
    void Curve(std::span<const host::SplineKnot> knots, bool closed) override;

private:
    void AddKnot(host::Spline3D& spline, const host::SplineKnot& knot) const;

    host::BezierShape& shape_;
};

}  // namespace zorvanta

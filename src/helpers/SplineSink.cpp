#include "helpers/SplineSink.h"

namespace zorvanta {

using namespace host;

void SplineSink::AddKnot(Spline3D& spline, const SplineKnot& knot) const {
    const int type = map_.boxAxis >= 0 ? KTYPE_BEZIER_CORNER : knot.Ktype();
    spline.AddKnot(
        SplineKnot(type, knot.Ltype(), map_(knot.Knot()), map_(knot.InVec()), map_(knot.OutVec())));
}

void SplineSink::Polyline(std::vector<Point3> points, bool closed) {
    if (points.empty()) return;
    Spline3D* spline = shape_.NewSpline();
    for (const Point3& p : points) AddKnot(*spline, SplineKnot(KTYPE_CORNER, LTYPE_LINE, p, p, p));
    spline->SetClosed(closed);
    spline->ComputeBezPoints();
}

void SplineSink::Curve(std::span<const SplineKnot> knots, bool closed) {
    if (knots.empty()) return;
    Spline3D* spline = shape_.NewSpline();
    for (const SplineKnot& k : knots) AddKnot(*spline, k);
    spline->SetClosed(closed);
    spline->ComputeBezPoints();
}

}  // namespace zorvanta

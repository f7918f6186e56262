#include "helpers/ShapeCurves.h"

#include <algorithm>
#include <cmath>

namespace zorvanta {

using namespace host;

SplineKnot CornerKnot(const Point3& p) {
    return SplineKnot(KTYPE_CORNER, LTYPE_CURVE, p, p, p);
}

SplineKnot HandleKnot(const Point3& p, const Point3& in, const Point3& out, int type) {
    return SplineKnot(type, LTYPE_CURVE, p, in, out);
}

Point3 SegmentPoint(const SplineKnot& a, const SplineKnot& b, float u) {
    const float v = 1.0f - u;
    return a.Knot() * (v * v * v) + a.OutVec() * (3.0f * v * v * u) +
           b.InVec() * (3.0f * v * u * u) + b.Knot() * (u * u * u);
}

Point3 EllipsePoint(const Point3& center, const Point3& u, const Point3& v, float a) {
    return center + u * std::cos(a) + v * std::sin(a);
}

void QuarterArcs(ShapeSink& sink, int steps, const Point3& center, const Point3& u, const Point3& v,
                 int first, int quarters, bool closed) {
    if (sink.Drawing()) {
        const int perQuarter = steps + 1;
        const int n = perQuarter * 4;
        const int count = quarters * perQuarter + (closed ? 0 : 1);
        std::vector<Point3> points(static_cast<size_t>(count));
        for (int i = 0; i < count; ++i) {
            const float a = float(first * perQuarter + i) / float(n) * kTwoPi;
            points[size_t(i)] = EllipsePoint(center, u, v, a);
        }
        sink.Polyline(std::move(points), closed);
        return;
    }
    KnotBuffer knots;
    const int count = quarters + (closed ? 0 : 1);
    for (int i = 0; i < count; ++i) {
        const float a = float(first + i) * kHalfPi;
        const Point3 p = EllipsePoint(center, u, v, a);
        const Point3 tangent = EllipsePoint(Point3::Origin, u, v, a + kHalfPi) * kCircleHandle;
        knots.Add(HandleKnot(p, p - tangent, p + tangent));
    }
    sink.Curve(knots.Knots(), closed);
}

void AppendArc(KnotBuffer& knots, const Point3& center, const Point3& u, const Point3& v,
               float radius, float a0, float a1) {
    const float sweep = a1 - a0;
    const int pieces = std::max(1, int(std::ceil(std::fabs(sweep) / kHalfPi - 1e-4f)));
    const float piece = sweep / float(pieces);
    const float handle = std::tan(piece / 4.0f) * 1.3333334f * radius;
    for (int i = 0; i <= pieces; ++i) {
        const float a = a0 + piece * float(i);
        const Point3 p = EllipsePoint(center, u * radius, v * radius, a);
        const Point3 tangent = EllipsePoint(Point3::Origin, u, v, a + kHalfPi) * handle;
        knots.Add(HandleKnot(p, i == 0 ? p : p - tangent, i == pieces ? p : p + tangent,
                             KTYPE_BEZIER_CORNER));
    }
}

Point3 QuarterTurn(Point3 p, int q) {
    for (int i = 0; i < q; ++i) p = Point3(-p.y, p.x, p.z);
    return p;
}

}  // namespace zorvanta

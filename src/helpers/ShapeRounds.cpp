#include <cmath>

#include "helpers/ShapeCurves.h"
#include "helpers/ShapeMembers.h"

// Flat round outlines in the XY plane, in unit half extents; the saddle warp and the
// scale to half extents come from the sink's map.
namespace zorvanta::shapes {

using namespace host;

namespace {

// The offset line's candidates of a round outline: the points a quarter, a half and
// three quarters round, the start, and the origin.
void RoundCandidates(ShapeSink& sink, const Point3 (&round)[4]) {
    for (int i = 1; i <= 4; ++i) sink.Candidate(round[i % 4]);
    sink.OriginCandidate();
}

void UnitCircleCandidates(ShapeSink& sink) {
    RoundCandidates(sink, {{1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, -1, 0}});
}

Point3 Polar(float radius, float angle) {
    return {radius * std::cos(angle), radius * std::sin(angle), 0.0f};
}

Point3 Tangent(float angle, float length) {
    return Polar(length, angle + kHalfPi);
}

// The peanut's radius at angle a: 1 at the ends of Y, narrowest across X.
float PeanutRadius(float t, float a) {
    return 1.0f - (std::cos(2.0f * a) + 1.0f) * (t * 0.3f + 0.2f);
}

}  // namespace

void Circle(const ShapeContext& ctx, ShapeSink& sink) {
    Ring(sink, ctx.steps, Point3::Origin, Point3::XAxis, Point3::YAxis);
    UnitCircleCandidates(sink);
}

void CircleHalf(const ShapeContext& ctx, ShapeSink& sink) {
    if (sink.Drawing()) {
        // The lower half folds onto the X axis: the straight edge that closes the half.
        const int n = ctx.RingPoints();
        std::vector<Point3> points(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) {
            const Point3 p = Polar(1.0f, float(i) / float(n) * kTwoPi);
            points[size_t(i)] = i > n / 2 ? Point3(p.x, 0.0f, 0.0f) : p;
        }
        sink.Polyline(std::move(points), true);
    } else {
        const Point3 x = Point3::XAxis * kCircleHandle, y = Point3::YAxis * kCircleHandle;
        const SplineKnot knots[3] = {
            HandleKnot({1, 0, 0}, {1, 0, 0}, Point3(1, 0, 0) + y, KTYPE_BEZIER_CORNER),
            HandleKnot({0, 1, 0}, Point3(0, 1, 0) + x, Point3(0, 1, 0) - x),
            HandleKnot({-1, 0, 0}, Point3(-1, 0, 0) + y, {-1, 0, 0}, KTYPE_BEZIER_CORNER)};
        sink.Curve(knots, true);
    }
    RoundCandidates(sink, {{1, 0, 0}, {0, 1, 0}, {-1, 0, 0}, {0, 0, 0}});
}

void CirclePointy(const ShapeContext& ctx, ShapeSink& sink) {
    // Four tips on the unit circle at quarter turns from +Y, the sides between them arcs
    // of the smaller radius inner; each tip's base is pointWidth wide.
    const float pointWidth = ctx.t * 0.7f;
    const float inner = 1.0f - 0.7f * pointWidth;
    const bool straight = inner <= 0.0f || std::sqrt(2.0f) * 0.2f * pointWidth > inner;
    const float a = straight ? 0.0f : std::asin(0.5f * pointWidth / inner);
    KnotBuffer knots;
    for (int q = 0; q < 4; ++q) {
        const float tipAngle = kHalfPi + float(q) * kHalfPi;
        knots.Add(CornerKnot(Polar(1.0f, tipAngle)));
        if (straight) {
            // Too thick for arcs: the tips' bases joined by straight sides.
            knots.Add(CornerKnot(Polar(std::fabs(inner), tipAngle + a)));
            knots.Add(CornerKnot(Polar(std::fabs(inner), tipAngle + kHalfPi - a)));
        } else {
            AppendArc(knots, Point3::Origin, Point3::XAxis, Point3::YAxis, inner, tipAngle + a,
                      tipAngle + kHalfPi - a);
        }
    }
    sink.Curve(knots.Knots(), true);
    RoundCandidates(sink, {{-1, 0, 0}, {0, -1, 0}, {1, 0, 0}, {0, 1, 0}});
}

void Donut(const ShapeContext& ctx, ShapeSink& sink) {
    Ring(sink, ctx.steps, Point3::Origin, Point3::XAxis, Point3::YAxis);
    const float inner = 1.0f - ctx.t;
    Ring(sink, ctx.steps, Point3::Origin, Point3::XAxis * inner, Point3::YAxis * inner);
    UnitCircleCandidates(sink);
}

void Star(const ShapeContext& ctx, ShapeSink& sink) {
    KnotBuffer knots;
    for (int i = 0; i < 16; ++i) {
        const float angle = float(i) / 16.0f * kTwoPi + kHalfPi;
        knots.Add(CornerKnot(Polar(i % 2 == 0 ? 1.0f : ctx.t, angle)));
    }
    sink.Curve(knots.Knots(), true);
    RoundCandidates(sink, {{0, 1, 0}, {-1, 0, 0}, {0, -1, 0}, {1, 0, 0}});
}

void StarSmooth(const ShapeContext& ctx, ShapeSink& sink) {
    // Round tips, soft valleys: every knot's handles lie along the circle's tangent.
    const float handle = std::sqrt(ctx.t) * 0.23f;
    KnotBuffer knots;
    for (int i = 0; i < 8; ++i) {
        const float angle = float(i) / 8.0f * kTwoPi;
        const bool tip = i % 2 == 0;
        const Point3 p = Polar(tip ? 1.0f : ctx.t, angle);
        const Point3 tangent = Tangent(angle, handle);
        knots.Add(
            HandleKnot(p, p - tangent, p + tangent, tip ? KTYPE_BEZIER_CORNER : KTYPE_BEZIER));
    }
    sink.Curve(knots.Knots(), true);
    UnitCircleCandidates(sink);
}

void Gear(const ShapeContext& ctx, ShapeSink& sink) {
    // 40 corners: two on each tooth's top, two at the foot of each gap.
    KnotBuffer knots;
    const float foot = 1.0f - ctx.t / 2.0f;
    for (int i = 0; i < 40; ++i)
        knots.Add(CornerKnot(Polar((i / 2) % 2 == 0 ? 1.0f : foot, float(i) / 40.0f * kTwoPi)));
    sink.Curve(knots.Knots(), true);
    Ring(sink, ctx.steps, Point3::Origin, Point3::XAxis * 0.3f, Point3::YAxis * 0.3f);
    RoundCandidates(sink, {knots[0].Knot(), knots[10].Knot(), knots[20].Knot(), knots[30].Knot()});
}

void Peanut(const ShapeContext& ctx, ShapeSink& sink) {
    const float t = ctx.t;
    if (sink.Drawing()) {
        const int n = ctx.steps * 8 + 8;
        std::vector<Point3> points(static_cast<size_t>(n));
        for (int i = 0; i < n; ++i) {
            const float a = float(i) / float(n) * kTwoPi + kHalfPi;
            points[size_t(i)] = Polar(PeanutRadius(t, a), a);
        }
        sink.Polyline(std::move(points), true);
    } else {
        // Handle lengths at the ends, between, and at the waist, along the curve's
        // tangent (the derivative of the polar curve).
        constexpr float kHandles[3] = {0.525f, 0.464f, 0.169f};
        KnotBuffer knots;
        for (int i = 0; i < 8; ++i) {
            const float a = float(i) / 8.0f * kTwoPi + kHalfPi;
            const float r = PeanutRadius(t, a);
            const float dr = 2.0f * std::sin(2.0f * a) * (t * 0.3f + 0.2f);
            const Point3 direction = Normalize(Polar(dr, a) + Tangent(a, r));
            const int kind = i % 2 == 1 ? 1 : (i % 4 == 0 ? 0 : 2);
            const Point3 handle = direction * (kCircleHandle * kHandles[kind]);
            const Point3 p = Polar(r, a);
            knots.Add(HandleKnot(p, p - handle, p + handle));
        }
        sink.Curve(knots.Knots(), true);
    }
    Point3 round[4];
    for (int q = 0; q < 4; ++q) {
        const float a = float(q) * kHalfPi + kHalfPi;
        round[q] = Polar(PeanutRadius(t, a), a);
    }
    RoundCandidates(sink, round);
}

void Drop(const ShapeContext&, ShapeSink& sink) {
    // A point on top, a round belly below: the belly is near an ellipse around
    // (0, -0.434), 0.594604 wide and 0.566 tall; the sides rise to the point on long
    // handles.
    const Point3 apex(0.0f, 1.0f - 0.1485f, 0.0f);
    const Point3 right(0.594604f, -0.434f, 0.0f), left(-0.594604f, -0.434f, 0.0f);
    const Point3 bottom(0.0f, -1.0f, 0.0f);
    const Point3 rise(0.0f, kCircleHandle, 0.0f);  // from a waist towards the point
    const Point3 fall(0.0f, kCircleHandle * 0.702f, 0.0f);
    const Point3 across(kCircleHandle * 0.594604f, 0.0f, 0.0f);
    const float apexHandle = kCircleHandle * 0.38f;
    const Point3 toRight = Normalize(right + rise - apex) * apexHandle;
    const Point3 toLeft = Normalize(left + rise - apex) * apexHandle;
    const SplineKnot knots[4] = {
        HandleKnot(apex, apex + toLeft, apex + toRight, KTYPE_BEZIER_CORNER),
        HandleKnot(right, right + rise, right - fall),
        HandleKnot(bottom, bottom + across, bottom - across),
        HandleKnot(left, left - fall, left + rise),
    };
    sink.Curve(knots, true);
    sink.Candidate(right);
    sink.Candidate(bottom);
    sink.Candidate(left);
    sink.Candidate(apex);
    sink.OriginCandidate();
}

}  // namespace zorvanta::shapes

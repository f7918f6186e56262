#include <algorithm>
#include <array>
#include <cmath>

#include "helpers/ShapeCurves.h"
#include "helpers/ShapeMembers.h"

// Arrows: closed outlines in unit half extents (tips at 1), in the XY plane but for the
// arrows on a ring. Thickness sets the stem's half width and the head's size.
namespace zorvanta::shapes {

using namespace host;

namespace {

// The straight arrows' proportions for a thickness: stem and head half widths and
// where the head starts, the tip being at 1.
struct ArrowProfile {
    float stem;
    float head;
    float base;
};

ArrowProfile Profile(const ShapeContext& ctx) {
    const float s = std::max(0.001f, ctx.t);
    return {0.25f * s, 0.5f * s, 1.0f - 0.75f * s};
}

// The head of an arrow pointing up +Y (down for sign -1), from the right side of its
// stem round the tip to the left side.
std::array<Point3, 5> Head(const ArrowProfile& a, float sign) {
    const float base = a.base * sign;
    return {{{a.stem * sign, base, 0},
             {a.head * sign, base, 0},
             {0, sign, 0},
             {-a.head * sign, base, 0},
             {-a.stem * sign, base, 0}}};
}

void RingPoint(KnotBuffer& knots, float angle, float z) {
    knots.Add(CornerKnot({std::cos(angle), std::sin(angle), z}));
}

}  // namespace

void Arrow(const ShapeContext& ctx, ShapeSink& sink) {
    const ArrowProfile a = Profile(ctx);
    const auto head = Head(a, 1.0f);
    std::vector<Point3> points{{-a.stem, -1, 0}, {a.stem, -1, 0}};
    points.insert(points.end(), head.begin(), head.end());
    sink.Polyline(std::move(points), true);
}

void ArrowDouble(const ShapeContext& ctx, ShapeSink& sink) {
    const ArrowProfile a = Profile(ctx);
    const auto up = Head(a, 1.0f), down = Head(a, -1.0f);
    std::vector<Point3> points(up.begin(), up.end());
    points.insert(points.end(), down.begin(), down.end());
    sink.Polyline(std::move(points), true);
}

void ArrowCross(const ShapeContext& ctx, ShapeSink& sink) {
    const ArrowProfile a = Profile(ctx);
    // Each arm: the inside corner before it, then its head.
    const auto head = Head(a, 1.0f);
    std::vector<Point3> points;
    points.reserve(4 * (head.size() + 1));
    for (int q = 0; q < 4; ++q) {
        points.push_back(QuarterTurn({a.stem, a.stem, 0}, q));
        for (const Point3& p : head) points.push_back(QuarterTurn(p, q));
    }
    sink.Polyline(std::move(points), true);
}

void ArrowMixed(const ShapeContext& ctx, ShapeSink& sink) {
    // Four arrow heads on stems that rise from a circle of radius 0.6; between the stems
    // the outline follows that circle.
    constexpr float kRound = 0.6f;
    const float scale = 0.5f + 0.5f * ctx.t;
    const float stem = 0.25f * scale, head = 0.5f * scale, base = 1.0f - 0.4f * scale;
    const float meet = std::asin(stem / kRound);  // angle off an arm where its stem meets
    const Point3 arm[5] = {
        {stem, base, 0}, {head, base, 0}, {0, 1, 0}, {-head, base, 0}, {-stem, base, 0}};
    KnotBuffer knots;
    for (int q = 0; q < 4; ++q) {
        const float from = float(q) * kHalfPi + meet;
        AppendArc(knots, Point3::Origin, Point3::XAxis, Point3::YAxis, kRound, from,
                  from + kHalfPi - 2.0f * meet);
        for (const Point3& p : arm) knots.Add(CornerKnot(QuarterTurn(p, q)));
    }
    sink.Curve(knots.Knots(), true);
}

void CrossFlat(const ShapeContext& ctx, ShapeSink& sink) {
    const float half = 0.5f * std::max(0.001f, ctx.t);  // half width of each bar
    const Point3 arm[3] = {{half, half, 0}, {half, 1, 0}, {-half, 1, 0}};
    std::vector<Point3> points;
    points.reserve(12);
    for (int q = 0; q < 4; ++q)
        for (const Point3& p : arm) points.push_back(QuarterTurn(p, q));
    sink.Polyline(std::move(points), true);
}

void ArrowCircle(const ShapeContext& ctx, ShapeSink& sink) {
    // A band around most of a circle, open at the bottom, with a head at its end; the
    // head's outer edge touches the unit circle.
    const float s = std::max(0.001f, ctx.t);
    const float stem = 0.2f * s, head = 0.4f * s;
    const float radius = 1.0f - head;
    const float gap = 0.4f;  // radians each side of -Y left open
    const float tail = -kHalfPi + gap, tip = 3.0f * kHalfPi - gap;
    const float base = tip - 0.6f * s / radius;
    const Point3 x = Point3::XAxis, y = Point3::YAxis;
    KnotBuffer knots;
    AppendArc(knots, Point3::Origin, x, y, radius + stem, tail, base);
    knots.Add(CornerKnot(EllipsePoint(Point3::Origin, x, y, base) * (radius + head)));
    knots.Add(CornerKnot(EllipsePoint(Point3::Origin, x, y, tip) * radius));
    knots.Add(CornerKnot(EllipsePoint(Point3::Origin, x, y, base) * (radius - head)));
    AppendArc(knots, Point3::Origin, x, y, radius - stem, base, tail);
    sink.Curve(knots.Knots(), true);
}

void ArrowCylinder(const ShapeContext& ctx, ShapeSink& sink) {
    // Two arrows running round the unit ring in the XY plane, each a band between
    // heights +-0.2 of the arrow's width, head last; width 2t in unit half extents.
    const float width = 2.0f * ctx.t;
    const float band = 0.2f * width, head = width / 2.0f;
    const float start = ctx.t + kHalfPi - 1.5f;
    const float headLength = 0.25f * width;  // radians along the ring
    for (const float turn : {0.0f, kPi}) {
        const float from = start + turn, to = kPi - start + turn;
        const float base = std::max(from, to - headLength);
        KnotBuffer knots;
        AppendArc(knots, Point3::ZAxis * band, Point3::XAxis, Point3::YAxis, 1.0f, from, base);
        RingPoint(knots, base, head);
        RingPoint(knots, to, 0.0f);
        RingPoint(knots, base, -head);
        AppendArc(knots, Point3::ZAxis * -band, Point3::XAxis, Point3::YAxis, 1.0f, base, from);
        sink.Curve(knots.Knots(), true);
    }
}

}  // namespace zorvanta::shapes

#include <algorithm>
#include <cmath>

#include "helpers/ShapeCurves.h"
#include "helpers/ShapeMembers.h"

// Flat polygons with rounded corners, in world units: the corner radius is a length.
namespace zorvanta::shapes {

using namespace host;

namespace {

// A closed polygon through the corners, each corner rounded by a Bezier arc that
// starts `radius` before it and ends `radius` after it; radius 0 keeps plain corner
// knots. The offset line may end on any segment's middle or on the origin.
void RoundedPolygon(ShapeSink& sink, std::span<const Point3> corners, float radius) {
    KnotBuffer knots;
    const size_t count = corners.size();
    for (size_t i = 0; i < count; ++i) {
        const Point3& corner = corners[i];
        if (radius <= 0.0f) {
            knots.Add(CornerKnot(corner));
            continue;
        }
        const Point3 toPrev = Normalize(corners[(i + count - 1) % count] - corner) * radius;
        const Point3 toNext = Normalize(corners[(i + 1) % count] - corner) * radius;
        const Point3 enter = corner + toPrev, leave = corner + toNext;
        const float pull = kCircleHandle;  // of the way from each end towards the corner
        knots.Add(HandleKnot(enter, enter, enter - toPrev * pull, KTYPE_BEZIER_CORNER));
        knots.Add(HandleKnot(leave, leave - toNext * pull, leave, KTYPE_BEZIER_CORNER));
    }
    sink.Curve(knots.Knots(), true);
    for (int i = 0; i < knots.Count(); ++i)
        sink.Candidate(SegmentPoint(knots[i], knots[(i + 1) % knots.Count()], 0.5f));
    sink.OriginCandidate();
}

float CornerRadius(const ShapeContext& ctx) {
    return std::max(0.0f, std::min({ctx.hx, ctx.hy, ctx.c}));
}

}  // namespace

void Rectangle(const ShapeContext& ctx, ShapeSink& sink) {
    const Point3 corners[4] = {
        {ctx.hx, ctx.hy, 0}, {-ctx.hx, ctx.hy, 0}, {-ctx.hx, -ctx.hy, 0}, {ctx.hx, -ctx.hy, 0}};
    RoundedPolygon(sink, corners, CornerRadius(ctx));
}

void Triangle(const ShapeContext& ctx, ShapeSink& sink) {
    const Point3 corners[3] = {{0, ctx.hy, 0}, {-ctx.hx, -ctx.hy, 0}, {ctx.hx, -ctx.hy, 0}};
    RoundedPolygon(sink, corners, CornerRadius(ctx));
}

}  // namespace zorvanta::shapes

#include <algorithm>

#include "helpers/ShapeCurves.h"
#include "helpers/ShapeMembers.h"

// Outlines of straight lines. All but the tripod work in unit half extents.
namespace zorvanta::shapes {

using namespace host;

namespace {

// The corners of the unit cube, bit 0 for +X, bit 1 for +Y, bit 2 for +Z.
Point3 CubeCorner(int bits) {
    return {bits & 1 ? 1.0f : -1.0f, bits & 2 ? 1.0f : -1.0f, bits & 4 ? 1.0f : -1.0f};
}

void AxisLines(ShapeSink& sink) {
    for (int axis = 0; axis < 3; ++axis) {
        Point3 end;
        end[axis] = 1.0f;
        sink.Polyline({-end, end}, false);
    }
}

// The four diagonals of the cube, each through its centre, scaled.
void Diagonals(ShapeSink& sink, float scale) {
    for (int bits = 0; bits < 4; ++bits)
        sink.Polyline({CubeCorner(bits) * scale, CubeCorner(7 - bits) * scale}, false);
}

// Thickness as the four-copy outlines read it: never quite 0, so each copy keeps an
// outline with area.
float CopyThickness(const ShapeContext& ctx) {
    return std::max(0.001f, ctx.t);
}

// Where the four-copy outlines start their head: the tips are at 1.
float HeadBase(float s) {
    return 1.0f - 0.75f * s;
}

}  // namespace

void Cross(const ShapeContext&, ShapeSink& sink) {
    AxisLines(sink);
}

void CrossDiagonal(const ShapeContext&, ShapeSink& sink) {
    Diagonals(sink, 1.0f);
}

void CrossAsterisk(const ShapeContext&, ShapeSink& sink) {
    AxisLines(sink);
    Diagonals(sink, kSqrtHalf);
}

void AxisTripod(const ShapeContext& ctx, ShapeSink& sink) {
    // World units: each barb is half the thickness of its own axis's length.
    const float halves[3] = {ctx.hx, ctx.hy, ctx.hz};
    // The axis each tip's barbs spread across: Y for the X and Z tips, X for the Y tip.
    constexpr int kSpread[3] = {1, 0, 1};
    for (int axis = 0; axis < 3; ++axis) {
        const float h = halves[axis];
        const float a = h * ctx.t / 2.0f;
        Point3 tip, back;
        tip[axis] = h;
        back[axis] = h - a;
        Point3 spread;
        spread[kSpread[axis]] = a;
        sink.Polyline({Point3::Origin, tip}, false);
        sink.Polyline({back - spread, tip, back + spread}, false);
    }
}

void Box(const ShapeContext&, ShapeSink& sink) {
    // Each edge joins two corners that differ in one bit.
    for (int bits = 0; bits < 8; ++bits)
        for (int axisBit = 1; axisBit < 8; axisBit <<= 1)
            if (!(bits & axisBit))
                sink.Polyline({CubeCorner(bits), CubeCorner(bits | axisBit)}, false);
}

void FourArrows(const ShapeContext& ctx, ShapeSink& sink) {
    const float s = CopyThickness(ctx);
    const float stem = 0.25f * s, head = 0.5f * s, base = HeadBase(s);
    const float start = 0.3f * base;
    const Point3 arrow[7] = {{-stem, start, 0}, {stem, start, 0}, {stem, base, 0}, {head, base, 0},
                             {0, 1, 0},         {-head, base, 0}, {-stem, base, 0}};
    for (int q = 0; q < 4; ++q) {
        std::vector<Point3> points;
        points.reserve(7);
        for (const Point3& p : arrow) points.push_back(QuarterTurn(p, q));
        sink.Polyline(std::move(points), true);
    }
}

void FourPyramids(const ShapeContext& ctx, ShapeSink& sink) {
    const float s = CopyThickness(ctx);
    const float half = 0.3f * s, base = HeadBase(s);
    const Point3 tip(0.0f, 1.0f, 0.0f);
    const Point3 corners[4] = {
        {-half, base, -half}, {half, base, -half}, {half, base, half}, {-half, base, half}};
    for (int q = 0; q < 4; ++q) {
        auto at = [q, &corners](int i) { return QuarterTurn(corners[i], q); };
        sink.Polyline({at(0), at(1), at(2), at(3)}, true);
        sink.Polyline({at(0), QuarterTurn(tip, q), at(2)}, false);
        sink.Polyline({at(1), QuarterTurn(tip, q), at(3)}, false);
    }
}

void FourTriangles(const ShapeContext& ctx, ShapeSink& sink) {
    const float s = CopyThickness(ctx);
    const float half = 0.5f * s, base = HeadBase(s);
    for (int q = 0; q < 4; ++q)
        sink.Polyline({QuarterTurn({-half, base, 0}, q), QuarterTurn({half, base, 0}, q),
                       QuarterTurn({0, 1, 0}, q)},
                      true);
}

}  // namespace zorvanta::shapes

#include <cmath>

#include "helpers/ShapeCurves.h"
#include "helpers/ShapeMembers.h"

// Solids seen as wire: loops and edges in unit half extents, scaled by the sink's map.
namespace zorvanta::shapes {

using namespace host;

namespace {

constexpr Point3 kX = Point3::XAxis, kY = Point3::YAxis, kZ = Point3::ZAxis;

// The ends of the three axes, the offset line's candidates on a sphere.
void AxisEndCandidates(ShapeSink& sink) {
    for (const Point3& axis : {kX, kY, kZ}) {
        sink.Candidate(axis);
        sink.Candidate(-axis);
    }
}

// The icosahedron of vertices (0, +-1, +-golden) and their cyclic permutations,
// normalised.
constexpr Point3 kIcosaVertices[12] = {
    {0.000000f, 0.525731f, 0.850651f},   {0.525731f, 0.850651f, 0.000000f},
    {0.850651f, 0.000000f, 0.525731f},   {0.000000f, 0.525731f, -0.850651f},
    {0.525731f, -0.850651f, 0.000000f},  {-0.850651f, 0.000000f, 0.525731f},
    {0.000000f, -0.525731f, 0.850651f},  {-0.525731f, 0.850651f, 0.000000f},
    {0.850651f, 0.000000f, -0.525731f},  {0.000000f, -0.525731f, -0.850651f},
    {-0.525731f, -0.850651f, 0.000000f}, {-0.850651f, 0.000000f, -0.525731f},
};

// Its 30 edges as four open strips. Every vertex has five edges, so four strips can
// only cover them all by running two edges twice (0-7 and 4-9).
constexpr int kIcosaStrip0[] = {1, 0, 2, 4, 6, 0, 5, 6, 2, 1, 3, 7, 1, 8, 3, 9, 4, 8, 2};
constexpr int kIcosaStrip1[] = {6, 10, 5, 11, 3};
constexpr int kIcosaStrip2[] = {5, 7, 0, 7, 11, 9, 10, 4, 9, 8};
constexpr int kIcosaStrip3[] = {11, 10};
constexpr std::span<const int> kIcosaStrips[4] = {kIcosaStrip0, kIcosaStrip1, kIcosaStrip2,
                                                  kIcosaStrip3};

// Straight lines joining the quarter points of the unit circle at Z -1 to `top`, or to
// the same points at Z +1 when top is null.
void QuarterRisers(ShapeSink& sink, const Point3* top) {
    for (int q = 0; q < 4; ++q) {
        const Point3 foot = QuarterTurn(Point3(1.0f, 0.0f, -1.0f), q);
        sink.Polyline({foot, top ? *top : Point3(foot.x, foot.y, 1.0f)}, false);
    }
}

}  // namespace

void Sphere(const ShapeContext& ctx, ShapeSink& sink) {
    Ring(sink, ctx.steps, Point3::Origin, kX, kY);
    Ring(sink, ctx.steps, Point3::Origin, kY, kZ);
    Ring(sink, ctx.steps, Point3::Origin, kZ, kX);
    AxisEndCandidates(sink);
}

void SphereHalf(const ShapeContext& ctx, ShapeSink& sink) {
    Ring(sink, ctx.steps, Point3::Origin, kX, kY);
    QuarterArcs(sink, ctx.steps, Point3::Origin, kX, kZ, 0, 2, false);
    QuarterArcs(sink, ctx.steps, Point3::Origin, kY, kZ, 0, 2, false);
    for (const Point3& p : {kX, kY, -kX, -kY, kZ}) sink.Candidate(p);
    sink.OriginCandidate();
}

void SphereGeo(const ShapeContext& ctx, ShapeSink& sink) {
    Ring(sink, ctx.steps, Point3::Origin, kX, kY);
    for (int i = 0; i < 4; ++i) {
        const float turn = float(i) * 0.7853982f;
        Ring(sink, ctx.steps, Point3::Origin, Point3(std::cos(turn), std::sin(turn), 0.0f), kZ);
    }
    for (const float height : {kSqrtHalf, -kSqrtHalf})
        Ring(sink, ctx.steps, kZ * height, kX * kSqrtHalf, kY * kSqrtHalf);
    AxisEndCandidates(sink);
}

void SphereIcosa(const ShapeContext&, ShapeSink& sink) {
    for (std::span<const int> strip : kIcosaStrips) {
        std::vector<Point3> points;
        points.reserve(strip.size());
        for (int vertex : strip) points.push_back(kIcosaVertices[vertex]);
        sink.Polyline(std::move(points), false);
    }
}

void Cylinder(const ShapeContext& ctx, ShapeSink& sink) {
    Ring(sink, ctx.steps, -kZ, kX, kY);
    Ring(sink, ctx.steps, kZ, kX, kY);
    QuarterRisers(sink, nullptr);
}

void Cone(const ShapeContext& ctx, ShapeSink& sink) {
    Ring(sink, ctx.steps, -kZ, kX, kY);
    QuarterRisers(sink, &kZ);
    sink.Candidate(kZ);
    sink.Candidate(-kZ);
    sink.OriginCandidate();
}

void Diamond(const ShapeContext&, ShapeSink& sink) {
    for (const auto& [u, v] : {std::pair{kX, kY}, std::pair{kY, kZ}, std::pair{kZ, kX}})
        sink.Polyline({u, v, -u, -v}, true);
}

}  // namespace zorvanta::shapes

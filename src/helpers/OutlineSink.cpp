#include "helpers/OutlineSink.h"

#include "helpers/ShapeCurves.h"

namespace zorvanta {

using namespace host;

namespace {

Point3 Lerp(const Point3& a, const Point3& b, float u) {
    return a + (b - a) * u;
}

bool Straight(const SplineKnot& a, const SplineKnot& b) {
    return a.Ltype() == LTYPE_LINE || (a.OutVec() == a.Knot() && b.InVec() == b.Knot());
}

}  // namespace

void OutlineSink::Polyline(std::vector<Point3> points, bool closed) {
    if (points.empty()) return;
    const int chords = Chords(true);
    if (chords == 1) {
        for (Point3& p : points) p = map_(p);
        out_.AddLine(std::move(points), closed);
        return;
    }
    const size_t count = points.size();
    const size_t segments = closed ? count : count - 1;
    std::vector<Point3> line;
    line.reserve(segments * size_t(chords) + 1);
    for (size_t s = 0; s < segments; ++s)
        for (int j = 0; j < chords; ++j)
            line.push_back(map_(Lerp(points[s], points[(s + 1) % count], float(j) / chords)));
    if (!closed) line.push_back(map_(points.back()));
    out_.AddLine(std::move(line), closed);
}

void OutlineSink::Curve(std::span<const SplineKnot> knots, bool closed) {
    if (knots.empty()) return;
    const size_t count = knots.size();
    const size_t segments = closed ? count : count - 1;
    std::vector<Point3> line;
    line.reserve(segments * size_t(steps_ + 1) + 1);
    for (size_t s = 0; s < segments; ++s) {
        const SplineKnot& a = knots[s];
        const SplineKnot& b = knots[(s + 1) % count];
        const bool straight = Straight(a, b);
        const int chords = Chords(straight);
        for (int j = 0; j < chords; ++j) {
            const float u = float(j) / chords;
            line.push_back(map_(straight ? Lerp(a.Knot(), b.Knot(), u) : SegmentPoint(a, b, u)));
        }
    }
    if (!closed) line.push_back(map_(knots.back().Knot()));
    out_.AddLine(std::move(line), closed);
}

}  // namespace zorvanta

#include "host/classes/Spline3D.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::PointNear;

// A spline through points whose handles ComputeBezPoints makes.
Spline3D Through(const std::vector<Point3>& points, int knotType, bool closed) {
    Spline3D s;
    for (const Point3& p : points) s.AddKnot(SplineKnot(knotType, LTYPE_CURVE, p, p, p));
    s.SetClosed(closed);
    s.ComputeBezPoints();
    return s;
}

// One segment with the control points (0,0,0), (1,2,0), (3,2,0), (4,0,0).
Spline3D Arch() {
    Spline3D s;
    s.AddKnot(SplineKnot(KTYPE_BEZIER, LTYPE_CURVE, {0, 0, 0}, {-1, -2, 0}, {1, 2, 0}));
    s.AddKnot(SplineKnot(KTYPE_BEZIER, LTYPE_CURVE, {4, 0, 0}, {3, 2, 0}, {5, -2, 0}));
    return s;
}

float DistanceFromLine(const Point3& p, const Point3& a, const Point3& b) {
    return Length((p - a) ^ Normalize(b - a));
}

TEST(Spline3D, InterpBezier3DIsTheCubicThroughTheHandles) {
    Spline3D s = Arch();
    // Bernstein weights worked by hand: at 1/4 they are 27, 27, 9, 1 over 64.
    const struct {
        float u;
        Point3 point;
    } expected[] = {
        {0.0f, {0, 0, 0}}, {0.25f, {0.90625f, 1.125f, 0}}, {0.5f, {2, 1.5f, 0}}, {1.0f, {4, 0, 0}}};
    for (const auto& e : expected) {
        EXPECT_TRUE(PointNear(s.InterpBezier3D(0, e.u), e.point, 1e-5f)) << "u " << e.u;
        EXPECT_TRUE(PointNear(s.InterpCurve3D(e.u), e.point, 1e-5f)) << "u " << e.u;
    }
    EXPECT_TRUE(PointNear(s.TangentBezier3D(0, 0.0f), {3, 6, 0}, 1e-5f));  // 3 (p1 - p0)
    EXPECT_TRUE(PointNear(s.TangentBezier3D(0, 0.5f), {4.5f, 0, 0}, 1e-5f));
    EXPECT_TRUE(PointNear(s.InterpBezier3D(1, 0.5f), {}, 0.0f));  // no such segment
    // A line segment ignores the handles and runs along the chord at even speed.
    ASSERT_TRUE(s.SetLineType(0, LTYPE_LINE));
    EXPECT_TRUE(PointNear(s.InterpBezier3D(0, 0.25f), {1, 0, 0}, 1e-5f));
    EXPECT_TRUE(PointNear(s.TangentBezier3D(0, 0.7f), {4, 0, 0}, 1e-5f));
}

TEST(Spline3D, SmoothKnotsGiveAContinuousTangent) {
    const std::vector<Point3> points = {{0, 0, 0}, {3, 1, 0}, {5, -2, 1}, {9, 0, 2}, {10, 4, 0}};
    for (const bool closed : {false, true}) {
        const Spline3D s = Through(points, KTYPE_AUTO, closed);
        const int n = s.KnotCount();
        for (int k = 0; k < n; ++k) {
            const bool inner = closed || (k > 0 && k < n - 1);
            if (!inner) continue;
            // The curve's direction just before and just after the knot, by small chords.
            const int before = (k + n - 1) % n, after = k;
            const Point3 p = s.GetKnotPoint(k);
            const Point3 in = Normalize(p - s.InterpBezier3D(before, 0.999f));
            const Point3 out = Normalize(s.InterpBezier3D(after, 0.001f) - p);
            EXPECT_TRUE(PointNear(in, out, 1e-2f)) << "knot " << k << " closed " << closed;
            // Each handle is a third of the way to its own neighbour.
            const Point3 next = s.GetKnotPoint((k + 1) % n), prev = s.GetKnotPoint(before);
            EXPECT_NEAR(Length(s.GetOutVec(k) - p), Length(next - p) / 3, 1e-5f);
            EXPECT_NEAR(Length(s.GetInVec(k) - p), Length(prev - p) / 3, 1e-5f);
            // ...along the line through the two neighbours.
            EXPECT_TRUE(PointNear(Normalize(s.GetOutVec(k) - s.GetInVec(k)), Normalize(next - prev),
                                  1e-5f));
        }
    }
    // The ends of an open spline aim at their neighbours.
    const Spline3D open = Through(points, KTYPE_AUTO, false);
    EXPECT_TRUE(PointNear(open.GetOutVec(0), points[1] / 3, 1e-5f));
    EXPECT_NEAR(DistanceFromLine(open.GetInVec(4), points[3], points[4]), 0, 1e-5f);
}

TEST(Spline3D, CornerKnotsMakeStraightSegments) {
    const std::vector<Point3> points = {{0, 0, 0}, {4, 1, 0}, {4, 5, 3}, {-2, 2, 2}};
    Spline3D s = Through(points, KTYPE_CORNER, false);
    for (int seg = 0; seg < s.Segments(); ++seg)
        for (float u = 0.1f; u < 1.0f; u += 0.2f) {
            const Point3 p = s.InterpBezier3D(seg, u);
            EXPECT_NEAR(DistanceFromLine(p, points[seg], points[seg + 1]), 0, 1e-5f);
            const float along = (p - points[seg]) % Normalize(points[seg + 1] - points[seg]);
            EXPECT_TRUE(along > 0 && along < Length(points[seg + 1] - points[seg]));
        }
}

TEST(Spline3D, AClosedSplineRunsBackToItsFirstKnot) {
    Spline3D s = Through({{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {0, 2, 0}}, KTYPE_CORNER, false);
    EXPECT_EQ(s.Segments(), 3);
    EXPECT_TRUE(PointNear(s.InterpCurve3D(1.0f), {0, 2, 0}, 1e-6f));
    EXPECT_NEAR(s.SplineLength(), 6.0f, 1e-4f);
    s.SetClosed();
    EXPECT_EQ(s.Segments(), 4);
    EXPECT_TRUE(PointNear(s.InterpBezier3D(3, 0.5f), {0, 1, 0}, 1e-6f));
    EXPECT_TRUE(PointNear(s.InterpCurve3D(0.875f), {0, 1, 0}, 1e-6f));
    EXPECT_TRUE(PointNear(s.InterpCurve3D(1.0f), {0, 0, 0}, 1e-6f));
    EXPECT_NEAR(s.SplineLength(), 8.0f, 1e-4f);
}

TEST(Spline3D, TransformCarriesKnotsHandlesAndTheCurve) {
    test::MathRandom random(7);
    Spline3D s;
    for (int i = 0; i < 5; ++i)
        s.AddKnot(SplineKnot(KTYPE_BEZIER_CORNER, LTYPE_CURVE, random.Vector(-5, 5),
                             random.Vector(-5, 5), random.Vector(-5, 5)));
    s.SetClosed();
    Matrix3 tm = ScaleMatrix({2, 0.5f, 3}) * RotateXMatrix(0.7f) * RotateZMatrix(-1.2f);
    tm.Translate({10, -4, 6});
    const Spline3D before = s;
    s.Transform(tm);
    for (int i = 0; i < s.Verts(); ++i)
        EXPECT_TRUE(PointNear(s.GetVert(i), before.GetVert(i) * tm, 1e-4f)) << "vert " << i;
    // Bezier curves are affine invariant: the curve moves as its points do.
    for (float u = 0.0f; u <= 1.0f; u += 0.05f)
        EXPECT_TRUE(PointNear(s.InterpCurve3D(u), before.InterpCurve3D(u) * tm, 1e-3f));
}

TEST(Spline3D, BoundingBoxHugsTheCurveNotTheHandles) {
    test::MathRandom random(11);
    for (int trial = 0; trial < 20; ++trial) {
        Spline3D s;
        for (int i = 0; i < 4; ++i)
            s.AddKnot(SplineKnot(KTYPE_BEZIER, LTYPE_CURVE, random.Vector(-5, 5),
                                 random.Vector(-8, 8), random.Vector(-8, 8)));
        s.SetClosed(trial % 2 == 0);
        const Box3 box = s.GetBBox();
        Box3 sampled;
        for (int seg = 0; seg < s.Segments(); ++seg)
            for (int i = 0; i <= 4000; ++i) sampled += s.InterpBezier3D(seg, float(i) / 4000);
        EXPECT_TRUE(PointNear(box.pmin, sampled.pmin, 1e-3f)) << "trial " << trial;
        EXPECT_TRUE(PointNear(box.pmax, sampled.pmax, 1e-3f)) << "trial " << trial;
    }
    // The arch's handles reach y = 2, its curve only 1.5.
    Spline3D arch = Arch();
    EXPECT_NEAR(arch.GetBBox().pmax.y, 1.5f, 1e-5f);
    // The cache follows edits.
    EXPECT_FALSE(arch.Dirty());
    ASSERT_TRUE(arch.SetKnotPoint(1, {8, 0, 0}));
    EXPECT_TRUE(arch.Dirty());
    EXPECT_NEAR(arch.GetBBox().pmax.x, 8.0f, 1e-5f);
}

TEST(Spline3D, LengthAndTheNormalizedParameter) {
    // A circle of four Bezier quarter arcs, radius 5.
    constexpr float r = 5, k = 0.5522848f * r;
    Spline3D circle;
    const Point3 tangents[4] = {{0, k, 0}, {-k, 0, 0}, {0, -k, 0}, {k, 0, 0}};
    const Point3 points[4] = {{r, 0, 0}, {0, r, 0}, {-r, 0, 0}, {0, -r, 0}};
    for (int i = 0; i < 4; ++i)
        circle.AddKnot(SplineKnot(KTYPE_BEZIER, LTYPE_CURVE, points[i], points[i] - tangents[i],
                                  points[i] + tangents[i]));
    circle.SetClosed();
    EXPECT_NEAR(circle.SplineLength(), 2 * test::kPi * r, 2 * test::kPi * r * 1e-3f);
    EXPECT_NEAR(circle.GetBBox().pmax.x, r, 1e-5f);

    // Uneven segments: by segment, u = 0.5 is the middle knot; by length, halfway.
    const Spline3D line = Through({{0, 0, 0}, {1, 0, 0}, {10, 0, 0}}, KTYPE_CORNER, false);
    EXPECT_NEAR(line.SplineLength(), 10.0f, 1e-4f);
    EXPECT_TRUE(PointNear(line.InterpCurve3D(0.5f), {1, 0, 0}, 1e-5f));
    for (const float u : {0.0f, 0.05f, 0.25f, 0.5f, 0.9f, 1.0f})
        EXPECT_NEAR(line.InterpCurve3D(u, SPLINE_INTERP_NORMALIZED).x, 10 * u, 1e-2f) << u;
}

TEST(Spline3D, DegenerateSplinesAndMissingKnots) {
    Spline3D s;
    EXPECT_TRUE(s.GetBBox().IsEmpty());
    EXPECT_EQ(s.SplineLength(), 0.0f);
    EXPECT_TRUE(PointNear(s.InterpCurve3D(0.5f), {}, 0.0f));
    EXPECT_FALSE(s.SetKnotPoint(0, {1, 1, 1}) || s.DeleteKnot(0) || s.SetVert(0, {}));
    s.AddKnot(SplineKnot(KTYPE_AUTO, LTYPE_CURVE, {1, 2, 3}, {}, {}));
    s.SetClosed();
    s.ComputeBezPoints();  // no neighbours: the handles fold onto the knot
    EXPECT_EQ(s.Segments(), 0);
    EXPECT_TRUE(PointNear(s.InterpCurve3D(0.7f), {1, 2, 3}, 0.0f));
    EXPECT_TRUE(PointNear(s.GetOutVec(0), {1, 2, 3}, 0.0f));
}

}  // namespace
}  // namespace host

#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "helpers/ShapeCatalogue.h"

namespace zorvanta::test {
namespace {

using namespace host;

ShapeInputs Inputs(ShapeType type) {
    ShapeInputs in;
    in.type = int(type);
    return in;
}

WireOutline Outline(const ShapeInputs& in) {
    WireOutline out;
    EXPECT_TRUE(ShapeOutline(in, out));
    return out;
}

std::string Name(int type) {
    const std::wstring name = ShapeEnumName(type);
    return std::string(name.begin(), name.end()) + " (" + std::to_string(type) + ")";
}

bool Finite(const Point3& p) {
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

// Box b grown by tol on every side holds p.
bool Holds(const Box3& b, const Point3& p, float tol) {
    for (int i = 0; i < 3; ++i)
        if (p[i] < b.pmin[i] - tol || p[i] > b.pmax[i] + tol) return false;
    return true;
}

// The outline point nearest to p.
Point3 Nearest(const WireOutline& out, const Point3& p) {
    Point3 best;
    float bestDistance = 1e30f;
    for (const auto& line : out.Lines())
        for (const Point3& q : line.points)
            if (Length(q - p) < bestDistance) {
                bestDistance = Length(q - p);
                best = q;
            }
    return best;
}

struct Variant {
    const char* name;
    void (*apply)(ShapeInputs&);
};

// Inputs every member must survive: zero sizes, no steps, every warp on every axis.
std::vector<Variant> Variants() {
    std::vector<Variant> v = {
        {"default", [](ShapeInputs&) {}},
        {"non-uniform zero",
         [](ShapeInputs& in) {
             in.uniform = false;
             in.length = in.width = in.height = 0.0f;
         }},
        {"non-uniform",
         [](ShapeInputs& in) {
             in.uniform = false;
             in.length = 30.0f;
             in.width = 8.0f;
             in.height = 2.0f;
             in.corner = 3.0f;
         }},
        {"zero size", [](ShapeInputs& in) { in.size = 0.0f; }},
        {"steps 0", [](ShapeInputs& in) { in.steps = 0; }},
        {"thick", [](ShapeInputs& in) { in.thickness = 1.0f; }},
        {"thin", [](ShapeInputs& in) { in.thickness = 0.0f; }},
    };
    // Captureless lambdas cannot hold the warp, so the nine warps are spelled out.
    v.push_back({"warp -1 X", [](ShapeInputs& in) { in.warpAmount = -1.0f, in.warpAxis = 0; }});
    v.push_back({"warp 0 X", [](ShapeInputs& in) { in.warpAmount = 0.0f, in.warpAxis = 0; }});
    v.push_back({"warp 1 X", [](ShapeInputs& in) { in.warpAmount = 1.0f, in.warpAxis = 0; }});
    v.push_back({"warp -1 Y", [](ShapeInputs& in) { in.warpAmount = -1.0f, in.warpAxis = 1; }});
    v.push_back({"warp 0 Y", [](ShapeInputs& in) { in.warpAmount = 0.0f, in.warpAxis = 1; }});
    v.push_back({"warp 1 Y", [](ShapeInputs& in) { in.warpAmount = 1.0f, in.warpAxis = 1; }});
    v.push_back({"warp -1 Z", [](ShapeInputs& in) { in.warpAmount = -1.0f, in.warpAxis = 2; }});
    v.push_back({"warp 0 Z", [](ShapeInputs& in) { in.warpAmount = 0.0f, in.warpAxis = 2; }});
    v.push_back({"warp 1 Z", [](ShapeInputs& in) { in.warpAmount = 1.0f, in.warpAxis = 2; }});
    v.push_back({"warp 0.3 Z non-uniform", [](ShapeInputs& in) {
                     in.uniform = false;
                     in.width = 40.0f;
                     in.height = 0.0f;
                     in.warpAmount = 0.3f;
                     in.warpAxis = 2;
                 }});
    return v;
}

TEST(ShapeCatalogue, EveryMemberDrawsAndBuildsFiniteOutlinesInsideItsBox) {
    for (const Variant& variant : Variants()) {
        for (int type = 0; type < kShapeCount; ++type) {
            ShapeInputs in = Inputs(ShapeType(type));
            variant.apply(in);
            const std::string where = std::string(variant.name) + ", " + Name(type);
            WireOutline out;
            ASSERT_TRUE(ShapeOutline(in, out)) << where;
            BezierShape shape;
            const bool built = BuildShapeSplines(in, shape);
            const bool none = type == int(ShapeType::None);
            EXPECT_EQ(out.IsEmpty(), none) << where;
            EXPECT_EQ(built, !none && type != int(ShapeType::IKFK)) << where;

            // A little slack: a Bezier circle bulges past its radius by under 0.03%.
            const Box3 box = ShapeLocalBox(in);
            const float tol = 1e-3f * (in.size + in.width + in.length + in.height) + 1e-5f;
            for (const auto& line : out.Lines()) {
                EXPECT_GE(line.points.size(), 2u) << where;
                for (const Point3& p : line.points) {
                    ASSERT_TRUE(Finite(p)) << where;
                    EXPECT_TRUE(Holds(box, p, tol))
                        << where << ": " << p.x << " " << p.y << " " << p.z;
                }
            }
            for (int i = 0; i < shape.NumPoints(); ++i)
                ASSERT_TRUE(Finite(shape.GetPoint(i))) << where;
            // Handles may stand outside; the curves may not.
            if (built) {
                const Box3 curves = shape.GetBoundingBox();
                EXPECT_TRUE(Holds(box, curves.pmin, tol) && Holds(box, curves.pmax, tol)) << where;
            }
        }
    }
}

TEST(ShapeCatalogue, IndicesOutsideTheCatalogueAddNothing) {
    for (const int type : {-1, kShapeCount}) {
        ShapeInputs in = Inputs(ShapeType::Circle);
        in.type = type;
        in.offsetLine = true;
        WireOutline out;
        BezierShape shape;
        EXPECT_FALSE(ShapeOutline(in, out));
        EXPECT_FALSE(BuildShapeSplines(in, shape));
        EXPECT_TRUE(out.IsEmpty());
        EXPECT_EQ(shape.SplineCount(), 0);
        EXPECT_TRUE(ShapeLocalBox(in).IsEmpty());
    }
}

TEST(ShapeCatalogue, CircleIsExactPointsDrawnAndFourKnotsBuilt) {
    ShapeInputs in = Inputs(ShapeType::Circle);
    in.uniform = false;
    in.width = 8.0f;   // hx 4
    in.length = 6.0f;  // hy 3
    for (const int steps : {0, 6}) {
        in.steps = steps;
        const WireOutline out = Outline(in);
        ASSERT_EQ(out.Lines().size(), 1u);
        const auto& line = out.Lines()[0];
        EXPECT_TRUE(line.closed);
        ASSERT_EQ(line.points.size(), size_t(steps * 4 + 4));
        for (const Point3& p : line.points)
            EXPECT_NEAR(p.x * p.x / 16.0f + p.y * p.y / 9.0f, 1.0f, 1e-5f);
        EXPECT_TRUE(line.points[0].Equals({4, 0, 0}, 1e-5f));
        EXPECT_TRUE(line.points[size_t(steps + 1)].Equals({0, 3, 0}, 1e-5f));
    }
    BezierShape shape;
    ASSERT_TRUE(BuildShapeSplines(in, shape));
    ASSERT_EQ(shape.SplineCount(), 1);
    const Spline3D& spline = *shape.GetSpline(0);
    ASSERT_EQ(spline.KnotCount(), 4);
    EXPECT_TRUE(spline.Closed());
    // The Bezier circle's midpoints stay within 0.03% of the ellipse.
    for (int s = 0; s < 4; ++s) {
        const Point3 p = spline.InterpBezier3D(s, 0.5f);
        EXPECT_NEAR(p.x * p.x / 16.0f + p.y * p.y / 9.0f, 1.0f, 1e-3f);
    }
    EXPECT_NEAR(Length(spline.GetOutVec(0) - spline.GetKnotPoint(0)), 0.5522848f * 3.0f, 1e-5f);
}

TEST(ShapeCatalogue, SaddleWarpLiftsTheYEndsAndLowersTheXEnds) {
    ShapeInputs in = Inputs(ShapeType::Circle);
    in.warpAmount = 0.5f;
    const WireOutline out = Outline(in);
    EXPECT_NEAR(Nearest(out, {0, 10, 5}).z, 5.0f, 1e-4f);
    EXPECT_NEAR(Nearest(out, {0, -10, 5}).z, 5.0f, 1e-4f);
    EXPECT_NEAR(Nearest(out, {10, 0, -5}).z, -5.0f, 1e-4f);
    in.warpAmount = -0.5f;
    EXPECT_NEAR(Nearest(Outline(in), {0, 10, -5}).z, -5.0f, 1e-4f);
}

TEST(ShapeCatalogue, BoxWarpTapersOneEndAndSparesTheCylinderBelowItsDeadZone) {
    ShapeInputs box = Inputs(ShapeType::Box);
    box.warpAxis = 2;
    box.warpAmount = -0.5f;  // the +Z end shrinks to half
    const WireOutline tapered = Outline(box);
    for (const auto& line : tapered.Lines())
        for (const Point3& p : line.points) {
            const float expected = p.z > 0.0f ? 5.0f : 10.0f;
            EXPECT_NEAR(std::fabs(p.x), expected, 1e-4f);
            EXPECT_NEAR(std::fabs(p.y), expected, 1e-4f);
        }

    ShapeInputs cylinder = Inputs(ShapeType::Cylinder);
    cylinder.warpAxis = 0;  // the cylinder tapers along Z whatever the axis says
    cylinder.warpAmount = 0.01f;
    EXPECT_EQ(Nearest(Outline(cylinder), {20, 0, -10}).x, 10.0f);
    cylinder.warpAmount = 0.5f;  // the -Z ring shrinks
    const WireOutline warped = Outline(cylinder);
    EXPECT_NEAR(Nearest(warped, {20, 0, -10}).x, 5.0f, 1e-4f);
    EXPECT_NEAR(Nearest(warped, {20, 0, 10}).x, 10.0f, 1e-4f);
    BezierShape shape;
    ASSERT_TRUE(BuildShapeSplines(cylinder, shape));
    // Warped knots keep their handles: every knot is a Bezier corner.
    for (int s = 0; s < shape.SplineCount(); ++s)
        for (int k = 0; k < shape.GetSpline(s)->KnotCount(); ++k)
            EXPECT_EQ(shape.GetSpline(s)->GetKnotType(k), KTYPE_BEZIER_CORNER);
}

TEST(ShapeCatalogue, RectangleCornersClampToTheShorterSide) {
    ShapeInputs in = Inputs(ShapeType::Rectangle);
    in.uniform = false;
    in.width = 10.0f;  // hx 5
    in.length = 6.0f;  // hy 3
    struct Case {
        float corner;
        int knots;
        Point3 onTop;  // the knot where the top side starts its right corner
    };
    const Case cases[] = {{0.0f, 4, {5, 3, 0}}, {2.0f, 8, {3, 3, 0}}, {100.0f, 8, {2, 3, 0}}};
    for (const Case& c : cases) {
        in.corner = c.corner;
        BezierShape shape;
        ASSERT_TRUE(BuildShapeSplines(in, shape));
        const Spline3D& spline = *shape.GetSpline(0);
        ASSERT_EQ(spline.KnotCount(), c.knots) << c.corner;
        bool found = false;
        for (int k = 0; k < spline.KnotCount(); ++k) {
            found = found || spline.GetKnotPoint(k).Equals(c.onTop, 1e-5f);
            EXPECT_LE(std::fabs(spline.GetKnotPoint(k).x), 5.0f);
            EXPECT_LE(std::fabs(spline.GetKnotPoint(k).y), 3.0f);
        }
        EXPECT_TRUE(found) << c.corner;
    }
}

TEST(ShapeCatalogue, RectangleBendRollsItsSpanOntoACircle) {
    ShapeInputs in = Inputs(ShapeType::Rectangle);
    in.warpAmount = 1.0f;  // one full turn: the 20-long span becomes a circle
    in.warpAxis = 0;
    const float radius = (20.0f + 0.0002f) / 6.2831855f;
    const WireOutline out = Outline(in);
    int points = 0;
    for (const auto& line : out.Lines())
        for (const Point3& p : line.points) {
            EXPECT_NEAR(std::hypot(p.y, p.z - radius), radius, 1e-3f);
            ++points;
        }
    EXPECT_GT(points, 4);  // the straight sides are cut up so that they bend
    // Lengths along the span are kept: both ends of the span meet across the circle.
    const Point3 far(10.0f, 0.0f, 2.0f * radius);
    EXPECT_TRUE(Nearest(out, far).Equals(far, 1e-3f));
    in.warpAmount = 0.001f;  // under 0.01 radians: no bend at all
    const WireOutline flat = Outline(in);
    for (const auto& line : flat.Lines())
        for (const Point3& p : line.points) EXPECT_EQ(p.z, 0.0f);
}

TEST(ShapeCatalogue, OffsetLineRunsToTheNearestCandidate) {
    struct Case {
        ShapeType type;
        Point3 node;
        bool faceCamera;
        Point3 end;
    };
    const Case cases[] = {
        {ShapeType::Circle, {100, 1, 0}, false, {10, 0, 0}},
        {ShapeType::Circle, {1, -30, 3}, false, {0, -10, 0}},
        {ShapeType::Circle, {1, 1, 0}, false, {0, 0, 0}},
        {ShapeType::Circle, {7, 7, 0}, false, {0, 10, 0}},  // a tie: the quarter point is first
        {ShapeType::Circle, {100, 1, 0}, true, {0, 0, 0}},
        {ShapeType::Cone, {0, 1, 50}, false, {0, 0, 10}},
        {ShapeType::Cone, {0, 1, -50}, false, {0, 0, -10}},
        {ShapeType::Sphere, {3, 2, -40}, false, {0, 0, -10}},
        {ShapeType::Rectangle, {0, 30, 0}, false, {0, 10, 0}},
        {ShapeType::Cross, {100, 0, 0}, false, {0, 0, 0}},  // names no candidates
        {ShapeType::None, {4, 5, 6}, false, {0, 0, 0}},
    };
    for (const Case& c : cases) {
        ShapeInputs in = Inputs(c.type);
        in.offsetLine = true;
        in.faceCamera = c.faceCamera;
        in.nodePosition = c.node;
        const WireOutline out = Outline(in);
        ASSERT_FALSE(out.IsEmpty());
        const auto& line = out.Lines().back();
        ASSERT_EQ(line.points.size(), 2u);
        EXPECT_EQ(line.points[0], c.node);
        EXPECT_TRUE(line.points[1].Equals(c.end, 1e-4f))
            << Name(int(c.type)) << " to " << line.points[1].x << " " << line.points[1].y << " "
            << line.points[1].z;
    }
}

TEST(ShapeCatalogue, FourArrowsKeepAnOutlineAtZeroThickness) {
    ShapeInputs in = Inputs(ShapeType::FourArrows);
    in.thickness = 0.0f;
    const WireOutline out = Outline(in);
    ASSERT_EQ(out.Lines().size(), 4u);
    for (const auto& line : out.Lines()) {
        ASSERT_EQ(line.points.size(), 7u);
        // Seven distinct corners: a width of 0.001 keeps the arrow from collapsing.
        for (size_t i = 0; i < 7; ++i)
            for (size_t j = i + 1; j < 7; ++j) EXPECT_NE(line.points[i], line.points[j]);
    }
}

TEST(ShapeCatalogue, GlyphsHaveTheirKnotsAndSplines) {
    struct Case {
        ShapeType type;
        int knots;
        int splines;
    };
    const Case cases[] = {
        {ShapeType::Hand, 27, 1}, {ShapeType::Foot, 33, 6}, {ShapeType::Character, 31, 2},
        {ShapeType::Face, 20, 4}, {ShapeType::Lips, 6, 1},  {ShapeType::Eye, 8, 2},
        {ShapeType::Nose, 12, 1}, {ShapeType::Shoe, 12, 2},
    };
    for (const Case& c : cases) {
        BezierShape shape;
        ASSERT_TRUE(BuildShapeSplines(Inputs(c.type), shape));
        EXPECT_EQ(shape.SplineCount(), c.splines) << Name(int(c.type));
        EXPECT_EQ(shape.NumPoints(), 3 * c.knots) << Name(int(c.type));
        // Drawn, each spline is one line: steps + 1 chords a curved segment.
        EXPECT_EQ(int(Outline(Inputs(c.type)).Lines().size()), c.splines);
    }
    // The eye's lids pass through the corners and the lid tops.
    BezierShape eye;
    ASSERT_TRUE(BuildShapeSplines(Inputs(ShapeType::Eye), eye));
    const float size = 20.0f;
    EXPECT_TRUE(eye.GetSpline(0)->GetKnotPoint(0).Equals({0.49998f * size, 0, 0}, 1e-4f));
    EXPECT_TRUE(eye.GetSpline(0)->GetKnotPoint(1).Equals({0, 0.2486f * size, 0}, 1e-4f));
}

TEST(ShapeCatalogue, SphereIcosaDrawsEveryEdgeOfTheIcosahedron) {
    ShapeInputs in = Inputs(ShapeType::SphereIcosa);
    in.size = 2.0f;  // unit radius
    std::vector<Point3> vertices;
    std::vector<std::pair<Point3, Point3>> segments;
    const WireOutline out = Outline(in);
    for (const auto& line : out.Lines())
        for (size_t i = 0; i + 1 < line.points.size(); ++i) {
            segments.emplace_back(line.points[i], line.points[i + 1]);
            vertices.push_back(line.points[i]);
            vertices.push_back(line.points[i + 1]);
        }
    // The icosahedron's 12 vertices, each with 5 neighbours at the edge length.
    std::vector<Point3> unique;
    for (const Point3& v : vertices) {
        EXPECT_NEAR(Length(v), 1.0f, 1e-4f);
        bool seen = false;
        for (const Point3& u : unique) seen = seen || u.Equals(v, 1e-4f);
        if (!seen) unique.push_back(v);
    }
    ASSERT_EQ(unique.size(), 12u);
    const float edge = 1.0514622f;
    int edges = 0;
    for (size_t i = 0; i < unique.size(); ++i)
        for (size_t j = i + 1; j < unique.size(); ++j) {
            if (std::fabs(Length(unique[i] - unique[j]) - edge) > 1e-3f) continue;
            ++edges;
            bool drawn = false;
            for (const auto& [a, b] : segments)
                drawn = drawn || (a.Equals(unique[i], 1e-4f) && b.Equals(unique[j], 1e-4f)) ||
                        (a.Equals(unique[j], 1e-4f) && b.Equals(unique[i], 1e-4f));
            EXPECT_TRUE(drawn) << i << "-" << j;
        }
    EXPECT_EQ(edges, 30);
    for (const auto& [a, b] : segments) EXPECT_NEAR(Length(a - b), edge, 1e-3f);
}

}  // namespace
}  // namespace zorvanta::test

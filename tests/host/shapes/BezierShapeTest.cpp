#include "host/classes/BezierShape.h"

#include <gtest/gtest.h>

#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::PointNear;

// A closed square of corner knots, side 2, lower left corner at `corner`.
void AddSquare(BezierShape& shape, const Point3& corner) {
    Spline3D* s = shape.NewSpline();
    for (const Point3& d : {Point3(0, 0, 0), Point3(2, 0, 0), Point3(2, 2, 0), Point3(0, 2, 0)})
        s->AddKnot(SplineKnot(KTYPE_CORNER, LTYPE_CURVE, corner + d, {}, {}));
    s->SetClosed();
    s->ComputeBezPoints();
}

TEST(BezierShape, SplinesAreAddressedOneByOneAndAsOneRowOfPoints) {
    BezierShape shape;
    Spline3D* first = shape.NewSpline();
    first->AddKnot(SplineKnot(KTYPE_BEZIER, LTYPE_CURVE, {1, 0, 0}, {0, 0, 0}, {2, 0, 0}));
    for (int i = 0; i < 20; ++i) AddSquare(shape, {float(i), 0, 0});
    EXPECT_EQ(shape.GetSpline(0), first);  // still the same spline after growing
    EXPECT_EQ(shape.GetSpline(21), nullptr);
    EXPECT_EQ(shape.NumPoints(), 3 + 20 * 4 * 3);
    // Points run in vector, knot, out vector, knot by knot and spline by spline.
    EXPECT_TRUE(PointNear(shape.GetPoint(2), {2, 0, 0}, 0.0f));
    // Spline 2 is the square at x = 1; its knot 1 is point 3 + 12 + 3 + 1.
    EXPECT_TRUE(PointNear(shape.GetPoint(3 + 3 * 5 + 1), {3, 0, 0}, 0.0f));
    ASSERT_TRUE(shape.SetPoint(3 + 3 * 5 + 1, {7, 7, 7}));
    EXPECT_TRUE(PointNear(shape.GetSpline(2)->GetKnotPoint(1), {7, 7, 7}, 0.0f));
    EXPECT_FALSE(shape.SetPoint(shape.NumPoints(), {}) || shape.SetPoint(-1, {}));
    EXPECT_TRUE(PointNear(shape.GetPoint(shape.NumPoints()), {}, 0.0f));
}

TEST(BezierShape, SelectionsFollowTheSplinesAndKeepTheirBits) {
    BezierShape shape;
    AddSquare(shape, {});
    AddSquare(shape, {5, 0, 0});
    shape.UpdateSels();
    ASSERT_NE(shape.VertSel(1), nullptr);
    EXPECT_EQ(shape.SegSel(1)->GetSize(), 4);
    shape.VertSel(1)->Set(4);
    shape.GetSpline(1)->AddKnot(SplineKnot());
    shape.UpdateSels();
    EXPECT_EQ(shape.VertSel(1)->GetSize(), 15);
    EXPECT_TRUE((*shape.VertSel(1))[4]);
    // Deleting spline 0 moves spline 1's selection down with it.
    ASSERT_TRUE(shape.DeleteSpline(0));
    EXPECT_TRUE((*shape.VertSel(0))[4]);
    EXPECT_EQ(shape.VertSel(1), nullptr);
    EXPECT_FALSE(shape.DeleteSpline(3));
}

TEST(BezierShape, BoundingBoxTransformAndClearing) {
    BezierShape shape;
    EXPECT_TRUE(shape.GetBoundingBox().IsEmpty());
    AddSquare(shape, {0, 0, 0});
    AddSquare(shape, {5, -3, 1});
    Box3 box = shape.GetBoundingBox();
    EXPECT_TRUE(PointNear(box.pmin, {0, -3, 0}, 1e-6f));
    EXPECT_TRUE(PointNear(box.pmax, {7, 2, 1}, 1e-6f));
    shape.Transform(TransMatrix({1, 1, 1}) * ScaleMatrix({2, 2, 2}));
    box = shape.GetBoundingBox();
    EXPECT_TRUE(PointNear(box.pmin, {2, -4, 2}, 1e-5f));
    EXPECT_TRUE(PointNear(box.pmax, {16, 6, 4}, 1e-5f));
    shape.steps = -1;
    shape.NewShape();
    EXPECT_TRUE(shape.GetBoundingBox().IsEmpty());
    EXPECT_EQ(shape.PolySel().GetSize(), 0);
    EXPECT_EQ(shape.steps, -1);  // the interpolation settings stay
}

}  // namespace
}  // namespace host

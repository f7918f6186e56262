#include "host/math/Box3.h"

#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

TEST(Box3, GrowsFromEmptyAndBoundsTransformedCorners) {
    Box3 box;
    EXPECT_TRUE(box.IsEmpty() && !box.Contains({0, 0, 0}));
    box += Point3(1, -2, 3);
    EXPECT_EQ(box.pmin, box.pmax);  // the first point is the whole box
    box += Point3(-1, 5, 0);
    EXPECT_TRUE(box.pmin == Point3(-1, -2, 0) && box.pmax == Point3(1, 5, 3));
    EXPECT_TRUE(box.Contains({0, 0, 0}) && !box.Contains({0, 6, 0}));
    Box3 other;
    other += box;
    other += Box3();  // an empty box adds nothing
    other.EnlargeBy(1);
    EXPECT_TRUE(other.pmin == Point3(-2, -3, -1) && other.pmax == Point3(2, 6, 4));

    const Box3 cube({-1, -1, -1}, {1, 1, 1});
    const Box3 turned = cube * (RotateZMatrix(test::kPi / 4) * TransMatrix({10, 0, 0}));
    const float r = std::sqrt(2.0f);
    EXPECT_TRUE(test::PointNear(turned.pmin, {10 - r, -r, -1}, 1e-5f));
    EXPECT_TRUE(test::PointNear(turned.pmax, {10 + r, r, 1}, 1e-5f));
    EXPECT_TRUE((Box3() * TransMatrix({1, 2, 3})).IsEmpty());
}

}  // namespace
}  // namespace host

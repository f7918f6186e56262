#include "host/math/Box3.h"

#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

TEST(Box3, GrowsFromEmpty) {
    Box3 box;
    EXPECT_TRUE(box.IsEmpty());
    EXPECT_FALSE(box.Contains({0, 0, 0}));
    box += Point3(1, -2, 3);
    EXPECT_FALSE(box.IsEmpty());
    EXPECT_EQ(box.pmin, box.pmax);
    box += Point3(-1, 5, 0);
    EXPECT_EQ(box.pmin, Point3(-1, -2, 0));
    EXPECT_EQ(box.pmax, Point3(1, 5, 3));
    EXPECT_EQ(box.Center(), Point3(0, 1.5f, 1.5f));
    EXPECT_EQ(box.Width(), Point3(2, 7, 3));
    EXPECT_TRUE(box.Contains({0, 0, 0}));
    EXPECT_FALSE(box.Contains({0, 6, 0}));

    Box3 other;
    other += box;  // adding to an empty box copies
    EXPECT_EQ(other.pmin, box.pmin);
    other += Box3();  // adding an empty box changes nothing
    EXPECT_EQ(other.pmax, box.pmax);
    other.EnlargeBy(1);
    EXPECT_EQ(other.pmin, Point3(-2, -3, -1));
    other.Init();
    EXPECT_TRUE(other.IsEmpty());
}

TEST(Box3, TransformBoundsTheTurnedCorners) {
    const Box3 box({-1, -1, -1}, {1, 1, 1});
    const Box3 turned = box * (RotateZMatrix(test::kPi / 4) * TransMatrix({10, 0, 0}));
    const float r = std::sqrt(2.0f);
    EXPECT_TRUE(test::PointNear(turned.pmin, {10 - r, -r, -1}, 1e-5f));
    EXPECT_TRUE(test::PointNear(turned.pmax, {10 + r, r, 1}, 1e-5f));
    EXPECT_TRUE((Box3() * TransMatrix({1, 2, 3})).IsEmpty());
    EXPECT_EQ(box[0], box.pmin);
    EXPECT_EQ(box[7], box.pmax);
    EXPECT_EQ(box[5], Point3(1, -1, 1));
}

}  // namespace
}  // namespace host

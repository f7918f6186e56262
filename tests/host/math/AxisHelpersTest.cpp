#include "host/math/AxisHelpers.h"

#include "host/math/AngAxis.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::kPi;
using test::MathRandom;
using test::MatrixNear;
using test::PointNear;

TEST(AxisHelpers, AxisMatrixAndAxisQuatTables) {
    const Point3 rows[3][2][3] = {
        {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, {{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}}},
        {{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}, {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}},
        {{{0, 0, 1}, {0, 1, 0}, {-1, 0, 0}}, {{0, 0, -1}, {0, 1, 0}, {1, 0, 0}}},
    };
    for (int axis = 0; axis < 3; ++axis)
        for (int flip = 0; flip < 2; ++flip) {
            const Matrix3 m = AxisMatrix(axis, flip);
            for (int i = 0; i < 3; ++i) EXPECT_EQ(m[i], rows[axis][flip][i]);
            EXPECT_EQ(m.GetTrans(), Point3());
            // Row 0, where the X axis goes, is the chosen axis, or its opposite when flipped.
            EXPECT_EQ(m[0][axis], flip ? -1.0f : 1.0f);
        }
    // AxisQuat(1) = (0, 0, 0.7071, 0.7071) has the rows of the flipped AxisMatrix(1):
    // quaternions turn the other way from matrices.
    EXPECT_TRUE(AxisQuat(1, false).Equals(Quat(0, 0, 0.70710677f, 0.70710677f), 0));
    EXPECT_TRUE(MatrixNear(QuatMatrix(AxisQuat(1, false)), AxisMatrix(1, true), 1e-6f));
    EXPECT_TRUE(MatrixNear(QuatMatrix(AxisQuat(1, true)), AxisMatrix(1, false), 1e-6f));
    EXPECT_TRUE(MatrixNear(QuatMatrix(AxisQuat(2, false)), AxisMatrix(2, true), 1e-6f));
    EXPECT_TRUE(MatrixNear(QuatMatrix(AxisQuat(2, true)), AxisMatrix(2, false), 1e-6f));
    // For X the flip is half a turn, which is its own inverse.
    EXPECT_TRUE(MatrixNear(QuatMatrix(AxisQuat(0, false)), AxisMatrix(0, false), 0));
    EXPECT_TRUE(MatrixNear(QuatMatrix(AxisQuat(0, true)), AxisMatrix(0, true), 1e-6f));
}

TEST(AxisHelpers, ArcFromXTakesTheXAxisOntoV) {
    MathRandom rnd(50);
    for (int n = 0; n < 1000; ++n) {
        const Point3 v = rnd.Vector(-5, 5);
        if (v.Length() < 0.01f) continue;
        const Quat q = ArcFromX(v);
        EXPECT_TRUE(PointNear(Point3::XAxis * QuatMatrix(q), Normalize(v), 1e-5f));
        // Its axis is Normalize((0, v.z, -v.y)): the shortest arc, with no twist about X.
        EXPECT_NEAR(q.x, 0.0f, 1e-6f);
    }
    EXPECT_TRUE(ArcFromX({0.005f, 0.001f, 0}).IsIdentity());  // too short to have a direction
    EXPECT_TRUE(PointNear(Point3::XAxis * QuatMatrix(ArcFromX({-2, 0, 0})), {-1, 0, 0}, 1e-6f));
    EXPECT_TRUE(ArcFromX({3, 0, 0}).Equals(Quat(), 0));
}

TEST(AxisHelpers, ArcBetweenTakesAOntoB) {
    MathRandom rnd(51);
    for (int n = 0; n < 1000; ++n) {
        const Point3 a = rnd.Vector(-3, 3), b = rnd.Vector(-3, 3);
        if (a.Length() * b.Length() < 0.01f) continue;
        const Quat q = ArcBetween(a, b);
        EXPECT_TRUE(PointNear(Normalize(a) * QuatMatrix(q), Normalize(b), 2e-5f));
    }
    EXPECT_TRUE(ArcBetween({0.05f, 0, 0}, {0, 0.1f, 0}).IsIdentity());
    const Point3 a = Normalize(Point3(1, 2, 3));
    EXPECT_TRUE(PointNear(a * QuatMatrix(ArcBetween(a, -a)), -a, 1e-5f));
    EXPECT_TRUE(PointNear(a * QuatMatrix(ArcBetween(a, a * 2)), a, 1e-6f));
}

TEST(AxisHelpers, SwivelQuatIsAMatrixRotationAboutX) {
    for (float a : {-3.0f, -0.5f, 0.0f, 1.0f, 2.5f}) {
        EXPECT_TRUE(SwivelQuat(a).Equals(Quat(std::sin(-a / 2), 0, 0, std::cos(-a / 2)), 0));
        EXPECT_TRUE(MatrixNear(QuatMatrix(SwivelQuat(a)), RotateXMatrix(a), 1e-6f));
    }
}

TEST(AxisHelpers, TwistAboutMeasuresLikeMatrixRotations) {
    // The kept component is 0 or more for a positive matrix rotation, whose
    // quaternion turns the other way: negating the angle gives the matrix's sign.
    for (float b = -3.1f; b < 3.1f; b += 0.1f) {
        EXPECT_NEAR(TwistAbout(Quat(RotateXMatrix(b)), 0), b, 1e-5f);
        EXPECT_NEAR(TwistAbout(Quat(RotateYMatrix(b)), 1), b, 1e-5f);
        EXPECT_NEAR(TwistAbout(Quat(RotateZMatrix(b)), 2), b, 1e-5f);
        // q and -q are one rotation and have one twist.
        EXPECT_NEAR(TwistAbout(-Quat(RotateZMatrix(b)), 2), b, 1e-5f);
    }
    // A swing about a perpendicular axis, applied after the twist, leaves it measurable.
    const Quat q = Quat(RotateXMatrix(0.8f)) * Quat(AngAxis(Point3::YAxis, 0.5f));
    EXPECT_NEAR(TwistAbout(q, 0), 0.8f, 1e-5f);
    EXPECT_NEAR(TwistAbout(Quat(0, 0, 0, -1), 0), 0.0f, 1e-6f);
    // Nothing left of the twist: half a turn, negated since the kept component is 0.
    EXPECT_EQ(TwistAbout(Quat(0, 1, 0, 0), 0), -3.1415927f);
}

TEST(AxisHelpers, SafeDivGuardsSmallDivisors) {
    EXPECT_FLOAT_EQ(SafeDiv(1, 4, 0.001f), 0.25f);
    EXPECT_FLOAT_EQ(SafeDiv(1, -4, 0.001f), -0.25f);
    EXPECT_FLOAT_EQ(SafeDiv(1, 0, 0.0001f), 10000.0f);
    EXPECT_FLOAT_EQ(SafeDiv(2, -0.00005f, 0.0001f), 20000.0f);
    EXPECT_FLOAT_EQ(SafeDiv(3, 0.0001f, 0.0001f), 30000.0f);
}

}  // namespace
}  // namespace host

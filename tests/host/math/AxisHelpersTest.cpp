#include "host/math/AxisHelpers.h"

#include "host/math/AngAxis.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

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
            EXPECT_TRUE(MatrixNear(
                m, Matrix3(rows[axis][flip][0], rows[axis][flip][1], rows[axis][flip][2], {}), 0));
            // Quaternions turn the other way, so AxisQuat matches the opposite flip (X: a half
            // turn).
            EXPECT_TRUE(MatrixNear(QuatMatrix(AxisQuat(axis, flip)),
                                   AxisMatrix(axis, axis == 0 ? flip : !flip), 1e-6f));
        }
    EXPECT_TRUE(AxisQuat(1, false).Equals(Quat(0, 0, 0.70710677f, 0.70710677f), 0));
}

TEST(AxisHelpers, ArcsTakeOneDirectionOntoAnother) {
    MathRandom rnd(50);
    for (int n = 0; n < 1000; ++n) {
        const Point3 a = rnd.Vector(-3, 3), v = rnd.Vector(-3, 3);
        // ArcFromX: axis Normalize((0, v.z, -v.y)), the shortest arc, no twist about X.
        EXPECT_TRUE(PointNear(Point3::XAxis * QuatMatrix(ArcFromX(v)), Normalize(v), 2e-5f));
        EXPECT_NEAR(ArcFromX(v).x, 0.0f, 1e-6f);
        EXPECT_TRUE(PointNear(Normalize(a) * QuatMatrix(ArcBetween(a, v)), Normalize(v), 2e-5f));
    }
    // Too short to have a direction: the identity. Opposite directions: half a turn.
    EXPECT_TRUE(ArcFromX({0.005f, 0.001f, 0}).IsIdentity());
    EXPECT_TRUE(ArcBetween({0.05f, 0, 0}, {0, 0.1f, 0}).IsIdentity());
    EXPECT_TRUE(PointNear(Point3::XAxis * QuatMatrix(ArcFromX({-2, 0, 0})), {-1, 0, 0}, 1e-6f));
    const Point3 a = Normalize(Point3(1, 2, 3));
    EXPECT_TRUE(PointNear(a * QuatMatrix(ArcBetween(a, -a)), -a, 1e-5f));
}

TEST(AxisHelpers, SwivelAndTwistMeasureLikeMatrixRotations) {
    for (float b = -3.1f; b < 3.1f; b += 0.1f) {
        EXPECT_TRUE(MatrixNear(QuatMatrix(SwivelQuat(b)), RotateXMatrix(b), 1e-6f));
        // The twist has the matrix rotation's sign, and q and -q agree.
        EXPECT_NEAR(TwistAbout(Quat(RotateXMatrix(b)), 0), b, 1e-5f);
        EXPECT_NEAR(TwistAbout(Quat(RotateYMatrix(b)), 1), b, 1e-5f);
        EXPECT_NEAR(TwistAbout(-Quat(RotateZMatrix(b)), 2), b, 1e-5f);
        // A swing about a perpendicular axis after the twist leaves the twist measurable.
        EXPECT_NEAR(TwistAbout(Quat(RotateXMatrix(b)) * Quat(AngAxis(Point3::YAxis, 0.5f)), 0), b,
                    1e-5f);
    }
    // Nothing left of the twist: half a turn, negated since the kept component is 0.
    EXPECT_EQ(TwistAbout(Quat(0, 1, 0, 0), 0), -3.1415927f);
    EXPECT_NEAR(TwistAbout(Quat(0, 0, 0, -1), 0), 0.0f, 1e-6f);
}

TEST(AxisHelpers, SafeDivGuardsSmallDivisors) {
    const float cases[][4] = {// a, b, eps, a/b or a/eps
                              {1, 4, 0.001f, 0.25f},
                              {1, -4, 0.001f, -0.25f},
                              {1, 0, 0.0001f, 10000},
                              {2, -0.00005f, 0.0001f, 20000},
                              {3, 0.0001f, 0.0001f, 30000}};
    for (const auto& c : cases) EXPECT_FLOAT_EQ(SafeDiv(c[0], c[1], c[2]), c[3]);
}

}  // namespace
}  // namespace host

#include "host/math/Euler.h"

#include "host/math/AngAxis.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::kPi;
using test::MathRandom;
using test::MatrixNear;
using test::SameRotation;

constexpr const char* kOrderNames[kEulerOrderCount] = {"XYZ", "XZY", "YZX", "YXZ", "ZXY",
                                                       "ZYX", "XYX", "YZY", "ZXZ"};

Matrix3 Euler(int order, float e0, float e1, float e2) {
    const float e[3] = {e0, e1, e2};
    Matrix3 m;
    EulerToMatrix(e, m, order);
    return m;
}

TEST(Euler, OrderCodesNameTheirAxes) {
    for (int order = 0; order < kEulerOrderCount; ++order) {
        std::string name;
        for (int step = 0; step < 3; ++step) name += char('X' + EulerAxis(order, step));
        EXPECT_EQ(name, kOrderNames[order]);
    }
    // The first angle is applied first: with row vectors that is the leftmost factor.
    EXPECT_TRUE(MatrixNear(Euler(EULERTYPE_ZXY, 0.1f, 0.2f, 0.3f),
                           RotateZMatrix(0.1f) * RotateXMatrix(0.2f) * RotateYMatrix(0.3f), 1e-6f));
    EXPECT_TRUE(MatrixNear(Euler(EULERTYPE_YZY, 0.1f, 0.2f, 0.3f),
                           RotateYMatrix(0.1f) * RotateZMatrix(0.2f) * RotateYMatrix(0.3f), 1e-6f));
}

TEST(Euler, QuaternionAndMatrixFormsAgree) {
    MathRandom rnd(20);
    for (int order = 0; order < kEulerOrderCount; ++order) {
        SCOPED_TRACE(kOrderNames[order]);
        for (int n = 0; n < 300; ++n) {
            const float e[3] = {rnd.Uniform(-7, 7), rnd.Uniform(-7, 7), rnd.Uniform(-7, 7)};
            Matrix3 m;
            Quat q;
            EulerToMatrix(e, m, order);
            EulerToQuat(e, q, order);
            ASSERT_TRUE(MatrixNear(QuatMatrix(q), m, 1e-5f));
        }
    }
}

// Angles -> rotation -> angles -> rotation must give the rotation back, in every
// order, also for the gimbal-locked middle angles.
TEST(Euler, ConversionsInvertEachOtherInEveryOrder) {
    MathRandom rnd(21);
    for (int order = 0; order < kEulerOrderCount; ++order) {
        SCOPED_TRACE(kOrderNames[order]);
        const bool repeating = IsRepeatingEulerOrder(order);
        const float locked[] = {repeating ? 0.0f : kPi / 2, repeating ? kPi : -kPi / 2};
        for (int n = 0; n < 600; ++n) {
            float e[3] = {rnd.Uniform(-7, 7), rnd.Uniform(-7, 7), rnd.Uniform(-7, 7)};
            if (n % 6 == 0) e[1] = locked[n / 6 % 2];
            Quat q;
            Matrix3 m;
            EulerToQuat(e, q, order);
            EulerToMatrix(e, m, order);

            float fromQuat[3], fromMatrix[3];
            QuatToEuler(q, fromQuat, order);
            MatrixToEuler(m, fromMatrix, order);
            ASSERT_TRUE(MatrixNear(Euler(order, fromQuat[0], fromQuat[1], fromQuat[2]), m, 2e-5f))
                << e[0] << " " << e[1] << " " << e[2];
            ASSERT_TRUE(
                MatrixNear(Euler(order, fromMatrix[0], fromMatrix[1], fromMatrix[2]), m, 2e-5f));

            // The principal ranges: middle angle in -pi/2..pi/2 (0..pi when repeating).
            const float lo = repeating ? 0.0f : -kPi / 2, hi = repeating ? kPi : kPi / 2;
            EXPECT_GE(fromQuat[1], lo - 1e-6f);
            EXPECT_LE(fromQuat[1], hi + 1e-6f);
            for (float a : fromQuat) EXPECT_LE(std::fabs(a), kPi + 1e-6f);
        }
    }
}

TEST(Euler, MatrixToEulerIgnoresScale) {
    const Matrix3 m = ScaleMatrix({2, 3, 0.5f}) * Euler(EULERTYPE_YXZ, 0.3f, -0.4f, 1.2f);
    float e[3];
    MatrixToEuler(m, e, EULERTYPE_YXZ);
    // The rotation of a matrix with non-uniform scale is its orthogonalised rows.
    Matrix3 rotation = m;
    rotation.Orthogonalize();
    EXPECT_TRUE(MatrixNear(Euler(EULERTYPE_YXZ, e[0], e[1], e[2]), rotation, 1e-5f));
}

double Distance2(const double* a, const float* ref) {
    double d = 0;
    for (int n = 0; n < 3; ++n) d += (a[n] - ref[n]) * (a[n] - ref[n]);
    return d;
}

// No triple of the same rotation, within two turns of each angle, is nearer the
// reference than the one ContinuousQuatToEuler returns.
TEST(Euler, ContinuousConversionReturnsTheNearestEquivalentAngles) {
    MathRandom rnd(22);
    for (int order = 0; order < kEulerOrderCount; ++order) {
        SCOPED_TRACE(kOrderNames[order]);
        for (int n = 0; n < 300; ++n) {
            const Quat q = rnd.Rotation();
            const float ref[3] = {rnd.Uniform(-15, 15), rnd.Uniform(-15, 15), rnd.Uniform(-15, 15)};
            float got[3] = {ref[0], ref[1], ref[2]};
            ContinuousQuatToEuler(q, got, order);
            Quat back;
            EulerToQuat(got, back, order);
            ASSERT_TRUE(SameRotation(back, q, 3e-5f));

            float base[3];
            QuatToEuler(q, base, order);
            const double other1 = IsRepeatingEulerOrder(order) ? -base[1] : M_PI - base[1];
            const double solutions[2][3] = {{base[0], base[1], base[2]},
                                            {base[0] + M_PI, other1, base[2] + M_PI}};
            double bestD = 1e30;
            for (const auto& s : solutions)
                for (int i = -4; i <= 4; ++i)
                    for (int j = -4; j <= 4; ++j)
                        for (int k = -4; k <= 4; ++k) {
                            const double c[3] = {s[0] + 2 * M_PI * i, s[1] + 2 * M_PI * j,
                                                 s[2] + 2 * M_PI * k};
                            bestD = std::min(bestD, Distance2(c, ref));
                        }
            const double gotD[3] = {got[0], got[1], got[2]};
            EXPECT_LE(Distance2(gotD, ref), bestD + 1e-3);
        }
    }
}

TEST(Euler, ContinuousConversionKeepsAnglesThatAlreadyFit) {
    // Any angles at all, multi-turn, outside the principal ranges or gimbal-locked, are
    // their own nearest solution.
    MathRandom rnd(23);
    for (int order = 0; order < kEulerOrderCount; ++order) {
        SCOPED_TRACE(kOrderNames[order]);
        const float locked = IsRepeatingEulerOrder(order) ? kPi : kPi / 2;
        for (int n = 0; n < 300; ++n) {
            float e[3] = {rnd.Uniform(-20, 20), rnd.Uniform(-20, 20), rnd.Uniform(-20, 20)};
            if (n % 3 == 0) e[1] = (n % 2 ? 1 : -1) * locked + 2 * kPi * float(n % 4);
            Quat q;
            EulerToQuat(e, q, order);
            float got[3] = {e[0], e[1], e[2]};
            ContinuousQuatToEuler(q, got, order);
            for (int i = 0; i < 3; ++i) EXPECT_NEAR(got[i], e[i], 2e-3f);
        }
    }
}

// Turning slowly through 720 degrees, about every Euler axis of every order and about
// skew axes, never makes an angle jump: gimbal lock and the +-pi seams included. (For
// orders 6 to 8 the identity is itself locked, and leaving it sideways must jump the
// first and third angles, so those start from a general rotation only.)
TEST(Euler, ContinuousConversionFollowsTwoFullTurnsWithoutJumps) {
    const Point3 axes[] = {Point3::XAxis, Point3::YAxis, Point3::ZAxis,
                           Normalize(Point3(1, 2, 0.5f)), Normalize(Point3(-0.3f, 0.1f, 1))};
    const Quat start = Quat(AngAxis(Normalize(Point3(0.2f, -1, 0.4f)), 0.3f));
    const int steps = 1440;
    const float step = 4 * kPi / steps;
    for (int order = 0; order < kEulerOrderCount; ++order) {
        for (int a = 0; a < 5; ++a) {
            SCOPED_TRACE(std::string(kOrderNames[order]) + " axis " + std::to_string(a));
            for (const Quat& origin : {IsRepeatingEulerOrder(order) ? start : Quat(), start}) {
                float e[3];
                QuatToEuler(origin, e, order);
                for (int n = 1; n <= steps; ++n) {
                    const Quat q = origin * Quat(AngAxis(axes[a], n * step));
                    const float before[3] = {e[0], e[1], e[2]};
                    ContinuousQuatToEuler(q, e, order);
                    Quat back;
                    EulerToQuat(e, back, order);
                    ASSERT_TRUE(SameRotation(back, q, 5e-5f)) << "step " << n;
                    const float change = std::fabs(e[0] - before[0]) + std::fabs(e[1] - before[1]) +
                                         std::fabs(e[2] - before[2]);
                    // Far from gimbal lock a step of 0.5 degrees moves the angles by about
                    // that much; near it the first and third angles may swing faster, but
                    // never by a flip or a whole turn.
                    ASSERT_LT(change, 0.75f) << "step " << n;
                }
            }
        }
    }
}

TEST(Euler, TurningAboutOneEulerAxisWindsOnlyThatAngle) {
    // From the identity, a turn about an order's middle axis passes straight through
    // gimbal lock for orders 0 to 5; the other angles must stay at 0 and the middle
    // one must wind on to two full turns.
    for (int order = 0; order < 6; ++order) {
        SCOPED_TRACE(kOrderNames[order]);
        Point3 axis;
        axis[EulerAxis(order, 1)] = 1.0f;
        float e[3] = {0, 0, 0};
        for (int n = 1; n <= 1440; ++n) {
            ContinuousQuatToEuler(Quat(AngAxis(axis, -n * kPi / 360)), e, order);
            ASSERT_NEAR(e[0], 0.0f, 1e-4f) << n;
            ASSERT_NEAR(e[2], 0.0f, 1e-4f) << n;
        }
        EXPECT_NEAR(e[1], 4 * kPi, 1e-3f);
    }
    // For a repeating order the identity itself is locked: a turn about the first axis
    // is shared evenly by the first and third angles.
    float e[3] = {0, 0, 0};
    for (int n = 1; n <= 1440; ++n)
        ContinuousQuatToEuler(Quat(AngAxis(Point3::XAxis, -n * kPi / 360)), e, EULERTYPE_XYX);
    EXPECT_NEAR(e[0] + e[2], 4 * kPi, 1e-3f);
    EXPECT_NEAR(e[0], e[2], 1e-3f);
    EXPECT_NEAR(e[1], 0.0f, 1e-5f);
}

}  // namespace
}  // namespace host

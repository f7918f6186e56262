#include "host/math/Quat.h"

#include "host/math/AngAxis.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;
using test::MatrixNear;
using test::SameRotation;

// The angle of the rotation from a to b, in 0 to pi.
float AngleBetween(const Quat& a, const Quat& b) {
    return AngAxis(Inverse(a) * b).angle;
}

TEST(Quat, TurnsTheOtherWayFromMatrixRotations) {
    MathRandom rnd(10);
    for (int n = 0; n < 100; ++n) {
        const float a = rnd.Uniform(-6, 6);
        EXPECT_TRUE(
            MatrixNear(QuatMatrix(Quat(AngAxis(Point3::XAxis, a))), RotateXMatrix(-a), 1e-5f));
        EXPECT_TRUE(
            MatrixNear(QuatMatrix(Quat(AngAxis(Point3::YAxis, a))), RotateYMatrix(-a), 1e-5f));
        EXPECT_TRUE(
            MatrixNear(QuatMatrix(Quat(AngAxis(Point3::ZAxis, a))), RotateZMatrix(-a), 1e-5f));
        const Point3 axis = Normalize(rnd.Vector(-1, 1));
        EXPECT_TRUE(
            MatrixNear(QuatMatrix(Quat(AngAxis(axis, a))), RotAngleAxisMatrix(axis, -a), 1e-5f));
    }
}

TEST(Quat, ProductsComposeLikeMatrices) {
    MathRandom rnd(11);
    for (int n = 0; n < 1000; ++n) {
        const Quat a = rnd.Rotation(), b = rnd.Rotation();
        EXPECT_TRUE(MatrixNear(QuatMatrix(a * b), QuatMatrix(a) * QuatMatrix(b), 1e-5f));
        EXPECT_TRUE(SameRotation(a * Inverse(a), Quat(), 1e-6f));
        Matrix3 pre = TransMatrix({1, 2, 3}), post = pre;
        PreRotateMatrix(pre, a);
        RotateMatrix(post, a);
        EXPECT_TRUE(MatrixNear(pre, QuatMatrix(a) * TransMatrix({1, 2, 3}), 1e-5f));
        EXPECT_TRUE(MatrixNear(post, TransMatrix({1, 2, 3}) * QuatMatrix(a), 1e-5f));
    }
}

TEST(Quat, MatrixConversionsInvertEachOther) {
    MathRandom rnd(12);
    for (int n = 0; n < 2000; ++n) {
        const Quat q = rnd.Rotation();
        EXPECT_TRUE(SameRotation(Quat(QuatMatrix(q)), q, 2e-6f)) << test::Describe(q);
        // A rotation matrix built without quaternions comes back unchanged, in every
        // branch of the conversion (large trace, and each diagonal entry largest).
        const Matrix3 m = RotateXMatrix(rnd.Uniform(-4, 4)) * RotateYMatrix(rnd.Uniform(-4, 4)) *
                          RotateZMatrix(rnd.Uniform(-4, 4));
        EXPECT_TRUE(MatrixNear(QuatMatrix(Quat(m)), m, 1e-5f));
    }
    const Matrix3 halfTurns[] = {RotateXMatrix(test::kPi), RotateYMatrix(test::kPi),
                                 RotateZMatrix(test::kPi)};
    for (const Matrix3& m : halfTurns) EXPECT_TRUE(MatrixNear(QuatMatrix(Quat(m)), m, 1e-6f));
    // A quaternion that drifted off unit length still gives a rotation matrix.
    EXPECT_TRUE(MatrixNear(QuatMatrix(Quat(0, 0, 2, 2)), RotateZMatrix(-test::kPi / 2), 1e-6f));
}

TEST(Quat, SlerpMovesAtConstantSpeedAlongTheArc) {
    MathRandom rnd(13);
    for (int n = 0; n < 500; ++n) {
        const Quat a = rnd.Rotation();
        Quat b = rnd.Rotation();
        b.MakeClosest(a);
        const float total = AngleBetween(a, b);
        EXPECT_TRUE(SameRotation(Slerp(a, b, 0), a, 1e-6f));
        EXPECT_TRUE(SameRotation(Slerp(a, b, 1), b, 1e-5f));
        for (float t : {0.1f, 0.25f, 0.5f, 0.9f}) {
            const Quat s = Slerp(a, b, t);
            EXPECT_NEAR(s.Length(), 1.0f, 1e-5f);
            EXPECT_NEAR(AngleBetween(a, s), t * total, 1e-3f);
            EXPECT_NEAR(AngleBetween(s, b), (1 - t) * total, 1e-3f);
        }
    }
    // Nearly equal quaternions still interpolate, and opposite ones (the same
    // rotation) stay unit length instead of passing through zero.
    const Quat a = Quat(AngAxis(Point3::ZAxis, 0.3f));
    const Quat b = Quat(AngAxis(Point3::ZAxis, 0.3f + 2e-4f));
    EXPECT_NEAR(AngleBetween(a, Slerp(a, b, 0.5f)), 1e-4f, 2e-5f);
    for (float t : {0.0f, 0.3f, 0.5f, 1.0f}) EXPECT_NEAR(Slerp(a, -a, t).Length(), 1.0f, 1e-6f);
}

TEST(Quat, MakeClosestPicksTheNearHemisphere) {
    const Quat ref = Quat(AngAxis(Point3::YAxis, 0.2f));
    Quat q = -Quat(AngAxis(Point3::YAxis, 0.4f));
    q.MakeClosest(ref);
    EXPECT_GT(QuatDot(q, ref), 0.0f);
    EXPECT_TRUE(q.Equals(Quat(AngAxis(Point3::YAxis, 0.4f)), 1e-7f));
    q.MakeClosest(ref);  // already close: unchanged
    EXPECT_TRUE(q.Equals(Quat(AngAxis(Point3::YAxis, 0.4f)), 1e-7f));
}

TEST(Quat, AngAxisRoundTripsTheShortWay) {
    MathRandom rnd(14);
    for (int n = 0; n < 1000; ++n) {
        const Quat q = rnd.Rotation();
        const AngAxis aa(q);
        EXPECT_GE(aa.angle, 0.0f);
        EXPECT_LE(aa.angle, test::kPi + 1e-6f);
        EXPECT_NEAR(aa.axis.Length(), 1.0f, 1e-5f);
        EXPECT_TRUE(SameRotation(Quat(aa), q, 1e-5f));
    }
    const AngAxis identity{Quat()};
    EXPECT_EQ(identity.angle, 0.0f);
    EXPECT_EQ(identity.axis, Point3::XAxis);
    // Whole turns survive in an AngAxis and cancel in the quaternion.
    EXPECT_TRUE(SameRotation(Quat(AngAxis(Point3::ZAxis, 4 * test::kPi)), Quat(), 1e-6f));
    EXPECT_TRUE(Quat(AngAxis(Point3::ZAxis, 2 * test::kPi)).Equals(Quat(0, 0, 0, -1), 1e-6f));
    // An unnormalised axis is normalised.
    EXPECT_TRUE(Quat(AngAxis({0, 0, 5}, 1.0f)).Equals(Quat(AngAxis(Point3::ZAxis, 1.0f)), 1e-7f));
}

TEST(Quat, LogAndExpInvertEachOther) {
    MathRandom rnd(15);
    for (int n = 0; n < 500; ++n) {
        const Quat p = rnd.Rotation(), q = rnd.Rotation();
        EXPECT_TRUE(QExp(QLog(q)).Equals(q, 1e-5f));
        // LnDif is half the angle from p to q along the unit axis.
        const Quat d = Inverse(p) * q;
        EXPECT_NEAR(LnDif(p, q).Vector().Length(), std::atan2(d.Vector().Length(), d.w), 1e-5f);
    }
    EXPECT_TRUE(QExp(QLog(Quat())).IsIdentity());
}

TEST(Quat, NormalizeLeavesZeroAlone) {
    Quat zero(0, 0, 0, 0);
    zero.Normalize();
    EXPECT_EQ(zero, Quat(0, 0, 0, 0));
    EXPECT_TRUE(Normalize(Quat(0, 3, 0, 4)).Equals(Quat(0, 0.6f, 0, 0.8f), 1e-7f));
    EXPECT_TRUE((Inverse(Quat(0, 0, 0, 2)) * Quat(0, 0, 0, 2)).Equals(Quat(), 1e-7f));
}

}  // namespace
}  // namespace host

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

TEST(Quat, TurnsTheOtherWayFromMatrixRotationsAndComposesLikeMatrices) {
    MathRandom rnd(10);
    for (int n = 0; n < 1000; ++n) {
        const float a = rnd.Uniform(-6, 6);
        const Point3 axis = Normalize(rnd.Vector(-1, 1));
        EXPECT_TRUE(
            MatrixNear(QuatMatrix(Quat(AngAxis(Point3::XAxis, a))), RotateXMatrix(-a), 1e-5f));
        EXPECT_TRUE(
            MatrixNear(QuatMatrix(Quat(AngAxis(axis, a))), RotAngleAxisMatrix(axis, -a), 1e-5f));
        const Quat p = rnd.Rotation(), q = rnd.Rotation();
        EXPECT_TRUE(MatrixNear(QuatMatrix(p * q), QuatMatrix(p) * QuatMatrix(q), 1e-5f));
        EXPECT_TRUE(SameRotation(p * Inverse(p), Quat(), 1e-6f));
        Matrix3 pre = TransMatrix({1, 2, 3}), post = pre;
        PreRotateMatrix(pre, p);
        RotateMatrix(post, p);
        EXPECT_TRUE(MatrixNear(pre, QuatMatrix(p) * TransMatrix({1, 2, 3}), 1e-5f));
        EXPECT_TRUE(MatrixNear(post, TransMatrix({1, 2, 3}) * QuatMatrix(p), 1e-5f));
    }
}

TEST(Quat, MatrixConversionsInvertEachOther) {
    MathRandom rnd(12);
    for (int n = 0; n < 2000; ++n) {
        const Quat q = rnd.Rotation();
        EXPECT_TRUE(SameRotation(Quat(QuatMatrix(q)), q, 2e-6f)) << test::Describe(q);
        // Independently built rotations reach every branch (large trace, each diagonal largest).
        const Matrix3 m = RotateXMatrix(rnd.Uniform(-4, 4)) * RotateYMatrix(rnd.Uniform(-4, 4)) *
                          RotateZMatrix(rnd.Uniform(-4, 4));
        EXPECT_TRUE(MatrixNear(QuatMatrix(Quat(m)), m, 1e-5f));
        EXPECT_GE(Quat(m).w, 0.0f);
    }
    for (const Matrix3& m :
         {RotateXMatrix(test::kPi), RotateYMatrix(test::kPi), RotateZMatrix(test::kPi)})
        EXPECT_TRUE(MatrixNear(QuatMatrix(Quat(m)), m, 1e-6f));
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
        EXPECT_TRUE(SameRotation(Slerp(a, b, 1), b, 1e-5f));
        for (float t : {0.0f, 0.25f, 0.5f, 0.9f}) {
            const Quat s = Slerp(a, b, t);
            EXPECT_NEAR(s.Length(), 1.0f, 1e-5f);
            EXPECT_NEAR(AngleBetween(a, s), t * total, 1e-3f);
            EXPECT_NEAR(AngleBetween(s, b), (1 - t) * total, 1e-3f);
        }
    }
    // Nearly equal ones still interpolate; opposite ones stay unit length, not through zero.
    const Quat a = Quat(AngAxis(Point3::ZAxis, 0.3f)),
               b = Quat(AngAxis(Point3::ZAxis, 0.3f + 2e-4f));
    EXPECT_NEAR(AngleBetween(a, Slerp(a, b, 0.5f)), 1e-4f, 2e-5f);
    for (float t : {0.3f, 0.5f, 1.0f}) EXPECT_NEAR(Slerp(a, -a, t).Length(), 1.0f, 1e-6f);
}

TEST(Quat, AngAxisRoundTripsTheShortWayAndKeepsWholeTurns) {
    MathRandom rnd(14);
    for (int n = 0; n < 1000; ++n) {
        const Quat q = rnd.Rotation();
        const AngAxis aa(q);
        EXPECT_TRUE(aa.angle >= 0.0f && aa.angle <= test::kPi + 1e-6f) << aa.angle;
        EXPECT_TRUE(SameRotation(Quat(aa), q, 1e-5f));
    }
    EXPECT_TRUE(Quat(AngAxis(Point3::ZAxis, 2 * test::kPi)).Equals(Quat(0, 0, 0, -1), 1e-6f));
    EXPECT_TRUE(Quat(AngAxis({0, 0, 5}, 1.0f)).Equals(Quat(AngAxis(Point3::ZAxis, 1.0f)), 1e-7f));
}

TEST(Quat, SmallOperations) {
    Quat q = -Quat(AngAxis(Point3::YAxis, 0.4f));
    q.MakeClosest(Quat(AngAxis(Point3::YAxis, 0.2f)));
    EXPECT_TRUE(q.Equals(Quat(AngAxis(Point3::YAxis, 0.4f)), 1e-7f));
    Quat zero(0, 0, 0, 0);
    EXPECT_EQ(zero.Normalize(), Quat(0, 0, 0, 0));  // zero stays zero
    EXPECT_TRUE((Inverse(Quat(0, 0, 0, 2)) * Quat(0, 0, 0, 2)).Equals(Quat(), 1e-7f));
    MathRandom rnd(15);
    for (int n = 0; n < 500; ++n) {
        const Quat a = rnd.Rotation(), b = rnd.Rotation(), d = Inverse(a) * b;
        EXPECT_TRUE(QExp(QLog(b)).Equals(b, 1e-5f));
        EXPECT_NEAR(LnDif(a, b).Vector().Length(), std::atan2(d.Vector().Length(), d.w), 1e-5f);
    }
}

}  // namespace
}  // namespace host

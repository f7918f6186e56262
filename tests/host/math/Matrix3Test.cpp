#include "host/math/Matrix3.h"

#include <functional>

#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;
using test::MatrixNear;
using test::PointNear;

TEST(Matrix3, RowVectorConventions) {
    const Matrix3 m({0, 1, 0}, {-1, 0, 0}, {0, 0, 2}, {5, 6, 7});
    // Rows 0-2 are the images of the axes (no translation), row 3 is where the origin goes.
    EXPECT_EQ(m.VectorTransform(Point3::XAxis), Point3(0, 1, 0));
    EXPECT_EQ(m.VectorTransform(Point3::ZAxis), Point3(0, 0, 2));
    EXPECT_EQ(Point3::Origin * m, Point3(5, 6, 7));
    EXPECT_EQ(Point3(1, 0, 0) * m, Point3(5, 7, 7));

    // A * B applies A first: (p * A) * B == p * (A * B), and a child's world is
    // local * parentWorld.
    MathRandom rnd(1);
    for (int n = 0; n < 200; ++n) {
        const Matrix3 a = rnd.Affine(), b = rnd.Affine();
        const Point3 p = rnd.Vector(-10, 10);
        EXPECT_TRUE(PointNear((p * a) * b, p * (a * b), 2e-3f));
    }
    const Matrix3 parent = TransMatrix({10, 0, 0});
    const Matrix3 local = RotateZMatrix(test::kPi / 2) * TransMatrix({0, 1, 0});
    EXPECT_TRUE(PointNear(Point3::Origin * (local * parent), {10, 1, 0}, 1e-6f));
}

TEST(Matrix3, PositiveRotationsAreRightHanded) {
    // RotateZ(+a) takes X towards Y; likewise Y towards Z about X, and Z towards X about Y.
    EXPECT_TRUE(PointNear(Point3::XAxis * RotateZMatrix(test::kPi / 2), Point3::YAxis, 1e-6f));
    EXPECT_TRUE(PointNear(Point3::YAxis * RotateXMatrix(test::kPi / 2), Point3::ZAxis, 1e-6f));
    EXPECT_TRUE(PointNear(Point3::ZAxis * RotateYMatrix(test::kPi / 2), Point3::XAxis, 1e-6f));
    // SetAngleAxis agrees with the coordinate rotations and turns a general axis the same way.
    MathRandom rnd(2);
    for (int n = 0; n < 50; ++n) {
        const float a = rnd.Uniform(-7, 7);
        EXPECT_TRUE(MatrixNear(RotAngleAxisMatrix(Point3::XAxis, a), RotateXMatrix(a), 1e-6f));
        EXPECT_TRUE(MatrixNear(RotAngleAxisMatrix(Point3::YAxis, a), RotateYMatrix(a), 1e-6f));
        EXPECT_TRUE(MatrixNear(RotAngleAxisMatrix(Point3::ZAxis, a), RotateZMatrix(a), 1e-6f));
        const Point3 axis = Normalize(rnd.Vector(-1, 1));
        const Matrix3 r = RotAngleAxisMatrix(axis, a);
        EXPECT_TRUE(PointNear(axis * r, axis, 1e-5f));  // the axis stays put
        const Point3 side = Normalize(axis ^ Point3(0.3f, 0.5f, 0.7f));
        // The turned side vector moves in the direction axis x side (counter-clockwise).
        EXPECT_NEAR((side * r) % (axis ^ side), std::sin(a), 1e-5f);
    }
}

TEST(Matrix3, PlainOperationsActOutsideAndPreOperationsInside) {
    const Point3 p(1.5f, -2, 0.25f), s(2, -0.5f, 3);
    const float a = 0.7f;
    struct Case {
        const char* name;
        std::function<void(Matrix3&)> op;
        std::function<Matrix3(const Matrix3&)> expected;
    };
    const Case cases[] = {
        {"Translate", [&](Matrix3& m) { m.Translate(p); },
         [&](const Matrix3& m) { return m * TransMatrix(p); }},
        {"PreTranslate", [&](Matrix3& m) { m.PreTranslate(p); },
         [&](const Matrix3& m) { return TransMatrix(p) * m; }},
        {"RotateX", [&](Matrix3& m) { m.RotateX(a); },
         [&](const Matrix3& m) { return m * RotateXMatrix(a); }},
        {"RotateY", [&](Matrix3& m) { m.RotateY(a); },
         [&](const Matrix3& m) { return m * RotateYMatrix(a); }},
        {"RotateZ", [&](Matrix3& m) { m.RotateZ(a); },
         [&](const Matrix3& m) { return m * RotateZMatrix(a); }},
        {"PreRotateX", [&](Matrix3& m) { m.PreRotateX(a); },
         [&](const Matrix3& m) { return RotateXMatrix(a) * m; }},
        {"PreRotateY", [&](Matrix3& m) { m.PreRotateY(a); },
         [&](const Matrix3& m) { return RotateYMatrix(a) * m; }},
        {"PreRotateZ", [&](Matrix3& m) { m.PreRotateZ(a); },
         [&](const Matrix3& m) { return RotateZMatrix(a) * m; }},
        {"PreScale", [&](Matrix3& m) { m.PreScale(s); },
         [&](const Matrix3& m) { return ScaleMatrix(s) * m; }},
        {"Scale with translation", [&](Matrix3& m) { m.Scale(s, true); },
         [&](const Matrix3& m) { return m * ScaleMatrix(s); }},
        {"Scale without translation", [&](Matrix3& m) { m.Scale(s, false); },
         [&](const Matrix3& m) {
             Matrix3 r = m * ScaleMatrix(s);
             r.SetTrans(m.GetTrans());
             return r;
         }},
    };
    MathRandom rnd(3);
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        for (int n = 0; n < 20; ++n) {
            const Matrix3 m = rnd.Affine();
            Matrix3 got = m;
            c.op(got);
            EXPECT_TRUE(MatrixNear(got, c.expected(m), 1e-4f));
        }
    }
}

TEST(Matrix3, InverseUndoesEveryKindOfMatrix) {
    MathRandom rnd(4);
    for (int n = 0; n < 500; ++n) {
        const Matrix3 m = rnd.Affine();
        EXPECT_TRUE(MatrixNear(m * Inverse(m), Matrix3(), 2e-4f)) << test::Describe(m);
        EXPECT_TRUE(MatrixNear(Inverse(m) * m, Matrix3(), 2e-4f)) << test::Describe(m);
    }
    // The flagged fast paths: a pure rotation, a pure translation, the identity.
    Matrix3 rotation = RotAngleAxisMatrix(Normalize(Point3(1, 2, 3)), 1.1f);
    rotation.SetTrans({4, 5, 6});
    EXPECT_TRUE(MatrixNear(rotation * Inverse(rotation), Matrix3(), 1e-5f));
    EXPECT_TRUE(MatrixNear(Inverse(TransMatrix({1, 2, 3})), TransMatrix({-1, -2, -3}), 0));
    EXPECT_TRUE(Inverse(Matrix3()).IsIdentity());
    Matrix3 inverted = ScaleMatrix({2, 4, 8});
    inverted.Invert();
    EXPECT_TRUE(MatrixNear(inverted, ScaleMatrix({0.5f, 0.25f, 0.125f}), 0));
    // A singular matrix has no inverse and gives the identity.
    EXPECT_TRUE(Inverse(ScaleMatrix({1, 0, 1})).IsIdentity());
}

bool Orthonormal(const Matrix3& m, float eps) {
    for (int i = 0; i < 3; ++i) {
        if (std::fabs(m[i].Length() - 1.0f) > eps) return false;
        if (std::fabs(m[i] % m[(i + 1) % 3]) > eps) return false;
    }
    return true;
}

TEST(Matrix3, OrthogonalizeGivesOrthonormalRowsAndKeepsTranslationAndParity) {
    MathRandom rnd(5);
    for (int n = 0; n < 1000; ++n) {
        const Matrix3 m = rnd.Affine();
        Matrix3 o = m;
        o.Orthogonalize();
        ASSERT_TRUE(Orthonormal(o, 1e-5f)) << test::Describe(m);
        EXPECT_EQ(o.GetTrans(), m.GetTrans());
        EXPECT_EQ(o.Parity(), m.Parity());
        EXPECT_TRUE(
            PointNear(o[0], Normalize(m[0]), 1e-6f));  // Gram-Schmidt keeps row 0's direction
        EXPECT_NEAR(o[1] % Normalize(m[0] ^ m[1]), 0.0f, 1e-5f);  // and the plane of rows 0, 1
    }
    // Degenerate rows are completed rather than left null or NaN.
    const Matrix3 degenerate[] = {
        Matrix3({0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {1, 2, 3}),
        Matrix3({1, 0, 0}, {2, 0, 0}, {0, 0, 1}, {}),
        Matrix3({0, 0, 0}, {0, 3, 0}, {0, 0, 0}, {}),
        Matrix3({1, 1, 0}, {1, 1, 0}, {2, 2, 0}, {}),
    };
    for (const Matrix3& m : degenerate) {
        Matrix3 o = m;
        o.Orthogonalize();
        EXPECT_TRUE(Orthonormal(o, 1e-6f)) << test::Describe(o);
        EXPECT_FALSE(o.Parity());
        EXPECT_EQ(o.GetTrans(), m.GetTrans());
    }
}

// A set identity flag is a promise about the values; check every one that is set.
::testing::AssertionResult FlagsHold(const Matrix3& m) {
    const uint32_t f = m.GetIdentFlags();
    if ((f & Matrix3::POS_IDENT) && m.GetTrans() != Point3::Origin)
        return ::testing::AssertionFailure() << "POS_IDENT with a translation";
    if (f & Matrix3::ROT_IDENT) {
        for (int i = 0; i < 3; ++i)
            for (int j = 0; j < 3; ++j)
                if ((i != j && m[i][j] != 0.0f) || (i == j && m[i][j] < 0.0f))
                    return ::testing::AssertionFailure() << "ROT_IDENT with " << test::Describe(m);
    }
    if ((f & Matrix3::SCL_IDENT) && !Orthonormal(m, 1e-5f))
        return ::testing::AssertionFailure() << "SCL_IDENT with " << test::Describe(m);
    return ::testing::AssertionSuccess();
}

TEST(Matrix3, IdentityFlagsStayTrueThroughAnySequenceOfOperations) {
    MathRandom rnd(6);
    const std::function<void(Matrix3&)> ops[] = {
        [&](Matrix3& m) { m.Translate(rnd.Uniform(0, 1) < 0.3f ? Point3() : rnd.Vector(-1, 1)); },
        [&](Matrix3& m) { m.PreTranslate(rnd.Vector(-1, 1)); },
        [&](Matrix3& m) { m.RotateY(rnd.Uniform(-3, 3)); },
        [&](Matrix3& m) { m.PreRotateZ(rnd.Uniform(0, 1) < 0.3f ? 0.0f : 1.0f); },
        [&](Matrix3& m) {
            m.Scale(rnd.Uniform(0, 1) < 0.5f ? Point3(1, 1, 1) : rnd.Vector(-2, 2));
        },
        [&](Matrix3& m) { m.PreScale(rnd.Vector(0.5f, 2)); },
        [&](Matrix3& m) { m = m * (rnd.Uniform(0, 1) < 0.5f ? Matrix3() : RotateXMatrix(0.3f)); },
        [&](Matrix3& m) { m = Inverse(m); },
        [&](Matrix3& m) { m.Orthogonalize(); },
        [&](Matrix3& m) { m.NoTrans(); },
        [&](Matrix3& m) { m.NoRot(); },
        [&](Matrix3& m) { m.NoScale(); },
        [&](Matrix3& m) { m.SetRow(rnd.Uniform(0, 1) < 0.5f ? 3 : 1, rnd.Vector(-1, 1)); },
        [&](Matrix3& m) { m.IdentityMatrix(); },
    };
    for (int run = 0; run < 200; ++run) {
        Matrix3 m;
        for (int step = 0; step < 12; ++step) {
            ops[int(rnd.Uniform(0, 13.999f))](m);
            ASSERT_TRUE(FlagsHold(m)) << "run " << run << " step " << step;
        }
    }
    // Writing rows directly, then ValidateFlags, finds what the values are.
    Matrix3 m;
    m[1] = {0, 2, 0};
    m.ValidateFlags();
    EXPECT_EQ(m.GetIdentFlags(), uint32_t(Matrix3::POS_IDENT | Matrix3::ROT_IDENT));
    m[3] = {0, 0, 1};
    m[0] = {0, 1, 0};
    m.ValidateFlags();
    EXPECT_EQ(m.GetIdentFlags(), 0u);
}

TEST(Matrix3, PartsAndQueries) {
    Matrix3 m = ScaleMatrix({2, 3, 4}) * RotateZMatrix(0.5f) * TransMatrix({1, 2, 3});
    EXPECT_NEAR(m.Determinant(), 24.0f, 1e-4f);
    EXPECT_FALSE(m.Parity());
    EXPECT_TRUE(ScaleMatrix({1, -1, 1}).Parity());
    EXPECT_EQ(m.GetColumn3(2), Point3(m[0].z, m[1].z, m[2].z));

    Matrix3 noTrans = m;
    noTrans.NoTrans();
    EXPECT_EQ(noTrans.GetTrans(), Point3());
    EXPECT_EQ(noTrans[0], m[0]);

    Matrix3 noRot = m;
    noRot.NoRot();
    EXPECT_TRUE(MatrixNear(noRot, ScaleMatrix({2, 3, 4}) * TransMatrix(m.GetTrans()), 1e-5f));

    Matrix3 noScale = m;
    noScale.NoScale();
    EXPECT_TRUE(MatrixNear(noScale, RotateZMatrix(0.5f) * TransMatrix(m.GetTrans()), 1e-6f));

    Matrix3 zero;
    zero.Zero();
    EXPECT_EQ(Point3(1, 2, 3) * zero, Point3());
    EXPECT_FALSE(zero.IsIdentity());
    EXPECT_TRUE(Matrix3({1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {}).IsIdentity());
}

}  // namespace
}  // namespace host

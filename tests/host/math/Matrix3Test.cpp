#include "host/math/Matrix3.h"

#include <functional>
#include <tuple>

#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::kPi;
using test::MathRandom;
using test::MatrixNear;
using test::PointNear;

TEST(Matrix3, RowVectorConventions) {
    const Matrix3 m({0, 1, 0}, {-1, 0, 0}, {0, 0, 2}, {5, 6, 7});
    EXPECT_EQ(m.VectorTransform(Point3::XAxis), Point3(0, 1, 0));  // rows are the axes' images
    EXPECT_EQ(Point3(1, 0, 0) * m, Point3(5, 7, 7));               // row 3 is the translation
    // A * B applies A first.
    MathRandom rnd(1);
    for (int n = 0; n < 200; ++n) {
        const Matrix3 a = rnd.Affine(), b = rnd.Affine();
        const Point3 p = rnd.Vector(-10, 10);
        EXPECT_TRUE(PointNear((p * a) * b, p * (a * b), 2e-3f));
    }
    // Positive angles are right-handed: X towards Y about Z, Y towards Z, Z towards X.
    EXPECT_TRUE(PointNear(Point3::XAxis * RotateZMatrix(kPi / 2), Point3::YAxis, 1e-6f));
    EXPECT_TRUE(PointNear(Point3::YAxis * RotateXMatrix(kPi / 2), Point3::ZAxis, 1e-6f));
    EXPECT_TRUE(PointNear(Point3::ZAxis * RotateYMatrix(kPi / 2), Point3::XAxis, 1e-6f));
}

TEST(Matrix3, PlainOperationsActOutsideAndPreOperationsInside) {
    const Point3 p(1.5f, -2, 0.25f), s(2, -0.5f, 3);
    const float a = 0.7f;
    using Op = std::function<void(Matrix3&)>;
    const std::tuple<Op, Matrix3, bool> ops[] = {
        // operation, factor, applied inside
        {[&](Matrix3& m) { m.Translate(p); }, TransMatrix(p), false},
        {[&](Matrix3& m) { m.RotateX(a); }, RotateXMatrix(a), false},
        {[&](Matrix3& m) { m.RotateY(a); }, RotateYMatrix(a), false},
        {[&](Matrix3& m) { m.RotateZ(a); }, RotateZMatrix(a), false},
        {[&](Matrix3& m) { m.Scale(s, true); }, ScaleMatrix(s), false},
        {[&](Matrix3& m) { m.PreTranslate(p); }, TransMatrix(p), true},
        {[&](Matrix3& m) { m.PreRotateX(a); }, RotateXMatrix(a), true},
        {[&](Matrix3& m) { m.PreRotateY(a); }, RotateYMatrix(a), true},
        {[&](Matrix3& m) { m.PreRotateZ(a); }, RotateZMatrix(a), true},
        {[&](Matrix3& m) { m.PreScale(s); }, ScaleMatrix(s), true},
    };
    MathRandom rnd(3);
    for (int n = 0; n < 20; ++n) {
        const Matrix3 m = rnd.Affine();
        for (const auto& [op, factor, pre] : ops) {
            Matrix3 got = m;
            op(got);
            EXPECT_TRUE(MatrixNear(got, pre ? factor * m : m * factor, 1e-4f));
        }
        Matrix3 kept = m;
        kept.Scale(s, false);  // without the flag the translation stays
        EXPECT_EQ(kept.GetTrans(), m.GetTrans());
    }
}

TEST(Matrix3, InverseUndoesEveryKindOfMatrix) {
    MathRandom rnd(4);
    for (int n = 0; n < 500; ++n) {
        const Matrix3 m = rnd.Affine();
        EXPECT_TRUE(MatrixNear(m * Inverse(m), Matrix3(), 2e-4f)) << test::Describe(m);
    }
    // The flagged fast paths (a rotation, a translation, a scale) and a singular matrix.
    Matrix3 rotation = RotAngleAxisMatrix(Normalize(Point3(1, 2, 3)), 1.1f);
    rotation.SetTrans({4, 5, 6});
    EXPECT_TRUE(MatrixNear(rotation * Inverse(rotation), Matrix3(), 1e-5f));
    EXPECT_TRUE(MatrixNear(Inverse(TransMatrix({1, 2, 3})), TransMatrix({-1, -2, -3}), 0));
    EXPECT_TRUE(MatrixNear(Inverse(ScaleMatrix({2, 4, 8})), ScaleMatrix({0.5f, 0.25f, 0.125f}), 0));
    EXPECT_TRUE(Inverse(ScaleMatrix({1, 0, 1})).IsIdentity());
}

bool Orthonormal(const Matrix3& m, float eps) {
    for (int i = 0; i < 3; ++i)
        if (std::fabs(m[i].Length() - 1) > eps || std::fabs(m[i] % m[(i + 1) % 3]) > eps)
            return false;
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
        EXPECT_TRUE(PointNear(o[0], Normalize(m[0]), 1e-6f));     // Gram-Schmidt keeps row 0
        EXPECT_NEAR(o[1] % Normalize(m[0] ^ m[1]), 0.0f, 1e-5f);  // and the plane of rows 0, 1
    }
    // Degenerate rows are completed rather than left null or NaN.
    for (const Matrix3& m :
         {Matrix3({}, {}, {}, {1, 2, 3}), Matrix3({1, 0, 0}, {2, 0, 0}, {0, 0, 1}, {}),
          Matrix3({}, {0, 3, 0}, {}, {}), Matrix3({1, 1, 0}, {1, 1, 0}, {2, 2, 0}, {})}) {
        Matrix3 o = m;
        o.Orthogonalize();
        EXPECT_TRUE(Orthonormal(o, 1e-6f) && !o.Parity()) << test::Describe(o);
    }
}

// A set identity flag is a promise about the values: check every one that is set.
bool FlagsHold(const Matrix3& m) {
    const uint32_t f = m.GetIdentFlags();
    if ((f & Matrix3::POS_IDENT) && m.GetTrans() != Point3::Origin) return false;
    for (int i = 0; i < 3 && (f & Matrix3::ROT_IDENT); ++i)
        for (int j = 0; j < 3; ++j)
            if (i == j ? m[i][j] < 0 : m[i][j] != 0) return false;
    return !(f & Matrix3::SCL_IDENT) || Orthonormal(m, 1e-5f);
}

TEST(Matrix3, IdentityFlagsStayTrueThroughAnySequenceOfOperations) {
    MathRandom rnd(6);
    auto some = [&rnd](Point3 p) { return rnd.Uniform(0, 1) < 0.3f ? p : rnd.Vector(-2, 2); };
    const std::function<void(Matrix3&)> ops[] = {
        [&](Matrix3& m) { m.Translate(some({})); },
        [&](Matrix3& m) { m.PreTranslate(some({})); },
        [&](Matrix3& m) { m.RotateY(some({}).x); },
        [&](Matrix3& m) { m.PreRotateZ(some({}).y); },
        [&](Matrix3& m) {
            m.Scale(some({1, 1, 1}));
        },
        [&](Matrix3& m) {
            m.PreScale(some({1, 1, 1}));
        },
        [&](Matrix3& m) { m = m * RotateXMatrix(0.3f); },
        [](Matrix3& m) { m = Inverse(m); },
        [](Matrix3& m) { m.Orthogonalize(); },
        [](Matrix3& m) { m.NoTrans(); },
        [](Matrix3& m) { m.NoRot(); },
        [](Matrix3& m) { m.NoScale(); },
        [&](Matrix3& m) { m.SetRow(int(rnd.Uniform(0, 3.99f)), some({})); },
        [](Matrix3& m) { m.IdentityMatrix(); },
    };
    for (int run = 0; run < 200; ++run) {
        Matrix3 m;
        for (int step = 0; step < 12; ++step) {
            ops[int(rnd.Uniform(0, 13.999f))](m);
            ASSERT_TRUE(FlagsHold(m))
                << "run " << run << " step " << step << ": " << test::Describe(m);
        }
    }
    Matrix3 m;  // rows written directly, then ValidateFlags finds what the values are
    m[1] = {0, 2, 0};
    m.ValidateFlags();
    EXPECT_EQ(m.GetIdentFlags(), uint32_t(Matrix3::POS_IDENT | Matrix3::ROT_IDENT));
    m[0] = {0, 1, 0};
    m.ValidateFlags();
    EXPECT_EQ(m.GetIdentFlags(), uint32_t(Matrix3::POS_IDENT));
}

TEST(Matrix3, RemovingPartsKeepsTheOthers) {
    const Matrix3 m = ScaleMatrix({2, 3, 4}) * RotateZMatrix(0.5f) * TransMatrix({1, 2, 3});
    EXPECT_NEAR(m.Determinant(), 24.0f, 1e-4f);
    EXPECT_TRUE(ScaleMatrix({1, -1, 1}).Parity());
    Matrix3 noTrans = m, noRot = m, noScale = m;
    noTrans.NoTrans();
    noRot.NoRot();
    noScale.NoScale();
    EXPECT_TRUE(MatrixNear(noTrans, ScaleMatrix({2, 3, 4}) * RotateZMatrix(0.5f), 1e-6f));
    EXPECT_TRUE(MatrixNear(noRot, ScaleMatrix({2, 3, 4}) * TransMatrix(m.GetTrans()), 1e-5f));
    EXPECT_TRUE(MatrixNear(noScale, RotateZMatrix(0.5f) * TransMatrix(m.GetTrans()), 1e-6f));
}

}  // namespace
}  // namespace host

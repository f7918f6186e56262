#include "host/math/AffineParts.h"

#include "host/math/AngAxis.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;
using test::MatrixNear;
using test::PointNear;
using test::SameRotation;

// The composition order written down in AffineParts.h, built from plain matrices.
Matrix3 Compose(const AffineParts& p) {
    return Inverse(QuatMatrix(p.u)) * ScaleMatrix(p.k) * QuatMatrix(p.u) * QuatMatrix(p.q) *
           ScaleMatrix({p.f, p.f, p.f}) * TransMatrix(p.t);
}

AffineParts Decompose(const Matrix3& m) {
    AffineParts parts;
    decomp_affine(m, &parts);
    return parts;
}

// A stretch by k along the axes that `axes` turns to, then a rotation.
Matrix3 Stretched(const Point3& k, const Quat& axes, const Quat& rot) {
    return Inverse(QuatMatrix(axes)) * ScaleMatrix(k) * QuatMatrix(axes) * QuatMatrix(rot);
}

TEST(DecompAffine, ComposingThePartsGivesAnyAffineMatrixBack) {
    MathRandom rnd(30);
    int mirrored = 0;
    for (int n = 0; n < 5000; ++n) {
        const Matrix3 m = rnd.Affine();
        const AffineParts p = Decompose(m);
        ASSERT_TRUE(MatrixNear(Compose(p), m, 1e-4f)) << "matrix " << n;
        EXPECT_EQ(p.f, m.Parity() ? -1.0f : 1.0f);
        EXPECT_TRUE(std::fabs(p.q.Length() - 1) < 1e-5f && std::fabs(p.u.Length() - 1) < 1e-5f);
        EXPECT_GE(std::min({p.k.x, p.k.y, p.k.z}), 0.0f);
        mirrored += p.f < 0;
    }
    EXPECT_GT(mirrored, 1000);  // the random matrices did exercise mirrors
}

TEST(DecompAffine, SimpleTransformsGiveTheirOwnParts) {
    const Quat r = Quat(AngAxis(Normalize(Point3(1, -2, 0.5f)), 2.1f));
    const struct {
        Matrix3 m;
        Quat q;
        Point3 k;
        float f;
    } cases[] = {
        {TransMatrix({1, 2, 3}), Quat(), {1, 1, 1}, 1},
        {ScaleMatrix({3, 3, 3}) * QuatMatrix(r), r, {3, 3, 3}, 1},
        // Axis-aligned scale, then rotation: factors stay in order.
        {ScaleMatrix({2, 3, 4}) * QuatMatrix(r), r, {2, 3, 4}, 1},
        // f * Matrix(q) = diag(-1, 1, 1): q is half a turn about X.
        {ScaleMatrix({-1, 1, 1}), Quat(1, 0, 0, 0), {1, 1, 1}, -1},
        {ScaleMatrix({-2, -2, -2}), Quat(), {2, 2, 2}, -1},
    };
    for (const auto& c : cases) {
        const AffineParts p = Decompose(c.m);
        EXPECT_TRUE(SameRotation(p.q, c.q, 1e-5f) && SameRotation(p.u, Quat(), 1e-5f));
        EXPECT_TRUE(PointNear(p.k, c.k, 1e-5f));
        EXPECT_EQ(p.f, c.f);
        EXPECT_EQ(p.t, c.m.GetTrans());
    }
}

// Of all stretch rotations that describe one stretch (the axes may be permuted and
// flipped), decomp_affine picks the one nearest the identity.
TEST(DecompAffine, StretchRotationIsTheOneNearestTheIdentity) {
    MathRandom rnd(31);
    for (int n = 0; n < 500; ++n) {
        // A small stretch rotation is its own best description, even written a quarter turn off.
        const Quat small = Quat(AngAxis(Normalize(rnd.Vector(-1, 1)), rnd.Uniform(0, 0.7f)));
        const Quat quarter = Quat(AngAxis(Point3::ZAxis, test::kPi / 2)) * small;
        const Point3 k(rnd.Uniform(0.5f, 1), rnd.Uniform(1.5f, 2), rnd.Uniform(2.5f, 3));
        for (const AffineParts& p : {Decompose(Stretched(k, small, rnd.Rotation())),
                                     Decompose(Stretched({k.y, k.x, k.z}, quarter, Quat()))}) {
            EXPECT_TRUE(SameRotation(p.u, small, 1e-4f));
            EXPECT_TRUE(PointNear(p.k, k, 1e-4f));
        }
    }
}

TEST(DecompAffine, TwoEqualFactorsGiveASwingWithoutTwist) {
    MathRandom rnd(32);
    for (int n = 0; n < 500; ++n) {
        const Matrix3 m =
            Stretched({2, 2, 5}, rnd.Rotation(), Quat()) * TransMatrix(rnd.Vector(-5, 5));
        const AffineParts p = Decompose(m);
        ASSERT_TRUE(MatrixNear(Compose(p), m, 1e-4f));
        const int slot = p.k.MaxComponent();  // the distinct factor's slot: u swings its axis
        EXPECT_TRUE(PointNear(p.k,
                              slot == 0   ? Point3(5, 2, 2)
                              : slot == 1 ? Point3(2, 5, 2)
                                          : Point3(2, 2, 5),
                              1e-4f));
        EXPECT_NEAR(p.u[slot], 0.0f, 1e-5f);
        EXPECT_LE(AngAxis(p.u).angle, std::acos(1 / std::sqrt(3.0f)) + 1e-4f);
    }
}

// Factors close together, equal to float noise or far apart, tiny to huge: every stretch comes
// back, and the factors multiply to |det m| of the matrix as stored.
TEST(DecompAffine, AnyStretchRebuildsTheMatrixAndItsDeterminant) {
    const Point3 factors[] = {{2, 2.001f, 5},     {2, 2.0001f, 2.0002f}, {1, 1, 1.00001f},
                              {0.5f, 3, 3.0005f}, {1e-3f, 1, 1e3f},      {7, 7, 7}};
    MathRandom rnd(34);
    for (float scale : {1e-18f, 1.0f, 1e18f}) {
        for (const Point3& k : factors) {
            for (int n = 0; n < 100; ++n) {
                const Matrix3 m = Stretched(k * scale, rnd.Rotation(), rnd.Rotation());
                const AffineParts p = Decompose(m);
                ASSERT_TRUE(MatrixNear(Compose(p), m, 3e-4f * scale))
                    << k.x << " " << k.y << " " << k.z;
                const double det =
                    std::fabs(double(m[0].x) * (double(m[1].y) * m[2].z - double(m[1].z) * m[2].y) -
                              double(m[0].y) * (double(m[1].x) * m[2].z - double(m[1].z) * m[2].x) +
                              double(m[0].z) * (double(m[1].x) * m[2].y - double(m[1].y) * m[2].x));
                EXPECT_NEAR(double(p.k.x) * p.k.y * p.k.z, det, 1e-5 * det);
            }
        }
    }
}

TEST(DecompAffine, SingularMatricesDecomposeWithoutNaNs) {
    MathRandom rnd(33);
    const Matrix3 cases[] = {
        ScaleMatrix({1, 2, 0}) * QuatMatrix(rnd.Rotation()),                      // rank 2
        Stretched({0, 3, 1}, rnd.Rotation(), rnd.Rotation()),                     // rank 2
        Matrix3({1, 2, 3}, {2, 4, 6}, {-1, -2, -3}, {4, 5, 6}),                   // rank 1
        ScaleMatrix({0, 0, 0}) * TransMatrix({1, 2, 3}), ScaleMatrix({-1, 2, 0})  // rank 0; mirror
    };
    for (const Matrix3& m : cases) {
        const AffineParts p = Decompose(m);
        EXPECT_TRUE(MatrixNear(Compose(p), m, 1e-4f)) << test::Describe(m);
        EXPECT_NEAR(p.q.Length(), 1.0f, 1e-5f);
        EXPECT_NEAR(p.u.Length(), 1.0f, 1e-5f);
    }
}

}  // namespace
}  // namespace host

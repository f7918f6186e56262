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

// The determinant of the 3x3 part, in double.
double Det(const Matrix3& m) {
    auto e = [&m](int i, int j) { return double(m[i][j]); };
    return e(0, 0) * (e(1, 1) * e(2, 2) - e(1, 2) * e(2, 1)) -
           e(0, 1) * (e(1, 0) * e(2, 2) - e(1, 2) * e(2, 0)) +
           e(0, 2) * (e(1, 0) * e(2, 1) - e(1, 1) * e(2, 0));
}

AffineParts Decompose(const Matrix3& m) {
    AffineParts parts;
    decomp_affine(m, &parts);
    return parts;
}

float Scale(const Matrix3& m) {
    float s = 1.0f;
    for (int i = 0; i < 4; ++i)
        s = std::max({s, std::fabs(m[i].x), std::fabs(m[i].y), std::fabs(m[i].z)});
    return s;
}

TEST(DecompAffine, ComposingThePartsGivesTheMatrixBack) {
    MathRandom rnd(30);
    int mirrored = 0;
    for (int n = 0; n < 5000; ++n) {
        const Matrix3 m = rnd.Affine();
        const AffineParts p = Decompose(m);
        ASSERT_TRUE(MatrixNear(Compose(p), m, 2e-5f * Scale(m))) << "matrix " << n;
        EXPECT_EQ(p.f, m.Parity() ? -1.0f : 1.0f);
        EXPECT_NEAR(p.q.Length(), 1.0f, 1e-5f);
        EXPECT_NEAR(p.u.Length(), 1.0f, 1e-5f);
        EXPECT_GE(std::min({p.k.x, p.k.y, p.k.z}), 0.0f);
        mirrored += p.f < 0;
    }
    EXPECT_GT(mirrored, 1000);  // the random matrices did exercise mirrors
}

TEST(DecompAffine, SimpleTransformsGiveTheirOwnParts) {
    const Quat r = Quat(AngAxis(Normalize(Point3(1, -2, 0.5f)), 2.1f));
    struct Case {
        const char* name;
        Matrix3 m;
        Quat q;
        Point3 k;
        float f;
    };
    const Case cases[] = {
        {"identity", Matrix3(), Quat(), {1, 1, 1}, 1},
        {"translation", TransMatrix({1, 2, 3}), Quat(), {1, 1, 1}, 1},
        {"rotation", QuatMatrix(r), r, {1, 1, 1}, 1},
        {"uniform scale and rotation", ScaleMatrix({3, 3, 3}) * QuatMatrix(r), r, {3, 3, 3}, 1},
        // Scale first along the coordinate axes, then rotation: the stretch axes are the
        // coordinate axes and the factors stay in order.
        {"axis scale then rotation", ScaleMatrix({2, 3, 4}) * QuatMatrix(r), r, {2, 3, 4}, 1},
        // f * Matrix(q) = diag(-1, 1, 1): q is half a turn about X.
        {"mirror", ScaleMatrix({-1, 1, 1}), Quat(1, 0, 0, 0), {1, 1, 1}, -1},
        {"mirror all", ScaleMatrix({-2, -2, -2}), Quat(), {2, 2, 2}, -1},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        const AffineParts p = Decompose(c.m);
        EXPECT_TRUE(SameRotation(p.q, c.q, 1e-5f));
        EXPECT_TRUE(SameRotation(p.u, Quat(), 1e-5f));
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
        // A small stretch rotation (under 40 degrees) is its own best description...
        const Quat small = Quat(AngAxis(Normalize(rnd.Vector(-1, 1)), rnd.Uniform(0, 0.7f)));
        const Point3 k(rnd.Uniform(0.5f, 1), rnd.Uniform(1.5f, 2), rnd.Uniform(2.5f, 3));
        const Quat rot = rnd.Rotation();
        const Matrix3 m =
            Inverse(QuatMatrix(small)) * ScaleMatrix(k) * QuatMatrix(small) * QuatMatrix(rot);
        AffineParts p = Decompose(m);
        EXPECT_TRUE(SameRotation(p.u, small, 1e-4f));
        EXPECT_TRUE(PointNear(p.k, k, 1e-4f));
        // ...and stays so when the same stretch is described with its axes turned a
        // quarter turn, which permutes the factors.
        const Quat quarter = Quat(AngAxis(Point3::ZAxis, test::kPi / 2)) * small;
        const Point3 swapped(k.y, k.x, k.z);
        const Matrix3 same =
            Inverse(QuatMatrix(quarter)) * ScaleMatrix(swapped) * QuatMatrix(quarter);
        p = Decompose(same);
        EXPECT_TRUE(SameRotation(p.u, small, 1e-4f));
        EXPECT_TRUE(PointNear(p.k, k, 1e-4f));
    }
}

TEST(DecompAffine, TwoEqualFactorsGiveASwingWithoutTwist) {
    MathRandom rnd(32);
    for (int n = 0; n < 500; ++n) {
        const Quat axes = rnd.Rotation();
        const Matrix3 m = Inverse(QuatMatrix(axes)) * ScaleMatrix({2, 2, 5}) * QuatMatrix(axes) *
                          TransMatrix(rnd.Vector(-5, 5));
        const AffineParts p = Decompose(m);
        ASSERT_TRUE(MatrixNear(Compose(p), m, 1e-4f));
        // The distinct factor sits in the slot whose axis u moves least.
        const int slot = p.k.MaxComponent();
        EXPECT_NEAR(p.k[slot], 5.0f, 1e-4f);
        EXPECT_NEAR(p.k[(slot + 1) % 3], 2.0f, 1e-4f);
        EXPECT_NEAR(p.k[(slot + 2) % 3], 2.0f, 1e-4f);
        // A swing of that slot's axis: no turn about it.
        EXPECT_NEAR(p.u[slot], 0.0f, 1e-5f);
        EXPECT_LE(AngAxis(p.u).angle, std::acos(1 / std::sqrt(3.0f)) + 1e-4f);
    }
}

// Factors close together (where the eigenvectors hang on small differences), equal
// to float noise, or well apart: every stretch comes back exactly.
TEST(DecompAffine, CloseStretchFactorsStillRebuildTheMatrix) {
    const Point3 factors[] = {{2, 2.001f, 5},     {2, 2.0001f, 2.0002f}, {1, 1, 1.00001f},
                              {0.5f, 3, 3.0005f}, {1e-3f, 1, 1e3f},      {7, 7, 7}};
    MathRandom rnd(34);
    for (const Point3& k : factors) {
        for (int n = 0; n < 200; ++n) {
            const Quat axes = rnd.Rotation(), rot = rnd.Rotation();
            const Matrix3 m = Inverse(QuatMatrix(axes)) * ScaleMatrix(k) * QuatMatrix(axes) *
                              QuatMatrix(rot) * TransMatrix(rnd.Vector(-5, 5));
            const AffineParts p = Decompose(m);
            ASSERT_TRUE(MatrixNear(Compose(p), m, 1e-4f * Scale(m)))
                << k.x << " " << k.y << " " << k.z << " matrix " << n;
            // The factors multiply to |det m| of the matrix as stored (whose rounded
            // entries may move a tiny factor by a few percent from the one built in).
            const double det = std::fabs(Det(m));
            EXPECT_NEAR(double(p.k.x) * p.k.y * p.k.z, det, 1e-5 * det);
        }
    }
}

// Float matrices of any magnitude: the solver works in double without rescaling, so
// the smallest and largest scales a float can hold must not underflow or overflow.
TEST(DecompAffine, ExtremeMagnitudesKeepTheirPrecision) {
    MathRandom rnd(35);
    for (float s : {1e-18f, 1e-9f, 1e9f, 1e18f}) {
        for (const Point3& k : {Point3(1, 2, 3), Point3(1, 1, 1)}) {
            const Quat rot = rnd.Rotation(), axes = rnd.Rotation();
            const Matrix3 m =
                Inverse(QuatMatrix(axes)) * ScaleMatrix(k * s) * QuatMatrix(axes) * QuatMatrix(rot);
            const AffineParts p = Decompose(m);
            EXPECT_TRUE(MatrixNear(Compose(p), m, 3e-5f * s)) << s;  // entries up to 3s
            EXPECT_TRUE(SameRotation(p.q, rot, 1e-5f)) << s;
        }
    }
}

TEST(DecompAffine, SingularMatricesDecomposeWithoutNaNs) {
    MathRandom rnd(33);
    const Quat r = rnd.Rotation(), s = rnd.Rotation();
    const Matrix3 cases[] = {
        ScaleMatrix({1, 2, 0}) * QuatMatrix(r),  // rank 2
        Inverse(QuatMatrix(s)) * ScaleMatrix({0, 3, 1}) * QuatMatrix(s) * QuatMatrix(r),
        Matrix3({1, 2, 3}, {2, 4, 6}, {-1, -2, -3}, {4, 5, 6}),  // rank 1
        ScaleMatrix({0, 0, 0}) * TransMatrix({1, 2, 3}),         // rank 0
        ScaleMatrix({-1, 2, 0}),
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

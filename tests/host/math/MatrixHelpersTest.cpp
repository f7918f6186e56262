#include "host/math/MatrixHelpers.h"

#include "host/math/AngAxis.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;
using test::MatrixNear;
using test::PointNear;
using test::SameRotation;

TEST(MatrixHelpers, ComposeInvertsDecomposeForAnyAffineMatrix) {
    MathRandom rnd(40);
    for (int n = 0; n < 5000; ++n) {
        const Matrix3 m = rnd.Affine();
        Point3 pos;
        Quat rot;
        ScaleValue scale;
        DecomposeMatrix(m, pos, rot, scale);
        ASSERT_TRUE(MatrixNear(ComposeMatrix(pos, rot, scale), m, 1e-4f)) << "matrix " << n;
        EXPECT_EQ(pos, m.GetTrans());
        // The mirror sign travels in the scale factors.
        EXPECT_EQ(scale.s.x < 0, m.Parity());
    }
}

TEST(MatrixHelpers, ScaleValueStretchesAlongItsOwnAxes) {
    MathRandom rnd(41);
    for (int n = 0; n < 200; ++n) {
        const ScaleValue sv(rnd.Vector(-3, 3), rnd.Rotation());
        const Matrix3 m = ScaleValueMatrix(sv);
        const Matrix3 axes = QuatMatrix(sv.q);
        for (int i = 0; i < 3; ++i) EXPECT_TRUE(PointNear(axes[i] * m, axes[i] * sv.s[i], 1e-5f));
        Matrix3 applied = TransMatrix({1, 2, 3});
        ApplyScaling(applied, sv);
        EXPECT_TRUE(MatrixNear(applied, m * TransMatrix({1, 2, 3}), 1e-5f));
    }
}

TEST(MatrixHelpers, ApplyScaleValueReplacesTheScaleUnlessItIsOne) {
    const Matrix3 sheared = Matrix3({2, 0.5f, 0}, {0, 3, 0}, {0, 0, 4}, {7, 8, 9});
    Matrix3 unit = sheared;
    ApplyScaleValue(unit, ScaleValue({1, 1, 1}, Quat(AngAxis(Point3::ZAxis, 1))));
    Matrix3 expected = sheared;
    expected.Orthogonalize();
    EXPECT_TRUE(MatrixNear(unit, expected, 0));  // exactly (1, 1, 1): orthogonalised only

    Matrix3 scaled = sheared;
    ApplyScaleValue(scaled, ScaleValue({2, 5, 0.5f}));
    EXPECT_TRUE(PointNear(RowLengths(scaled), {2, 5, 0.5f}, 1e-5f));
    EXPECT_EQ(scaled.GetTrans(), Point3(7, 8, 9));
    EXPECT_TRUE(
        PointNear(RowLengths(ScaleMatrix({2, -3, 4}) * RotateXMatrix(1)), {2, 3, 4}, 1e-5f));
}

TEST(MatrixHelpers, OrthoQuatAndReplaceRotationSeparateRotationFromScale) {
    MathRandom rnd(42);
    for (int n = 0; n < 500; ++n) {
        const Quat q = rnd.Rotation(), other = rnd.Rotation();
        const Point3 s = rnd.Vector(0.3f, 3), t = rnd.Vector(-9, 9);
        const Matrix3 m = ScaleMatrix(s) * QuatMatrix(q) * TransMatrix(t);
        EXPECT_TRUE(SameRotation(OrthoQuat(ScaleMatrix({1, 1, 1}) * QuatMatrix(q)), q, 1e-5f));
        const Matrix3 replaced = ReplaceRotation(m, other);
        EXPECT_TRUE(
            MatrixNear(replaced, ScaleMatrix(s) * QuatMatrix(other) * TransMatrix(t), 1e-4f));
    }
}

TEST(MatrixHelpers, BlendMatrixInterpolatesEachPart) {
    const Matrix3 a = TransMatrix({0, 0, 0});
    const Matrix3 b = ScaleMatrix({3, 1, 1}) * RotateZMatrix(1.2f) * TransMatrix({10, -4, 2});
    EXPECT_TRUE(MatrixNear(BlendMatrix(a, b, 0), a, 1e-5f));
    EXPECT_TRUE(MatrixNear(BlendMatrix(a, b, 1), b, 1e-4f));
    // Halfway: half the translation, half the rotation angle, halfway in scale.
    const Matrix3 half = ScaleMatrix({2, 1, 1}) * RotateZMatrix(0.6f) * TransMatrix({5, -2, 1});
    EXPECT_TRUE(MatrixNear(BlendMatrix(a, b, 0.5f), half, 1e-4f));
    // Rotations go the short way even when the decomposition returns opposite signs.
    const Matrix3 c = RotateXMatrix(3.0f), d = RotateXMatrix(-3.0f);
    EXPECT_TRUE(MatrixNear(BlendMatrix(c, d, 0.5f), RotateXMatrix(test::kPi), 1e-4f));
}

}  // namespace
}  // namespace host

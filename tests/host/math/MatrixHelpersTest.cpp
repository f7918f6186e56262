#include "host/math/MatrixHelpers.h"

#include "host/math/AngAxis.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;
using test::MatrixNear;
using test::PointNear;

TEST(MatrixHelpers, ComposeInvertsDecomposeForAnyAffineMatrix) {
    MathRandom rnd(40);
    for (int n = 0; n < 5000; ++n) {
        const Matrix3 m = rnd.Affine();
        Point3 pos;
        Quat rot;
        ScaleValue scale;
        DecomposeMatrix(m, pos, rot, scale);
        ASSERT_TRUE(MatrixNear(ComposeMatrix(pos, rot, scale), m, 1e-4f)) << "matrix " << n;
        EXPECT_EQ(scale.s.x < 0, m.Parity());  // the mirror sign travels in the scale factors
    }
}

TEST(MatrixHelpers, ScaleValuesStretchAlongTheirOwnAxes) {
    MathRandom rnd(41);
    for (int n = 0; n < 200; ++n) {
        const ScaleValue sv(rnd.Vector(-3, 3), rnd.Rotation());
        const Matrix3 axes = QuatMatrix(sv.q);
        for (int i = 0; i < 3; ++i)
            EXPECT_TRUE(PointNear(axes[i] * ScaleValueMatrix(sv), axes[i] * sv.s[i], 1e-5f));
        Matrix3 applied = TransMatrix({1, 2, 3});
        ApplyScaling(applied, sv);
        EXPECT_TRUE(MatrixNear(applied, ScaleValueMatrix(sv) * TransMatrix({1, 2, 3}), 1e-5f));
    }
    // ApplyScaleValue orthogonalises first, and stops there for exactly (1, 1, 1).
    const Matrix3 sheared({2, 0.5f, 0}, {0, 3, 0}, {0, 0, 4}, {7, 8, 9});
    Matrix3 unit = sheared, scaled = sheared, expected = sheared;
    expected.Orthogonalize();
    ApplyScaleValue(unit, ScaleValue({1, 1, 1}, Quat(AngAxis(Point3::ZAxis, 1))));
    ApplyScaleValue(scaled, ScaleValue({2, 5, 0.5f}));
    EXPECT_TRUE(MatrixNear(unit, expected, 0));
    EXPECT_TRUE(MatrixNear(scaled, ScaleMatrix({2, 5, 0.5f}) * expected, 1e-5f));
    EXPECT_TRUE(
        PointNear(RowLengths(ScaleMatrix({2, -3, 4}) * RotateXMatrix(1)), {2, 3, 4}, 1e-5f));
}

TEST(MatrixHelpers, RotationIsSeparatedFromScaleAndBlended) {
    MathRandom rnd(42);
    for (int n = 0; n < 500; ++n) {
        const Quat q = rnd.Rotation(), other = rnd.Rotation();
        const Point3 s = rnd.Vector(0.3f, 3), t = rnd.Vector(-9, 9);
        const Matrix3 m = ScaleMatrix(s) * QuatMatrix(q) * TransMatrix(t);
        EXPECT_TRUE(test::SameRotation(OrthoQuat(QuatMatrix(q) * TransMatrix(t)), q, 1e-5f));
        EXPECT_TRUE(MatrixNear(ReplaceRotation(m, other),
                               ScaleMatrix(s) * QuatMatrix(other) * TransMatrix(t), 1e-4f));
    }
    // Blends: the ends, then halfway in translation, rotation angle and scale; rotations
    // go the short way even when the decomposition gives opposite signs.
    const Matrix3 b = ScaleMatrix({3, 1, 1}) * RotateZMatrix(1.2f) * TransMatrix({10, -4, 2});
    EXPECT_TRUE(MatrixNear(BlendMatrix(Matrix3(), b, 0), Matrix3(), 1e-5f));
    EXPECT_TRUE(MatrixNear(BlendMatrix(Matrix3(), b, 1), b, 1e-4f));
    EXPECT_TRUE(MatrixNear(BlendMatrix(Matrix3(), b, 0.5f),
                           ScaleMatrix({2, 1, 1}) * RotateZMatrix(0.6f) * TransMatrix({5, -2, 1}),
                           1e-4f));
    EXPECT_TRUE(MatrixNear(BlendMatrix(RotateXMatrix(3), RotateXMatrix(-3), 0.5f),
                           RotateXMatrix(test::kPi), 1e-4f));
}

}  // namespace
}  // namespace host

#include "host/math/MatrixHelpers.h"

#include "host/math/AffineParts.h"

namespace host {

void DecomposeMatrix(const Matrix3& m, Point3& pos, Quat& rot, ScaleValue& scale) {
    AffineParts parts;
    decomp_affine(m, &parts);
    pos = parts.t;
    rot = parts.q;
    scale = ScaleValue(parts.k * parts.f, parts.u);
}

Matrix3 ComposeMatrix(const Point3& pos, const Quat& rot, const ScaleValue& scale) {
    Matrix3 m = ScaleValueMatrix(scale) * QuatMatrix(rot);
    m.SetTrans(pos);
    return m;
}

Point3 RowLengths(const Matrix3& m) {
    return {m[0].Length(), m[1].Length(), m[2].Length()};
}

void ApplyScaleValue(Matrix3& m, const ScaleValue& scale) {
    m.Orthogonalize();
    if (scale.s != Point3(1.0f, 1.0f, 1.0f)) ApplyScaling(m, scale);
}

Quat OrthoQuat(const Matrix3& m) {
    Matrix3 rotation = m;
    rotation.Orthogonalize();
    return Quat(rotation);
}

Matrix3 ReplaceRotation(const Matrix3& m, const Quat& rot) {
    Point3 pos;
    Quat old;
    ScaleValue scale;
    DecomposeMatrix(m, pos, old, scale);
    return ComposeMatrix(pos, rot, scale);
}

Matrix3 BlendMatrix(const Matrix3& a, const Matrix3& b, float t) {
    Point3 posA, posB;
    Quat rotA, rotB;
    ScaleValue scaleA, scaleB;
    DecomposeMatrix(a, posA, rotA, scaleA);
    DecomposeMatrix(b, posB, rotB, scaleB);
    rotB.MakeClosest(rotA);
    scaleB.q.MakeClosest(scaleA.q);
    const Point3 pos = posA + (posB - posA) * t;
    const ScaleValue scale(scaleA.s + (scaleB.s - scaleA.s) * t, Slerp(scaleA.q, scaleB.q, t));
    return ComposeMatrix(pos, Slerp(rotA, rotB, t), scale);
}

Matrix3 RotationOf(const Matrix3& m) {
    Matrix3 r;
    OrthoQuat(m).MakeMatrix(r);
    return r;
}

}  // namespace host

#include "host/math/ScaleValue.h"

namespace host {

Matrix3 ScaleValueMatrix(const ScaleValue& sv) {
    if (sv.q.IsIdentity()) return ScaleMatrix(sv.s);
    const Matrix3 axes = QuatMatrix(sv.q);
    // The transpose inverts a rotation; Inverse() does the same through the flags.
    return Inverse(axes) * ScaleMatrix(sv.s) * axes;
}

void ApplyScaling(Matrix3& m, const ScaleValue& sv) {
    // Scaling along the matrix's own axes is scaling its rows.
    if (sv.q.IsIdentity())
        m.PreScale(sv.s);
    else
        m = ScaleValueMatrix(sv) * m;
}

}  // namespace host

#include "host/classes/TcbRotation.h"

#include <cmath>

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/classes/TcbControl.h"

namespace host {

ClassDesc2* GetTcbRotationDesc() {
    static HostClassDesc<TcbRotation> desc(L"TCB Rotation", L"tcb_rotation", CTRL_ROTATION_CLASS_ID,
                                           TCB_ROTATION_CLASS_ID, false);
    return &desc;
}

namespace {

// The rate of h that moves exp(h) at the rate v in the coordinates of exp(h) (the
// inverse right Jacobian of the exponential map at h).
Point3 ExpRateFor(const Point3& h, const Point3& v) {
    const float angle = h.Length();
    const Point3 hv = CrossProd(h, v);
    if (angle < 1e-4f) return v + hv * 0.5f;
    const float c =
        1.0f / (angle * angle) - (1.0f + std::cos(angle)) / (2.0f * angle * std::sin(angle));
    return v + hv * 0.5f + CrossProd(h, hv) * c;
}

}  // namespace

void TcbRotation::UpdateSegments() {
    const size_t n = keys_.size();
    if (n < 2) return;
    spline_.Set(TcbShapes(keys_));
    quats_.resize(n);
    chords_.assign(n + 1, Point3());
    for (size_t i = 0; i < n; ++i) {
        quats_[i] = Normalize(KeyValueOf(keys_[i]));
        if (i > 0) chords_[i] = RotationVector(Inverse(quats_[i - 1]) * quats_[i]);
    }
    in_.resize(n);
    out_.resize(n);
    for (size_t i = 0; i < n; ++i) {
        in_[i] = TcbSpline::Tangent(spline_.In(i), chords_);
        out_[i] = TcbSpline::Tangent(spline_.Out(i), chords_);
    }
    endTangents_.resize(n - 1);
    for (size_t s = 0; s + 1 < n; ++s) endTangents_[s] = ExpRateFor(chords_[s + 1], in_[s + 1]);
}

Quat TcbRotation::Interpolate(TimeValue t) const {
    float u = 0.0f;
    const size_t s = spline_.Segment(t, u);
    float h[4];
    TcbSpline::Basis(u, h);
    const Point3 v = out_[s] * h[1] + chords_[s + 1] * h[2] + endTangents_[s] * h[3];
    return quats_[s] * RotationVectorQuat(v);
}

Quat TcbRotation::ExtendLinear(bool before, TimeValue t) const {
    const size_t key = before ? 0 : keys_.size() - 1;
    const Point3 tangent = before ? out_[key] : in_[key];
    return quats_[key] * RotationVectorQuat(tangent * spline_.EndSpans(before, t));
}

void TcbRotation::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const Quat q = Evaluate(t);
    NarrowValidity(t, valid);
    if (method == CTRL_RELATIVE)
        *static_cast<Matrix3*>(val) = QuatMatrix(q) * *static_cast<Matrix3*>(val);
    else
        *static_cast<Quat*>(val) = q;
}

void TcbRotation::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    const Quat q = method == CTRL_RELATIVE ? Evaluate(t) * Quat(*static_cast<AngAxis*>(val))
                                           : *static_cast<Quat*>(val);
    WriteValue(t, Normalize(q), commit);
}

}  // namespace host

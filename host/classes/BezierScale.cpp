#include "host/classes/BezierScale.h"

#include <algorithm>
#include <cmath>

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/math/AffineParts.h"

namespace host {

ClassDesc2* GetBezierScaleDesc() {
    static HostClassDesc<BezierScale> desc(L"Bezier Scale", L"bezier_scale", CTRL_SCALE_CLASS_ID,
                                           BEZIER_SCALE_CLASS_ID, false);
    return &desc;
}

ScaleValue KeyAdd(const ScaleValue& a, const ScaleValue& b) {
    return ScaleValue(Point3(a.s.x * b.s.x, a.s.y * b.s.y, a.s.z * b.s.z), a.q);
}

ScaleValue KeySub(const ScaleValue& a, const ScaleValue& b) {
    Point3 ratio;
    for (int i = 0; i < 3; ++i) ratio[i] = b.s[i] != 0.0f ? a.s[i] / b.s[i] : 1.0f;
    return ScaleValue(ratio, a.q);
}

ScaleValue KeyScale(const ScaleValue& a, float f) {
    Point3 power;
    for (int i = 0; i < 3; ++i) power[i] = std::pow(a.s[i], f);
    return ScaleValue(power, a.q);
}

Quat BezierScale::AxisAt(TimeValue t) const {
    const auto next =
        std::upper_bound(keys_.begin(), keys_.end(), t,
                         [](TimeValue time, const IBezScaleKey& k) { return time < k.time; });
    if (next == keys_.begin()) return keys_.front().val.q;
    if (next == keys_.end()) return keys_.back().val.q;
    const IBezScaleKey& a = *(next - 1);
    const IBezScaleKey& b = *next;
    if (a.val.q == b.val.q) return a.val.q;
    return Slerp(a.val.q, b.val.q, float(t - a.time) / float(b.time - a.time));
}

ScaleValue BezierScale::Interpolate(TimeValue t) const {
    ScaleValue v = BezierControl::Interpolate(t);
    v.q = AxisAt(t);
    return v;
}

ScaleValue BezierScale::ExtendLinear(bool before, TimeValue t) const {
    ScaleValue v = BezierControl::ExtendLinear(before, t);
    v.q = before ? keys_.front().val.q : keys_.back().val.q;
    return v;
}

void BezierScale::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const ScaleValue s = Evaluate(t);
    NarrowValidity(t, valid);
    if (method == CTRL_RELATIVE)
        ApplyScaling(*static_cast<Matrix3*>(val), s);
    else
        *static_cast<ScaleValue*>(val) = s;
}

void BezierScale::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    ScaleValue s = *static_cast<ScaleValue*>(val);
    if (method == CTRL_RELATIVE) {
        // The increment after the present scale, as one stretch: the product's stretch
        // factors and axes (a product of two stretches about different axes also turns
        // a little; that turn is not a scale and is left out).
        AffineParts parts;
        decomp_affine(ScaleValueMatrix(Evaluate(t)) * ScaleValueMatrix(s), &parts);
        s = ScaleValue(parts.k * parts.f, parts.u);
    }
    WriteValue(t, s, commit);
}

}  // namespace host

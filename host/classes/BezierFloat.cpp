#include "host/classes/BezierFloat.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetBezierFloatDesc() {
    static HostClassDesc<BezierFloat> desc(L"Bezier Float", L"bezier_float", CTRL_FLOAT_CLASS_ID,
                                           BEZIER_FLOAT_CLASS_ID, false);
    return &desc;
}

std::vector<BezierKnot> BezierFloat::Knots() const {
    std::vector<BezierKnot> knots(keys_.size());
    for (size_t k = 0; k < keys_.size(); ++k) {
        const IBezFloatKey& key = keys_[k];
        knots[k] = {key.time,   key.flags,    key.val,      key.intan,
                    key.outtan, key.inLength, key.outLength};
    }
    return knots;
}

void BezierFloat::UpdateTangents() {
    std::vector<BezierKnot> knots = Knots();
    BezierChannel::UpdateTangents(knots);
    for (size_t k = 0; k < keys_.size(); ++k) {
        keys_[k].intan = knots[k].intan;
        keys_[k].outtan = knots[k].outtan;
    }
}

void BezierFloat::UpdateSegments() {
    channel_.Set(Knots());
}

float BezierFloat::Interpolate(TimeValue t) const {
    return channel_.Interpolate(t);
}

float BezierFloat::ExtendLinear(bool before, TimeValue t) const {
    return channel_.ExtendLinear(before, t);
}

void BezierFloat::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const float v = Evaluate(t);
    NarrowValidity(t, valid);
    float* out = static_cast<float*>(val);
    *out = method == CTRL_RELATIVE ? *out + v : v;
}

void BezierFloat::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    const float v = *static_cast<float*>(val) + (method == CTRL_RELATIVE ? Evaluate(t) : 0.0f);
    WriteValue(t, v, commit);
}

}  // namespace host

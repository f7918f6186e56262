#include "host/classes/BezierFloat.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetBezierFloatDesc() {
    static HostClassDesc<BezierFloat> desc(L"Bezier Float", L"bezier_float", CTRL_FLOAT_CLASS_ID,
                                           BEZIER_FLOAT_CLASS_ID, false);
    return &desc;
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

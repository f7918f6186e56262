#pragma once

#include "host/object/Control.h"

namespace host {

// The value access of a keyframed float track, whatever its curve (Base is a
// KeyframeControl of floats): a relative read adds the value to the caller's, a
// relative write adds to the present value.
template <class Base>
class KeyedFloat : public Base {
public:
    SClass_ID SuperClassID() override { return CTRL_FLOAT_CLASS_ID; }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        const float v = Read(t, valid);
        float* out = static_cast<float*>(val);
        *out = method == CTRL_RELATIVE ? *out + v : v;
    }
    // The absolute value at t, narrowing valid: what GetValue reads, for a caller that
    // knows the track's class and calls it directly.
    float Read(TimeValue t, Interval& valid) const {
        const float v = this->Inside(t) ? KeyedFloat::Interpolate(t) : this->Evaluate(t);
        this->NarrowValidity(t, valid);
        return v;
    }
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        const float add = method == CTRL_RELATIVE ? this->Evaluate(t) : 0.0f;
        this->WriteValue(t, *static_cast<float*>(val) + add, commit);
    }
};

}  // namespace host

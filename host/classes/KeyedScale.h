#pragma once

#include <algorithm>

#include "host/math/ScaleValue.h"
#include "host/object/Control.h"

namespace host {

// Scale values combine by multiplication: a difference is a ratio of factors, and
// repeating it n times is its n-th power. The first value's axis is kept.
ScaleValue KeyAdd(const ScaleValue& a, const ScaleValue& b);
ScaleValue KeySub(const ScaleValue& a, const ScaleValue& b);
ScaleValue KeyScale(const ScaleValue& a, float f);
// The scale after the present one, as one stretch: the product's stretch factors and
// axes (a product of two stretches about different axes also turns a little; that
// turn is not a scale and is left out).
ScaleValue ComposeScale(const ScaleValue& present, const ScaleValue& increment);

// The value access of a keyframed scale track, whatever the curve of its factors (Base
// is a KeyframeControl of ScaleValue with keys_): the scale axis turns from key to key
// by Slerp in proportion to time. A relative read applies the scale in the matrix's own
// space; a relative write scales the present value by the increment.
template <class Base>
class KeyedScale : public Base {
public:
    SClass_ID SuperClassID() override { return CTRL_SCALE_CLASS_ID; }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        const ScaleValue s = Read(t, valid);
        if (method == CTRL_RELATIVE)
            ApplyScaling(*static_cast<Matrix3*>(val), s);
        else
            *static_cast<ScaleValue*>(val) = s;
    }
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override {
        ScaleValue s = *static_cast<ScaleValue*>(val);
        if (method == CTRL_RELATIVE) s = ComposeScale(this->Evaluate(t), s);
        this->WriteValue(t, s, commit);
    }
    // The absolute value at t, narrowing valid: what GetValue reads, for a caller that
    // knows the track's class and calls it directly.
    ScaleValue Read(TimeValue t, Interval& valid) const {
        const ScaleValue s = this->Inside(t) ? KeyedScale::Interpolate(t) : this->Evaluate(t);
        this->NarrowValidity(t, valid);
        return s;
    }

    // Whether every key has the same scale axis, as of the last Refresh; that axis.
    bool OneAxis() const { return sameAxis_; }
    const Quat& Axis() const { return axis_; }

protected:
    ScaleValue Interpolate(TimeValue t) const override {
        ScaleValue v = Base::Interpolate(t);
        v.q = AxisAt(t);
        return v;
    }
    void UpdateSegments() override {
        Base::UpdateSegments();
        const auto& keys = this->keys_;
        sameAxis_ = std::all_of(keys.begin(), keys.end(),
                                [&keys](const auto& k) { return k.val.q == keys.front().val.q; });
        if (!keys.empty()) axis_ = keys.front().val.q;
    }
    ScaleValue ExtendLinear(bool before, TimeValue t) const override {
        ScaleValue v = Base::ExtendLinear(before, t);
        v.q = before ? this->keys_.front().val.q : this->keys_.back().val.q;
        return v;
    }

private:
    // The scale axis at t within the keys' times.
    Quat AxisAt(TimeValue t) const {
        const auto& keys = this->keys_;
        if (sameAxis_) return axis_;
        const auto next =
            std::upper_bound(keys.begin(), keys.end(), t,
                             [](TimeValue time, const auto& k) { return time < k.time; });
        if (next == keys.begin()) return keys.front().val.q;
        if (next == keys.end()) return keys.back().val.q;
        const auto& a = *(next - 1);
        const auto& b = *next;
        if (a.val.q == b.val.q) return a.val.q;
        return Slerp(a.val.q, b.val.q, TicksBetween(a.time, t) / TicksBetween(a.time, b.time));
    }

    bool sameAxis_ = true;  // every key has the same axis, axis_: no search
    Quat axis_;
};

}  // namespace host

#pragma once

#include "host/object/Control.h"

namespace host {

// The base of controllers that compute their value at local time: GetValue and
// SetValue come here and go to GetValueLocalTime and SetValueLocalTime, except that a
// read outside the track's range goes to Extrapolate when the out-of-range type of
// that side is not constant. A subclass also supplies temp values of its type, which
// blending code creates, adds, scales and deletes without knowing the type.
class StdControl : public Control {
public:
    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

    virtual void GetValueLocalTime(TimeValue t, void* val, Interval& valid,
                                   GetSetMethod method = CTRL_ABSOLUTE) = 0;
    virtual void SetValueLocalTime(TimeValue t, void* val, int commit = 1,
                                   GetSetMethod method = CTRL_ABSOLUTE) = 0;

    // A new value of the controller's type at its zero (nothing added, no rotation).
    virtual void* CreateTempValue() = 0;
    virtual void DeleteTempValue(void* val) = 0;
    // val = delta applied to val, in the type's own way of adding.
    virtual void ApplyValue(void* val, void* delta) = 0;
    // val scaled by m from the type's zero.
    virtual void MultiplyValue(void* val, float m) = 0;
    // The value at t outside range, for the out-of-range type.
    virtual void Extrapolate(Interval range, TimeValue t, void* val, Interval& valid, int type) = 0;
};

}  // namespace host

#pragma once

#include "host/classes/BezierControl.h"
#include "host/object/HostClassIds.h"

namespace host {

// Scale values combine by multiplication: a difference is a ratio of factors, and
// repeating it n times is its n-th power. The first value's axis is kept.
ScaleValue KeyAdd(const ScaleValue& a, const ScaleValue& b);
ScaleValue KeySub(const ScaleValue& a, const ScaleValue& b);
ScaleValue KeyScale(const ScaleValue& a, float f);

// The default scale controller: bezier channels for the three factors, and the scale
// axis turned from key to key by Slerp in proportion to time. A relative read applies
// the scale in the matrix's own space; a relative write scales the present value by
// the increment.
class BezierScale : public BezierControl<IBezScaleKey, ScaleValue, 3> {
public:
    explicit BezierScale(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return BEZIER_SCALE_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_SCALE_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Bezier Scale"); }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

protected:
    ScaleValue Interpolate(TimeValue t) const override;
    ScaleValue ExtendLinear(bool before, TimeValue t) const override;
    const wchar_t* KeysUndoName() const override { return L"Bezier Scale Keys"; }

private:
    // The scale axis at t within the keys' times.
    Quat AxisAt(TimeValue t) const;
};

}  // namespace host

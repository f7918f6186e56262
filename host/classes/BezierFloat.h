#pragma once

#include <vector>

#include "host/classes/KeyframeControl.h"
#include "host/object/HostClassIds.h"

namespace host {

// The host's keyframed float track, the default float controller. Between two keys it
// is a cubic bezier in (time, value) whose inner control points lie along the keys'
// tangents at the keys' lengths; a step tangent on either side holds the value. Keys
// with automatic tangent types get their tangents recomputed whenever keys change:
//   smooth  the slope between the neighbouring keys (one-sided at the ends)
//   linear  the slope of the segment on that side
//   fast    twice the linear slope;  slow  half the linear slope
//   flat    zero;  step  holds;  custom  as set
// Without keys it holds one value. Every edit is undoable, one record per hold.
class BezierFloat : public KeyframeControl<IBezFloatKey, float> {
public:
    // A new bezier float has no keys and the value 0; loading makes no difference.
    explicit BezierFloat(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return BEZIER_FLOAT_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_FLOAT_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Bezier Float"); }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    // A relative write adds to the present value; see WriteValue for the rest.
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

protected:
    float Interpolate(TimeValue t) const override;
    float ExtendLinear(bool before, TimeValue t) const override;
    void UpdateTangents() override;
    void UpdateSegments() override;
    const wchar_t* KeysUndoName() const override { return L"Bezier Float Keys"; }

private:
    float SegmentValue(size_t k, TimeValue t) const;

    // A segment whose handles sit at a third of its duration is a cubic polynomial in
    // the fraction of its duration: playback reads it through these coefficients, with
    // the key times in an array of their own for the search. Other segments (stepped,
    // custom lengths, no duration) read the keys.
    struct Cubic {
        float invDuration = 0.0f;  // 0: read the keys
        float c[4] = {};
    };
    std::vector<TimeValue> times_;
    std::vector<Cubic> cubics_;
};

}  // namespace host

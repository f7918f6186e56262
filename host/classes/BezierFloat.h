#pragma once

#include <vector>

#include "host/classes/BezierControl.h"
#include "host/object/HostClassIds.h"

namespace host {

// The host's keyframed float track, the default float controller: one bezier channel
// (see BezierChannel for the curve and the automatic tangent types, recomputed
// whenever keys change). Without keys it holds one value. Every edit is undoable, one
// record per hold.
class BezierFloat : public BezierControl<IBezFloatKey, float, 1> {
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
    const wchar_t* KeysUndoName() const override { return L"Bezier Float Keys"; }
};

}  // namespace host

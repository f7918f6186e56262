#pragma once

#include "host/classes/BezierControl.h"
#include "host/object/HostClassIds.h"

namespace host {

// A keyframed position: three bezier channels, one per axis, under keys that share
// their times and flags. A relative read translates in the matrix's own space; a
// relative write adds the offset.
class BezierPosition : public BezierControl<IBezPoint3Key, Point3, 3> {
public:
    explicit BezierPosition(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return BEZIER_POSITION_CLASS_ID; }
    SClass_ID SuperClassID() override { return CTRL_POSITION_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Bezier Position"); }

    void GetValue(TimeValue t, void* val, Interval& valid,
                  GetSetMethod method = CTRL_ABSOLUTE) override;
    void SetValue(TimeValue t, void* val, int commit = 1,
                  GetSetMethod method = CTRL_ABSOLUTE) override;

protected:
    const wchar_t* KeysUndoName() const override { return L"Bezier Position Keys"; }
};

}  // namespace host

#pragma once

#include "host/classes/BezierControl.h"
#include "host/classes/KeyedPosition.h"
#include "host/object/HostClassIds.h"

namespace host {

// A keyframed position: three bezier channels, one per axis, under keys that share
// their times and flags (value access in KeyedPosition).
class BezierPosition : public KeyedPosition<BezierControl<IBezPoint3Key, Point3, 3>> {
public:
    explicit BezierPosition(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return BEZIER_POSITION_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Bezier Position"); }

protected:
    const wchar_t* KeysUndoName() const override { return L"Bezier Position Keys"; }
};

}  // namespace host

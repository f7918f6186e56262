#pragma once

#include "host/classes/BezierControl.h"
#include "host/classes/KeyedScale.h"
#include "host/object/HostClassIds.h"

namespace host {

// The default scale controller: bezier channels for the three factors under keys that
// share their times and flags, the scale axis turning from key to key (see KeyedScale).
class BezierScale : public KeyedScale<BezierControl<IBezScaleKey, ScaleValue, 3>> {
public:
    explicit BezierScale(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return BEZIER_SCALE_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Bezier Scale"); }

protected:
    const wchar_t* KeysUndoName() const override { return L"Bezier Scale Keys"; }
};

}  // namespace host

#pragma once

#include "host/classes/KeyedScale.h"
#include "host/classes/TcbControl.h"
#include "host/object/HostClassIds.h"

namespace host {

// A keyframed scale: a Kochanek-Bartels curve per factor, the axis turning from key
// to key (see KeyedScale).
class TcbScale : public KeyedScale<TcbControl<ITCBScaleKey, ScaleValue, 3>> {
public:
    explicit TcbScale(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return TCB_SCALE_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"TCB Scale"); }

protected:
    const wchar_t* KeysUndoName() const override { return L"TCB Scale Keys"; }
};

}  // namespace host

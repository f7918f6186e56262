#pragma once

#include "host/classes/KeyedPosition.h"
#include "host/classes/TcbControl.h"
#include "host/object/HostClassIds.h"

namespace host {

// A keyframed position: a Kochanek-Bartels curve per axis (see TcbSpline).
class TcbPosition : public KeyedPosition<TcbControl<ITCBPoint3Key, Point3, 3>> {
public:
    explicit TcbPosition(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return TCB_POSITION_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"TCB Position"); }

protected:
    const wchar_t* KeysUndoName() const override { return L"TCB Position Keys"; }
};

}  // namespace host

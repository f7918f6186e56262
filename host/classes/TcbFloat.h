#pragma once

#include "host/classes/KeyedFloat.h"
#include "host/classes/TcbControl.h"
#include "host/object/HostClassIds.h"

namespace host {

// A keyframed float on a Kochanek-Bartels curve (see TcbSpline).
class TcbFloat : public KeyedFloat<TcbControl<ITCBFloatKey, float, 1>> {
public:
    explicit TcbFloat(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return TCB_FLOAT_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"TCB Float"); }

protected:
    const wchar_t* KeysUndoName() const override { return L"TCB Float Keys"; }
};

}  // namespace host

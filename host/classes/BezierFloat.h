#pragma once

#include "host/classes/BezierControl.h"
#include "host/classes/KeyedFloat.h"
#include "host/object/HostClassIds.h"

namespace host {

// The host's keyframed float track, the default float controller: one bezier channel
// (see BezierChannel for the curve and the automatic tangent types, recomputed
// whenever keys change). Without keys it holds one value. Every edit is undoable, one
// record per hold.
class BezierFloat : public KeyedFloat<BezierControl<IBezFloatKey, float, 1>> {
public:
    // A new bezier float has no keys and the value 0; loading makes no difference.
    explicit BezierFloat(bool /*loading*/ = false) {}
    Class_ID ClassID() override { return BEZIER_FLOAT_CLASS_ID; }
    WStr GetClassName() override { return WStr(L"Bezier Float"); }

protected:
    const wchar_t* KeysUndoName() const override { return L"Bezier Float Keys"; }
};

}  // namespace host

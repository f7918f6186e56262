#include "host/classes/BezierPosition.h"

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"

namespace host {

ClassDesc2* GetBezierPositionDesc() {
    static HostClassDesc<BezierPosition> desc(L"Bezier Position", L"bezier_position",
                                              CTRL_POSITION_CLASS_ID, BEZIER_POSITION_CLASS_ID,
                                              false);
    return &desc;
}

void BezierPosition::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const Point3 p = Evaluate(t);
    NarrowValidity(t, valid);
    if (method == CTRL_RELATIVE)
        static_cast<Matrix3*>(val)->PreTranslate(p);
    else
        *static_cast<Point3*>(val) = p;
}

void BezierPosition::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    const Point3 p = *static_cast<Point3*>(val);
    WriteValue(t, method == CTRL_RELATIVE ? Evaluate(t) + p : p, commit);
}

}  // namespace host

#include "host/object/StdControl.h"

namespace host {

void StdControl::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    const Interval range = GetTimeRange();
    if (!range.Empty() && !range.InInterval(t)) {
        const int type = GetORT(t < range.Start() ? ORT_BEFORE : ORT_AFTER);
        if (type != ORT_CONSTANT) {
            Extrapolate(range, t, val, valid, type);
            return;
        }
    }
    GetValueLocalTime(t, val, valid, method);
}

void StdControl::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    SetValueLocalTime(t, val, commit, method);
}

}  // namespace host

#include "host/classes/CompoundControl.h"

#include <algorithm>

namespace host {

bool CompoundControl::AssignTrack(Animatable* c, int i, SClass_ID wanted) {
    auto* track = dynamic_cast<Control*>(c);
    if (!CanAssignController(i) || !track || track->SuperClassID() != wanted) return false;
    ReplaceReference(i, track);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    return true;
}

Tab<TimeValue> CompoundControl::MergedKeyTimes() {
    Tab<TimeValue> times;
    for (int i = 0; i < NumTracks(); ++i)
        if (Control* track = Track(i)) track->GetKeyTimes(times, FOREVER, 0);
    std::sort(times.begin(), times.end());
    const auto last = std::unique(times.begin(), times.end());
    times.SetCount(int(last - times.begin()));
    return times;
}

int CompoundControl::NumKeys() {
    return MergedKeyTimes().Count();
}

TimeValue CompoundControl::GetKeyTime(int i) {
    const Tab<TimeValue> times = MergedKeyTimes();
    return i >= 0 && i < times.Count() ? times[i] : 0;
}

void CompoundControl::GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t) {
    for (TimeValue t : MergedKeyTimes())
        if (range.InInterval(t)) times.Append(1, &t);
}

Interval CompoundControl::GetTimeRange() {
    const Tab<TimeValue> times = MergedKeyTimes();
    return times.Count() == 0 ? NEVER : Interval(times[0], times[times.Count() - 1]);
}

}  // namespace host

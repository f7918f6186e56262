#include "host/classes/CompoundControl.h"

#include <algorithm>

namespace host {

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

#include "host/classes/XYZController.h"

#include <algorithm>

namespace host {

XYZController::XYZController(const wchar_t* const (&names)[3], bool loading) : names_(names) {
    if (loading) return;  // the scene reader sets the tracks
    for (int i = 0; i < 3; ++i) ReplaceReference(i, NewDefaultFloatController());
}

bool XYZController::AssignController(Animatable* c, int i) {
    auto* track = dynamic_cast<Control*>(c);
    if (!CanAssignController(i) || !track || track->SuperClassID() != CTRL_FLOAT_CLASS_ID)
        return false;
    ReplaceReference(i, track);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    return true;
}

Point3 XYZController::ReadTracks(TimeValue t, Interval& valid) {
    Point3 v;
    for (int i = 0; i < 3; ++i)
        if (tracks_[i]) tracks_[i]->GetValue(t, &v[i], valid);
    return v;
}

void XYZController::WriteTracks(TimeValue t, const Point3& v, int commit, GetSetMethod method) {
    for (int i = 0; i < 3; ++i) {
        float component = v[i];
        if (tracks_[i]) tracks_[i]->SetValue(t, &component, commit, method);
    }
}

Tab<TimeValue> XYZController::MergedKeyTimes() {
    Tab<TimeValue> times;
    for (Control* track : tracks_)
        if (track) track->GetKeyTimes(times, FOREVER, 0);
    std::sort(times.begin(), times.end());
    const auto last = std::unique(times.begin(), times.end());
    times.SetCount(int(last - times.begin()));
    return times;
}

int XYZController::NumKeys() {
    return MergedKeyTimes().Count();
}

TimeValue XYZController::GetKeyTime(int i) {
    const Tab<TimeValue> times = MergedKeyTimes();
    return i >= 0 && i < times.Count() ? times[i] : 0;
}

void XYZController::GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t) {
    for (TimeValue t : MergedKeyTimes())
        if (range.InInterval(t)) times.Append(1, &t);
}

Interval XYZController::GetTimeRange() {
    const Tab<TimeValue> times = MergedKeyTimes();
    return times.Count() == 0 ? NEVER : Interval(times[0], times[times.Count() - 1]);
}

}  // namespace host

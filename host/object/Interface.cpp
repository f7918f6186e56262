#include "host/object/Interface.h"

#include <algorithm>

#include "host/object/Animate.h"
#include "host/object/Notifications.h"

namespace host {

Interface* GetCOREInterface() {
    static Interface core;
    return &core;
}

void Interface::SetTime(TimeValue t, bool redraw) {
    if (t == time_) return;
    time_ = t;
    // A copy: a callback may unregister itself or others; removed ones are skipped.
    const std::vector<TimeChangeCallback*> callbacks = timeCallbacks_;
    for (TimeChangeCallback* tc : callbacks)
        if (std::find(timeCallbacks_.begin(), timeCallbacks_.end(), tc) != timeCallbacks_.end())
            tc->TimeChanged(t);
    if (redraw) RedrawViews(t);
}

bool Interface::SetAnimRange(Interval range) {
    if (range.Empty() || range.End() < range.Start()) return false;
    range_ = range;
    return true;
}

bool Interface::SetFrameRate(int framesPerSecond) {
    if (framesPerSecond <= 0 || framesPerSecond > TIME_TICKSPERSEC ||
        TIME_TICKSPERSEC % framesPerSecond != 0)
        return false;
    frameRate_ = framesPerSecond;
    return true;
}

void Interface::RegisterTimeChangeCallback(TimeChangeCallback* tc) {
    if (tc && std::find(timeCallbacks_.begin(), timeCallbacks_.end(), tc) == timeCallbacks_.end())
        timeCallbacks_.push_back(tc);
}

void Interface::UnRegisterTimeChangeCallback(TimeChangeCallback* tc) {
    std::erase(timeCallbacks_, tc);
}

void Interface::SetRefCoordSys(int coords) {
    if (coords >= COORDS_VIEW && coords <= COORDS_GIMBAL) refCoordSys_ = coords;
}

void Interface::SetCommandPanelTaskMode(int mode) {
    if (mode >= TASK_MODE_CREATE && mode <= TASK_MODE_UTILITY) taskMode_ = mode;
}

void Interface::EnableSceneRedraw() {
    if (redrawDisabled_ > 0) --redrawDisabled_;
}

void Interface::RedrawViews(TimeValue) {
    if (!IsSceneRedrawDisabled()) ++redraws_;
}

void Interface::Print(const WStr& text) {
    listener_ += text;
}

void Interface::Reset() {
    BroadcastNotification(NOTIFY_SYSTEM_PRE_RESET);
    AnimateOff();
    frameRate_ = 30;
    range_ = Interval(0, 100 * GetTicksPerFrame());
    SetTime(0, false);
    refCoordSys_ = COORDS_VIEW;
    taskMode_ = TASK_MODE_CREATE;
    quiet_ = false;
    redrawDisabled_ = 0;
    status_ = StatusLine();
    ClearListener();
    BroadcastNotification(NOTIFY_SYSTEM_POST_RESET);
}

}  // namespace host

#pragma once

#include <vector>

#include "host/core/Interval.h"
#include "host/core/WStr.h"
#include "host/object/StatusLine.h"
#include "host/object/TimeChangeCallback.h"

namespace host {

// Reference coordinate systems of the transform tools.
enum RefCoordSys : int {
    COORDS_VIEW = 0,
    COORDS_SCREEN = 1,
    COORDS_WORLD = 2,
    COORDS_PARENT = 3,
    COORDS_LOCAL = 4,
    COORDS_GRID = 5,
    COORDS_GIMBAL = 6,
};

// The command panel's tabs.
enum CommandPanelTask : int {
    TASK_MODE_CREATE = 1,
    TASK_MODE_MODIFY = 2,
    TASK_MODE_HIERARCHY = 3,
    TASK_MODE_MOTION = 4,
    TASK_MODE_DISPLAY = 5,
    TASK_MODE_UTILITY = 6,
};

// The host's services to plug-ins: scene time and its range, the frame rate, tool
// modes, redraw switches, the prompt line and the script listener. One object, got
// through GetCOREInterface().
class Interface {
public:
    Interface() = default;
    Interface(const Interface&) = delete;
    Interface& operator=(const Interface&) = delete;

    TimeValue GetTime() const { return time_; }
    // Moves the current time and tells the time-change callbacks, when it changes.
    void SetTime(TimeValue t, bool redraw = true);
    Interval GetAnimRange() const { return range_; }
    // Refused (false) for a range that ends before it starts.
    bool SetAnimRange(Interval range);
    int GetFrameRate() const { return frameRate_; }
    // A rate must give a whole number of ticks a frame; false otherwise.
    bool SetFrameRate(int framesPerSecond);
    int GetTicksPerFrame() const { return TIME_TICKSPERSEC / frameRate_; }
    void RegisterTimeChangeCallback(TimeChangeCallback* tc);
    void UnRegisterTimeChangeCallback(TimeChangeCallback* tc);

    int GetRefCoordSys() const { return refCoordSys_; }
    // Ignores values outside the named systems.
    void SetRefCoordSys(int coords);
    int GetCommandPanelTaskMode() const { return taskMode_; }
    void SetCommandPanelTaskMode(int mode);
    bool GetQuietMode() const { return quiet_; }
    void SetQuietMode(bool quiet) { quiet_ = quiet; }

    // Redraws nest: the views redraw only when every disable has been matched.
    void DisableSceneRedraw() { ++redrawDisabled_; }
    void EnableSceneRedraw();
    bool IsSceneRedrawDisabled() const { return redrawDisabled_ > 0; }
    void RedrawViews(TimeValue t);
    void ForceCompleteRedraw() { RedrawViews(time_); }
    // Redraws done so far; with no window this is all a redraw is.
    int RedrawCount() const { return redraws_; }

    StatusLine& Status() { return status_; }
    // The script listener's output.
    void Print(const WStr& text);
    const WStr& ListenerText() const { return listener_; }
    void ClearListener() { listener_ = WStr(); }

    // Back to a new scene's settings, with the reset broadcasts around it.
    void Reset();

private:
    TimeValue time_ = 0;
    int frameRate_ = 30;
    Interval range_{0, 100 * (TIME_TICKSPERSEC / 30)};
    std::vector<TimeChangeCallback*> timeCallbacks_;
    int refCoordSys_ = COORDS_VIEW;
    int taskMode_ = TASK_MODE_CREATE;
    bool quiet_ = false;
    int redrawDisabled_ = 0;
    int redraws_ = 0;
    StatusLine status_;
    WStr listener_;
};

Interface* GetCOREInterface();

}  // namespace host

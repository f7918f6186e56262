#pragma once

#include "host/object/Control.h"

namespace host {

// A controller made of three float tracks, X, Y and Z: its references and sub-anims,
// named by the subclass. Each track is a default float controller unless assigned.
class XYZController : public Control {
public:
    // names: the sub-anim names of the three tracks.
    XYZController(const wchar_t* const (&names)[3], bool loading);

    int NumRefs() override { return 3; }
    ReferenceTarget* GetReference(int i) override { return tracks_[i]; }
    int NumSubs() override { return 3; }
    Animatable* SubAnim(int i) override { return tracks_[i]; }
    WStr SubAnimName(int i) override { return WStr(names_[i]); }
    bool CanAssignController(int i) override { return i >= 0 && i < 3; }
    // Takes a float controller for track i, undoably.
    bool AssignController(Animatable* c, int i) override;
    Control* GetXController() override { return tracks_[0]; }
    Control* GetYController() override { return tracks_[1]; }
    Control* GetZController() override { return tracks_[2]; }
    bool IsLeaf() override { return false; }
    // The keys of the three tracks, merged by time.
    int NumKeys() override;
    TimeValue GetKeyTime(int i) override;
    void GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t flags) override;
    Interval GetTimeRange() override;

protected:
    void SetReference(int i, ReferenceTarget* t) override { tracks_[i] = static_cast<Control*>(t); }
    // The three tracks' values at t, narrowing valid.
    Point3 ReadTracks(TimeValue t, Interval& valid);
    // Each track takes its component.
    void WriteTracks(TimeValue t, const Point3& v, int commit, GetSetMethod method);

private:
    Tab<TimeValue> MergedKeyTimes();
    const wchar_t* const (&names_)[3];
    Control* tracks_[3] = {nullptr, nullptr, nullptr};
};

}  // namespace host

#pragma once

#include "host/classes/BezierFloat.h"
#include "host/classes/CompoundControl.h"

namespace host {

// A controller made of three float tracks, X, Y and Z: its references and sub-anims,
// named by the subclass. Each track is a default float controller unless assigned; a new
// track holds the rest value (0 for a position or rotation, 1 for a scale).
class XYZController : public CompoundControl {
public:
    // names: the sub-anim names of the three tracks.
    XYZController(const wchar_t* const (&names)[3], bool loading, float rest = 0.0f);

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
    // The same class with the three tracks cloned.
    ReferenceTarget* Clone(RemapDir& remap) override;

    // The three tracks' values at t, narrowing valid. Bezier float tracks, the default,
    // are read directly rather than through GetValue.
    Point3 ReadTracks(TimeValue t, Interval& valid) {
        if (!bezierTracks_) return ReadAnyTracks(t, valid);
        Point3 v;
        for (int i = 0; i < 3; ++i) v[i] = static_cast<BezierFloat*>(tracks_[i])->Read(t, valid);
        return v;
    }

protected:
    int NumTracks() override { return 3; }
    Control* Track(int i) override { return tracks_[i]; }
    void SetReference(int i, ReferenceTarget* t) override;
    // Each track takes its component.
    void WriteTracks(TimeValue t, const Point3& v, int commit, GetSetMethod method);

private:
    const wchar_t* const (&names_)[3];
    Point3 ReadAnyTracks(TimeValue t, Interval& valid);

    Control* tracks_[3] = {nullptr, nullptr, nullptr};
    bool bezierTracks_ = false;  // all three tracks are of class BezierFloat itself
};

}  // namespace host

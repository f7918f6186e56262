#include "host/classes/XYZController.h"

#include <algorithm>
#include <iterator>
#include <typeinfo>

#include "host/classes/TrackEdits.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "host/object/RemapDir.h"

namespace host {

XYZController::XYZController(const wchar_t* const (&names)[3], bool loading, float rest)
    : names_(names) {
    if (loading) return;  // the scene reader sets the tracks
    for (int i = 0; i < 3; ++i) ReplaceReference(i, NewDefaultFloatController());
    if (rest == 0.0f) return;
    // The rest value is part of the new object, not an edit: no key, no undo record.
    SuspendAnimate();
    theHold.Suspend();
    for (Control* track : tracks_)
        if (track) track->SetValue(0, &rest, 1, CTRL_ABSOLUTE);
    theHold.Resume();
    ResumeAnimate();
}

bool XYZController::AssignController(Animatable* c, int i) {
    return AssignTrack(c, i, CTRL_FLOAT_CLASS_ID);
}

void XYZController::SetReference(int i, ReferenceTarget* t) {
    tracks_[i] = ControlOf(t, CTRL_FLOAT_CLASS_ID);
    TrackEdits::Note();
    bezierTracks_ = std::all_of(std::begin(tracks_), std::end(tracks_), [](Control* track) {
        return track && typeid(*track) == typeid(BezierFloat);
    });
}

Point3 XYZController::ReadAnyTracks(TimeValue t, Interval& valid) {
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

ReferenceTarget* XYZController::Clone(RemapDir& remap) {
    return CloneObject(this, remap);
}

}  // namespace host

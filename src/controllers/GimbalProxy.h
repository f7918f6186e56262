#pragma once

#include "host/object/Control.h"

namespace zorvanta {

// What the transform tools turn in the gimbal coordinate system instead of a rig
// control's rotation: one rotation list for the whole process, made at first use, whose
// entry "Parent Rot" (a DummyRotation) holds the rotation that comes before the real
// Euler angles and whose active entry "Euler Rot" (an Euler controller of three
// DummyFloats) forwards each angle to the real track. The host then draws true gimbal
// rings, and a drag on a ring reaches the real track.
class GimbalProxy {
public:
    // The proxy aimed at the Euler triple inside real at t, with start (the control's
    // offset) and what real applies before its active part accumulated as the parent
    // rotation; real itself when no Euler triple is found in it or the host's classes
    // to build the proxy are not there.
    static host::Control* For(host::Control* real, const host::Matrix3& start, host::TimeValue t);

    // Whether rig controls hand out the proxy at all.
    static bool Enabled();

    // Turns the proxy off for as long as it lives, for a call that must see the real
    // rotation controller; the state before comes back on every way out.
    class Suspend {
    public:
        Suspend();
        ~Suspend();
        Suspend(const Suspend&) = delete;
        Suspend& operator=(const Suspend&) = delete;

    private:
        bool was_;
    };
};

}  // namespace zorvanta

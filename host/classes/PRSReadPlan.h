#pragma once

#include <cstdint>

#include "host/classes/BezierChannel.h"
#include "host/classes/SpanTable.h"
#include "host/classes/TrackEdits.h"
#include "host/math/Quat.h"
#include "host/math/ScaleValue.h"

namespace host {

class BezierFloat;
class BezierScale;
class Control;
class Interval;
class Matrix3;

// How a PRS whose parts are the default controllers (Position XYZ and Euler XYZ over
// bezier floats, and a bezier scale) reads them without a virtual call: a read
// position in each of its nine bezier channels (position, rotation and scale factors),
// packed here so that a read in playback touches this plan and the segments it reads
// and no track. A time no cursor answers is read from its track, whose read position
// the cursor then takes. The transform is built in registers with the float
// operations of the parts' own relative reads, so the result is bit for bit theirs.
// Once the plan has been read a few times without an edit (playback, not a drag), and
// when the nine channels share their key times, it packs their segments into one table
// whose single read gives all nine values.
//
// A plan holds pointers into its tracks' tables, so it is valid only for the
// TrackEdits count it was built at; every edit of keys, parts or order moves that on.
class PRSReadPlan {
public:
    // Whether no edit has happened since Build.
    bool Current() const { return built_ == TrackEdits::Count(); }
    // Takes the parts; the plan applies when they are the default controllers.
    void Build(Control* position, Control* rotation, Control* scale);
    bool Applies() const { return applies_; }
    // tm = S * R * T * tm for the parts' values at t, narrowing valid; only when the plan
    // applies.
    void Apply(TimeValue t, Matrix3& tm, Interval& valid);

private:
    enum { kChannels = 9, kScaleChannel = 6, kPackAfter = 3 };

    // The nine values at t, and the scale, through the cursors or the tracks.
    void ReadChannels(TimeValue t, float* v, ScaleValue& scale, Interval& valid);
    // Channel i's value at t read from its float track, the cursor following it.
    float ReadTrack(int i, TimeValue t, Interval& valid);
    void Pack();
    // tm = S * R * T * tm from the channels' values, for each Euler order.
    template <int Order>
    static void Compose(const float* v, const ScaleValue& scale, Matrix3& tm);
    using ComposeFn = void (*)(const float* v, const ScaleValue& scale, Matrix3& tm);
    static const ComposeFn kCompose[];

    // What every read touches comes first.
    uint64_t built_ = ~uint64_t{0};
    bool applies_ = false;
    bool oneAxis_ = false;         // every scale key has the axis scaleAxis_: the cursors read it
    ComposeFn compose_ = nullptr;  // for the Euler order
    int reads_ = 0;                // reads since Build, up to kPackAfter
    Quat scaleAxis_;
    BezierChannel::Cursor cursors_[kChannels];
    BezierFloat* tracks_[kScaleChannel] = {};
    BezierScale* scale_ = nullptr;
    SpanTable spans_;
};

}  // namespace host

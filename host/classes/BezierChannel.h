#pragma once

#include <cstdint>
#include <vector>

#include "host/core/TimeValue.h"

namespace host {

// One scalar component of a bezier key: what the curve reads and the tangent rules
// write. Tangents are slopes in value per tick; lengths are fractions of the
// neighbouring segment's duration.
struct BezierKnot {
    TimeValue time = 0;
    uint32_t flags = 0;
    float val = 0.0f, intan = 0.0f, outtan = 0.0f;
    float inLength = 1.0f / 3.0f, outLength = 1.0f / 3.0f;
};

// A scalar bezier curve through sorted knots: each bezier controller keeps one per
// component of its value. Between two knots it is a cubic bezier in (time, value) whose
// inner control points lie along the tangents at the lengths; a step tangent on either
// side holds the value.
class BezierChannel {
public:
    // Playback reads segments in order, so each segment keeps what a read needs in one
    // place: its start and end times and, for a segment whose handles sit at a third of its
    // duration, the cubic polynomial in the fraction of its duration. Other segments
    // (stepped, custom lengths, no duration) have invDuration 0 and read the knots.
    // Two segments share a cache line and none straddles two.
    struct alignas(32) Segment {
        TimeValue start = 0, end = 0;
        float invDuration = 0.0f;
        float c[4] = {};
    };

    // A read position in a channel's segments, for reads in playback order: it answers
    // for times in its segment or the next one, where the segment is a cubic, and moves
    // to the next one when t has passed its end. It stays usable while the channel's
    // knots stay as they are. A cursor of a channel without segments answers nothing.
    class Cursor {
    public:
        // The value at t as the channel gives it, or false (the cursor unmoved) for a time
        // outside both segments or a segment that is not a cubic.
        bool Read(TimeValue t, float& value) {
            if (t >= end_) {
                // Past the last segment the end marker, ending before every time, stops it.
                if (t >= segment_[1].end) return false;
                Advance();
            }
            const Segment& segment = *segment_;
            // invDuration is 1 / duration of a cubic segment and 0 for the others.
            if (t < segment.start || !(segment.invDuration > 0.0f)) return false;
            value = Cubic(segment, t);
            return true;
        }
        // Asks for the segment that a read stepping on reaches, ahead of the read.
        void Prefetch() const { __builtin_prefetch(segment_ + 1); }

    private:
        friend class BezierChannel;
        void Advance() {
            ++segment_;
            end_ = segment_->end;
            __builtin_prefetch(segment_ + 2);  // at most one past the end marker
        }

        // The end of the segment, kept here so that a read past it goes straight to the
        // next segment without touching this one.
        TimeValue end_ = TIME_NegInfinity;
        const Segment* segment_ = kNoSegments;
    };

    BezierChannel() = default;
    // A copy reads its own segments.
    BezierChannel(const BezierChannel& other) { *this = other; }
    BezierChannel& operator=(const BezierChannel& other);

    // Recomputes the tangents of automatic types in place:
    //   smooth  the slope between the neighbouring knots (one-sided at the ends)
    //   linear  the slope of the segment on that side
    //   fast    twice the linear slope;  slow  half the linear slope
    //   flat    zero;  step  holds;  custom  as set
    static void UpdateTangents(std::vector<BezierKnot>& knots);

    // Takes the knots to read from, and builds the tables for reading them.
    void Set(std::vector<BezierKnot> knots);
    // The value at t, for t within the knots' times; at least two knots. Playback
    // reads the segment it read last or the next one.
    float Interpolate(TimeValue t) const {
        float value;
        if (cursor_.Read(t, value)) return value;
        return InterpolateElsewhere(t);
    }
    // Beyond the first knot (before) or the last one, along its tangent.
    float ExtendLinear(bool before, TimeValue t) const;
    // The read position of the last Interpolate, for a reader that keeps its own.
    Cursor LastRead() const { return cursor_; }
    // The segments between neighbouring knots, in time order.
    const Segment* Segments() const { return segments_.data(); }
    size_t SegmentCount() const { return Count(); }

private:
    // The segment holding t: the one before the first knot's time for earlier times.
    size_t Locate(TimeValue t) const;
    // Interpolate after a jump, at the last knot, or in a segment read from the knots.
    float InterpolateElsewhere(TimeValue t) const;
    float SegmentValue(size_t k, TimeValue t) const;

    // Where a cursor without segments points: a segment and the end marker after it.
    static const Segment kNoSegments[2];
    // The segments without the end marker.
    size_t Count() const { return segments_.empty() ? 0 : segments_.size() - 1; }
    static float Cubic(const Segment& segment, TimeValue t) {
        const float s = TicksBetween(segment.start, t) * segment.invDuration;
        return ((segment.c[3] * s + segment.c[2]) * s + segment.c[1]) * s + segment.c[0];
    }
    // Puts the cursor on segment k (on none without segments).
    void SetHint(size_t k) const;

    // The cursor comes first: it is all that a read in playback touches here.
    mutable Cursor cursor_;
    // One per pair of neighbouring knots, then an end marker that ends before every time,
    // which is where stepping on stops.
    std::vector<Segment> segments_;
    std::vector<BezierKnot> knots_;
};

}  // namespace host

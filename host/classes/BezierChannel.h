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
        if (t >= end_ && hint_ < last_ && t < segments_[hint_ + 1].end) Advance();
        const Segment& segment = segments_[hint_];
        if (t >= start_ && t < end_ && segment.invDuration != 0.0f) return Cubic(segment, t);
        return InterpolateElsewhere(t);
    }
    // Beyond the first knot (before) or the last one, along its tangent.
    float ExtendLinear(bool before, TimeValue t) const;

private:
    // The segment holding t: the one before the first knot's time for earlier times.
    size_t Locate(TimeValue t) const;
    // Interpolate after a jump, at the last knot, or in a segment read from the knots.
    float InterpolateElsewhere(TimeValue t) const;
    float SegmentValue(size_t k, TimeValue t) const;

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
    static float Cubic(const Segment& segment, TimeValue t) {
        const float s = float(t - segment.start) * segment.invDuration;
        return ((segment.c[3] * s + segment.c[2]) * s + segment.c[1]) * s + segment.c[0];
    }

    // Moves the hint to the next segment.
    void Advance() const {
        ++hint_;
        start_ = end_;
        end_ = segments_[hint_].end;
        if (hint_ + 2 <= last_) __builtin_prefetch(&segments_[hint_ + 2]);
    }
    void SetHint(size_t k) const;

    // The fields a read touches come first: the segment of the last read and its times,
    // which decide whether the next read stays in it without touching the segments.
    mutable TimeValue start_ = 0, end_ = 0;
    mutable uint32_t hint_ = 0;
    uint32_t last_ = 0;  // the index of the last segment
    std::vector<Segment> segments_;
    std::vector<BezierKnot> knots_;
};

}  // namespace host

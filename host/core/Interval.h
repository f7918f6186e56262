#pragma once

#include <cstdint>

#include "host/core/TimeValue.h"

namespace host {

// A closed range of times [Start(), End()]. An evaluation narrows the validity of its result by
// intersecting with the validity of everything it reads, starting from FOREVER; Interval(t, t)
// means "valid only at t". The empty interval is written with both ends at TIME_NegInfinity.
class Interval {
public:
    constexpr Interval() = default;
    constexpr Interval(TimeValue start, TimeValue end) : start_(start), end_(end) {}

    constexpr TimeValue Start() const { return start_; }
    constexpr TimeValue End() const { return end_; }

    void Set(TimeValue start, TimeValue end) {
        start_ = start;
        end_ = end;
    }
    void SetStart(TimeValue start) { start_ = start; }
    void SetEnd(TimeValue end) { end_ = end; }
    void SetInfinite() { Set(TIME_NegInfinity, TIME_PosInfinity); }
    void SetEmpty() { Set(TIME_NegInfinity, TIME_NegInfinity); }
    void SetInstant(TimeValue t) { Set(t, t); }

    // True for the NEVER encoding and for any interval whose start lies after its end.
    // (An end at -infinity is either NEVER or a start after it.)
    constexpr bool Empty() const { return start_ > end_ || end_ == TIME_NegInfinity; }
    constexpr bool InInterval(TimeValue t) const {
        return start_ <= t && t <= end_ && end_ != TIME_NegInfinity;
    }
    // Number of ticks covered, counting both ends.
    constexpr int64_t Duration() const { return Empty() ? 0 : int64_t{end_} - int64_t{start_} + 1; }

    // Intersection; an empty result is always stored as NEVER.
    Interval& operator&=(const Interval& other) {
        // An empty operand has start > end or ends at -infinity, so max/min already
        // give an empty pair in that case; normalising keeps a single representation
        // of "never".
        start_ = start_ > other.start_ ? start_ : other.start_;
        end_ = end_ < other.end_ ? end_ : other.end_;
        if (Empty()) SetEmpty();
        return *this;
    }
    // Intersection with Interval(t, t), the validity of a value that changes at t.
    void NarrowToInstant(TimeValue t) {
        if (InInterval(t))
            start_ = end_ = t;
        else
            SetEmpty();
    }
    friend Interval operator&(Interval a, const Interval& b) { return a &= b; }

    // Intervals are equal when they hold the same times, so all empty intervals are equal.
    friend constexpr bool operator==(const Interval& a, const Interval& b) {
        if (a.Empty() || b.Empty()) return a.Empty() == b.Empty();
        return a.start_ == b.start_ && a.end_ == b.end_;
    }

private:
    TimeValue start_ = TIME_NegInfinity;
    TimeValue end_ = TIME_NegInfinity;
};

inline constexpr Interval FOREVER{TIME_NegInfinity, TIME_PosInfinity};
inline constexpr Interval NEVER{TIME_NegInfinity, TIME_NegInfinity};

}  // namespace host

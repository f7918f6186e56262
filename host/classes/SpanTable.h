#pragma once

#include <cstddef>
#include <vector>

#include "host/classes/BezierChannel.h"
#include "host/math/Matrix3.h"

namespace host {

// The segments of up to nine bezier channels keyed at the same times (a transform's
// position, rotation and scale), packed span by span: one record of five half cache
// lines holds every channel's cubic between two neighbouring key times, eight channels
// across the lanes of two four-wide rows and the ninth beside them, so that a read
// finds one record and evaluates every channel at once. Each lane does the float operations of the
// channel's own cubic, so a value read here is bit for bit the channel's.
//
// The table is a copy: it stays readable whatever happens to the channels, and reads
// what they held when it was packed.
class SpanTable {
public:
    enum { kLanes = 9 };

    // Packs count channels (at most kLanes). False, leaving the table empty, when they
    // have no segment or do not share their segments' times. A span in which a channel's
    // segment is not a cubic is kept, and read by nobody.
    bool Pack(const BezierChannel* const* channels, int count);
    void Clear();
    bool Empty() const { return spans_.empty(); }

    // Every packed channel's value at t into values[0, count) (the lanes after them hold
    // nothing of use), on a table that is not empty, or false for a time outside
    // the spans or in a span that is not a cubic in every channel. Playback reads the span
    // of the last read or the next one; other times are searched for.
    bool Read(TimeValue t, float (&values)[kLanes]) {
        if (!(spans_[at_].start <= t && t < spans_[at_].end) && !Step(t) && !Seek(t)) return false;
        const Span& span = spans_[at_];
        if (!(span.invDuration > 0.0f)) return false;
        const float s = TicksBetween(span.start, t) * span.invDuration;
        for (int r = 0; r < kRows; ++r) {
            const Row v = ((span.c[3][r] * s + span.c[2][r]) * s + span.c[1][r]) * s + span.c[0][r];
            __builtin_memcpy(values + 4 * r, &v, sizeof v);
        }
        values[kLast] = ((span.last[3] * s + span.last[2]) * s + span.last[1]) * s + span.last[0];
        return true;
    }

private:
    using Row = MatrixRows::Row;
    enum { kRows = 2, kLast = 8 };

    // Coefficient k of every lane (the last lane's apart), then the span's times and its
    // duration's inverse (0 unless every channel's segment is a cubic). Records are 160
    // bytes on 32-byte boundaries, so each lies on three cache lines.
    struct alignas(32) Span {
        Row c[4][kRows] = {};
        float last[4] = {};
        TimeValue start = 0, end = 0;
        float invDuration = 0.0f;
    };
    static_assert(sizeof(Span) == 160);

    // Puts at_ on the next span when it holds t, asking for the one after it: a read in
    // playback reaches that next, after the reads of every other node have been through
    // the first-level cache.
    bool Step(TimeValue t) {
        const size_t next = at_ + 1;
        if (next >= spans_.size() || t < spans_[next].start || t >= spans_[next].end) return false;
        at_ = next;
        if (next + 1 < spans_.size()) {
            const char* after = reinterpret_cast<const char*>(&spans_[next + 1]);
            for (size_t line = 0; line < 3; ++line) __builtin_prefetch(after + 64 * line, 0, 2);
        }
        return true;
    }
    // Puts at_ on the span holding t; false when none does.
    bool Seek(TimeValue t);
    void PackSpan(Span& span, const BezierChannel* const* channels, size_t k);

    std::vector<Span> spans_;
    size_t at_ = 0;
    int count_ = 0;
};

}  // namespace host

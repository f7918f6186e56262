#include "host/classes/SpanTable.h"

#include <algorithm>
#include <cassert>

namespace host {

bool SpanTable::Pack(const BezierChannel* const* channels, int count) {
    assert(count > 0 && count <= kLanes);
    Clear();
    const size_t segments = channels[0]->SegmentCount();
    if (segments == 0) return false;
    for (int i = 1; i < count; ++i)
        if (channels[i]->SegmentCount() != segments) return false;
    spans_.resize(segments);
    count_ = count;
    for (size_t k = 0; k < segments; ++k) {
        const BezierChannel::Segment& first = channels[0]->Segments()[k];
        for (int i = 1; i < count; ++i) {
            const BezierChannel::Segment& other = channels[i]->Segments()[k];
            if (other.start != first.start || other.end != first.end) {
                Clear();
                return false;
            }
        }
        PackSpan(spans_[k], channels, k);
    }
    return true;
}

void SpanTable::PackSpan(Span& span, const BezierChannel* const* channels, size_t k) {
    const BezierChannel::Segment& first = channels[0]->Segments()[k];
    span.start = first.start;
    span.end = first.end;
    span.invDuration = first.invDuration;
    for (int i = 0; i < count_; ++i) {
        const BezierChannel::Segment& segment = channels[i]->Segments()[k];
        // The same times give the same inverse; a channel without a cubic here has 0.
        if (!(segment.invDuration > 0.0f)) span.invDuration = 0.0f;
        for (int n = 0; n < 4; ++n) {
            if (i == kLast)
                span.last[n] = segment.c[n];
            else
                span.c[n][i / 4][i % 4] = segment.c[n];
        }
    }
}

void SpanTable::Clear() {
    spans_.clear();
    at_ = 0;
    count_ = 0;
}

bool SpanTable::Seek(TimeValue t) {
    if (spans_.empty() || t < spans_.front().start || t >= spans_.back().end) return false;
    const auto after =
        std::upper_bound(spans_.begin(), spans_.end(), t,
                         [](TimeValue time, const Span& s) { return time < s.start; });
    at_ = size_t(after - spans_.begin()) - 1;
    // Knots out of time order leave spans that no search finds its way through.
    return spans_[at_].start <= t && t < spans_[at_].end;
}

}  // namespace host

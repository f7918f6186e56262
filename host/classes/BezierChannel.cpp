#include "host/classes/BezierChannel.h"

#include <algorithm>
#include <cmath>

#include "host/classes/IKeyControl.h"
#include "host/math/CubicBezier.h"

namespace host {

namespace {

constexpr float kThird = 1.0f / 3.0f;

// The parameter u at which the segment's time curve, with control times at outLength
// and 1 - inLength of its duration, reaches the fraction s: Newton steps, kept in [0, 1].
float ParameterAt(float s, float outLength, float inLength) {
    const float p1 = outLength, p2 = 1.0f - inLength;
    float u = s;
    for (int i = 0; i < 12; ++i) {
        const float error = CubicBezier(0.0f, p1, p2, 1.0f, u) - s;
        if (std::fabs(error) < 1e-7f) break;
        const float v = 1.0f - u;
        const float slope =
            3.0f * v * v * p1 + 6.0f * v * u * (p2 - p1) + 3.0f * u * u * (1.0f - p2);
        u = std::clamp(slope > 1e-6f ? u - error / slope : u - error, 0.0f, 1.0f);
    }
    return u;
}

bool IsStepped(const BezierKnot& a, const BezierKnot& b) {
    return GetOutTanType(a.flags) == BEZKEY_STEP || GetInTanType(b.flags) == BEZKEY_STEP;
}

// The slope an automatic tangent type gives, from the key's side's linear slope and the
// smooth slope across its neighbours; custom keeps the present one.
float AutomaticSlope(BezierTangent type, float linear, float smooth, float present) {
    switch (type) {
        case BEZKEY_SMOOTH:
            return smooth;
        case BEZKEY_LINEAR:
            return linear;
        case BEZKEY_FAST:
            return 2.0f * linear;
        case BEZKEY_SLOW:
            return 0.5f * linear;
        case BEZKEY_USER:
            return present;
        default:
            return 0.0f;  // flat, step
    }
}

}  // namespace

void BezierChannel::UpdateTangents(std::vector<BezierKnot>& knots) {
    const size_t n = knots.size();
    auto slope = [&knots](size_t a, size_t b) {
        const float dt = TicksBetween(knots[a].time, knots[b].time);
        return dt != 0.0f ? (knots[b].val - knots[a].val) / dt : 0.0f;
    };
    for (size_t k = 0; k < n; ++k) {
        BezierKnot& key = knots[k];
        const float before = k > 0 ? slope(k - 1, k) : (k + 1 < n ? slope(k, k + 1) : 0.0f);
        const float after = k + 1 < n ? slope(k, k + 1) : before;
        const float smooth = k > 0 && k + 1 < n ? slope(k - 1, k + 1) : (k > 0 ? before : after);
        key.outtan = AutomaticSlope(GetOutTanType(key.flags), after, smooth, key.outtan);
        key.intan = -AutomaticSlope(GetInTanType(key.flags), before, smooth, -key.intan);
    }
}

float BezierChannel::SegmentValue(size_t k, TimeValue t) const {
    const BezierKnot& a = knots_[k];
    const BezierKnot& b = knots_[k + 1];
    if (t <= a.time || IsStepped(a, b)) return t >= b.time ? b.val : a.val;
    if (t >= b.time) return b.val;
    const float dt = TicksBetween(a.time, b.time);
    const float s = TicksBetween(a.time, t) / dt;
    const bool thirds = a.outLength == kThird && b.inLength == kThird;
    const float u = thirds ? s : ParameterAt(s, a.outLength, b.inLength);
    return CubicBezier(a.val, a.val + a.outtan * a.outLength * dt,
                       b.val + b.intan * b.inLength * dt, b.val, u);
}

const BezierChannel::Segment BezierChannel::kNoSegments[2] = {{0, TIME_NegInfinity},
                                                              {0, TIME_NegInfinity}};

BezierChannel& BezierChannel::operator=(const BezierChannel& other) {
    segments_ = other.segments_;
    knots_ = other.knots_;
    SetHint(other.segments_.empty() ? 0 : size_t(other.cursor_.segment_ - other.segments_.data()));
    return *this;
}

size_t BezierChannel::Locate(TimeValue t) const {
    // Playback reads the segment of the last read or the next one.
    const size_t last = Count() - 1;
    const size_t hint = size_t(cursor_.segment_ - segments_.data());
    for (size_t k = hint; k <= std::min(hint + 1, last); ++k)
        if (segments_[k].start <= t && (t < segments_[k].end || k == last)) return k;
    const auto next =
        std::upper_bound(segments_.begin(), segments_.begin() + std::ptrdiff_t(Count()), t,
                         [](TimeValue time, const Segment& s) { return time < s.start; });
    return next == segments_.begin() ? 0 : size_t(next - segments_.begin()) - 1;
}

void BezierChannel::SetHint(size_t k) const {
    if (segments_.empty()) {
        cursor_ = Cursor();
        return;
    }
    cursor_.segment_ = &segments_[k];
    cursor_.end_ = segments_[k].end;
}

float BezierChannel::InterpolateElsewhere(TimeValue t) const {
    const size_t k = Locate(t);
    SetHint(k);
    const Segment& segment = segments_[k];
    const float s = TicksBetween(segment.start, t) * segment.invDuration;
    if (segment.invDuration == 0.0f || s < 0.0f || s >= 1.0f) return SegmentValue(k, t);
    return Cubic(segment, t);
}

void BezierChannel::Set(std::vector<BezierKnot> knots) {
    knots_ = std::move(knots);
    const size_t count = knots_.size() > 1 ? knots_.size() - 1 : 0;
    segments_.assign(count > 0 ? count + 1 : 0, Segment{});
    if (count > 0) segments_[count] = kNoSegments[1];
    for (size_t k = 0; k < count; ++k) {
        const BezierKnot& a = knots_[k];
        const BezierKnot& b = knots_[k + 1];
        segments_[k].start = a.time;
        segments_[k].end = b.time;
        const float dt = TicksBetween(a.time, b.time);
        if (dt <= 0.0f || IsStepped(a, b) || a.outLength != kThird || b.inLength != kThird)
            continue;
        // The Bezier's control values in the power basis.
        const float p0 = a.val, p1 = a.val + a.outtan * kThird * dt,
                    p2 = b.val + b.intan * kThird * dt, p3 = b.val;
        segments_[k].invDuration = 1.0f / dt;
        segments_[k].c[0] = p0;
        segments_[k].c[1] = 3.0f * (p1 - p0);
        segments_[k].c[2] = 3.0f * (p0 - 2.0f * p1 + p2);
        segments_[k].c[3] = p3 - p0 + 3.0f * (p1 - p2);
    }
    SetHint(0);
}

float BezierChannel::ExtendLinear(bool before, TimeValue t) const {
    const BezierKnot& first = knots_.front();
    const BezierKnot& last = knots_.back();
    return before ? first.val + first.intan * TicksBetween(t, first.time)
                  : last.val + last.outtan * TicksBetween(last.time, t);
}

}  // namespace host

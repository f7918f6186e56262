#include "host/classes/TcbSpline.h"

#include <algorithm>

namespace host {

void TcbSpline::Set(const std::vector<TcbShape>& keys) {
    const size_t n = keys.size();
    times_.resize(n);
    easeIn_.resize(n);
    easeOut_.resize(n);
    in_.assign(n, {});
    out_.assign(n, {});
    for (size_t i = 0; i < n; ++i) {
        times_[i] = keys[i].time;
        easeIn_[i] = keys[i].easeIn;
        easeOut_[i] = keys[i].easeOut;
    }
    for (size_t i = 1; i + 1 < n; ++i) {
        const TcbShape& k = keys[i];
        const float t = 1.0f - k.tens;
        const float before = TicksBetween(keys[i - 1].time, keys[i].time);
        const float after = TicksBetween(keys[i].time, keys[i + 1].time);
        const float sum = before + after;
        const float inScale = sum > 0.0f ? 2.0f * before / sum : 1.0f;
        const float outScale = sum > 0.0f ? 2.0f * after / sum : 1.0f;
        in_[i] = {int(i), t * (1 + k.bias) * (1 - k.cont) / 2 * inScale,
                  t * (1 - k.bias) * (1 + k.cont) / 2 * inScale};
        out_[i] = {int(i), t * (1 + k.bias) * (1 + k.cont) / 2 * outScale,
                   t * (1 - k.bias) * (1 - k.cont) / 2 * outScale};
    }
    const float t0 = 1.0f - keys.front().tens, tn = 1.0f - keys.back().tens;
    if (n == 2) {
        out_[0] = {1, t0, 0.0f};
        in_[1] = {1, tn, 0.0f};
    } else {
        const Weights& next = in_[1];
        out_[0] = {1, t0 * (1.5f - 0.5f * next.a), -t0 * 0.5f * next.b};
        const Weights& prev = out_[n - 2];
        in_[n - 1] = {int(n) - 2, -tn * 0.5f * prev.a, tn * (1.5f - 0.5f * prev.b)};
    }
    // The ends continue straight along their one tangent.
    in_[0] = out_[0];
    out_[n - 1] = in_[n - 1];
}

size_t TcbSpline::Segment(TimeValue t, float& u) const {
    const auto next = std::upper_bound(times_.begin(), times_.end(), t);
    const size_t k = std::clamp<size_t>(size_t(next - times_.begin()), 1, times_.size() - 1) - 1;
    const float duration = Duration(k);
    u = duration > 0 ? TicksBetween(times_[k], t) / duration : 1.0f;
    u = Ease(std::clamp(u, 0.0f, 1.0f), easeOut_[k], easeIn_[k + 1]);
    return k;
}

void TcbSpline::Basis(float u, float h[4]) {
    const float u2 = u * u, u3 = u2 * u;
    h[0] = 2 * u3 - 3 * u2 + 1;
    h[1] = u3 - 2 * u2 + u;
    h[2] = -2 * u3 + 3 * u2;
    h[3] = u3 - u2;
}

float TcbSpline::Ease(float u, float out, float in) {
    const float sum = out + in;
    if (sum <= 0.0f) return u;
    if (sum > 1.0f) {
        out /= sum;
        in /= sum;
    }
    const float k = 1.0f / (2.0f - out - in);
    if (u < out) return k / out * u * u;
    if (u < 1.0f - in) return k * (2.0f * u - out);
    const float rest = 1.0f - u;
    return 1.0f - k / in * rest * rest;
}

}  // namespace host

#pragma once

#include <vector>

#include "host/core/TimeValue.h"

namespace host {

// What a TCB key contributes to the shape of its curve: tension, continuity and bias
// in -1..1 (0 is a Catmull-Rom key), and the ease fractions of the segment after
// (easeOut) and before (easeIn) the key, in 0..1.
struct TcbShape {
    TimeValue time = 0;
    float tens = 0.0f, cont = 0.0f, bias = 0.0f;
    float easeIn = 0.0f, easeOut = 0.0f;
};

// The Kochanek-Bartels spline shared by every TCB controller, independent of the value
// type. The tangents of a key are linear in the chords C[k] = P[k] - P[k-1] (k from 1),
// so the weights are computed once from the keys' times and shapes and then applied to
// the chords of each component (floats, or rotation vectors for quaternion keys).
//
// Interior key i:  in  = (1-t) [(1+b)(1-c)/2 C[i] + (1-b)(1+c)/2 C[i+1]] 2 N[i-1] / (N[i-1]+N[i])
//                  out = (1-t) [(1+b)(1+c)/2 C[i] + (1-b)(1-c)/2 C[i+1]] 2 N[i]   / (N[i-1]+N[i])
// with N the segment durations. The end keys of a longer track take
// (1-t) (3/2 C - in/out of the neighbour / 2), and of a two-key track (1-t) C.
// Tangents are per segment (the chord's unit), and a segment is a cubic Hermite in
// its time fraction, remapped by the ease of its two keys.
class TcbSpline {
public:
    struct Weights {
        int chord = 1;  // the tangent is a C[chord] + b C[chord + 1]
        float a = 0.0f, b = 0.0f;
    };

    // Sorted keys, at least two.
    void Set(const std::vector<TcbShape>& keys);

    size_t NumKeys() const { return times_.size(); }
    // The segment holding t (the last one for the last key's time) and the eased
    // fraction of it.
    size_t Segment(TimeValue t, float& u) const;
    float Duration(size_t segment) const {
        return TicksBetween(times_[segment], times_[segment + 1]);
    }
    // How far t lies beyond the first key (before) or the last one, in durations of the
    // segment at that end: what the end tangent is multiplied by to extend the curve.
    float EndSpans(bool before, TimeValue t) const {
        const size_t key = before ? 0 : times_.size() - 1;
        const float duration = Duration(before ? 0 : key - 1);
        return duration > 0 ? TicksBetween(times_[key], t) / duration : 0.0f;
    }

    const Weights& In(size_t key) const { return in_[key]; }
    const Weights& Out(size_t key) const { return out_[key]; }
    // The tangent of weights w over chords indexed 1..NumKeys()-1.
    template <class V>
    static V Tangent(const Weights& w, const std::vector<V>& chords) {
        V v = chords[size_t(w.chord)] * w.a;
        if (w.b != 0.0f) v = v + chords[size_t(w.chord) + 1] * w.b;
        return v;
    }

    // The cubic Hermite basis at u: start, start tangent, end, end tangent.
    static void Basis(float u, float h[4]);
    // The eased fraction: a parabola accelerates over the first `out` of the segment
    // and decelerates over the last `in`, at constant speed between; sums beyond 1 are
    // scaled down.
    static float Ease(float u, float out, float in);

private:
    std::vector<TimeValue> times_;
    std::vector<float> easeIn_, easeOut_;
    std::vector<Weights> in_, out_;
};

}  // namespace host

#pragma once

#include <vector>

#include "host/classes/KeyframeControl.h"
#include "host/classes/TcbSpline.h"

namespace host {

// The spline shapes of sorted TCB keys.
template <class Key>
std::vector<TcbShape> TcbShapes(const std::vector<Key>& keys) {
    std::vector<TcbShape> shapes(keys.size());
    for (size_t i = 0; i < keys.size(); ++i)
        shapes[i] = {keys[i].time, keys[i].tens,   keys[i].cont,
                     keys[i].bias, keys[i].easeIn, keys[i].easeOut};
    return shapes;
}

// A TCB controller of N components: one Kochanek-Bartels curve per component of the
// keys' values (see TcbSpline), the keys sharing their times, shapes and ease. The
// tangents are recomputed whenever the keys change.
template <class Key, class Value, int N>
class TcbControl : public KeyframeControl<Key, Value> {
protected:
    using KeyframeControl<Key, Value>::keys_;

    Value Interpolate(TimeValue t) const override {
        float u = 0.0f;
        const size_t s = spline_.Segment(t, u);
        float h[4];
        TcbSpline::Basis(u, h);
        Value v{};
        for (int axis = 0; axis < N; ++axis) {
            const Curve& c = curves_[axis];
            KeyComponent(v, axis) =
                h[0] * c.values[s] + h[1] * c.out[s] + h[2] * c.values[s + 1] + h[3] * c.in[s + 1];
        }
        return v;
    }
    Value ExtendLinear(bool before, TimeValue t) const override {
        const size_t key = before ? 0 : keys_.size() - 1;
        const float spans = spline_.EndSpans(before, t);
        Value v{};
        for (int axis = 0; axis < N; ++axis) {
            const Curve& c = curves_[axis];
            KeyComponent(v, axis) = c.values[key] + (before ? c.out[key] : c.in[key]) * spans;
        }
        return v;
    }
    void UpdateSegments() override {
        if (keys_.size() < 2) return;
        spline_.Set(TcbShapes(keys_));
        for (int axis = 0; axis < N; ++axis) Fit(axis);
    }

private:
    struct Curve {
        std::vector<float> values, in, out;
    };

    void Fit(int axis) {
        const size_t n = keys_.size();
        Curve& c = curves_[axis];
        c.values.resize(n);
        c.in.resize(n);
        c.out.resize(n);
        std::vector<float> chords(n + 1, 0.0f);
        for (size_t i = 0; i < n; ++i) {
            c.values[i] = KeyComponent(keys_[i].val, axis);
            if (i > 0) chords[i] = c.values[i] - c.values[i - 1];
        }
        for (size_t i = 0; i < n; ++i) {
            c.in[i] = TcbSpline::Tangent(spline_.In(i), chords);
            c.out[i] = TcbSpline::Tangent(spline_.Out(i), chords);
        }
    }

    TcbSpline spline_;
    Curve curves_[N];
};

}  // namespace host

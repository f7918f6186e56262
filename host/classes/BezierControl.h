#pragma once

#include <vector>

#include "host/classes/BezierChannel.h"
#include "host/classes/KeyframeControl.h"

namespace host {

// A bezier controller of N components: one BezierChannel per component, made from that
// component of every key (val, intan, outtan, inLength, outLength), the keys sharing
// their times and flags. Automatic tangents are computed per component and written
// back into the keys.
template <class Key, class Value, int N>
class BezierControl : public KeyframeControl<Key, Value> {
public:
    // The curve of one component, as of the last Refresh.
    const BezierChannel& Channel(int axis) const { return channels_[axis]; }

protected:
    using KeyframeControl<Key, Value>::keys_;

    Value Interpolate(TimeValue t) const override {
        Value v{};
        for (int axis = 0; axis < N; ++axis) KeyComponent(v, axis) = channels_[axis].Interpolate(t);
        return v;
    }
    Value ExtendLinear(bool before, TimeValue t) const override {
        Value v{};
        for (int axis = 0; axis < N; ++axis)
            KeyComponent(v, axis) = channels_[axis].ExtendLinear(before, t);
        return v;
    }
    void UpdateTangents() override {
        for (int axis = 0; axis < N; ++axis) {
            std::vector<BezierKnot> knots = Knots(axis);
            BezierChannel::UpdateTangents(knots);
            for (size_t k = 0; k < keys_.size(); ++k) {
                KeyComponent(keys_[k].intan, axis) = knots[k].intan;
                KeyComponent(keys_[k].outtan, axis) = knots[k].outtan;
            }
        }
    }
    void UpdateSegments() override {
        for (int axis = 0; axis < N; ++axis) channels_[axis].Set(Knots(axis));
    }

private:
    std::vector<BezierKnot> Knots(int axis) const {
        std::vector<BezierKnot> knots(keys_.size());
        for (size_t k = 0; k < keys_.size(); ++k) {
            const Key& key = keys_[k];
            knots[k] = {key.time,
                        key.flags,
                        KeyComponent(key.val, axis),
                        KeyComponent(key.intan, axis),
                        KeyComponent(key.outtan, axis),
                        KeyComponent(key.inLength, axis),
                        KeyComponent(key.outLength, axis)};
        }
        return knots;
    }

    BezierChannel channels_[N];
};

}  // namespace host

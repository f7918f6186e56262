#pragma once

#include <benchmark/benchmark.h>

#include <random>

#include "host/classes/IKeyControl.h"
#include "host/object/Control.h"

namespace host::bench {

// count bezier keys on a float track, spacing ticks apart from time 0, at random values
// in [-1, 1]: the keyed tracks of the benchmarks' scenes.
inline void KeyFloatTrack(Control* track, std::mt19937& rng, int count, TimeValue spacing) {
    std::uniform_real_distribution<float> value(-1.0f, 1.0f);
    IKeyControl* keys = GetKeyControlInterface(track);
    for (int k = 0; k < count; ++k) {
        IBezFloatKey key;
        key.time = k * spacing;
        key.val = value(rng);
        keys->AppendKey(&key);
    }
}

// Time per node as a rate counter of a pass over state.range(0) nodes: seconds per
// node, shown in the benchmark's units.
inline benchmark::Counter PerNode(const benchmark::State& state) {
    return benchmark::Counter(double(state.iterations()) * double(state.range(0)),
                              benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

}  // namespace host::bench

// Keyframed float evaluation: the animated parameters of every rig read it per frame.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "host/classes/BezierFloat.h"

namespace host::bench {
namespace {

// 100 smooth keys a frame apart; every call reads a new time, as playback does.
void BM_BezierFloatGetValue100Keys(benchmark::State& state) {
    auto* c = new BezierFloat;
    std::mt19937 rng(3);
    std::uniform_real_distribution<float> value(-10.0f, 10.0f);
    for (int k = 0; k < 100; ++k) {
        IBezFloatKey key;
        key.time = k * 160;
        key.val = value(rng);
        c->AppendKey(&key);
    }
    std::vector<TimeValue> times(256);
    for (TimeValue& t : times) t = TimeValue(rng() % (99 * 160));
    size_t i = 0;
    for (auto _ : state) {
        Interval valid = FOREVER;
        float v;
        c->GetValue(times[i++ % times.size()], &v, valid);
        benchmark::DoNotOptimize(v);
    }
    c->DeleteMe();
}
BENCHMARK(BM_BezierFloatGetValue100Keys);

}  // namespace
}  // namespace host::bench

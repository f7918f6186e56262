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

// Loading a track as a file reader does: keys appended one by one, then one read.
void BM_BezierFloatLoad1000Keys(benchmark::State& state) {
    std::mt19937 rng(4);
    std::uniform_real_distribution<float> value(-10.0f, 10.0f);
    std::vector<IBezFloatKey> keys(1000);
    for (size_t k = 0; k < keys.size(); ++k) {
        keys[k].time = TimeValue(k) * 160;
        keys[k].val = value(rng);
    }
    for (auto _ : state) {
        auto* c = new BezierFloat;
        for (IBezFloatKey& key : keys) c->AppendKey(&key);
        benchmark::DoNotOptimize(c->Evaluate(800));
        c->DeleteMe();
    }
}
BENCHMARK(BM_BezierFloatLoad1000Keys)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace host::bench

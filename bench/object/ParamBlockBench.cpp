// Parameter reads: every controller and modifier reads its settings on each evaluation.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "host/classes/BezierFloat.h"
#include "host/classes/HostClasses.h"
#include "host/object/IParamBlock2.h"

namespace host::bench {
namespace {

ParamBlockDesc2 benchBlock(0, L"params", 0, 0, nullptr,
                           {{0, L"still", TYPE_FLOAT, 0, 0, {.f = 1.5f}},
                            {1, L"moving", TYPE_FLOAT, P_ANIMATABLE, 0, {}}});

void BM_GetFloatStill(benchmark::State& state) {
    auto* pb = new IParamBlock2(&benchBlock, nullptr);
    for (auto _ : state) {
        float v = pb->GetFloat(0, 0);
        benchmark::DoNotOptimize(v);
    }
    pb->DeleteMe();
}
BENCHMARK(BM_GetFloatStill);

// Animated by 100 keys a frame apart; every read at a new time.
void BM_GetFloatAnimated100Keys(benchmark::State& state) {
    RegisterHostClasses();
    auto* pb = new IParamBlock2(&benchBlock, nullptr);
    auto* c = static_cast<BezierFloat*>(NewDefaultFloatController());
    std::mt19937 rng(4);
    for (int k = 0; k < 100; ++k) {
        IBezFloatKey key;
        key.time = k * 160;
        key.val = float(rng() % 100);
        c->AppendKey(&key);
    }
    pb->SetController(1, 0, c, false);
    std::vector<TimeValue> times(256);
    for (TimeValue& t : times) t = TimeValue(rng() % (99 * 160));
    size_t i = 0;
    for (auto _ : state) {
        float v = pb->GetFloat(1, times[i++ % times.size()]);
        benchmark::DoNotOptimize(v);
    }
    pb->DeleteMe();
}
BENCHMARK(BM_GetFloatAnimated100Keys);

}  // namespace
}  // namespace host::bench

// Transform evaluation of one node: a PRS whose nine float tracks hold 100 keys each,
// read at a new time per call as playback does. The scene's world-transform pass is
// this cost times the number of nodes.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "host/classes/BezierFloat.h"
#include "host/classes/HostClasses.h"
#include "host/classes/PRS.h"
#include "host/classes/ScaleXYZ.h"

namespace host::bench {
namespace {

void KeyTrack(Control* track, std::mt19937& rng) {
    std::uniform_real_distribution<float> value(0.5f, 1.5f);
    auto* keys = static_cast<BezierFloat*>(track);
    for (int k = 0; k < 100; ++k) {
        IBezFloatKey key;
        key.time = k * 160;
        key.val = value(rng);
        keys->AppendKey(&key);
    }
}

void BM_PRSGetValue100Keys(benchmark::State& state) {
    RegisterHostClasses();
    auto* prs = static_cast<PRS*>(NewDefaultMatrix3Controller());
    prs->SetScaleController(new ScaleXYZ);
    std::mt19937 rng(5);
    for (int part = 0; part < 3; ++part)
        for (int axis = 0; axis < 3; ++axis)
            KeyTrack(static_cast<Control*>(prs->SubAnim(part)->SubAnim(axis)), rng);
    std::vector<TimeValue> times(256);
    for (TimeValue& t : times) t = TimeValue(rng() % (99 * 160));
    const Matrix3 parent = TransMatrix({1, 2, 3});
    size_t i = 0;
    for (auto _ : state) {
        Matrix3 tm = parent;
        Interval valid = FOREVER;
        prs->GetValue(times[i++ % times.size()], &tm, valid, CTRL_RELATIVE);
        benchmark::DoNotOptimize(tm);
    }
    prs->DeleteMe();
}
BENCHMARK(BM_PRSGetValue100Keys);

}  // namespace
}  // namespace host::bench

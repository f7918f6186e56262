// The rotation of a rig control: a RotationXYZ whose three angle tracks hold 100 keys
// each, read relatively (as its rig control reads it) at a new time per call.
#include <benchmark/benchmark.h>

#include <random>

#include "bench/BenchKeys.h"
#include "controllers/RotationXYZ.h"
#include "host/classes/HostClasses.h"

namespace zorvanta::bench {
namespace {

using namespace host;

constexpr int kKeys = 100;
constexpr TimeValue kSpacing = 160;

void BM_RotationXYZGetValueNewTime(benchmark::State& state) {
    RegisterHostClasses();
    auto* rotation = new RotationXYZ();
    rotation->SetOrder(int(state.range(0)));
    std::mt19937 rng(7);
    for (Control* track :
         {rotation->GetXController(), rotation->GetYController(), rotation->GetZController()})
        host::bench::KeyFloatTrack(track, rng, kKeys, kSpacing);
    const Matrix3 parent = RotateZMatrix(0.3f) * TransMatrix({1, 2, 3});
    const TimeValue end = (kKeys - 1) * kSpacing;
    TimeValue t = 0;
    for (auto _ : state) {
        t = t + 7 > end ? 0 : t + 7;  // never the time of the call before
        Matrix3 tm = parent;
        Interval valid = FOREVER;
        rotation->GetValue(t, &tm, valid, CTRL_RELATIVE);
        benchmark::DoNotOptimize(tm);
    }
    rotation->DeleteMe();
}
// Order 0 (XYZ) and a repeating order (6, XYX).
BENCHMARK(BM_RotationXYZGetValueNewTime)->Arg(0)->Arg(6);

}  // namespace
}  // namespace zorvanta::bench

// Quaternion interpolation: layer blends, constraints and IK blends run it per joint.
#include "bench/math/BenchData.h"

namespace host::bench {
namespace {

void BM_Slerp(benchmark::State& state) {
    RunOverRing(state, RotationRing(),
                [](const Quat& a, const Quat& b) { return Slerp(a, b, 0.37f); });
}
BENCHMARK(BM_Slerp);

void BM_QuatMultiply(benchmark::State& state) {
    RunOverRing(state, RotationRing(), [](const Quat& a, const Quat& b) { return a * b; });
}
BENCHMARK(BM_QuatMultiply);

}  // namespace
}  // namespace host::bench

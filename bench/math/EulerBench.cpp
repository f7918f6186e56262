// Quaternion to Euler angles: every set of a rotation controller's value runs it.
#include "bench/math/BenchData.h"
#include "host/math/Euler.h"

namespace host::bench {
namespace {

struct Angles {
    float e[3];
};

void BM_QuatToEuler(benchmark::State& state) {
    const int order = int(state.range(0));
    RunOverRing(state, RotationRing(), [order](const Quat& q, const Quat&) {
        Angles a;
        QuatToEuler(q, a.e, order);
        return a;
    });
}
BENCHMARK(BM_QuatToEuler)->Arg(EULERTYPE_XYZ)->Arg(EULERTYPE_ZXZ);

// Each conversion continues from the angles of the one before, as a controller's do.
void BM_ContinuousQuatToEuler(benchmark::State& state) {
    Angles a{{0.1f, 0.2f, 0.3f}};
    RunOverRing(state, RotationRing(), [&a](const Quat& q, const Quat&) {
        ContinuousQuatToEuler(q, a.e, EULERTYPE_XYZ);
        return a;
    });
}
BENCHMARK(BM_ContinuousQuatToEuler);

void BM_EulerToQuat(benchmark::State& state) {
    RunOverRing(state, RotationRing(), [](const Quat& q, const Quat&) {
        const float e[3] = {q.x, q.y, q.z};
        Quat out;
        EulerToQuat(e, out, EULERTYPE_YXZ);
        return out;
    });
}
BENCHMARK(BM_EulerToQuat);

}  // namespace
}  // namespace host::bench

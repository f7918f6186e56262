// Guide points: every structural parameter change rebuilds the whole point list, carrying
// the moved points over by name, while the user drags a spinner.
#include <benchmark/benchmark.h>

#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/Interface.h"
#include "rig/RigSystem.h"

namespace zorvanta::bench {
namespace {

RigSystem* DefaultRig() {
    host::RegisterHostClasses();
    static host::HostClassDesc<RigSystem> desc(L"Rig", L"Rig", RigSystem::kSuperClassId,
                                               RigSystem::kClassId);
    static const bool described = (RigSystem::DescribeBlocks(&desc), true);
    (void)described;
    host::ClassRegistry::Instance().Register(&desc);
    RigSystem* rig = new RigSystem;
    host::GetCOREInterface()->CreateObjectNode(rig, L"Rig");
    return rig;
}

// A default Biped rebuilt with its old points kept (the block's own defaults, which
// include the fangs: 87 points).
void BM_RebuildBipedGuidePoints(benchmark::State& state) {
    RigSystem* rig = DefaultRig();
    for (auto _ : state) {
        rig->RebuildPoints(false);
        benchmark::DoNotOptimize(rig->Points().data());
    }
    state.counters["points"] = double(rig->Points().size());
    host::GetCOREInterface()->Reset();
}
BENCHMARK(BM_RebuildBipedGuidePoints);

}  // namespace
}  // namespace zorvanta::bench

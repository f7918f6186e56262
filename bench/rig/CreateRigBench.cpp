// Building a rig: the "Create Rig" press of a default Biped, as far as the toolkit's
// builders go today, and taking it away again by undo.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "frame/FrameIds.h"
#include "host/classes/HostClasses.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Interface.h"
#include "rig/RigSystem.h"

namespace zorvanta::bench {
namespace {

// A scene holding one default Biped rig object; null when the plug-in did not load.
RigSystem* MakeBipedScene() {
    std::vector<std::string> errors;
    host::StartHostWithPlugins({ZV_PLUGIN_DIR}, errors);
    host::Interface* ip = host::GetCOREInterface();
    ip->Reset();
    auto* rig = dynamic_cast<RigSystem*>(host::CreateInstance(host::HELPER_CLASS_ID, RIG_CLASS_ID));
    if (rig) ip->CreateObjectNode(rig, L"Biped");
    return rig;
}

// CreateRig alone, with the undo that takes the rig away again out of the timing; the
// argument turns root_bone on.
void BM_CreateRigBiped(benchmark::State& state) {
    RigSystem* rig = MakeBipedScene();
    if (!rig) {
        state.SkipWithError("the plug-in did not load");
        return;
    }
    rig->Block()->SetValue(RIG_ROOT_BONE, 0, int(state.range(0)));
    int nodes = 0;
    for (auto _ : state) {
        rig->CreateRig();
        state.PauseTiming();
        nodes = rig->Block()->Count(RIG_NODES);
        host::theHold.Undo();
        state.ResumeTiming();
    }
    state.counters["nodes"] = nodes;
    host::GetCOREInterface()->Reset();
}
BENCHMARK(BM_CreateRigBiped)->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);

// The press and its undo together, as an animator trying settings does.
void BM_CreateRigBipedAndUndo(benchmark::State& state) {
    RigSystem* rig = MakeBipedScene();
    if (!rig) {
        state.SkipWithError("the plug-in did not load");
        return;
    }
    for (auto _ : state) {
        rig->CreateRig();
        host::theHold.Undo();
    }
    host::GetCOREInterface()->Reset();
}
BENCHMARK(BM_CreateRigBipedAndUndo)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zorvanta::bench

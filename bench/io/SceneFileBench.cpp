// Saving, loading and cloning a 10,000-node scene whose PRS controllers hold 10 keys on
// every track: the throughput of scene files each way, in bytes of file a second, and
// of CloneNodes, in nodes a second.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "bench/BenchKeys.h"
#include "host/classes/HostClasses.h"
#include "host/classes/IKeyControl.h"
#include "host/io/SceneReader.h"
#include "host/io/SceneWriter.h"
#include "host/object/Control.h"
#include "host/object/Hold.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace host::bench {
namespace {

constexpr int kKeys = 10;

void BuildScene(int count) {
    StartHost();
    Interface* ip = GetCOREInterface();
    ip->Reset();
    std::mt19937 rng(5);
    std::vector<INode*> nodes;
    for (int i = 0; i < count; ++i) {
        INode* node = ip->CreateObjectNode(nullptr);
        if (i > 0) nodes[rng() % nodes.size()]->AttachChild(node, false);
        Control* prs = node->GetTMController();
        for (Control* part : {prs->GetPositionController(), prs->GetRotationController()})
            for (Control* axis :
                 {part->GetXController(), part->GetYController(), part->GetZController()})
                KeyFloatTrack(axis, rng, kKeys, 480);
        nodes.push_back(node);
    }
}

void BM_SceneSave(benchmark::State& state) {
    BuildScene(int(state.range(0)));
    size_t bytes = 0;
    for (auto _ : state) {
        const std::vector<uint8_t> file = SceneWriter::Write(*GetCOREInterface());
        bytes = file.size();
        benchmark::DoNotOptimize(file.data());
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(bytes));
    state.counters["file MB"] = double(bytes) / 1e6;
    GetCOREInterface()->Reset();
}
BENCHMARK(BM_SceneSave)->Arg(10000)->Arg(300)->Unit(benchmark::kMillisecond);

// Each load replaces the scene the last one made, as opening a file does.
void BM_SceneLoad(benchmark::State& state) {
    BuildScene(int(state.range(0)));
    const std::vector<uint8_t> file = SceneWriter::Write(*GetCOREInterface());
    std::string error;
    for (auto _ : state)
        if (!SceneReader::Read(file, *GetCOREInterface(), error))
            state.SkipWithError(error.c_str());
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(file.size()));
    GetCOREInterface()->Reset();
}
BENCHMARK(BM_SceneLoad)->Arg(10000)->Arg(300)->Unit(benchmark::kMillisecond);

// Every top node with its hierarchy, through one clone directory, as one undo step; the
// undo that takes the clones away again is not timed.
void BM_CloneNodes(benchmark::State& state) {
    BuildScene(int(state.range(0)));
    Interface* ip = GetCOREInterface();
    INodeTab tops;
    for (int i = 0; i < ip->GetRootNode()->NumberOfChildren(); ++i) {
        INode* top = ip->GetRootNode()->GetChildNode(i);
        tops.Append(1, &top);
    }
    for (auto _ : state) {
        if (!ip->CloneNodes(tops, Point3())) state.SkipWithError("CloneNodes failed");
        state.PauseTiming();
        theHold.Undo();
        theHold.ClearUndo();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(int64_t(state.iterations()) * state.range(0));
    ip->Reset();
}
BENCHMARK(BM_CloneNodes)->Arg(10000)->Arg(300)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace host::bench

// World transforms of a 200-node hierarchy whose PRS controllers hold 100 keys on every
// track: the pass made at each new time, in playback and when scrubbing, and the
// repeated query of a time already evaluated (the node caches).
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "bench/BenchKeys.h"
#include "host/classes/HostClasses.h"
#include "host/classes/IKeyControl.h"
#include "host/object/Control.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace host::bench {
namespace {

constexpr int kKeys = 100;

void KeyScale(Control* track, std::mt19937& rng) {
    std::uniform_real_distribution<float> value(0.5f, 1.5f);
    IKeyControl* keys = GetKeyControlInterface(track);
    for (int k = 0; k < kKeys; ++k) {
        IBezScaleKey key;
        key.time = k * 160;
        key.val = ScaleValue(Point3(value(rng), value(rng), value(rng)));
        keys->AppendKey(&key);
    }
}

std::vector<INode*> BuildHierarchy(int count) {
    RegisterHostClasses();
    Interface* ip = GetCOREInterface();
    ip->Reset();
    std::mt19937 rng(11);
    std::vector<INode*> nodes;
    for (int i = 0; i < count; ++i) {
        INode* node = ip->CreateObjectNode(nullptr);
        if (i > 0) nodes[rng() % nodes.size()]->AttachChild(node, false);
        Control* prs = node->GetTMController();
        for (Control* part : {prs->GetPositionController(), prs->GetRotationController()})
            for (Control* axis :
                 {part->GetXController(), part->GetYController(), part->GetZController()})
                KeyFloatTrack(axis, rng, kKeys, 160);
        KeyScale(prs->GetScaleController(), rng);
        nodes.push_back(node);
    }
    return nodes;
}

// Playback: each pass is one frame later than the last, wrapping at the last key.
void BM_SceneWorldTransformsPlayback(benchmark::State& state) {
    const std::vector<INode*> nodes = BuildHierarchy(int(state.range(0)));
    const TimeValue frame = GetCOREInterface()->GetTicksPerFrame();
    TimeValue t = 0;
    for (auto _ : state) {
        t = t + frame > (kKeys - 1) * 160 ? 0 : t + frame;
        for (INode* node : nodes) benchmark::DoNotOptimize(node->GetNodeTM(t));
    }
    state.counters["per node"] = PerNode(state);
    GetCOREInterface()->Reset();
}
// 200 nodes is the figure that counts; 20 fit in the second-level cache.
BENCHMARK(BM_SceneWorldTransformsPlayback)->Arg(200)->Arg(20)->Unit(benchmark::kMicrosecond);

// Scrubbing: each pass at a random time.
void BM_SceneWorldTransformsScrub(benchmark::State& state) {
    const std::vector<INode*> nodes = BuildHierarchy(int(state.range(0)));
    std::mt19937 rng(3);
    std::vector<TimeValue> times(512);
    for (TimeValue& t : times) t = TimeValue(rng() % ((kKeys - 1) * 160));
    size_t i = 0;
    for (auto _ : state) {
        const TimeValue t = times[i++ % times.size()];
        for (INode* node : nodes) benchmark::DoNotOptimize(node->GetNodeTM(t));
    }
    state.counters["per node"] = PerNode(state);
    GetCOREInterface()->Reset();
}
BENCHMARK(BM_SceneWorldTransformsScrub)->Arg(200)->Unit(benchmark::kMicrosecond);

void BM_SceneWorldTransformsRepeated(benchmark::State& state) {
    const std::vector<INode*> nodes = BuildHierarchy(int(state.range(0)));
    for (INode* node : nodes) node->GetNodeTM(800);
    for (auto _ : state)
        for (INode* node : nodes) benchmark::DoNotOptimize(node->GetNodeTM(800));
    state.counters["per node"] = PerNode(state);
    GetCOREInterface()->Reset();
}
BENCHMARK(BM_SceneWorldTransformsRepeated)->Arg(200)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace host::bench

// World transforms of 200 rig controls (control helper nodes driven by rig controls with
// keyed Euler rotations, offsets and a random hierarchy) at each new time: what playback
// of a rig costs beside the plain PRS hierarchy of the scene benchmark.
#include <benchmark/benchmark.h>

#include <random>
#include <vector>

#include "bench/BenchKeys.h"
#include "controllers/RigControl.h"
#include "controllers/RotationXYZ.h"
#include "helpers/ControlHelper.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace zorvanta::bench {
namespace {

using namespace host;
using host::bench::KeyFloatTrack;
using host::bench::PerNode;

constexpr int kKeys = 100;
constexpr TimeValue kSpacing = 160;

template <class T>
void Register(const wchar_t* name) {
    static HostClassDesc<T> desc(name, name, T::kSuperClassId, T::kClassId);
    if constexpr (requires { T::DescribeBlocks(&desc); }) T::DescribeBlocks(&desc);
    ClassRegistry::Instance().Register(&desc);
}

std::vector<INode*> BuildRig(int count) {
    RegisterHostClasses();
    Register<RotationXYZ>(L"RotationXYZ");
    Register<RigControl>(L"RigControl");
    Register<ControlHelper>(L"ControlHelper");
    Interface* ip = GetCOREInterface();
    ip->Reset();
    std::mt19937 rng(17);
    std::uniform_real_distribution<float> spread(-10.0f, 10.0f);
    std::vector<INode*> nodes;
    for (int i = 0; i < count; ++i) {
        INode* node = ip->CreateObjectNode(new ControlHelper(false));
        auto* control = new RigControl(false);
        node->SetTMController(control);
        if (i > 0) nodes[rng() % nodes.size()]->AttachChild(node, false);
        Matrix3 offset = RotateZMatrix(spread(rng) * 0.1f);
        offset.SetTrans(Point3(spread(rng), spread(rng), spread(rng)));
        control->SetOffsetTM(offset);
        Control* rotation = control->RealRotationController();
        for (int axis = 0; axis < 3; ++axis)
            KeyFloatTrack(static_cast<Control*>(rotation->SubAnim(axis)), rng, kKeys, kSpacing);
        nodes.push_back(node);
    }
    return nodes;
}

// Playback: each pass one frame later than the last, wrapping at the last key.
void BM_RigControlsPlayback(benchmark::State& state) {
    const std::vector<INode*> nodes = BuildRig(int(state.range(0)));
    const TimeValue frame = GetCOREInterface()->GetTicksPerFrame();
    TimeValue t = 0;
    for (auto _ : state) {
        t = t + frame > (kKeys - 1) * kSpacing ? 0 : t + frame;
        for (INode* node : nodes) benchmark::DoNotOptimize(node->GetNodeTM(t));
    }
    state.counters["per node"] = PerNode(state);
    GetCOREInterface()->Reset();
}
BENCHMARK(BM_RigControlsPlayback)->Arg(200)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zorvanta::bench

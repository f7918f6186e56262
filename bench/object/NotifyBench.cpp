// Change messages: every edit of a rig tells the controllers and nodes that depend on it.
#include <benchmark/benchmark.h>

#include <vector>

#include "host/object/ReferenceTarget.h"

namespace host::bench {
namespace {

// A target with one reference slot whose handler does the least a cache would do.
class Listener : public ReferenceTarget {
public:
    int NumRefs() override { return 1; }
    ReferenceTarget* GetReference(int) override { return ref_; }
    void SetReference(int, ReferenceTarget* t) override { ref_ = t; }
    RefResult NotifyRefChanged(const Interval&, ReferenceTarget*, PartID&, RefMessage,
                               bool) override {
        valid_ = NEVER;
        return REF_SUCCEED;
    }

private:
    ReferenceTarget* ref_ = nullptr;
    Interval valid_ = FOREVER;
};

// One target, 1,000 dependents: the time of one NotifyDependents.
void BM_NotifyDependentsFanOut1000(benchmark::State& state) {
    auto* source = new Listener;
    std::vector<Listener*> listeners;
    for (int i = 0; i < 1000; ++i) {
        listeners.push_back(new Listener);
        listeners.back()->ReplaceReference(0, source);
    }
    for (auto _ : state) source->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    for (Listener* l : listeners) l->DeleteMe();  // the source goes with the last one
}
BENCHMARK(BM_NotifyDependentsFanOut1000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace host::bench

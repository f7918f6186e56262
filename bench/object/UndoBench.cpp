// Undo: one user step of a big rig operation can hold tens of thousands of records.
#include <benchmark/benchmark.h>

#include "host/object/Hold.h"

namespace host::bench {
namespace {

// A restore object that swaps one value back and forth.
class ValueRestore : public RestoreObj {
public:
    ValueRestore(int* value, int before) : value_(value), before_(before), after_(*value) {}
    void Restore(bool) override { *value_ = before_; }
    void Redo() override { *value_ = after_; }

private:
    int* value_;
    int before_, after_;
};

// The time of one Undo of an entry of 10,000 restore objects.
void BM_Undo10000RestoreObjects(benchmark::State& state) {
    std::vector<int> values(10000, 0);
    for (auto _ : state) {
        state.PauseTiming();
        theHold.ClearUndo();
        theHold.Begin();
        for (int& v : values) {
            const int before = v;
            ++v;
            theHold.Put(new ValueRestore(&v, before));
        }
        theHold.Accept(L"Big step");
        state.ResumeTiming();
        theHold.Undo();
    }
    theHold.ClearUndo();
    if (values.front() != 0) state.SkipWithError("undo did not restore the values");
}
BENCHMARK(BM_Undo10000RestoreObjects)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace host::bench

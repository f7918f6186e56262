// Control outlines: the helper draws its outline in every viewport every frame, and a
// shape object rebuilds its splines on every change.
#include <benchmark/benchmark.h>

#include "helpers/ShapeCatalogue.h"

namespace zorvanta::bench {
namespace {

// One pass over the whole catalogue at the default 6 steps, as a sheet of 43 controls
// draws in one viewport.
void BM_ShapeOutlineAllTypes(benchmark::State& state) {
    ShapeInputs in;
    in.warpAmount = float(state.range(0)) / 100.0f;
    size_t points = 0;
    for (auto _ : state) {
        for (int type = 0; type < kShapeCount; ++type) {
            in.type = type;
            host::WireOutline out;
            ShapeOutline(in, out);
            for (const auto& line : out.Lines()) points += line.points.size();
        }
    }
    benchmark::DoNotOptimize(points);
    state.counters["outlines/s"] =
        benchmark::Counter(double(state.iterations()) * kShapeCount, benchmark::Counter::kIsRate);
}
BENCHMARK(BM_ShapeOutlineAllTypes)->Arg(0)->Arg(30);

void BM_ShapeSplinesAllTypes(benchmark::State& state) {
    ShapeInputs in;
    for (auto _ : state) {
        for (int type = 0; type < kShapeCount; ++type) {
            in.type = type;
            host::BezierShape shape;
            benchmark::DoNotOptimize(BuildShapeSplines(in, shape));
        }
    }
}
BENCHMARK(BM_ShapeSplinesAllTypes);

}  // namespace
}  // namespace zorvanta::bench

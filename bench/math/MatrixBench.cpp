// Matrix3 product and inverse: the steps of every node transform evaluation.
#include "bench/math/BenchData.h"

namespace host::bench {
namespace {

void BM_Matrix3Multiply(benchmark::State& state) {
    RunOverRing(state, AffineRing(), [](const Matrix3& a, const Matrix3& b) { return a * b; });
}
BENCHMARK(BM_Matrix3Multiply);

void BM_Matrix3Inverse(benchmark::State& state) {
    RunOverRing(state, AffineRing(), [](const Matrix3& a, const Matrix3&) { return Inverse(a); });
}
BENCHMARK(BM_Matrix3Inverse);

void BM_PointTransform(benchmark::State& state) {
    RunOverRing(state, AffineRing(), [](const Matrix3& a, const Matrix3& b) { return b[0] * a; });
}
BENCHMARK(BM_PointTransform);

}  // namespace
}  // namespace host::bench

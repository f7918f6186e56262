// Polar decomposition: every controller that splits a transform into parts calls it.
#include "bench/math/BenchData.h"
#include "host/math/AffineParts.h"
#include "host/math/MatrixHelpers.h"

namespace host::bench {
namespace {

AffineParts Decompose(const Matrix3& m, const Matrix3&) {
    AffineParts parts;
    decomp_affine(m, &parts);
    return parts;
}

// General matrices: shear, non-uniform scale and mirrors.
void BM_DecompAffine(benchmark::State& state) {
    RunOverRing(state, AffineRing(), Decompose);
}
BENCHMARK(BM_DecompAffine);

// The common case in a rig: rotation, translation and a uniform scale.
void BM_DecompAffineRigid(benchmark::State& state) {
    const auto rotations = RotationRing();
    std::array<Matrix3, kRing> ring;
    for (size_t n = 0; n < kRing; ++n)
        ring[n] =
            ScaleMatrix({1.5f, 1.5f, 1.5f}) * QuatMatrix(rotations[n]) * TransMatrix({1, 2, 3});
    RunOverRing(state, ring, Decompose);
}
BENCHMARK(BM_DecompAffineRigid);

void BM_BlendMatrix(benchmark::State& state) {
    RunOverRing(state, AffineRing(),
                [](const Matrix3& a, const Matrix3& b) { return BlendMatrix(a, b, 0.3f); });
}
BENCHMARK(BM_BlendMatrix);

}  // namespace
}  // namespace host::bench

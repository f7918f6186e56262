#pragma once

#include <benchmark/benchmark.h>

#include <array>
#include <cmath>
#include <random>

#include "host/math/Matrix3.h"
#include "host/math/Quat.h"

namespace host::bench {

// A fixed ring of inputs, the same on every run: cycling through it keeps the
// compiler from folding the work away and the branch predictor from learning one case.
inline constexpr size_t kRing = 256;

inline std::array<Matrix3, kRing> AffineRing() {
    std::mt19937 rng(7);
    std::uniform_real_distribution<float> u(-2.0f, 2.0f);
    std::array<Matrix3, kRing> ring;
    for (Matrix3& m : ring) {
        do {
            m = Matrix3({u(rng), u(rng), u(rng)}, {u(rng), u(rng), u(rng)},
                        {u(rng), u(rng), u(rng)}, {u(rng), u(rng), u(rng)});
        } while (std::fabs(m.Determinant()) < 0.2f);
    }
    return ring;
}

inline std::array<Quat, kRing> RotationRing() {
    std::mt19937 rng(8);
    std::uniform_real_distribution<float> u(-1.0f, 1.0f);
    std::array<Quat, kRing> ring;
    for (Quat& q : ring) q = Normalize(Quat(u(rng), u(rng), u(rng), u(rng)));
    return ring;
}

// Runs op on each item of the ring in turn, with the item after it for a second
// operand, keeping the result alive so the work is not optimised away.
template <typename Item, typename Op>
void RunOverRing(benchmark::State& state, const std::array<Item, kRing>& ring, Op op) {
    size_t i = 0;
    for (auto _ : state) {
        auto result = op(ring[i % kRing], ring[(i + 1) % kRing]);
        benchmark::DoNotOptimize(result);
        ++i;
    }
}

}  // namespace host::bench

#pragma once

#include <array>
#include <cassert>
#include <span>

#include "host/classes/SplineKnot.h"

namespace zorvanta {

// The knots of one curve while a member lays it out, on the stack: the drawing form
// runs every frame and needs no heap for a list that it samples straight away.
class KnotBuffer {
public:
    static constexpr int kCapacity = 64;

    void Add(const host::SplineKnot& knot) {
        assert(count_ < kCapacity);
        knots_[size_t(count_++)] = knot;
    }
    int Count() const { return count_; }
    host::SplineKnot& operator[](int i) { return knots_[size_t(i)]; }
    host::SplineKnot& Back() { return knots_[size_t(count_ - 1)]; }
    std::span<const host::SplineKnot> Knots() const { return {knots_.data(), size_t(count_)}; }

private:
    std::array<host::SplineKnot, kCapacity> knots_;
    int count_ = 0;
};

}  // namespace zorvanta

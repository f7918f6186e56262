#pragma once

#include <compare>
#include <cstdint>

namespace host {

// A superclass id: the kind of object (controller type, object, modifier, ...).
using SClass_ID = uint32_t;

// A class id: two words. Scene files store them, so they never change. Two classes of
// different superclasses may share one pair; a class is identified by (superclass, id).
class Class_ID {
public:
    constexpr Class_ID() = default;
    constexpr Class_ID(uint32_t a, uint32_t b) : a_(a), b_(b) {}
    constexpr uint32_t PartA() const { return a_; }
    constexpr uint32_t PartB() const { return b_; }
    constexpr bool operator==(const Class_ID&) const = default;
    constexpr auto operator<=>(const Class_ID&) const = default;

private:
    uint32_t a_ = 0;
    uint32_t b_ = 0;
};

// An interface id of the function-publishing and query kind: also two words.
using Interface_ID = Class_ID;

}  // namespace host

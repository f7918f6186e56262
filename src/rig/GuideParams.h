#pragma once

#include <array>

#include "rig/RigIds.h"

namespace host {
class IParamBlock2;
}

namespace zorvanta {

// The values of the rig block's integer-like parameters (ints, bools, indices), by
// parameter id: what the guide layouts read. A rebuild takes a snapshot of the block,
// with the value being set put in by the accessor (the block stores it only after the
// accessor ran). The rig also keeps the snapshot of its last rebuild, to tell which
// parameters changed since.
struct GuideParams {
    std::array<int, kRigParamIdCount> values{};
    float helperSize = 100.0f;

    // The block's values at time 0; the defaults when pb is null.
    static GuideParams Read(host::IParamBlock2* pb);
    // The block's definition defaults.
    static GuideParams Defaults();

    int operator[](RigParam id) const { return values[size_t(id)]; }
    int& operator[](RigParam id) { return values[size_t(id)]; }
    int Type() const { return values[RIG_TYPE]; }
    int Side() const { return values[RIG_SIDE]; }
    bool On(RigParam id) const { return values[size_t(id)] != 0; }
};

}  // namespace zorvanta

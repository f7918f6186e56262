#pragma once

#include <cstdint>

#include "host/core/WStr.h"
#include "host/math/Point3.h"

namespace zorvanta {

// One guide point of a rig template: a named position in the rig object's unit frame
// (the object-space position is pos * helper_size), linked to its parent and to its
// partner on the other side. Indices are into the rig's point list; -1 for none.
struct RigPoint {
    int component = 0;   // RigComponent that owns the point
    host::WStr name;     // unique within the rig, "r_upper_arm_1"
    uint32_t flags = 0;  // RigPointFlag bits
    host::Point3 pos;
    int drawType = 0;
    int selected = 0;
    int parent = -1;
    int firstChild = -1;  // the first point made with this one as parent
    int mirror = -1;
    int extra = -1;          // scratch index used by extras
    host::WStr displayName;  // shown instead of name when set
    host::WStr tag;
    uint32_t reserved[2] = {0, 0};

    bool Fixed() const { return (flags & 16u) != 0; }
    bool operator==(const RigPoint&) const = default;
};

// A user's extra chain, hanging on a guide point or on an element of another extra.
struct RigExtra {
    host::WStr name;    // unique among extras, compared case-insensitively
    host::WStr parent;  // the name of the point or extra element it hangs on
    host::WStr displayName;
    int side = -1;  // RigSide: -1 none, 0 right, 1 left, 2 both, 3 centre
    int numControls = 1;
    int numBones = 2;
    int reserved = 0;
    uint32_t flags = 2;  // RigExtraFlag bits

    bool UseBones() const { return (flags & 8u) != 0; }
    bool operator==(const RigExtra&) const = default;
};

}  // namespace zorvanta

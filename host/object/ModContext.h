#pragma once

#include <memory>

#include "host/math/Box3.h"
#include "host/math/Matrix3.h"
#include "host/object/LocalModData.h"

namespace host {

// What a modifier knows about one of the stacks it sits in. A derived object owns one
// for each of its modifiers and hands it to ModifyObject.
class ModContext {
public:
    ModContext() = default;
    ModContext(const Matrix3& tm_, const Box3& box_) : tm(tm_), box(box_) {}

    // Object space to the modifier's space (the space of its gizmo).
    Matrix3 tm;
    // The box of the modifier's input in the modifier's space, taken when the modifier
    // was added; empty for an input without points.
    Box3 box;
    // The modifier's own data for this stack, or null.
    std::unique_ptr<LocalModData> localData;
};

}  // namespace host

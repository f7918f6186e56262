#pragma once

#include "controllers/StaticControl.h"
#include "frame/FrameIds.h"

namespace zorvanta {

// A position track that holds one point (parent space, world units): a relative read
// translates the matrix passed in, in its own space.
// It has no keys, references, sub-anims or parameter blocks.
class StaticPosition : public StaticControl<StaticPosition, host::Point3> {
public:
    explicit StaticPosition(bool loading = false);
    static constexpr host::Class_ID kClassId = STATIC_POSITION_CLASS_ID;
    static constexpr host::SClass_ID kSuperClassId = host::CTRL_POSITION_CLASS_ID;
    static constexpr int kNameId = IDS_STATIC_POSITION_CLASS;

    static host::Point3 Initial();
    static host::Point3 Zero();
    static void ApplyRelative(const host::Point3& v, void* val);
    static host::Point3 AddRelative(const host::Point3& v, void* val);
    static void Apply(host::Point3& a, const host::Point3& b);
    static void Multiply(host::Point3& v, float f);
};

}  // namespace zorvanta

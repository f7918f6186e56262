#include "controllers/DummyRotation.h"

#include "frame/FrameIds.h"
#include "frame/StringTable.h"

namespace zorvanta {

using namespace host;

DummyRotation::DummyRotation(bool) {}

Class_ID DummyRotation::ClassID() {
    return DUMMY_ROTATION_CLASS_ID;
}

SClass_ID DummyRotation::SuperClassID() {
    return CTRL_ROTATION_CLASS_ID;
}

WStr DummyRotation::GetClassName() {
    return WStr(GetString(IDS_DUMMY_ROTATION_CLASS));
}

void DummyRotation::GetValue(TimeValue, void* val, Interval&, GetSetMethod method) {
    if (method == CTRL_ABSOLUTE) {
        *static_cast<Quat*>(val) = value_;
        return;
    }
    auto& tm = *static_cast<Matrix3*>(val);
    if (relative_)
        PreRotateMatrix(tm, value_);
    else
        tm = QuatMatrix(value_);
}

void DummyRotation::SetValue(TimeValue, void* val, int, GetSetMethod method) {
    if (method == CTRL_ABSOLUTE)
        value_ = *static_cast<Quat*>(val);
    else
        value_ = value_ * Quat(*static_cast<AngAxis*>(val));
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

ReferenceTarget* DummyRotation::Clone(RemapDir& remap) {
    auto* copy = new DummyRotation(true);
    copy->value_ = value_;
    copy->relative_ = relative_;
    CloneControl(copy, remap);
    BaseClone(this, copy, remap);
    return copy;
}

}  // namespace zorvanta

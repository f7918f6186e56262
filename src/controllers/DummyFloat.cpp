#include "controllers/DummyFloat.h"

#include "frame/FrameIds.h"
#include "frame/StringTable.h"

namespace zorvanta {

using namespace host;

DummyFloat::DummyFloat(bool) {}

Class_ID DummyFloat::ClassID() {
    return DUMMY_FLOAT_CLASS_ID;
}

SClass_ID DummyFloat::SuperClassID() {
    return CTRL_FLOAT_CLASS_ID;
}

WStr DummyFloat::GetClassName() {
    return WStr(GetString(IDS_DUMMY_FLOAT_CLASS));
}

void DummyFloat::GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    if (inner_) inner_->GetValue(t, val, valid, method);
    *static_cast<float*>(val) += offset_;
}

void DummyFloat::SetValue(TimeValue t, void* val, int commit, GetSetMethod method) {
    if (!inner_) return;
    float v = *static_cast<float*>(val);
    if (method == CTRL_ABSOLUTE) v -= offset_;
    inner_->SetValue(t, &v, commit, method);
}

ReferenceTarget* DummyFloat::Clone(RemapDir& remap) {
    auto* copy = new DummyFloat(true);
    copy->inner_ = inner_;
    copy->offset_ = offset_;
    CloneControl(copy, remap);
    BaseClone(this, copy, remap);
    return copy;
}

}  // namespace zorvanta

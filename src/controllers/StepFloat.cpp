#include "controllers/StepFloat.h"

#include "frame/FrameIds.h"
#include "frame/StringTable.h"
#include "host/object/HostClassIds.h"
#include "host/object/RemapDir.h"

namespace zorvanta {

using namespace host;

StepFloat::StepFloat(bool loading) {
    if (!loading)
        ReplaceReference(
            0, static_cast<Control*>(CreateInstance(CTRL_FLOAT_CLASS_ID, BEZIER_FLOAT_CLASS_ID)));
}

Class_ID StepFloat::ClassID() {
    return STEP_FLOAT_CLASS_ID;
}

SClass_ID StepFloat::SuperClassID() {
    return CTRL_FLOAT_CLASS_ID;
}

WStr StepFloat::GetClassName() {
    return WStr(GetString(IDS_STEP_FLOAT_CLASS));
}

TimeValue StepFloat::SampleTime(TimeValue t, Interval& span) {
    span = FOREVER;
    const int keys = inner_ ? inner_->NumKeys() : 0;
    if (keys == 0) return t;
    const bool keyAtT = inner_->GetKeyIndex(t) >= 0;
    // The last key at or before t; the one after it is the next key.
    int before = -1;
    while (before + 1 < keys && inner_->GetKeyTime(before + 1) <= t) ++before;
    if (keys >= 2) {
        span.SetStart(keyAtT ? t : (before >= 0 ? inner_->GetKeyTime(before) : TIME_NegInfinity));
        span.SetEnd(before + 1 < keys ? inner_->GetKeyTime(before + 1) - 1 : TIME_PosInfinity);
    }
    if (keyAtT) return t;
    return inner_->GetKeyTime(before >= 0 ? before : 0);
}

void StepFloat::GetValueLocalTime(TimeValue t, void* val, Interval& valid, GetSetMethod method) {
    if (!inner_) return;
    Interval span;
    const TimeValue sample = SampleTime(t, span);
    Interval ignored = FOREVER;
    inner_->GetValue(sample, val, ignored, method);
    valid &= span;
}

void StepFloat::SetValueLocalTime(TimeValue t, void* val, int commit, GetSetMethod method) {
    if (!inner_) return;
    float v = *static_cast<float*>(val);
    if (method == CTRL_RELATIVE) {
        float held = 0.0f;
        Interval ignored = FOREVER;
        GetValueLocalTime(t, &held, ignored, CTRL_ABSOLUTE);
        v += held;
    }
    inner_->SetValue(t, &v, commit, CTRL_ABSOLUTE);
}

void StepFloat::Extrapolate(Interval range, TimeValue t, void* val, Interval& valid, int type) {
    const int64_t length = int64_t(range.End()) - range.Start();
    if (type != ORT_RELATIVE_REPEAT || length <= 0) {
        GetValueLocalTime(t, val, valid, CTRL_ABSOLUTE);
        return;
    }
    float first = 0.0f, last = 0.0f, folded = 0.0f;
    Interval ignored = FOREVER;
    GetValueLocalTime(range.Start(), &first, ignored, CTRL_ABSOLUTE);
    GetValueLocalTime(range.End(), &last, ignored, CTRL_ABSOLUTE);
    // Whole cycles beyond the range, plus one, on the side of t.
    const int64_t offset = int64_t(t) - range.Start();
    int64_t cycles = offset / length;
    int64_t within = offset % length;
    if (within < 0) {
        within += length;
        --cycles;
    }
    GetValueLocalTime(TimeValue(range.Start() + within), &folded, ignored, CTRL_ABSOLUTE);
    *static_cast<float*>(val) = folded + float(cycles) * (last - first);
    valid.NarrowToInstant(t);
}

int StepFloat::NumKeys() {
    return inner_ ? inner_->NumKeys() : 0;
}
TimeValue StepFloat::GetKeyTime(int i) {
    return inner_ ? inner_->GetKeyTime(i) : 0;
}
int StepFloat::GetKeyIndex(TimeValue t) {
    return inner_ ? inner_->GetKeyIndex(t) : -1;
}
void StepFloat::AddNewKey(TimeValue t, uint32_t flags) {
    if (inner_) inner_->AddNewKey(t, flags);
}
bool StepFloat::IsKeyAtTime(TimeValue t, uint32_t flags) {
    return inner_ && inner_->IsKeyAtTime(t, flags);
}
void StepFloat::DeleteKeyAtTime(TimeValue t) {
    if (inner_) inner_->DeleteKeyAtTime(t);
}
void StepFloat::DeleteKeys(uint32_t flags) {
    if (inner_) inner_->DeleteKeys(flags);
}
void StepFloat::GetKeyTimes(Tab<TimeValue>& times, Interval range, uint32_t flags) {
    if (inner_) inner_->GetKeyTimes(times, range, flags);
}
void StepFloat::SelectKeys(Interval range, bool select) {
    if (inner_) inner_->SelectKeys(range, select);
}
bool StepFloat::IsKeySelected(int i) {
    return inner_ && inner_->IsKeySelected(i);
}
void StepFloat::MoveKeys(TimeValue delta, bool selectedOnly) {
    if (inner_) inner_->MoveKeys(delta, selectedOnly);
}
bool StepFloat::IsKeyable() {
    return inner_ && inner_->IsKeyable();
}
Interval StepFloat::GetTimeRange() {
    return inner_ ? inner_->GetTimeRange() : NEVER;
}
int StepFloat::GetORT(int side) {
    return inner_ ? inner_->GetORT(side) : ORT_CONSTANT;
}
void StepFloat::SetORT(int type, int side) {
    if (inner_) inner_->SetORT(type, side);
}
void StepFloat::Copy(Control* from) {
    if (inner_) inner_->Copy(from);
}
void* StepFloat::GetInterface(uint32_t id) {
    return inner_ ? inner_->GetInterface(id) : nullptr;
}

ReferenceTarget* StepFloat::GetReference(int i) {
    return i == 0 ? inner_ : nullptr;
}

void StepFloat::SetReference(int i, ReferenceTarget* target) {
    if (i == 0) inner_ = ControlOf(target, CTRL_FLOAT_CLASS_ID);
}

ReferenceTarget* StepFloat::Clone(RemapDir& remap) {
    auto* copy = new StepFloat(true);
    copy->ReplaceReference(0, remap.CloneRef(inner_));
    CloneControl(copy, remap);
    BaseClone(this, copy, remap);
    return copy;
}

}  // namespace zorvanta

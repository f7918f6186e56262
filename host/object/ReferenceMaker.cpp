#include "host/object/ReferenceMaker.h"

#include "host/object/RefSystem.h"
#include "host/object/ReferenceTarget.h"

namespace host {

namespace {
int refMsgsDisabled = 0;
}  // namespace

void DisableRefMsgs() {
    ++refMsgsDisabled;
}
void EnableRefMsgs() {
    if (refMsgsDisabled > 0) --refMsgsDisabled;
}
bool RefMsgsDisabled() {
    return refMsgsDisabled > 0;
}

RefResult ReferenceMaker::ReplaceReference(int i, ReferenceTarget* target, bool delOld) {
    if (i < 0 || i >= NumRefs()) return REF_FAIL;
    RefSystem::SetRef(this, i, target, delOld);
    return REF_SUCCEED;
}

void ReferenceMaker::DeleteAllRefsFromMe() {
    for (int i = 0; i < NumRefs(); ++i)
        if (GetReference(i)) RefSystem::SetRef(this, i, nullptr, true);
}

RefResult ReferenceMaker::NotifyRefChanged(const Interval&, ReferenceTarget*, PartID&, RefMessage,
                                           bool) {
    return REF_SUCCEED;
}

RefResult ReferenceMaker::DeliverMessage(const Interval& changeInt, ReferenceTarget* hTarget,
                                         PartID partID, RefMessage message, bool propagate) {
    if (message == REFMSG_LOOPTEST) SetAFlag(A_LOOP_MARK);
    // A target stays alive through its own handler and what it passes on.
    ReferenceTarget* self = IsRefTarget() ? static_cast<ReferenceTarget*>(this) : nullptr;
    const TargetPin alive(self);
    const RefResult result = NotifyRefChanged(changeInt, hTarget, partID, message, propagate);
    if (self && propagate && result != REF_STOP && !self->dependents_.empty())
        self->NotifyDependents(changeInt, partID, message, NOTIFY_ALL, true);
    return result;
}

}  // namespace host

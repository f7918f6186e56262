#include "host/object/RefSystem.h"

#include "host/object/Hold.h"

namespace host {

namespace {

ReferenceTarget* AsTarget(ReferenceMaker* maker) {
    return maker->IsRefTarget() ? static_cast<ReferenceTarget*>(maker) : nullptr;
}

// Undo and redo of one reference change. It keeps the maker and both targets alive
// for as long as it exists, so that undo can always put them back.
class ReferenceRestore : public RestoreObj {
public:
    ReferenceRestore(ReferenceMaker* maker, int slot, ReferenceTarget* before,
                     ReferenceTarget* after)
        : maker_(maker),
          slot_(slot),
          pins_{TargetPin(AsTarget(maker)), TargetPin(before), TargetPin(after)} {}
    void Restore(bool) override { Relink(pins_[1].get()); }
    void Redo() override { Relink(pins_[2].get()); }
    WStr Description() override { return WStr(L"Reference"); }

private:
    // Puts target back in the slot and tells the maker's dependents, so that what
    // they computed from the other target goes.
    void Relink(ReferenceTarget* target) {
        RefSystem::Link(maker_, slot_, target);
        if (ReferenceTarget* owner = AsTarget(maker_))
            owner->NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
    }

    ReferenceMaker* maker_;
    int slot_;
    TargetPin pins_[3];  // the maker (when it is a target), the target before, the target after
};

}  // namespace

void RefSystem::Link(ReferenceMaker* maker, int i, ReferenceTarget* target) {
    ReferenceTarget* old = maker->GetReference(i);
    if (old == target) return;
    const bool owned = target && target->ownedByRefs_;
    if (target) target->AddDependent(maker);
    maker->SetReference(i, target);
    // A slot that takes only some classes stays empty for a target of another: that
    // target keeps no dependent that does not refer to it, and is no more owned by
    // references than it was (else it would go at its next notification).
    if (target && maker->GetReference(i) != target) {
        target->RemoveDependent(maker);
        target->ownedByRefs_ = owned;
    }
    if (old) old->RemoveDependent(maker);
}

void RefSystem::SetRef(ReferenceMaker* maker, int i, ReferenceTarget* target, bool delOld) {
    ReferenceTarget* old = maker->GetReference(i);
    if (old == target) return;
    // A weak reference owns nothing: no undo record, and its old target stays.
    const bool strong = maker->IsRealDependency(old ? old : target);
    if (strong && theHold.Holding()) theHold.Put(new ReferenceRestore(maker, i, old, target));
    Link(maker, i, target);
    if (!strong || !old || old->HasStrongDependents() || !old->OwnedByDependents()) return;
    if (delOld) {
        old->DeleteMe();
    } else {
        old->ownedByRefs_ = false;  // the caller keeps it
    }
}

void RefSystem::AutoDelete(ReferenceMaker* maker) {
    theHold.Suspend();
    for (int i = 0; i < maker->NumRefs(); ++i) SetRef(maker, i, nullptr, false);
    theHold.Resume();
    maker->DeleteThis();
}

}  // namespace host

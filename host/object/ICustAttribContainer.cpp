#include "host/object/ICustAttribContainer.h"

#include <cassert>

#include "host/object/Hold.h"

namespace host {

// Undo of a slot appearing in or going from the list. Reference changes of the same
// edit are recorded beside it, so that undo, running last to first, always finds the
// slots as they were when it was recorded.
class ICustAttribContainer::SlotRestore : public RestoreObj {
public:
    SlotRestore(ICustAttribContainer* container, int slot, bool inserted)
        : pin_(container), container_(container), slot_(slot), inserted_(inserted) {}
    void Restore(bool) override { Apply(!inserted_); }
    void Redo() override { Apply(inserted_); }
    WStr Description() override { return WStr(L"Custom Attribute"); }

private:
    void Apply(bool insert) {
        if (insert)
            container_->InsertSlot(slot_);
        else
            container_->EraseSlot(slot_);
    }
    TargetPin pin_;
    ICustAttribContainer* container_;
    int slot_;
    bool inserted_;
};

CustAttrib* ICustAttribContainer::GetCustAttrib(int i) {
    return i >= 0 && i < GetNumCustAttribs() ? attribs_[size_t(i)] : nullptr;
}

bool ICustAttribContainer::InsertCustAttrib(int i, CustAttrib* ca) {
    if (!ca || i < 0 || i > GetNumCustAttribs()) return false;
    if (theHold.Holding()) theHold.Put(new SlotRestore(this, i, true));
    InsertSlot(i);
    ReplaceReference(i, ca);
    return true;
}

bool ICustAttribContainer::RemoveCustAttrib(int i) {
    if (i < 0 || i >= GetNumCustAttribs()) return false;
    ReplaceReference(i, nullptr);
    if (theHold.Holding()) theHold.Put(new SlotRestore(this, i, false));
    EraseSlot(i);
    return true;
}

WStr ICustAttribContainer::SubAnimName(int i) {
    CustAttrib* ca = GetCustAttrib(i);
    return ca ? WStr(ca->GetName()) : WStr();
}

void ICustAttribContainer::SetReference(int i, ReferenceTarget* t) {
    attribs_[size_t(i)] = static_cast<CustAttrib*>(t);
}

void ICustAttribContainer::InsertSlot(int i) {
    attribs_.insert(attribs_.begin() + i, nullptr);
    StructureChanged();
}

void ICustAttribContainer::EraseSlot(int i) {
    assert(attribs_[size_t(i)] == nullptr);  // its reference was cut first
    attribs_.erase(attribs_.begin() + i);
    StructureChanged();
}

void ICustAttribContainer::StructureChanged() {
    NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
    if (auto* owner = dynamic_cast<ReferenceTarget*>(owner_))
        owner->NotifyDependents(FOREVER, PART_ALL, REFMSG_SUBANIM_STRUCTURE_CHANGED);
}

}  // namespace host

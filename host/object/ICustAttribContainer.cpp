#include "host/object/ICustAttribContainer.h"

#include <cassert>

#include "host/object/Hold.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"
#include "host/object/RemapDir.h"

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

ReferenceTarget* ICustAttribContainer::Clone(RemapDir& remap) {
    auto* to = new ICustAttribContainer(true);
    to->attribs_.assign(attribs_.size(), nullptr);
    CloneReferences(this, to, remap);
    BaseClone(this, to, remap);
    return to;
}

void ICustAttribContainer::SetReference(int i, ReferenceTarget* t) {
    attribs_[size_t(i)] = dynamic_cast<CustAttrib*>(t);
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

// Each slot is saved as a flag (whether it held an attribute), which also keeps the
// count within what its chunk holds.
IOResult ICustAttribContainer::Save(ISave* isave) {
    isave->WriteChunk(chunks::CA_OWNER, int32_t(isave->GetRefID(owner_)));
    isave->BeginChunk(chunks::CA_SLOTS);
    IOResult res = isave->WriteValue(uint32_t(attribs_.size()));
    for (CustAttrib* ca : attribs_)
        if (res == IO_OK) res = isave->WriteValue(uint8_t(ca != nullptr));
    isave->EndChunk();
    return res;
}

IOResult ICustAttribContainer::Load(ILoad* iload) {
    return chunkio::ReadChunks(iload, [this, iload](uint16_t id) {
        switch (id) {
            case chunks::CA_OWNER:
                return LoadOwner(iload);
            case chunks::CA_SLOTS:
                return LoadSlots(iload);
            default:
                return IO_OK;
        }
    });
}

IOResult ICustAttribContainer::LoadOwner(ILoad* iload) {
    int32_t owner = -1;
    if (iload->ReadValue(owner) != IO_OK) return IO_ERROR;
    // The owner keeps the container as its own; a second container claiming the same
    // owner stays without one.
    iload->RecordBackpatch(owner, [this](ReferenceTarget* target) {
        if (target && target->AdoptCustAttribContainer(this)) owner_ = target;
    });
    return IO_OK;
}

IOResult ICustAttribContainer::LoadSlots(ILoad* iload) {
    uint32_t count = 0;
    if (iload->ReadCount(count, sizeof(uint8_t)) != IO_OK) return IO_ERROR;
    attribs_.assign(count, nullptr);
    return IO_OK;
}

}  // namespace host

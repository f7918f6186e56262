#pragma once

#include <vector>

#include "host/object/CustAttrib.h"

namespace host {

// The custom attributes of one animatable, in order. Adding and removing are undoable;
// a removed attribute is deleted unless something else refers to it. The owner and the
// container's own dependents hear REFMSG_SUBANIM_STRUCTURE_CHANGED on every change.
class ICustAttribContainer : public ReferenceTarget {
public:
    explicit ICustAttribContainer(Animatable* owner) : owner_(owner) {}

    int GetNumCustAttribs() const { return int(attribs_.size()); }
    // Null outside the list.
    CustAttrib* GetCustAttrib(int i);
    bool AppendCustAttrib(CustAttrib* ca) { return InsertCustAttrib(GetNumCustAttribs(), ca); }
    // False, and nothing changes, for a null attribute or i outside 0..count.
    bool InsertCustAttrib(int i, CustAttrib* ca);
    // False, and nothing changes, for i outside the list.
    bool RemoveCustAttrib(int i);
    Animatable* GetOwner() { return owner_; }

    int NumRefs() override { return GetNumCustAttribs(); }
    ReferenceTarget* GetReference(int i) override { return GetCustAttrib(i); }
    int NumSubs() override { return GetNumCustAttribs(); }
    Animatable* SubAnim(int i) override { return GetCustAttrib(i); }
    WStr SubAnimName(int i) override;

protected:
    void SetReference(int i, ReferenceTarget* t) override;

private:
    class SlotRestore;
    // An empty slot appears at i or goes from i; both tell the dependents.
    void InsertSlot(int i);
    void EraseSlot(int i);
    void StructureChanged();

    Animatable* owner_;
    std::vector<CustAttrib*> attribs_;
};

}  // namespace host

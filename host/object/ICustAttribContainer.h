#pragma once

#include <vector>

#include "host/object/CustAttrib.h"
#include "host/object/HostClassIds.h"

namespace host {

// The custom attributes of one animatable, in order. Adding and removing are undoable;
// a removed attribute is deleted unless something else refers to it. The owner and the
// container's own dependents hear REFMSG_SUBANIM_STRUCTURE_CHANGED on every change.
class ICustAttribContainer : public ReferenceTarget {
public:
    explicit ICustAttribContainer(Animatable* owner) : owner_(owner) {}
    // An empty container without an owner, for the scene reader to load.
    explicit ICustAttribContainer(bool /*loading*/) {}

    Class_ID ClassID() override { return CUST_ATTRIB_CONTAINER_CLASS_ID; }
    SClass_ID SuperClassID() override { return REF_TARGET_CLASS_ID; }

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

    // The owner and the number of attribute slots: the attributes are references, so
    // Load makes their slots, empty, for the scene reader to fill.
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The same number of attributes, each cloned through remap; the clone's owner is
    // the animatable whose BaseClone adopts it.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    void SetReference(int i, ReferenceTarget* t) override;

private:
    friend class ReferenceTarget;  // BaseClone gives a cloned container its owner
    class SlotRestore;
    // An empty slot appears at i or goes from i; both tell the dependents.
    void InsertSlot(int i);
    void EraseSlot(int i);
    void StructureChanged();
    IOResult LoadOwner(ILoad* iload);
    IOResult LoadSlots(ILoad* iload);

    Animatable* owner_ = nullptr;
    std::vector<CustAttrib*> attribs_;
};

}  // namespace host

#pragma once

#include <vector>

#include "host/core/Tab.h"
#include "host/object/IIndirectReferenceMaker.h"
#include "host/object/INode.h"
#include "host/object/IParamBlock2.h"
#include "host/object/RefTargMonitorRefMaker.h"

namespace zorvanta {

using host::ParamID;

// The mix-in of an object that keeps nodes in parameters without owning them. Each weak
// parameter (a node parameter of one of the owner's blocks, with WeakRefOwnerAccessor)
// has a slot: one monitored weak reference per table element, null for an empty one.
// The owner class inherits this beside its main base, describes its weak parameters
// through the virtual operations below, and answers
// GetInterface(WEAK_REF_OWNER_INTERFACE) with its WeakRefOwner part. The slots are also
// the owner's indirect references, so scene files and clones carry them.
class WeakRefOwner : public host::IRefTargMonitor, public host::IIndirectReferenceMaker {
public:
    WeakRefOwner() = default;
    WeakRefOwner(const WeakRefOwner&) = delete;
    WeakRefOwner& operator=(const WeakRefOwner&) = delete;
    // Ends the monitors outside undo.
    ~WeakRefOwner() override;

    // Forwards what the targets say to the owner's dependents, each kind of message
    // under its own guard so that the forward's echo is not forwarded again.
    host::RefResult ProcessRefTargMonitorMsg(const host::Interval& changeInt,
                                             host::ReferenceTarget* target, host::PartID& partID,
                                             host::RefMessage message, bool fromTarget,
                                             bool propagate,
                                             host::RefTargMonitorRefMaker* caller) override;
    // The owner's own enumeration, under a guard; 0 when already inside.
    int ProcessEnumDependents(host::DependentEnumProc* proc) override;

    // The target of element tabIndex of the weak parameter paramId, or null.
    host::ReferenceTarget* GetRef(ParamID paramId, int tabIndex = 0);
    void SetRef(host::ReferenceTarget* target, ParamID paramId, int tabIndex = 0);

    // What the owner class says about its weak parameters, index i in slot order.
    virtual int NumWeakParams() = 0;
    // The block that holds weak parameter i, and the parameter's id in it.
    virtual host::IParamBlock2* GetParamBlock(int i) = 0;
    virtual ParamID GetParamId(int i) = 0;
    // The control id of the parameter's pick button in its rollup, and that rollup (as
    // the panel service gave it), null while closed.
    virtual int GetPickControlId(int) { return 0; }
    virtual void* GetDialog(int) { return nullptr; }
    // Whether node may be picked for parameter i: by default the parameter definition's
    // validator decides, and without one any node may.
    virtual bool GetPickFilter(int i, host::INode* node);
    // Which messages of a target go on to the owner's dependents as they are.
    virtual bool IsMessageForwarded(host::RefMessage) { return false; }
    // Sends a message to the owner's dependents.
    virtual host::RefResult ForwardMessage(const host::Interval& changeInt,
                                           host::ReferenceTarget* target, host::PartID& partID,
                                           host::RefMessage message, bool propagate) = 0;
    // The owner's enumeration of its dependents, for ProcessEnumDependents.
    virtual int EnumOwnerDependents(host::DependentEnumProc*) { return 0; }
    // Called by ProcessEnumDependents.
    virtual void OnTargetChanged() {}
    // Ends the owner when its target goes with deleteWithTarget set.
    virtual void DestroyOwner() { delete this; }

    // The owner goes when the target of a weak reference is deleted.
    void SetDeleteWithTarget(bool on) { deleteWithTarget_ = on; }

    // Builds the slots on first need: one entry per weak parameter, as long as its table
    // (1 for a plain parameter, 0 when the owner has no block for it), all empty.
    void InitSlots();
    bool SlotsBuilt() const { return built_; }
    // Slot entry i's element j; null out of range. A negative j reads as 0.
    host::ReferenceTarget* GetRefAt(int i, int j);
    // Points element j of entry i at target; out of range does nothing. Relabels the
    // parameter's pick button.
    void SetRefAt(host::ReferenceTarget* target, int i, int j);
    // The weak parameter with id paramId, or -1.
    int FindParam(ParamID paramId);
    // The number of elements of entry i (0 out of range).
    int EntryCount(int i);
    // Table edits of entry i: count empty elements inserted at start, elements
    // cleared and removed.
    void InsertEmpty(int i, int start, int count);
    void Remove(int i, int start, int count);

    // Puts the parameter i in pick mode: the next node picked in a viewport is set into it.
    void StartPick(ParamID paramId);

    // The flat list of every slot element.
    int NumIndirectRefs() override;
    host::ReferenceTarget* GetIndirectReference(int i) override;
    void SetIndirectReference(int i, host::ReferenceTarget* target) override;

    // For the owner's Clone: to takes the same slots, watching the same targets, each
    // moved to its target's clone if that is cloned in the same operation.
    void CloneWeakRefs(WeakRefOwner& to, host::RemapDir& remap);

private:
    using Entry = host::Tab<host::RefTargMonitorRefMaker*>;
    // The entry and element of flat index i, false past the end.
    bool FlatToSlot(int flat, int& i, int& j);
    void RelabelButton(int i);
    // Runs f with flag set, cleared afterwards.
    template <class F>
    host::RefResult Guarded(bool& flag, F f) {
        flag = true;
        const host::RefResult result = f();
        flag = false;
        return result;
    }

    std::vector<Entry> slots_;
    bool built_ = false;
    bool inForward_ = false;
    bool inDelete_ = false;
    bool inTargetChange_ = false;
    bool inEnum_ = false;
    bool inOwnerEvent_ = false;
    bool deleteWithTarget_ = false;
};

// The WeakRefOwner of an object, by interface query, or null.
WeakRefOwner* GetWeakRefOwner(host::Animatable* anim);

}  // namespace zorvanta

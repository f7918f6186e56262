#pragma once

#include <cstdint>
#include <vector>

#include "host/object/ReferenceMaker.h"

namespace host {

inline constexpr SClass_ID NOTIFY_ALL = 0xFFFFFFF0;

// What a DependentEnumProc answers for each dependent.
enum DepEnumResult : int { DEP_ENUM_CONTINUE = 0, DEP_ENUM_HALT = 1, DEP_ENUM_SKIP = 2 };

class RemapDir;

class DependentEnumProc {
public:
    virtual ~DependentEnumProc() = default;
    virtual DepEnumResult proc(ReferenceMaker* rmaker) = 0;
};

// An object others can refer to.
//
// Lifetime: a target lives while makers refer to it or undo records keep it (pins).
// Once it has had a dependent it belongs to the reference system: losing the last one
// through ReplaceReference (with delOld) or DeleteMe deletes it, which cuts its own
// references too; while undo records still pin it, it waits, so that undo can bring
// it back, and goes when the last record does. A target that was never referred to
// (or was let go with delOld false) belongs to whoever holds it.
class ReferenceTarget : public ReferenceMaker {
public:
    ~ReferenceTarget() override;
    bool IsRefTarget() final { return true; }

    // Sends message to every dependent (only those of superclass sclass unless
    // NOTIFY_ALL); each passes it on to its own dependents unless it answers REF_STOP
    // or propagate is false.
    RefResult NotifyDependents(const Interval& changeInt, PartID partID, RefMessage message,
                               SClass_ID sclass = NOTIFY_ALL, bool propagate = true);
    // Sends REFMSG_TARGET_DELETED to the dependents (weak ones too), cuts their references
    // to this object and its own references, all recorded when holding, and deletes it
    // once no undo record pins it. Losing the last strong dependent through
    // ReplaceReference with delOld does the same.
    void DeleteMe();
    // REF_FAIL when maker referring to this object would close a cycle: maker is this
    // object, or this object already depends on maker (is among its dependents, directly
    // or not). The walk follows the same dependency lists that messages travel.
    RefResult TestForLoop(const Interval& refInterval, ReferenceMaker* maker);
    // Calls proc for every dependent, indirect ones included, each once.
    void DoEnumDependents(DependentEnumProc* proc);
    // Makes every dependent of from refer to this object instead, recorded when holding;
    // with deleteOld, from goes once nothing owns it.
    void TransferReferences(ReferenceTarget* from, bool deleteOld);

    // A copy of this object for the clone operation remap: state copied, owned
    // sub-objects cloned through remap.CloneRef, and BaseClone called last. Null for a
    // class that cannot be cloned (the default).
    virtual ReferenceTarget* Clone(RemapDir& remap);
    // What every Clone does at its end: to takes what the object model keeps on every
    // animatable of from, the custom attributes (cloned through remap) and the
    // properties that can copy themselves.
    virtual void BaseClone(ReferenceTarget* from, ReferenceTarget* to, RemapDir& remap);

    int NumDependents() const;
    bool HasDependents() const { return NumDependents() > 0; }
    // Dependents that own this object (not weak references).
    bool HasStrongDependents() const;

protected:
    // Whether this object belongs to its dependents. Objects owned elsewhere (scene
    // nodes, while they are in the scene) answer false: losing their last dependent
    // leaves them alone, and only DeleteMe ends them.
    virtual bool OwnedByDependents() const { return true; }
    // From now on the reference system ends this object once nothing refers to it or
    // pins it, even if nothing ever did (a node leaving the scene).
    void HandOverToReferences() { ownedByRefs_ = true; }

private:
    friend class ReferenceMaker;
    friend class RefSystem;
    friend class DependentIterator;
    friend class TargetPin;
    struct Dependent {
        ReferenceMaker* maker;
        int slots;    // how many of the maker's slots refer here
        bool strong;  // a real dependency, not a weak reference
    };

    void AddDependent(ReferenceMaker* maker);
    void RemoveDependent(ReferenceMaker* maker);
    void Compact();
    void Pin() { ++pins_; }
    void Unpin();
    // The end of an object nothing owns or pins any more: what is left of its
    // references is cut without recording it.
    void Destroy();
    bool EnumDependents(DependentEnumProc* proc, std::vector<ReferenceMaker*>& visited);

    std::vector<Dependent> dependents_;
    int iterating_ = 0;  // notifications running over dependents_: removals leave holes
    bool holes_ = false;
    int pins_ = 0;  // undo records and running notifications that keep this alive
    bool ownedByRefs_ = false;
    bool deleting_ = false;
};

// Keeps a target alive for as long as it exists, the way undo records do: a restore
// object that changes a target holds one, so that undo always finds its target.
class TargetPin {
public:
    explicit TargetPin(ReferenceTarget* target) : target_(target) {
        if (target_) target_->Pin();
    }
    TargetPin(const TargetPin&) = delete;
    TargetPin& operator=(const TargetPin&) = delete;
    TargetPin(TargetPin&& other) noexcept : target_(other.target_) { other.target_ = nullptr; }
    ~TargetPin() {
        if (target_) target_->Unpin();
    }
    ReferenceTarget* get() const { return target_; }

private:
    ReferenceTarget* target_;
};

// The direct dependents of a target, one by one.
class DependentIterator {
public:
    explicit DependentIterator(ReferenceTarget* target) : target_(target) {}
    ReferenceMaker* Next();
    void Reset() { next_ = 0; }

private:
    ReferenceTarget* target_;
    size_t next_ = 0;
};

}  // namespace host

#pragma once

#include "host/object/ReferenceTarget.h"

namespace host {

class RefTargMonitorRefMaker;
class RemapDir;

// Receives everything a watched target says, through a RefTargMonitorRefMaker.
class IRefTargMonitor {
public:
    virtual ~IRefTargMonitor() = default;
    // fromTarget is true for messages of the watched target itself.
    virtual RefResult ProcessRefTargMonitorMsg(const Interval& changeInt, ReferenceTarget* target,
                                               PartID& partID, RefMessage message, bool fromTarget,
                                               bool propagate, RefTargMonitorRefMaker* caller) = 0;
    virtual int ProcessEnumDependents(DependentEnumProc* proc) = 0;
};

// A weak reference: it watches one target for a monitor without owning it. The target
// neither stays alive for it nor counts it in its lifetime; every message of the target
// goes to the monitor; when the target is deleted, the monitor hears
// REFMSG_TARGET_DELETED and the reference reads null. Its changes are not recorded for
// undo: the monitor's owner restores its slots through its own parameters.
class RefTargMonitorRefMaker : public ReferenceMaker {
public:
    explicit RefTargMonitorRefMaker(IRefTargMonitor& monitor, ReferenceTarget* target = nullptr);
    ~RefTargMonitorRefMaker() override;

    ReferenceTarget* GetRef() { return target_; }
    void SetRef(ReferenceTarget* target);
    // For the clone of this monitor's owner: a new monitor for owner watching the same
    // target, which moves to the target's clone at the operation's Backpatch when the
    // target is cloned in it too (through the directory's pointer patch on its target
    // field). The owner's clone keeps it at least until then.
    RefTargMonitorRefMaker* CloneFor(IRefTargMonitor& owner, RemapDir& remap);

    int NumRefs() override { return 1; }
    ReferenceTarget* GetReference(int) override { return target_; }
    bool IsRealDependency(ReferenceTarget*) override { return false; }
    RefResult NotifyRefChanged(const Interval& changeInt, ReferenceTarget* hTarget, PartID& partID,
                               RefMessage message, bool propagate) override;

protected:
    void SetReference(int, ReferenceTarget* target) override { target_ = target; }

private:
    class TargetPatch;

    IRefTargMonitor& monitor_;
    ReferenceTarget* target_ = nullptr;
    // The target a clone's Backpatch leaves here; SetRef then moves the reference to it.
    ReferenceTarget* patchedTarget_ = nullptr;
};

}  // namespace host

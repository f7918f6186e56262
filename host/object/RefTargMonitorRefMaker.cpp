#include "host/object/RefTargMonitorRefMaker.h"

#include "host/object/RemapDir.h"

namespace host {

RefTargMonitorRefMaker::RefTargMonitorRefMaker(IRefTargMonitor& monitor, ReferenceTarget* target)
    : monitor_(monitor) {
    SetRef(target);
}

RefTargMonitorRefMaker::~RefTargMonitorRefMaker() {
    SetRef(nullptr);
}

void RefTargMonitorRefMaker::SetRef(ReferenceTarget* target) {
    ReplaceReference(0, target, false);
}

// Runs after the pointer patches: the monitor's reference follows its patched field.
class RefTargMonitorRefMaker::TargetPatch : public PostPatchProc {
public:
    explicit TargetPatch(RefTargMonitorRefMaker* monitor) : monitor_(monitor) {}
    int Proc(RemapDir&) override {
        if (monitor_->patchedTarget_ != monitor_->target_)
            monitor_->SetRef(monitor_->patchedTarget_);
        monitor_->patchedTarget_ = nullptr;
        return 1;
    }

private:
    RefTargMonitorRefMaker* monitor_;
};

RefTargMonitorRefMaker* RefTargMonitorRefMaker::CloneFor(IRefTargMonitor& owner, RemapDir& remap) {
    auto* copy = new RefTargMonitorRefMaker(owner, target_);
    if (!target_) return copy;
    copy->patchedTarget_ = target_;
    remap.PatchPointer(&copy->patchedTarget_, target_);
    remap.AddPostPatchProc(new TargetPatch(copy), true);
    return copy;
}

RefResult RefTargMonitorRefMaker::NotifyRefChanged(const Interval& changeInt,
                                                   ReferenceTarget* hTarget, PartID& partID,
                                                   RefMessage message, bool propagate) {
    return monitor_.ProcessRefTargMonitorMsg(changeInt, hTarget, partID, message,
                                             hTarget == target_, propagate, this);
}

}  // namespace host

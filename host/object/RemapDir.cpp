#include "host/object/RemapDir.h"

#include "host/object/ClassRegistry.h"
#include "host/object/IIndirectReferenceMaker.h"
#include "host/object/INode.h"

namespace host {

namespace {

// Moves one reference slot to the clone of what it referred to, after the operation.
class ReferencePatch : public PostPatchProc {
public:
    ReferencePatch(ReferenceTarget* maker, int slot, ReferenceTarget* org)
        : pin_(maker), maker_(maker), slot_(slot), org_(org) {}
    int Proc(RemapDir& remap) override {
        ReferenceTarget* clone = remap.FindMapping(org_);
        if (clone && maker_->GetReference(slot_) == org_) maker_->ReplaceReference(slot_, clone);
        return 1;
    }

private:
    TargetPin pin_;  // a clone nothing refers to yet must last until the patch
    ReferenceTarget* maker_;
    int slot_;
    ReferenceTarget* org_;
};

// The same for an indirect (weak) reference, which the reference system does not keep.
class IndirectPatch : public PostPatchProc {
public:
    IndirectPatch(IIndirectReferenceMaker* maker, ReferenceTarget* pinned, int slot,
                  ReferenceTarget* org)
        : pin_(pinned), maker_(maker), slot_(slot), org_(org) {}
    int Proc(RemapDir& remap) override {
        ReferenceTarget* clone = remap.FindMapping(org_);
        if (clone && maker_->GetIndirectReference(slot_) == org_)
            maker_->SetIndirectReference(slot_, clone);
        return 1;
    }

private:
    TargetPin pin_;
    IIndirectReferenceMaker* maker_;
    int slot_;
    ReferenceTarget* org_;
};

// Whether a maker's reference to target is one it does not own: a node (nodes belong
// to the scene) or a weak reference.
bool Shared(ReferenceMaker* maker, ReferenceTarget* target) {
    return dynamic_cast<INode*>(target) || !maker->IsRealDependency(target);
}

}  // namespace

ReferenceTarget* NewBareInstance(ReferenceTarget* from) {
    if (!from) return nullptr;
    ClassDesc2* desc = ClassRegistry::Instance().Find(from->SuperClassID(), from->ClassID());
    return desc ? dynamic_cast<ReferenceTarget*>(desc->Create(true)) : nullptr;
}

void CloneReferences(ReferenceMaker* from, ReferenceMaker* to, RemapDir& remap) {
    auto* patchable = dynamic_cast<ReferenceTarget*>(to);
    for (int i = 0; i < from->NumRefs() && i < to->NumRefs(); ++i) {
        ReferenceTarget* target = from->GetReference(i);
        if (!target) continue;
        if (!Shared(from, target)) {
            to->ReplaceReference(i, remap.CloneRef(target));
            continue;
        }
        to->ReplaceReference(i, target);
        if (patchable) RemapReferenceLater(patchable, i, target, remap);
    }
    auto* source = dynamic_cast<IIndirectReferenceMaker*>(from);
    auto* dest = dynamic_cast<IIndirectReferenceMaker*>(to);
    for (int i = 0; source && dest && i < source->NumIndirectRefs(); ++i) {
        ReferenceTarget* target = source->GetIndirectReference(i);
        if (!target) continue;
        dest->SetIndirectReference(i, target);
        remap.AddPostPatchProc(new IndirectPatch(dest, patchable, i, target), true);
    }
}

void RemapReferenceLater(ReferenceTarget* maker, int slot, ReferenceTarget* org, RemapDir& remap) {
    remap.AddPostPatchProc(new ReferencePatch(maker, slot, org), true);
}

}  // namespace host

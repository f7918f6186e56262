#include "host/io/CloneRemapDir.h"

namespace host {

CloneRemapDir::~CloneRemapDir() {
    Clear();
}

ReferenceTarget* CloneRemapDir::CloneRef(ReferenceTarget* t) {
    if (!t) return nullptr;
    if (ReferenceTarget* known = FindMapping(t)) return known;
    ReferenceTarget* clone = t->Clone(*this);
    if (clone) AddEntry(t, clone);
    return clone;
}

ReferenceTarget* CloneRemapDir::FindMapping(ReferenceTarget* from) {
    const auto it = map_.find(from);
    return it == map_.end() ? nullptr : it->second;
}

void CloneRemapDir::AddEntry(ReferenceTarget* from, ReferenceTarget* to) {
    if (!from || !to) return;
    const auto [it, added] = map_.emplace(from, to);
    if (!added) it->second = to;
    clones_.push_back(to);
}

void CloneRemapDir::AddPostPatchProc(PostPatchProc* proc, bool deleteIt) {
    if (proc) procs_.push_back({proc, deleteIt});
}

void CloneRemapDir::PatchPointer(ReferenceTarget** field, ReferenceTarget* org) {
    if (field && org) pointers_.push_back({field, org});
}

void CloneRemapDir::Backpatch() {
    for (const PointerPatch& patch : pointers_)
        if (ReferenceTarget* clone = FindMapping(patch.org)) *patch.field = clone;
    pointers_.clear();
    // A procedure may add others; they run too, after it.
    for (size_t i = 0; i < procs_.size(); ++i) {
        const Proc proc = procs_[i];
        proc.proc->Proc(*this);
        if (proc.deleteIt) delete proc.proc;
        procs_[i].proc = nullptr;
    }
    procs_.clear();
}

void CloneRemapDir::Clear() {
    for (const Proc& proc : procs_)
        if (proc.deleteIt) delete proc.proc;
    procs_.clear();
    pointers_.clear();
    map_.clear();
    clones_.clear();
}

RemapDir* NewRemapDir() {
    return new CloneRemapDir;
}

ReferenceTarget* CloneRefHierarchy(ReferenceTarget* t) {
    RemapDir* remap = NewRemapDir();
    ReferenceTarget* clone = remap->CloneRef(t);
    remap->Backpatch();
    remap->DeleteThis();
    return clone;
}

}  // namespace host

#pragma once

#include <unordered_map>
#include <vector>

#include "host/object/RemapDir.h"

namespace host {

// The scene model's clone directory: the mappings of one operation, the pointer patches
// and the post-patch procedures, run in the order added.
class CloneRemapDir : public RemapDir {
public:
    CloneRemapDir() = default;
    CloneRemapDir(const CloneRemapDir&) = delete;
    CloneRemapDir& operator=(const CloneRemapDir&) = delete;
    ~CloneRemapDir() override;

    ReferenceTarget* CloneRef(ReferenceTarget* t) override;
    ReferenceTarget* FindMapping(ReferenceTarget* from) override;
    void AddEntry(ReferenceTarget* from, ReferenceTarget* to) override;
    void AddPostPatchProc(PostPatchProc* proc, bool deleteIt) override;
    void PatchPointer(ReferenceTarget** field, ReferenceTarget* org) override;
    void Backpatch() override;
    void Clear() override;
    void DeleteThis() override { delete this; }

    // The clones made or entered so far, in the order they were recorded.
    const std::vector<ReferenceTarget*>& Clones() const { return clones_; }

private:
    struct PointerPatch {
        ReferenceTarget** field;
        ReferenceTarget* org;
    };
    struct Proc {
        PostPatchProc* proc;
        bool deleteIt;
    };

    std::unordered_map<ReferenceTarget*, ReferenceTarget*> map_;
    std::vector<ReferenceTarget*> clones_;
    std::vector<PointerPatch> pointers_;
    std::vector<Proc> procs_;
};

// A fresh directory, for one clone operation; it goes with DeleteThis.
RemapDir* NewRemapDir();

// A clone of t and of everything it owns: a new directory, the clone, Backpatch, and
// the directory deleted. Null for null or a class that cannot be cloned.
ReferenceTarget* CloneRefHierarchy(ReferenceTarget* t);

}  // namespace host

#pragma once

#include "host/object/ReferenceTarget.h"

namespace host {

class RemapDir;

// Work left for after a whole clone: a class whose clone must point at objects that may
// be cloned later in the same operation registers one, and it runs at Backpatch, when
// every mapping of the operation is known.
class PostPatchProc {
public:
    virtual ~PostPatchProc() = default;
    // The return value is the class's own; the directory ignores it.
    virtual int Proc(RemapDir& remap) = 0;
};

// The directory of one clone operation: which object was cloned to which. Cloning goes
// through CloneRef so that every object reachable from what is cloned is cloned once,
// and two references to one object (instancing) become two references to one clone.
// References that a clone keeps to objects it does not own (nodes, weak references) are
// fixed at Backpatch: to the clone when that object was cloned in the same operation,
// otherwise left as they were.
//
// A directory comes from NewRemapDir (the persistence layer makes it) and goes with
// DeleteThis.
class RemapDir {
public:
    // Null for null; the clone t already has in this directory; otherwise t->Clone(*this),
    // recorded. Null too when t's class cannot be cloned.
    virtual ReferenceTarget* CloneRef(ReferenceTarget* t) = 0;
    // The clone of from in this directory, or null.
    virtual ReferenceTarget* FindMapping(ReferenceTarget* from) = 0;
    virtual void AddEntry(ReferenceTarget* from, ReferenceTarget* to) = 0;
    // proc runs at Backpatch, after the procedures added before it; with deleteIt the
    // directory deletes it afterwards (and on Clear or DeleteThis if it never ran).
    virtual void AddPostPatchProc(PostPatchProc* proc, bool deleteIt) = 0;
    // At Backpatch, *field becomes the clone of org if org was cloned; a plain pointer
    // write, for fields the reference system does not keep (a weak monitor's target).
    virtual void PatchPointer(ReferenceTarget** field, ReferenceTarget* org) = 0;
    // Runs the pointer patches, then the post-patch procedures. Once per operation.
    virtual void Backpatch() = 0;
    // Forgets every mapping, patch and procedure, for another operation.
    virtual void Clear() = 0;
    virtual void DeleteThis() = 0;

protected:
    virtual ~RemapDir() = default;
};

// What every class's Clone uses.
//
// A new object of from's class, made bare through the class directory as the scene
// reader makes one (no default sub-objects or blocks); null for an unregistered class.
ReferenceTarget* NewBareInstance(ReferenceTarget* from);
template <class T>
T* NewBareLike(T* from) {
    return dynamic_cast<T*>(NewBareInstance(from));
}

// Fills to's reference slots (and its indirect references) from from's, slot by slot;
// to has as many slots already. Owned sub-objects are cloned through remap. Nodes and
// weak references are not owned: to refers to the same object, and at Backpatch to its
// clone if it was cloned in the same operation.
void CloneReferences(ReferenceMaker* from, ReferenceMaker* to, RemapDir& remap);

// The clone every class makes the same way: a bare object of from's class, copyState(to)
// for the state that is not references (which sizes to's slots as loading would), the
// references through CloneReferences, and BaseClone. Null for an unregistered class.
template <class T, class CopyState>
T* CloneObject(T* from, RemapDir& remap, CopyState copyState) {
    T* to = NewBareLike(from);
    if (!to) return nullptr;
    copyState(*to);
    CloneReferences(from, to, remap);
    from->BaseClone(from, to, remap);
    return to;
}
template <class T>
T* CloneObject(T* from, RemapDir& remap) {
    return CloneObject(from, remap, [](T&) {});
}

// Slot `slot` of maker refers to org's clone after the operation, if org was cloned;
// otherwise it is left as it is.
void RemapReferenceLater(ReferenceTarget* maker, int slot, ReferenceTarget* org, RemapDir& remap);

}  // namespace host

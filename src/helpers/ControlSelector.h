#pragma once

#include "host/classes/MNMesh.h"
#include "host/core/BitArray.h"
#include "host/core/TimeValue.h"

namespace host {
struct HitRecord;
class ReferenceTarget;
}  // namespace host

namespace zorvanta {

// The selector's state that a control object (helper or shape) keeps: the selected
// faces of the selector node's mesh, saved with the object, and the overlay's working
// meshes. The edits of the face selection are the same in both objects and each is
// recorded for undo.
//
// The overlay itself (selectorMesh, pickMesh) is not built yet: the meshes keep their
// places and stay empty, so the overlay draws, hits and bounds nothing.
class ControlSelector {
public:
    virtual ~ControlSelector() = default;

    host::BitArray faceSel;
    // Only the selected faces, pushed along their normals; the whole mesh for picking.
    host::MNMesh selectorMesh;
    host::MNMesh pickMesh;
    host::TimeValue selectorMeshTime = 0;
    host::TimeValue pickMeshTime = 0;
    // Non-zero forces a rebuild of the mesh.
    int selectorMeshDirty = 1;
    int pickMeshDirty = 1;

protected:
    // The edits: a picked face set, cleared or flipped (while the hold is holding), all
    // faces cleared, selected or inverted, the whole set replaced (as its own undo entry
    // "Selector Face Selection"). Each records the set before it and refreshes.
    void PickFace(host::HitRecord* hitRec, bool selected, bool invert);
    void ClearFaces();
    void SelectAllFaces();
    void InvertFaces();
    void ReplaceFaces(const host::BitArray& sel);

    // After the face selection changed: the overlay is rebuilt, the rollups and the
    // dependents told.
    virtual void RefreshSelection() = 0;
    // The object the undo records keep alive, and their name.
    virtual host::ReferenceTarget* SelectorOwner() = 0;
    virtual const wchar_t* FaceSelRestoreName() const = 0;

private:
    class FaceSelRestore;
    void PutRestore();
};

}  // namespace zorvanta

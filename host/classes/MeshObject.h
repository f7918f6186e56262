#pragma once

#include "host/classes/MNMesh.h"
#include "host/object/GeomObject.h"

namespace host {

// What the host's mesh objects share: a polygon mesh in object space, its points as the
// object's points, and edits by users that are undoable. Each edit function records the
// whole mesh once per hold (A_HELD) and tells the dependents (REFMSG_CHANGE); the mesh
// reached through GetMesh() changes without either, for code that builds a mesh or
// works on a copy of its own.
class MeshObject : public GeomObject {
public:
    MNMesh& GetMesh() { return mesh_; }
    const MNMesh& GetMesh() const { return mesh_; }

    // Edits: the whole mesh, one point, the face selection.
    void SetMesh(const MNMesh& mesh);
    // Out-of-range indices are ignored.
    void SetPoint(int i, const Point3& p) override;
    void SetFaceSelection(const BitArray& sel);
    BitArray GetFaceSelection() const { return mesh_.FaceSelection(); }

    int NumPoints() override { return mesh_.numv(); }
    // The origin for an index outside the mesh.
    Point3 GetPoint(int i) override;
    // Every edge of the mesh once, in the node's wire colour.
    int Display(TimeValue t, INode* node, ViewExp* vpt, int flags) override;
    int HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                ViewExp* vpt) override;
    void GetLocalBoundBox(TimeValue t, INode* node, ViewExp* vpt, Box3& box) override;

    // The mesh. A mesh that fails its checks fails the load (see MNMesh::Load).
    IOResult Save(ISave* isave) override;
    IOResult Load(ILoad* iload) override;
    // The same class with a copy of the mesh.
    ReferenceTarget* Clone(RemapDir& remap) override;

protected:
    // A new object of class T with a copy of the mesh.
    template <class T>
    T* CopyAs() const {
        T* copy = new T(false);
        copy->GetMesh() = mesh_;
        return copy;
    }

private:
    class MeshRestore;
    // Runs edit on the mesh, recorded and told as described above.
    template <typename Edit>
    void EditMesh(Edit edit, PartID part);
    void LoadMesh(const MNMesh& mesh);

    MNMesh mesh_;
};

}  // namespace host

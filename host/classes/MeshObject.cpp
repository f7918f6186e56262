#include "host/classes/MeshObject.h"

#include <algorithm>
#include <set>
#include <utility>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"
#include "host/object/GraphicsWindow.h"
#include "host/object/Hold.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/RemapDir.h"

namespace host {

// The mesh before and after the edits of one hold.
class MeshObject::MeshRestore : public RestoreObj {
public:
    explicit MeshRestore(MeshObject* obj)
        : pin_(obj), obj_(obj), before_(obj->mesh_), after_(before_) {}
    void Restore(bool isUndo) override {
        if (isUndo) after_ = obj_->mesh_;
        obj_->LoadMesh(before_);
    }
    void Redo() override { obj_->LoadMesh(after_); }
    void EndHold() override { obj_->ClearAFlag(A_HELD); }
    int Size() override { return obj_->mesh_.numv() + obj_->mesh_.numf(); }
    WStr Description() override { return WStr(L"Mesh Edit"); }

private:
    TargetPin pin_;
    MeshObject* obj_;
    MNMesh before_, after_;
};

template <typename Edit>
void MeshObject::EditMesh(Edit edit, PartID part) {
    if (theHold.Holding() && !TestAFlag(A_HELD)) {
        theHold.Put(new MeshRestore(this));
        SetAFlag(A_HELD);
    }
    edit(mesh_);
    NotifyDependents(FOREVER, part, REFMSG_CHANGE);
}

void MeshObject::LoadMesh(const MNMesh& mesh) {
    mesh_ = mesh;
    NotifyDependents(FOREVER, PART_ALL, REFMSG_CHANGE);
}

void MeshObject::SetMesh(const MNMesh& mesh) {
    EditMesh([&mesh](MNMesh& m) { m = mesh; }, PART_ALL);
}

void MeshObject::SetPoint(int i, const Point3& p) {
    if (i < 0 || i >= mesh_.numv()) return;
    EditMesh([i, &p](MNMesh& m) { m.P(i) = p; }, PART_GEOM);
}

void MeshObject::SetFaceSelection(const BitArray& sel) {
    EditMesh([&sel](MNMesh& m) { m.FaceSelect(sel); }, PART_DISPLAY);
}

int MeshObject::Display(TimeValue t, INode* node, ViewExp* vpt, int) {
    GraphicsWindow* gw = BeginNodeDisplay(t, node, vpt);
    if (!gw) return 0;
    // An edge that two faces share is drawn once.
    std::set<std::pair<int, int>> drawn;
    gw->startSegments();
    for (int f = 0; f < mesh_.numf(); ++f) {
        const std::vector<int>& loop = mesh_.FaceVertices(f);
        for (size_t i = 0; i < loop.size(); ++i) {
            const int a = loop[i], b = loop[(i + 1) % loop.size()];
            if (!drawn.insert(std::minmax(a, b)).second) continue;
            const Point3 ends[2] = {mesh_.P(a), mesh_.P(b)};
            gw->segment(ends, 1);
        }
    }
    gw->endSegments();
    return 1;
}

int MeshObject::HitTest(TimeValue t, INode* node, int type, int crossing, int flags, IPoint2* p,
                        ViewExp* vpt) {
    return HitTestByDisplay(this, t, node, type, crossing, flags, p, vpt);
}

Point3 MeshObject::GetPoint(int i) {
    return i >= 0 && i < mesh_.numv() ? mesh_.P(i) : Point3();
}

void MeshObject::GetLocalBoundBox(TimeValue, INode*, ViewExp*, Box3& box) {
    box = mesh_.BoundingBox();
}

IOResult MeshObject::Save(ISave* isave) {
    isave->BeginChunk(chunks::MESHOBJ_MESH);
    mesh_.Save(isave);
    isave->EndChunk();
    return IO_OK;
}

IOResult MeshObject::Load(ILoad* iload) {
    // The mesh is restored, not edited: nothing is recorded and nobody is told.
    return ReadChunks(
        iload, [&](uint16_t id) { return id == chunks::MESHOBJ_MESH ? mesh_.Load(iload) : IO_OK; });
}

ReferenceTarget* MeshObject::Clone(RemapDir& remap) {
    return CloneObject(this, remap, [this](MeshObject& to) { to.mesh_ = mesh_; });
}

}  // namespace host

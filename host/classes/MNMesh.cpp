#include "host/classes/MNMesh.h"

#include <algorithm>
#include <cassert>
#include <string>

#include "host/classes/ChunkIO.h"
#include "host/classes/HostChunkIds.h"

namespace host {

static_assert(sizeof(int) == 4, "face vertex indices are saved as 32-bit numbers");

Point3& MNMesh::P(int v) {
    assert(v >= 0 && v < numv());
    return verts_[size_t(v)];
}

const Point3& MNMesh::P(int v) const {
    assert(v >= 0 && v < numv());
    return verts_[size_t(v)];
}

int MNMesh::NewVert(const Point3& p) {
    verts_.push_back(p);
    return numv() - 1;
}

int MNMesh::NewFace(std::span<const int> vertices, uint32_t flags) {
    if (vertices.size() < 3) return -1;
    const auto outside = [this](int v) { return v < 0 || v >= numv(); };
    if (std::any_of(vertices.begin(), vertices.end(), outside)) return -1;
    faces_.push_back({std::vector<int>(vertices.begin(), vertices.end()), flags});
    return numf() - 1;
}

void MNMesh::Clear() {
    verts_.clear();
    faces_.clear();
}

const std::vector<int>& MNMesh::FaceVertices(int f) const {
    assert(f >= 0 && f < numf());
    return faces_[size_t(f)].vertices;
}

uint32_t MNMesh::FaceFlags(int f) const {
    assert(f >= 0 && f < numf());
    return faces_[size_t(f)].flags;
}

void MNMesh::SetFaceFlag(int f, uint32_t flag, bool on) {
    assert(f >= 0 && f < numf());
    uint32_t& flags = faces_[size_t(f)].flags;
    flags = on ? flags | flag : flags & ~flag;
}

void MNMesh::ClearFFlags(uint32_t flag) {
    for (Face& face : faces_) face.flags &= ~flag;
}

int MNMesh::DeleteFlaggedFaces(uint32_t flag) {
    std::vector<bool> usedBefore(verts_.size()), usedAfter(verts_.size());
    for (const Face& face : faces_)
        for (int v : face.vertices) usedBefore[size_t(v)] = true;
    const size_t before = faces_.size();
    std::erase_if(faces_, [flag](const Face& face) { return (face.flags & flag) != 0; });
    for (const Face& face : faces_)
        for (int v : face.vertices) usedAfter[size_t(v)] = true;
    std::vector<bool> gone(verts_.size());
    for (size_t v = 0; v < verts_.size(); ++v) gone[v] = usedBefore[v] && !usedAfter[v];
    RemoveVertices(gone);
    return int(before - faces_.size());
}

void MNMesh::RemoveVertices(const std::vector<bool>& gone) {
    std::vector<int> newIndex(verts_.size(), -1);
    size_t kept = 0;
    for (size_t v = 0; v < verts_.size(); ++v) {
        if (gone[v]) continue;
        newIndex[v] = int(kept);
        verts_[kept++] = verts_[v];
    }
    verts_.resize(kept);
    for (Face& face : faces_)
        for (int& v : face.vertices) v = newIndex[size_t(v)];
}

void MNMesh::FaceSelect(const BitArray& sel) {
    for (int f = 0; f < numf(); ++f) SetFaceFlag(f, MN_SEL, f < sel.GetSize() && sel[f]);
}

BitArray MNMesh::FaceSelection() const {
    BitArray sel(numf());
    for (int f = 0; f < numf(); ++f) sel.Set(f, FaceFlag(f, MN_SEL));
    return sel;
}

Point3 MNMesh::NewellVector(int f) const {
    const std::vector<int>& loop = FaceVertices(f);
    Point3 sum;
    for (size_t k = 0; k < loop.size(); ++k) sum += P(loop[k]) ^ P(loop[(k + 1) % loop.size()]);
    return sum;
}

Point3 MNMesh::FaceNormal(int f) const {
    return Normalize(NewellVector(f));
}

float MNMesh::FaceArea(int f) const {
    return 0.5f * NewellVector(f).Length();
}

std::vector<Point3> MNMesh::VertexNormals() const {
    // The Newell vector's length is twice the face's area: summing the vectors weighs
    // each face by its area.
    std::vector<Point3> normals(verts_.size());
    for (int f = 0; f < numf(); ++f) {
        const Point3 weighted = NewellVector(f);
        for (int v : FaceVertices(f)) normals[size_t(v)] += weighted;
    }
    for (Point3& n : normals) n = Normalize(n);
    return normals;
}

Box3 MNMesh::BoundingBox(const Matrix3* tm) const {
    Box3 box;
    for (const Point3& p : verts_) box += tm ? p * *tm : p;
    return box;
}

void MNMesh::Save(ISave* isave) const {
    isave->BeginChunk(chunks::MESH_VERTS);
    WriteTable(isave, verts_);
    isave->EndChunk();
    isave->BeginChunk(chunks::MESH_FACES);
    WriteRecords(isave, faces_, [isave](const Face& face) {
        isave->WriteValue(face.flags);
        WriteTable(isave, face.vertices);
    });
    isave->EndChunk();
}

IOResult MNMesh::LoadFaces(ILoad* iload, std::vector<Face>& faces) {
    // A face takes at least its flags and its vertex count.
    return ReadRecords(iload, 2 * sizeof(uint32_t), faces, [iload](Face& face) {
        return iload->ReadValue(face.flags) == IO_OK ? ReadTable(iload, face.vertices) : IO_ERROR;
    });
}

IOResult MNMesh::Load(ILoad* iload) {
    MNMesh loaded;
    std::vector<Face> faces;
    const IOResult result = ReadChunks(iload, [&](uint16_t id) {
        if (id == chunks::MESH_VERTS) return ReadTable(iload, loaded.verts_);
        return id == chunks::MESH_FACES ? LoadFaces(iload, faces) : IO_OK;
    });
    if (result != IO_OK) return IO_ERROR;
    // NewFace refuses the faces a mesh must not have; the vertices are all read by now,
    // whichever chunk came first.
    for (const Face& face : faces)
        if (loaded.NewFace(face.vertices, face.flags) < 0)
            return LoadError(iload, "face " + std::to_string(loaded.numf()) +
                                        " is not a loop of three or more of the mesh's " +
                                        std::to_string(loaded.numv()) + " vertices");
    *this = std::move(loaded);
    return IO_OK;
}

}  // namespace host

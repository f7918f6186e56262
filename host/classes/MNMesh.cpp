#include "host/classes/MNMesh.h"

#include <algorithm>
#include <cassert>

namespace host {

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

}  // namespace host

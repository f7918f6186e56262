#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

#include "host/core/BitArray.h"
#include "host/math/Box3.h"
#include "host/math/Matrix3.h"
#include "host/math/Point3.h"
#include "host/object/IOResult.h"

namespace host {

class ISave;
class ILoad;

// A polygon mesh: vertices (object space) and faces, each face a loop of three or more
// vertex indices, counter-clockwise seen from its front, with a word of flags. The
// face selection is the MN_SEL flag, so that it follows the faces through deletions.
// A plain value: copying copies the mesh.
class MNMesh {
public:
    static constexpr uint32_t MN_SEL = 1u << 0;
    // The first of the flag bits left to the mesh's users.
    static constexpr uint32_t MN_USER = 1u << 24;

    int numv() const { return int(verts_.size()); }
    int numf() const { return int(faces_.size()); }
    // Vertex v, 0 <= v < numv().
    Point3& P(int v);
    const Point3& P(int v) const;
    // Appends a vertex; its index.
    int NewVert(const Point3& p);
    // Appends a face on the vertices, in order; its index, or -1 (and no face) for
    // fewer than three vertices or an index that is not a vertex.
    int NewFace(std::span<const int> vertices, uint32_t flags = 0);
    int NewFace(std::initializer_list<int> vertices, uint32_t flags = 0) {
        return NewFace(std::span<const int>(vertices.begin(), vertices.size()), flags);
    }
    // Empties the mesh.
    void Clear();

    // Face f, 0 <= f < numf().
    const std::vector<int>& FaceVertices(int f) const;
    int FaceDegree(int f) const { return int(FaceVertices(f).size()); }
    uint32_t FaceFlags(int f) const;
    bool FaceFlag(int f, uint32_t flag) const { return (FaceFlags(f) & flag) != 0; }
    void SetFaceFlag(int f, uint32_t flag, bool on = true);
    void ClearFaceFlag(int f, uint32_t flag) { SetFaceFlag(f, flag, false); }
    // Clears flag on every face.
    void ClearFFlags(uint32_t flag);
    // Deletes the faces that have any bit of flag, and the vertices that only they used;
    // the other vertices and faces keep their order. The number of faces deleted.
    int DeleteFlaggedFaces(uint32_t flag);

    // Selects the faces whose bit is set in sel; faces past its end are deselected.
    void FaceSelect(const BitArray& sel);
    // One bit a face, set for the selected ones.
    BitArray FaceSelection() const;

    // The unit normal of face f (zero for a degenerate face), from the sum of its
    // edges' cross products, which also serves non-planar faces (Newell's method).
    Point3 FaceNormal(int f) const;
    float FaceArea(int f) const;
    // One normal a vertex: the unit sum of its faces' normals weighted by their areas;
    // zero for a vertex without faces.
    std::vector<Point3> VertexNormals() const;
    // The box of the vertices, through tm when given; empty for no vertices.
    Box3 BoundingBox(const Matrix3* tm = nullptr) const;

    bool operator==(const MNMesh&) const = default;

    // The vertices and faces as chunks. Load takes the mesh only when every face has
    // three or more vertices, all of them in the mesh; otherwise it fails, leaving the
    // mesh as it was.
    void Save(ISave* isave) const;
    IOResult Load(ILoad* iload);

private:
    struct Face {
        std::vector<int> vertices;
        uint32_t flags = 0;
        bool operator==(const Face&) const = default;
    };
    static IOResult LoadFaces(ILoad* iload, std::vector<Face>& faces);
    // Twice the face's area along its normal.
    Point3 NewellVector(int f) const;
    // Drops the vertices marked in gone, renumbering the faces.
    void RemoveVertices(const std::vector<bool>& gone);

    std::vector<Point3> verts_;
    std::vector<Face> faces_;
};

}  // namespace host

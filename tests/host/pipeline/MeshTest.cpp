#include "host/classes/PolyObject.h"
#include "tests/host/pipeline/PipelineTestSupport.h"

namespace host::test {
namespace {

using MeshTest = PipelineTest;

float Sign(float v) {
    return v < 0 ? -1.0f : 1.0f;
}

TEST(MNMesh, BoxNormalsPointOutwardsAndWeighByArea) {
    const Point3 size(2, 1, 1);
    MNMesh box = BoxMesh(size);
    for (int f = 0; f < box.numf(); ++f) {
        Point3 centre;
        for (int v : box.FaceVertices(f)) centre += box.P(v) / float(box.FaceDegree(f));
        // Each face's centre lies on its axis, on the side its normal points to.
        EXPECT_TRUE(box.FaceNormal(f).Equals(Normalize(centre), 1e-6f)) << "face " << f;
        const int axis = box.FaceNormal(f).MaxComponent();
        EXPECT_NEAR(box.FaceArea(f), size[(axis + 1) % 3] * size[(axis + 2) % 3], 1e-5f);
    }
    // A corner meets one face across each axis; the face across x has area y * z.
    const std::vector<Point3> normals = box.VertexNormals();
    for (int v = 0; v < box.numv(); ++v) {
        const Point3 p = box.P(v);
        const Point3 expected = Normalize(Point3(
            Sign(p.x) * size.y * size.z, Sign(p.y) * size.x * size.z, Sign(p.z) * size.x * size.y));
        EXPECT_TRUE(normals[size_t(v)].Equals(expected, 1e-6f)) << "vertex " << v;
    }

    const int loose = box.NewVert(Point3(9, 9, 9));
    EXPECT_EQ(box.VertexNormals()[size_t(loose)], Point3());
    const Box3 bounds = box.BoundingBox();
    EXPECT_EQ(bounds.pmin, Point3(-1, -0.5f, -0.5f));
    EXPECT_EQ(bounds.pmax, Point3(9, 9, 9));
}

// A strip of three unit quads along x (bottom row 0..3, top row 4..7) and a loose vertex.
MNMesh Strip() {
    MNMesh strip;
    for (int row = 0; row < 2; ++row)
        for (int i = 0; i < 4; ++i) strip.NewVert(Point3(float(i), float(row), 0));
    strip.NewVert(Point3(9, 9, 9));
    for (int i = 0; i < 3; ++i) strip.NewFace({i, i + 1, i + 5, i + 4});
    return strip;
}

TEST(MNMesh, DeletingFlaggedFacesKeepsTheOthersAsTheyWere) {
    MNMesh strip = Strip();
    BitArray sel(2);  // shorter than the faces: the third is deselected
    sel.Set(1);
    strip.FaceSelect(sel);
    // Keep the selection only: flag every other face and delete the flagged ones.
    for (int f = 0; f < strip.numf(); ++f)
        strip.SetFaceFlag(f, MNMesh::MN_USER, !strip.FaceFlag(f, MNMesh::MN_SEL));
    EXPECT_EQ(strip.DeleteFlaggedFaces(MNMesh::MN_USER), 2);

    ASSERT_EQ(strip.numf(), 1);
    std::vector<Point3> loop;
    for (int v : strip.FaceVertices(0)) loop.push_back(strip.P(v));
    ExpectPointsNear(loop, {Point3(1, 0, 0), Point3(2, 0, 0), Point3(2, 1, 0), Point3(1, 1, 0)});
    // The vertices only the deleted faces used went; the loose one stays.
    EXPECT_EQ(strip.numv(), 5);
    EXPECT_EQ(strip.P(4), Point3(9, 9, 9));
    EXPECT_TRUE(strip.FaceFlag(0, MNMesh::MN_SEL));

    const MNMesh kept = strip;
    EXPECT_EQ(strip.DeleteFlaggedFaces(MNMesh::MN_USER), 0);
    EXPECT_EQ(strip, kept);
    EXPECT_EQ(strip.NewFace({0, 1}), -1);
    EXPECT_EQ(strip.NewFace({0, 1, 5}), -1);  // past the vertices
    EXPECT_EQ(strip, kept);
}

TEST_F(MeshTest, MeshConvertsToPolyWithItsPointsAndFaces) {
    EditableMesh* mesh = NewMeshObject(Strip());
    mesh->GetMesh().SetFaceFlag(2, MNMesh::MN_SEL);
    ASSERT_TRUE(mesh->CanConvertToType(POLY_OBJECT_CLASS_ID));
    Object* poly = mesh->ConvertToType(0, POLY_OBJECT_CLASS_ID);
    ASSERT_TRUE(poly && poly->ClassID() == POLY_OBJECT_CLASS_ID);
    EXPECT_EQ(static_cast<PolyObject*>(poly)->GetMesh(), mesh->GetMesh());
    poly->SetPoint(0, Point3(-5, -5, -5));
    EXPECT_EQ(mesh->GetPoint(0), Point3(0, 0, 0));  // the copy is the caller's own
    poly->DeleteThis();
    EXPECT_EQ(mesh->ConvertToType(0, EDITABLE_MESH_CLASS_ID), mesh);
    EXPECT_EQ(mesh->ConvertToType(0, Class_ID(0x1234, 0)), nullptr);

    // A stack converts what it evaluates to, into a new object for the caller.
    IDerivedObject* derived = CreateDerivedObject(mesh);
    derived->AddModifier(new ScaleModifier(2));
    INode* node = ip->CreateObjectNode(derived);
    Object* converted = derived->ConvertToType(0, POLY_OBJECT_CLASS_ID);
    ASSERT_TRUE(converted && converted->ClassID() == POLY_OBJECT_CLASS_ID);
    EXPECT_NE(converted, node->EvalWorldState(0).obj);
    std::vector<Point3> doubled;
    for (int v = 0; v < mesh->NumPoints(); ++v) doubled.push_back(mesh->GetPoint(v) * 2);
    ExpectPointsNear(PointsOf(converted), doubled);
    converted->DeleteThis();
}

TEST_F(MeshTest, UserEditsOfAMeshAreOneUndoStep) {
    EditableMesh* mesh = NewMeshObject(BoxMesh(Point3(2, 2, 2)));
    IDerivedObject* derived = CreateDerivedObject(mesh);
    derived->AddModifier(new ScaleModifier(2));
    INode* node = ip->CreateObjectNode(derived);
    auto result = [&] { return node->EvalWorldState(0).obj->GetPoint(0); };
    const MNMesh before = mesh->GetMesh();
    ASSERT_EQ(result(), Point3(-2, -2, -2));

    BitArray sel(6);
    sel.Set(3);
    theHold.Begin();
    mesh->SetPoint(0, Point3(5, 5, 5));
    mesh->SetPoint(0, Point3(6, 6, 6));
    mesh->SetPoint(1, Point3(7, 7, 7));
    mesh->SetFaceSelection(sel);
    theHold.Accept(L"Edit Mesh");
    const MNMesh after = mesh->GetMesh();
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(result(), Point3(12, 12, 12));
    EXPECT_EQ(mesh->GetFaceSelection(), sel);

    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(mesh->GetMesh(), before);
    EXPECT_EQ(result(), Point3(-2, -2, -2));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(mesh->GetMesh(), after);
    EXPECT_EQ(result(), Point3(12, 12, 12));

    // Outside a hold an edit is made and not recorded; an index outside is ignored.
    mesh->SetPoint(2, Point3(1, 1, 1));
    mesh->SetPoint(99, Point3(1, 1, 1));
    EXPECT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(mesh->GetPoint(2), Point3(1, 1, 1));
    EXPECT_EQ(mesh->NumPoints(), 8);
}

}  // namespace
}  // namespace host::test

#include "host/classes/BoneObject.h"
#include "host/classes/EditableMesh.h"
#include "host/classes/PointHelper.h"
#include "host/classes/TextShape.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/SnapInfo.h"
#include "host/object/WireOutline.h"
#include "tests/host/math/MathTestSupport.h"
#include "tests/host/viewport/ViewportTestSupport.h"

namespace host::test {
namespace {

using ObjectDisplay = ViewTest;

::testing::AssertionResult Near(const Point3& a, const Point3& b, float eps = 1e-4f) {
    return PointNear(a, b, eps);
}

// The bone's wireframe runs from the pivot to its length along X, as wide and high as
// its section, and its box holds exactly what it draws; fins stand out by their size.
TEST_F(ObjectDisplay, BoneOutlineFollowsItsParameters) {
    INode* node = MakeNode(GEOMOBJECT_CLASS_ID, BONE_OBJECT_CLASS_ID, L"Bone");
    IParamBlock2* pb = Params(node);
    pb->SetValue(BoneObject::WIDTH, 0, 2.0f);
    pb->SetValue(BoneObject::HEIGHT, 0, 4.0f);
    pb->SetValue(BoneObject::LENGTH, 0, 30.0f);
    pb->SetValue(BoneObject::TAPER, 0, 50.0f);
    node->SetNodeTM(0, TransMatrix(Point3(5, 0, 0)));
    DrawNode(node);
    ASSERT_EQ(gw.Lines().size(), 12u) << "two sections and four long edges";
    Box3 drawn = RecordedWorldBox();
    EXPECT_TRUE(Near(drawn.pmin, Point3(5, -1, -2)));
    EXPECT_TRUE(Near(drawn.pmax, Point3(35, 1, 2)));
    // The tip keeps half the section.
    for (const GWLine& line : gw.Lines())
        for (const Point3& p : line.world)
            if (p.x > 34.9f) {
                EXPECT_NEAR(std::fabs(p.z), 1.0f, 1e-5f);
            }

    pb->SetValue(BoneObject::SIDE_FINS, 0, 1);
    pb->SetValue(BoneObject::SIDE_FINS_SIZE, 0, 3.0f);
    pb->SetValue(BoneObject::BACK_FIN, 0, 1);
    pb->SetValue(BoneObject::BACK_FIN_SIZE, 0, 6.0f);
    DrawNode(node);
    EXPECT_EQ(gw.Lines().size(), 12u + 3 * 4u);
    drawn = RecordedWorldBox();
    EXPECT_GT(drawn.pmax.y, 1.0f + 2.0f) << "side fin out by most of its size";
    EXPECT_LE(drawn.pmax.y, 1.0f + 3.0f + 1e-5f);
    EXPECT_LT(drawn.pmin.z, -2.0f - 5.0f);
    Box3 world;
    node->GetObjectRef()->GetWorldBoundBox(0, node, &view, world);
    EXPECT_TRUE(Near(world.pmin, drawn.pmin, 1e-4f) && Near(world.pmax, drawn.pmax, 1e-4f));
}

// Each display switch of the point helper adds its own part, at the helper's size.
TEST_F(ObjectDisplay, PointHelperDrawsTheSwitchedOnParts) {
    INode* node = MakeNode(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID, L"Point");
    node->SetNodeTM(0, TransMatrix(Point3(10, 20, 0)));
    IParamBlock2* pb = Params(node);
    pb->SetValue(PointHelper::SIZE, 0, 8.0f);
    DrawNode(node);
    ASSERT_EQ(gw.Lines().size(), 3u) << "the cross";
    for (const GWLine& line : gw.Lines())
        EXPECT_NEAR(Length(line.world[1] - line.world[0]), 8.0f, 1e-5f);

    pb->SetValue(PointHelper::CROSS, 0, 0);
    pb->SetValue(PointHelper::BOX, 0, 1);
    DrawNode(node);
    EXPECT_EQ(gw.Lines().size(), 12u) << "the cube's edges";
    const Box3 drawn = RecordedWorldBox();
    EXPECT_TRUE(Near(drawn.pmin, Point3(6, 16, -4)));
    EXPECT_TRUE(Near(drawn.pmax, Point3(14, 24, 4)));

    pb->SetValue(PointHelper::BOX, 0, 0);
    pb->SetValue(PointHelper::AXIS_TRIPOD, 0, 1);
    pb->SetValue(PointHelper::CENTER_MARKER, 0, 1);
    DrawNode(node);
    ASSERT_EQ(gw.Lines().size(), 3u);
    EXPECT_TRUE(Near(gw.Lines()[0].world[1], Point3(14, 20, 0)));
    EXPECT_EQ(gw.Lines()[0].color, Point3(1, 0, 0)) << "X is red whatever the wire colour";
    EXPECT_EQ(gw.Lines()[1].color, Point3(0, 1, 0));
    ASSERT_EQ(gw.Markers().size(), 1u);
    EXPECT_TRUE(Near(gw.Markers()[0].world, Point3(10, 20, 0)));

    // With a constant screen size the size is in pixels, wherever the view is framed.
    pb->SetValue(PointHelper::AXIS_TRIPOD, 0, 0);
    pb->SetValue(PointHelper::CROSS, 0, 1);
    pb->SetValue(PointHelper::SCREEN_SIZE, 0, 1);
    pb->SetValue(PointHelper::SIZE, 0, 40.0f);
    for (float extent : {10.0f, 1000.0f}) {
        view.ZoomExtents(Box3(Point3(-extent, -extent, 0), Point3(extent, extent, 0)));
        DrawNode(node);
        const GWLine& xLine = gw.Lines()[0];
        EXPECT_NEAR(xLine.window[1].x - xLine.window[0].x, 40.0f, 1e-2f);
    }
}

// Selected nodes draw white, frozen ones in the freeze colour, others in their wire
// colour; hidden nodes are not drawn at all.
TEST_F(ObjectDisplay, NodeStateChoosesTheColour) {
    INode* node = MakeNode(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID, L"Point");
    node->SetWireColor(RGB(255, 0, 51));
    const struct {
        bool selected, frozen;
        Point3 color;
    } cases[] = {
        {false, false, Point3(1, 0, 0.2f)},
        {true, false, GetUIColor(COLOR_SELECTION)},
        {false, true, GetUIColor(COLOR_FREEZE)},
    };
    for (const auto& c : cases) {
        ip->ClearNodeSelection(false);
        if (c.selected) ip->SelectNode(node);
        node->Freeze(c.frozen);
        gw.Reset();
        DrawScene(*ip, view, 0);
        ASSERT_FALSE(gw.Lines().empty());
        EXPECT_TRUE(Near(gw.Lines()[0].color, c.color, 1e-6f));
    }
    EXPECT_EQ(GetUIColor(COLOR_SELECTION), Point3(1, 1, 1));
    node->Hide(true);
    gw.Reset();
    DrawScene(*ip, view, 0);
    EXPECT_TRUE(gw.Lines().empty());
    EXPECT_EQ(gw.Clears(), 1);
}

// A text shape draws each character box as a closed four-sided line; a mesh draws each
// edge once, however many faces share it.
TEST_F(ObjectDisplay, ShapesAndMeshesDrawTheirEdges) {
    auto* text = static_cast<TextShape*>(CreateInstance(SHAPE_CLASS_ID, TEXT_SHAPE_CLASS_ID));
    text->GetParamBlock(0)->SetValue(TextShape::TEXT, 0, L"Hi");
    text->GetParamBlock(0)->SetValue(TextShape::SIZE, 0, 10.0f);
    INode* textNode = ip->CreateObjectNode(text);
    DrawNode(textNode);
    EXPECT_EQ(gw.Lines().size(), 8u);
    Box3 drawn = RecordedWorldBox();
    EXPECT_TRUE(Near(drawn.pmin, Point3(0, 0, 0)));
    EXPECT_TRUE(Near(drawn.pmax, Point3(2 * 6.0f, 10, 0)));

    auto* mesh = new EditableMesh();
    MNMesh quad;
    for (const Point3& p : {Point3(0, 0, 0), Point3(4, 0, 0), Point3(4, 4, 0), Point3(0, 4, 0)})
        quad.NewVert(p);
    quad.NewFace({0, 1, 2});
    quad.NewFace({0, 2, 3});
    mesh->SetMesh(quad);
    INode* meshNode = ip->CreateObjectNode(mesh);
    DrawNode(meshNode);
    EXPECT_EQ(gw.Lines().size(), 5u) << "four sides and the shared diagonal";
}

// Lines longer than the window takes go in overlapping pieces that join up, and a
// closed one comes back to its start.
TEST_F(ObjectDisplay, LongPolylinesGoInPieces) {
    std::vector<Point3> circle;
    for (int i = 0; i < 70; ++i) {
        const float a = float(i) / 70.0f * 6.2831855f;
        circle.push_back(Point3(std::cos(a), std::sin(a), 0) * 50.0f);
    }
    DrawPolyline(&gw, int(circle.size()), circle.data(), true);
    ASSERT_EQ(gw.Lines().size(), 70u);
    for (size_t i = 0; i < gw.Lines().size(); ++i) {
        EXPECT_TRUE(Near(gw.Lines()[i].world[0], circle[i]));
        EXPECT_TRUE(Near(gw.Lines()[i].world[1], circle[(i + 1) % circle.size()]));
    }
}

// The point snap takes a point within the radius of the cursor and keeps the best: a
// better priority wins, an equal one only nearer; in-plane snapping ignores points off
// the construction plane.
TEST_F(ObjectDisplay, PointSnapKeepsTheBestPointNearTheCursor) {
    view.ZoomExtents(Box3(Point3(-50, -50, -50), Point3(50, 50, 50)));
    const Point3 a(10, 5, 0);
    Point3 pixel;
    gw.setTransform(Matrix3());
    gw.transPoint(&a, &pixel);
    IPoint2 cursor{int(pixel.x) + 3, int(pixel.y)};

    SnapInfo snap;
    EXPECT_TRUE(PointSnap(&snap, TransMatrix(a), Point3::Origin, &cursor, &view));
    EXPECT_TRUE(Near(snap.bestWorld, a));
    EXPECT_EQ(snap.bestDist, 3);
    // Farther at the same priority: kept out.
    const Point3 b(10, 5.4f, 0);
    EXPECT_FALSE(PointSnap(&snap, Matrix3(), b, &cursor, &view));
    // Beyond the radius.
    IPoint2 far{cursor.x + 40, cursor.y};
    SnapInfo fresh;
    EXPECT_FALSE(PointSnap(&fresh, Matrix3(), a, &far, &view));
    // Off the plane, in-plane only.
    fresh.flags = SNAP_IN_PLANE;
    EXPECT_FALSE(PointSnap(&fresh, Matrix3(), a + Point3(0, 0, 1), &cursor, &view));
    EXPECT_TRUE(PointSnap(&fresh, Matrix3(), a, &cursor, &view));
    // A point beats a nearer hit of a worse priority (an edge, say).
    SnapInfo edge;
    edge.priority = 2;
    edge.bestDist = 0;
    EXPECT_TRUE(PointSnap(&edge, Matrix3(), a, &cursor, &view));
    EXPECT_EQ(edge.priority, 1);
    snap.vertPriority = 0;
    EXPECT_FALSE(PointSnap(&snap, Matrix3(), a, &cursor, &view)) << "points turned off";
}

}  // namespace
}  // namespace host::test

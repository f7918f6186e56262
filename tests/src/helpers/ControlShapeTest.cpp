#include <filesystem>

#include "helpers/HelperIds.h"
#include "host/io/CloneRemapDir.h"
#include "host/io/SceneFile.h"
#include "host/object/Hold.h"
#include "host/object/SubObject.h"
#include "host/script/ExecuteScript.h"
#include "tests/src/helpers/HelpersTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

using Points = std::vector<std::vector<Point3>>;

// The shape's knots at t in world, spline by spline.
Points WorldKnots(ControlShape* object, INode* node, TimeValue t = 0) {
    const BezierShape& shape = object->GetShape(t);
    const Matrix3 objectTM = node->GetObjectTM(t);
    Points splines;
    for (int i = 0; i < shape.SplineCount(); ++i) {
        const Spline3D* spline = shape.GetSpline(i);
        splines.emplace_back();
        for (int k = 0; k < spline->KnotCount(); ++k)
            splines.back().push_back(spline->GetKnotPoint(k) * objectTM);
    }
    return splines;
}

// The helper's drawn outline at t in world, line by line.
Points WorldOutline(ControlHelper* helper, INode* node, ViewExp* view) {
    const Matrix3 displayTM = helper->DisplayTM(0, node, view);
    const WireOutline outline = helper->Outline(0, node, displayTM);
    Points lines;
    for (const WireOutline::Line& line : outline.Lines()) {
        lines.emplace_back();
        for (const Point3& p : line.points) lines.back().push_back(p * displayTM);
    }
    return lines;
}

// Whether a and b hold the same points in the same order, within eps.
bool SamePoints(const Points& a, const Points& b, float eps = 1e-3f) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i) {
        if (a[i].size() != b[i].size()) return false;
        for (size_t k = 0; k < a[i].size(); ++k)
            if (Length(a[i][k] - b[i][k]) > eps) return false;
    }
    return true;
}

// Writes the same values into both blocks.
void SetBoth(IParamBlock2* a, IParamBlock2* b, ParamID id, int value) {
    a->SetValue(id, 0, value);
    b->SetValue(id, 0, value);
}

using ControlShapeBuild = HelperTest;

// The splines lie where the helper draws its outline, knot for point, for each axis:
// the gizmo, the axis turn and the node's transform compose the same way in both.
TEST_F(ControlShapeBuild, SplinesLieOnTheHelperOutlineForEveryAxis) {
    const Matrix3 nodeTM = RotateXMatrix(0.4f) * TransMatrix(Point3(10, -5, 3));
    const Matrix3 gizmo = RotateZMatrix(0.3f) * TransMatrix(Point3(1, 2, 3));
    INode* helperNode = MakeControl(L"Helper");
    INode* shapeNode = MakeShape(L"Shape");
    helperNode->SetNodeTM(0, nodeTM);
    shapeNode->SetNodeTM(0, nodeTM);
    ControlHelper* helper = Helper(helperNode);
    ControlShape* shape = Shape(shapeNode);
    helper->SetGizmoTM(gizmo);
    shape->SetGizmoTM(gizmo);
    for (const ShapeType type : {ShapeType::Cross, ShapeType::Rectangle, ShapeType::Star}) {
        for (int axis = 0; axis < 3; ++axis) {
            SCOPED_TRACE(testing::Message() << "type " << int(type) << " axis " << axis);
            SetBoth(helper->GetParamBlock(0), shape->GetParamBlock(0), CH_TYPE, int(type));
            SetBoth(helper->GetParamBlock(0), shape->GetParamBlock(0), CH_AXIS, axis);
            const Points outline = WorldOutline(helper, helperNode, &view);
            ASSERT_FALSE(outline.empty());
            EXPECT_TRUE(SamePoints(WorldKnots(shape, shapeNode), outline));
        }
    }
}

// Scale 0 puts every knot on the shape's origin (the gizmo's position); IKFK builds
// nothing and bounds nothing; None with the offset line builds one open line from the
// shape's origin to the node's pivot, which an object offset moves away from.
TEST_F(ControlShapeBuild, ScaleZeroIKFKAndTheOffsetLine) {
    INode* node = MakeShape(L"Shape", Point3(10, 0, 0));
    ControlShape* shape = Shape(node);
    IParamBlock2* pb = shape->GetParamBlock(0);
    shape->SetGizmoTM(RotateYMatrix(0.5f) * TransMatrix(Point3(0, 0, 5)));
    ASSERT_GT(shape->GetShape(0).SplineCount(), 0);
    pb->SetValue(CS_SCALE, 0, 0.0f);
    Box3 box;
    shape->GetLocalBoundBox(0, node, &view, box);
    EXPECT_FALSE(box.IsEmpty());
    EXPECT_TRUE(box.pmin.Equals(Point3(0, 0, 5), 1e-5f) && box.pmax.Equals(Point3(0, 0, 5), 1e-5f));
    for (const auto& spline : WorldKnots(shape, node))
        for (const Point3& knot : spline) EXPECT_TRUE(knot.Equals(Point3(10, 0, 5), 1e-5f));

    pb->SetValue(CS_SCALE, 0, 2.0f);
    pb->SetValue(CH_TYPE, 0, int(ShapeType::IKFK));
    EXPECT_EQ(shape->GetShape(0).SplineCount(), 0);
    shape->GetLocalBoundBox(0, node, &view, box);
    EXPECT_TRUE(box.IsEmpty());

    pb->SetValue(CH_TYPE, 0, int(ShapeType::None));
    EXPECT_EQ(shape->GetShape(0).SplineCount(), 0) << "None without the line";
    pb->SetValue(CH_OFFSET_LINE, 0, 1);
    node->SetObjOffsetPos(Point3(0, 0, -4));
    const Points line = WorldKnots(shape, node);
    ASSERT_EQ(line.size(), 1u);
    ASSERT_EQ(line[0].size(), 2u);
    EXPECT_FALSE(shape->GetShape(0).GetSpline(0)->Closed());
    const Point3 shapeOrigin = Point3(0, 0, 5) * node->GetObjectTM(0);
    EXPECT_TRUE(shapeOrigin.Equals(Point3(10, 0, 1), 1e-4f));
    EXPECT_TRUE(line[0][0].Equals(Point3(10, 0, 0), 1e-4f) ||
                line[0][1].Equals(Point3(10, 0, 0), 1e-4f));
    EXPECT_TRUE(line[0][0].Equals(shapeOrigin, 1e-4f) || line[0][1].Equals(shapeOrigin, 1e-4f));
}

// The type setter rebuilds the splines with nothing else asked of the shape, as the
// script property does; a type outside the catalogue changes nothing and keeps the
// built splines valid.
TEST_F(ControlShapeBuild, TypeSetterRebuildsTheSplines) {
    INode* helperNode = MakeControl(L"Helper");
    INode* shapeNode = MakeShape(L"Shape");
    ControlShape* shape = Shape(shapeNode);
    const Points sphere = WorldKnots(shape, shapeNode);
    EXPECT_TRUE(shape->ShapeValidity().InInterval(0));

    EXPECT_FALSE(shape->SetType(kShapeCount, 0));
    EXPECT_TRUE(shape->ShapeValidity().InInterval(0));
    EXPECT_TRUE(shape->SetType(int(ShapeType::Box), 0));
    EXPECT_FALSE(shape->ShapeValidity().InInterval(0));
    Helper(helperNode)->SetType(int(ShapeType::Box), 0);
    const Points box = WorldKnots(shape, shapeNode);
    EXPECT_FALSE(SamePoints(box, sphere));
    EXPECT_TRUE(SamePoints(box, WorldOutline(Helper(helperNode), helperNode, &view)));
}

using ControlShapeGizmo = HelperTest;

// At the gizmo level the tools move and turn the built splines in world as the tool
// says, through the gizmo alone; the marker shows the object's origin. At the object
// level they do nothing.
TEST_F(ControlShapeGizmo, ToolsMoveTheSplinesAndLevelOneShowsTheMarker) {
    INode* node = MakeShape(L"Shape", Point3(3, 4, 5));
    ControlShape* shape = Shape(node);
    shape->GetParamBlock(0)->SetValue(CH_TYPE, 0, int(ShapeType::Rectangle));
    const Matrix3 nodeTM = node->GetNodeTM(0);
    Matrix3 partm = node->GetObjectTM(0);
    Matrix3 world;
    Point3 move(1, 2, 3);
    shape->Move(0, partm, world, move);
    EXPECT_TRUE(shape->GetGizmoTM().IsIdentity()) << "object level";

    shape->BeginEditParams(nullptr, 0, nullptr);
    XFormModes modes;
    shape->ActivateSubobjSel(ControlShape::kGizmoLevel, modes);
    ASSERT_NE(modes.move, nullptr);
    EXPECT_STREQ(shape->GetSubObjType(-1)->GetName(), L"Gizmo");
    Points before = WorldKnots(shape, node);
    shape->Move(0, partm, world, move);
    Points expected = before;
    for (auto& spline : expected)
        for (Point3& p : spline) p += move;
    EXPECT_TRUE(SamePoints(WorldKnots(shape, node), expected));

    before = WorldKnots(shape, node);
    Quat turn(AngAxis(Point3(0, 0, 1), 0.7f));
    shape->Rotate(0, partm, world, turn);
    expected = before;
    for (auto& spline : expected)
        for (Point3& p : spline) p = p * QuatMatrix(turn);
    EXPECT_TRUE(SamePoints(WorldKnots(shape, node), expected));
    EXPECT_TRUE(node->GetNodeTM(0).Equals(nodeTM, 0.0f));

    DrawNode(node);
    EXPECT_FALSE(gw.Lines().empty());
    ASSERT_EQ(gw.Markers().size(), 1u);
    EXPECT_EQ(gw.Markers()[0].world, Point3(3, 4, 5));
    shape->EndEditParams(nullptr, 0, nullptr);
}

// The published properties reach the shape from a script: the type rebuilds the
// splines, the gizmo moves them, a type outside the catalogue is an error that changes
// nothing, and the face selection is one undo entry.
TEST_F(ControlShapeGizmo, InterfacePropertiesFromAScript) {
    INode* node = MakeShape(L"Shape");
    ControlShape* shape = Shape(node);
    ASSERT_NE(shape->GetInterface(CONTROL_SHAPE_INTERFACE_ID), nullptr);
    EXPECT_EQ(shape->GetInterface(CONTROL_HELPER_INTERFACE_ID), nullptr);
    auto run = [&](const wchar_t* text) {
        ip->ClearListener();
        FPValue result;
        const bool ok = ExecuteTarnixScriptScript(text, false, &result);
        return ok ? ip->ListenerText().str() : std::wstring(L"error");
    };
    EXPECT_EQ(run(L"$Shape.type = #Cross\n$Shape.gizmoPos = [0, 0, 7]\nprint $Shape.type"), L"1\n");
    const Points cross = WorldKnots(shape, node);
    ASSERT_FALSE(cross.empty());
    Box3 bounds;
    for (const auto& spline : cross)
        for (const Point3& p : spline) bounds += p;
    EXPECT_TRUE(bounds.Center().Equals(Point3(0, 0, 7), 1e-4f))
        << "the cross is centred on the gizmo";
    EXPECT_TRUE(shape->GizmoTM().GetTrans().Equals(Point3(0, 0, 7), 1e-6f));

    EXPECT_EQ(run(L"$Shape.type = 43"), L"error");
    EXPECT_TRUE(SamePoints(WorldKnots(shape, node), cross));
    EXPECT_EQ(run(L"$Shape.type = #IKFK"), L"");
    EXPECT_EQ(shape->GetShape(0).SplineCount(), 0);

    theHold.ClearUndo();
    EXPECT_EQ(run(L"$Shape.selector_face_sel = #(2, 5)\nprint $Shape.selector_face_sel"),
              L"#(2, 5)\n");
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(shape->faceSel.GetSize(), 0);
}

using ControlShapeState = HelperTest;

// A scene file and a clone keep both blocks, the face selection and the shape's
// switches, and build the same splines.
TEST_F(ControlShapeState, SaveLoadAndCloneKeepBlocksAndFaceSel) {
    INode* node = MakeShape(L"Shape", Point3(1, 2, 3));
    ControlShape* shape = Shape(node);
    IParamBlock2* pb = shape->GetParamBlock(0);
    pb->SetValue(CH_TYPE, 0, int(ShapeType::Star));
    pb->SetValue(CH_SIZE, 0, 7.5f);
    pb->SetValue(CS_SCALE, 0, 0.25f);
    pb->SetValue(CH_AXIS, 0, 1);
    pb->SetValue(CH_SELECTOR_COLOR, 0, Point3(0.1f, 0.2f, 0.3f));
    shape->GetParamBlock(1)->SetValue(SimpleSpline::STEPS, 0, 3);
    shape->SetGizmoTM(RotateYMatrix(0.4f) * TransMatrix(Point3(1, 2, 3)));
    shape->SetRenderable(true);
    shape->faceSel.SetSize(70);
    shape->faceSel.Set(3);
    shape->faceSel.Set(69);
    const std::wstring block = BlockText(pb);
    const std::wstring interp = BlockText(shape->GetParamBlock(1));
    const Points knots = WorldKnots(shape, node);
    const BitArray faces = shape->faceSel;

    auto* clone = dynamic_cast<ControlShape*>(CloneRefHierarchy(shape));
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone->GetParamBlock(0), pb);
    EXPECT_EQ(BlockText(clone->GetParamBlock(0)), block);
    EXPECT_EQ(BlockText(clone->GetParamBlock(1)), interp);
    EXPECT_EQ(clone->faceSel, shape->faceSel);
    EXPECT_TRUE(clone->GetRenderable());
    EXPECT_EQ(clone->GetShape(0).steps, 3);
    clone->DeleteMe();

    const std::string path =
        (std::filesystem::path(testing::TempDir()) / "control_shape.zvs").string();
    std::string error;
    ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
    ip->Reset();
    ASSERT_TRUE(LoadSceneFile(path, *ip, error)) << error;
    INode* loaded = ip->GetINodeByName(L"Shape");
    ASSERT_NE(loaded, nullptr);
    ControlShape* read = Shape(loaded);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(BlockText(read->GetParamBlock(0)), block);
    EXPECT_EQ(BlockText(read->GetParamBlock(1)), interp);
    EXPECT_EQ(read->faceSel, faces);
    EXPECT_TRUE(read->GetRenderable());
    EXPECT_TRUE(SamePoints(WorldKnots(read, loaded), knots));
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace zorvanta::test

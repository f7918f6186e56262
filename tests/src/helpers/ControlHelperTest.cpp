#include <filesystem>

#include "helpers/HelperIds.h"
#include "host/io/CloneRemapDir.h"
#include "host/io/SceneFile.h"
#include "host/object/Hold.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/SubObject.h"
#include "host/script/ExecuteScript.h"
#include "tests/src/helpers/HelpersTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

using ControlHelperDisplay = HelperTest;

// The drawn outline lies in the world box; None with the offset line draws the line
// from the node to the shape's origin (moved by the gizmo) and nothing else.
TEST_F(ControlHelperDisplay, OutlineInItsBoxAndNoneDrawsOnlyTheOffsetLine) {
    INode* node = MakeControl(L"Ctrl", Point3(30, 40, 0));
    ControlHelper* helper = Helper(node);
    view.ZoomExtents(Box3(Point3(-100, -100, -100), Point3(100, 100, 100)));
    DrawNode(node);
    ASSERT_FALSE(gw.Lines().empty());
    Box3 box;
    helper->GetWorldBoundBox(0, node, &view, box);
    box.EnlargeBy(1e-3f);
    for (const GWLine& line : gw.Lines())
        EXPECT_TRUE(box.Contains(line.world[0]) && box.Contains(line.world[1]));

    IParamBlock2* pb = helper->GetParamBlock(0);
    pb->SetValue(CH_TYPE, 0, int(ShapeType::None));
    DrawNode(node);
    EXPECT_TRUE(gw.Lines().empty());
    pb->SetValue(CH_OFFSET_LINE, 0, 1);
    helper->SetGizmoPos(Point3(0, 0, 15));
    DrawNode(node);
    ASSERT_EQ(gw.Lines().size(), 1u);
    const GWLine& line = gw.Lines()[0];
    const Point3 ends[2] = {line.world[0], line.world[1]};
    const Point3 nodeAt(30, 40, 0), shapeAt(30, 40, 15);
    EXPECT_TRUE((Length(ends[0] - nodeAt) < 1e-4f && Length(ends[1] - shapeAt) < 1e-4f) ||
                (Length(ends[1] - nodeAt) < 1e-4f && Length(ends[0] - shapeAt) < 1e-4f));
    helper->GetWorldBoundBox(0, node, &view, box);
    EXPECT_TRUE(box.Contains(nodeAt)) << "the offset line's end is in the box";
}

// At the gizmo level the outline takes the selected-gizmo colour and a marker shows the
// object's origin; draw-on-top lifts the depth test only while drawing.
TEST_F(ControlHelperDisplay, GizmoLevelColoursAndMarker) {
    INode* node = MakeControl(L"Ctrl", Point3(5, 0, 0));
    ControlHelper* helper = Helper(node);
    helper->GetParamBlock(0)->SetValue(CH_DRAW_ON_TOP, 0, 1);
    const uint32_t limits = gw.getRndLimits();
    XFormModes modes;
    helper->ActivateSubobjSel(ControlHelper::kGizmoLevel, modes);
    DrawNode(node);
    EXPECT_EQ(gw.getRndLimits(), limits);
    ASSERT_FALSE(gw.Lines().empty());
    for (const GWLine& line : gw.Lines()) EXPECT_EQ(line.color, GetUIColor(COLOR_SEL_GIZMOS));
    ASSERT_EQ(gw.Markers().size(), 1u);
    EXPECT_EQ(gw.Markers()[0].type, SM_HOLLOW_BOX_MRKR);
    EXPECT_EQ(gw.Markers()[0].world, Point3(5, 0, 0));
    EXPECT_EQ(gw.Markers()[0].color, GetUIColor(COLOR_GIZMOS));

    helper->ActivateSubobjSel(ControlHelper::kObjectLevel, modes);
    ip->SelectNode(node);
    DrawNode(node);
    EXPECT_TRUE(gw.Markers().empty());
    for (const GWLine& line : gw.Lines()) EXPECT_EQ(line.color, GetUIColor(COLOR_SELECTION));
}

// A click on a drawn line picks the node through the viewport; a click beside the
// shape's box picks nothing.
TEST_F(ControlHelperDisplay, PickingHitsTheOutlineAndMissesBesideIt) {
    INode* node = MakeControl(L"Ctrl", Point3(10, -20, 0));
    view.ZoomExtents(Box3(Point3(-100, -100, -100), Point3(100, 100, 100)));
    DrawNode(node);
    ASSERT_FALSE(gw.Lines().empty());
    const GWLine& line = gw.Lines()[0];
    const IPoint2 onLine{int(std::lround((line.window[0].x + line.window[1].x) / 2)),
                         int(std::lround((line.window[0].y + line.window[1].y) / 2))};
    EXPECT_EQ(ip->PickNode(view, onLine), node);

    float right = 0;
    for (const GWLine& l : gw.Lines()) right = std::max({right, l.window[0].x, l.window[1].x});
    EXPECT_EQ(ip->PickNode(view, IPoint2{int(right) + 12, onLine.y}), nullptr);
}

using ControlHelperGizmo = HelperTest;

// At the gizmo level the tools move, turn and scale the shape in the world as the tool
// says, through the gizmo alone: the node stays. At the object level they do nothing.
TEST_F(ControlHelperGizmo, ToolsChangeTheGizmoNeverTheNode) {
    INode* node = MakeControl(L"Ctrl", Point3(3, 4, 5));
    node->SetNodeTM(0, RotateZMatrix(0.3f) * TransMatrix(Point3(3, 4, 5)));
    ControlHelper* helper = Helper(node);
    const Matrix3 nodeTM = node->GetNodeTM(0);
    Matrix3 partm = node->GetObjectTM(0);
    Matrix3 world;

    Point3 move(1, 2, 3);
    helper->Move(0, partm, world, move);
    EXPECT_TRUE(helper->GetGizmoTM().IsIdentity()) << "object level";

    XFormModes modes;
    helper->ActivateSubobjSel(ControlHelper::kGizmoLevel, modes);
    EXPECT_EQ(modes.move, nullptr) << "tools exist only while edited";
    helper->BeginEditParams(nullptr, 0, nullptr);
    helper->ActivateSubobjSel(ControlHelper::kGizmoLevel, modes);
    ASSERT_NE(modes.move, nullptr);
    EXPECT_EQ(modes.select, nullptr);

    Matrix3 before = helper->DisplayTM(0, node, &view);
    helper->Move(0, partm, world, move);
    EXPECT_TRUE(helper->DisplayTM(0, node, &view).Equals(before * TransMatrix(move), 1e-4f));

    before = helper->DisplayTM(0, node, &view);
    Quat turn = Quat(AngAxis(Normalize(Point3(1, 1, 0)), 0.8f));
    helper->Rotate(0, partm, world, turn);
    EXPECT_TRUE(helper->DisplayTM(0, node, &view).Equals(before * QuatMatrix(turn), 1e-4f));

    before = helper->DisplayTM(0, node, &view);
    Point3 scale(2, 1, 0.5f);
    helper->Scale(0, partm, world, scale);
    EXPECT_TRUE(helper->DisplayTM(0, node, &view).Equals(before * ScaleMatrix(scale), 1e-4f));

    EXPECT_TRUE(node->GetNodeTM(0).Equals(nodeTM, 0.0f));
    EXPECT_EQ(helper->GetParamBlock(0)->GetController(CH_GIZMO), nullptr);
    helper->EndEditParams(nullptr, 0, nullptr);
}

// The published properties from a script, through the node; a type outside the
// catalogue is an error that changes nothing.
TEST_F(ControlHelperGizmo, InterfacePropertiesFromAScript) {
    ControlHelper* helper = Helper(MakeControl(L"Ctrl"));
    auto run = [&](const wchar_t* text) {
        ip->ClearListener();
        FPValue result;
        const bool ok = ExecuteTarnixScriptScript(text, false, &result);
        return ok ? ip->ListenerText().str() : std::wstring(L"error");
    };
    EXPECT_EQ(run(L"print $Ctrl.type\n$Ctrl.type = #Box\nprint $Ctrl.type"), L"9\n12\n");
    EXPECT_EQ(helper->GetParamBlock(0)->GetInt(CH_TYPE), 12);
    EXPECT_EQ(run(L"$Ctrl.type = 43"), L"error");
    EXPECT_EQ(helper->GetParamBlock(0)->GetInt(CH_TYPE), 12);

    EXPECT_EQ(run(L"$Ctrl.gizmoPos = [1, 2, 3]\n$Ctrl.gizmoScale = [2, 3, 4]\n"
                  L"print $Ctrl.gizmoPos\nprint $Ctrl.gizmoScale"),
              L"[1.0,2.0,3.0]\n[2.0,3.0,4.0]\n");
    const Quat turn = Normalize(Quat(0.1f, 0.2f, 0.3f, 0.9f));
    helper->SetGizmoRot(turn);
    EXPECT_TRUE(helper->GetGizmoRot().Equals(turn, 1e-5f) ||
                helper->GetGizmoRot().Equals(-turn, 1e-5f));
    EXPECT_TRUE(helper->GetGizmoScale().Equals(Point3(2, 3, 4), 1e-5f));
    EXPECT_EQ(helper->GetGizmoPos(), Point3(1, 2, 3));
    EXPECT_EQ(run(L"p = Point name:\"P\"\np.position = [7, 8, 9]\n$Ctrl.gizmoTM = p.transform\n"
                  L"print $Ctrl.gizmoPos\nprint $Ctrl.gizmoScale"),
              L"[7.0,8.0,9.0]\n[1.0,1.0,1.0]\n");

    theHold.ClearUndo();
    EXPECT_EQ(run(L"$Ctrl.selector_face_sel = #(2, 5)\nprint $Ctrl.selector_face_sel"),
              L"#(2, 5)\n");
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Selector Face Selection"));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(helper->faceSel.GetSize(), 0);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(helper->faceSel.NumberSet(), 2);
}

using ControlHelperState = HelperTest;

// A scene file and a clone keep the block and the face selection.
TEST_F(ControlHelperState, SaveLoadAndCloneKeepBlockAndFaceSel) {
    ControlHelper* helper = Helper(MakeControl(L"Ctrl"));
    IParamBlock2* pb = helper->GetParamBlock(0);
    pb->SetValue(CH_TYPE, 0, int(ShapeType::Star));
    pb->SetValue(CH_SIZE, 0, 7.5f);
    pb->SetValue(CH_SELECTOR_COLOR, 0, Point3(0.1f, 0.2f, 0.3f));
    helper->SetGizmoTM(RotateYMatrix(0.4f) * TransMatrix(Point3(1, 2, 3)));
    helper->faceSel.SetSize(70);
    helper->faceSel.Set(3);
    helper->faceSel.Set(69);
    const std::wstring block = BlockText(pb);
    const BitArray faces = helper->faceSel;

    auto* clone = dynamic_cast<ControlHelper*>(CloneRefHierarchy(helper));
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone->GetParamBlock(0), pb);
    EXPECT_EQ(BlockText(clone->GetParamBlock(0)), block);
    EXPECT_EQ(clone->faceSel, helper->faceSel);
    clone->DeleteMe();

    const std::string path =
        (std::filesystem::path(testing::TempDir()) / "control_helper.zvs").string();
    std::string error;
    ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
    ip->Reset();
    ASSERT_TRUE(LoadSceneFile(path, *ip, error)) << error;
    INode* loaded = ip->GetINodeByName(L"Ctrl");
    ASSERT_NE(loaded, nullptr);
    ControlHelper* read = Helper(loaded);
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(BlockText(read->GetParamBlock(0)), block);
    EXPECT_EQ(read->faceSel, faces);
    std::filesystem::remove(path);
}

// The rollup's type change and gizmo reset are one undo entry each, and undo gives the
// block back exactly; a change to the same type records nothing.
TEST_F(ControlHelperState, UndoOfTypeChangeAndGizmoResetRestoresTheBlock) {
    ControlHelper* helper = Helper(MakeControl(L"Ctrl"));
    IParamBlock2* pb = helper->GetParamBlock(0);
    helper->SetGizmoTM(ScaleMatrix(Point3(1, 2, 3)) * RotateXMatrix(0.3f) *
                       TransMatrix(Point3(4, 5, 6)));
    theHold.ClearUndo();
    const std::wstring start = BlockText(pb);

    helper->ChangeType(int(ShapeType::Sphere));
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
    helper->ChangeType(int(ShapeType::Gear));
    helper->ResetGizmo();
    EXPECT_TRUE(helper->GetGizmoTM().IsIdentity());
    ASSERT_EQ(theHold.NumUndoEntries(), 2);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Reset Gizmo"));
    EXPECT_EQ(theHold.UndoName(1), WStr(L"Control Helper Change"));
    ASSERT_TRUE(theHold.Undo());
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(BlockText(pb), start);
}

}  // namespace
}  // namespace zorvanta::test

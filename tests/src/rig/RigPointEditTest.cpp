#include <algorithm>

#include "frame/StringTable.h"
#include "rig/StructureAccessor.h"
#include "tests/src/rig/RigEditTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

using RigPointEdit = RigEditTest;

bool Near(const Point3& a, const Point3& b) {
    return Length(a - b) < 1e-5f;
}

// Moves the selection by a world offset, as the move tool does with world axes.
void MoveWorld(RigSystem* rig, INode* node, const Point3& offset) {
    Matrix3 partm = node->GetObjectTM(0), axis;
    Point3 val = offset;
    rig->Move(0, partm, axis, val);
}

// With affect_mirror a moved point's partner takes the mirrored position, measured from
// the middle or (mirror_relative_to_parent) from the partner's own parent; a point with
// no partner, or with affect_mirror off, moves alone.
TEST_F(RigPointEdit, MirrorPartnersFollow) {
    EditPoints();
    Set(RIG_AFFECT_CHILDREN, 0);
    Set(RIG_MIRROR_RELATIVE_TO_PARENT, 0);
    rig->SelectPoint(kLClav, true);
    MoveWorld(rig, node, Point3(5, 2, 0));
    EXPECT_TRUE(Near(Pos(kLClav), Point3(0.15f, 0.02f, 0.8f)));
    EXPECT_TRUE(Near(Pos(kRClav), Point3(-0.15f, 0.02f, 0.8f)));
    EXPECT_TRUE(Near(Pos(kRArm), Point3(-0.2f, 0, 0.8f))) << "children stay";

    const std::vector<RigPoint> before = rig->points;
    rig->ClearSelection(RigSystem::kPointLevel);
    rig->SelectPoint(kHead, true);
    MoveWorld(rig, node, Point3(0, 0, 10));
    for (size_t i = 0; i < before.size(); ++i)
        EXPECT_EQ(rig->points[i].pos,
                  i == kHead ? before[i].pos + Point3(0, 0, 0.1f) : before[i].pos);

    // The right clavicle moved off the symmetry by hand; moving the left arm out by 0.05.
    rig->points[kRClav].pos = Point3(-0.3f, 0.1f, 0.8f);
    rig->ClearSelection(RigSystem::kPointLevel);
    rig->SelectPoint(kLArm, true);
    MoveWorld(rig, node, Point3(5, 0, 0));
    EXPECT_TRUE(Near(Pos(kRArm), Point3(-0.25f, 0, 0.8f))) << "mirrored about the middle";
    Set(RIG_MIRROR_RELATIVE_TO_PARENT, 1);
    MoveWorld(rig, node, Point3(5, 0, 0));
    // The left arm is now 0.3 - 0.15 = 0.15 out from its clavicle: the right one as much.
    EXPECT_TRUE(Near(Pos(kRArm), Point3(-0.45f, 0, 0.8f)));
    EXPECT_TRUE(Near(Pos(kRClav), Point3(-0.3f, 0.1f, 0.8f))) << "the partner's parent stays";

    Set(RIG_AFFECT_MIRROR, 0);
    MoveWorld(rig, node, Point3(0, 0, 10));
    EXPECT_TRUE(Near(Pos(kRArm), Point3(-0.45f, 0, 0.8f)));
}

// affect_children carries every point reached along the links each point follows:
// head_tip follows the pelvis (its parent's parent), not the head; each pad follows its
// partner's parent. Fixed points never move, and never select.
TEST_F(RigPointEdit, ChildrenFollowTheirChainAndFixedPointsStay) {
    EditPoints();
    Set(RIG_AFFECT_MIRROR, 0);
    struct Case {
        int selected;
        std::vector<int> children;
    };
    const Case cases[] = {
        {kPelvis, {kRClav, kLClav, kRArm, kLArm, kHead, kTip, kRPad, kLPad}},
        {kHead, {}},
        {kRArm, {kLPad}},
        {kLClav, {kLArm, kRPad}},
    };
    for (const Case& c : cases) {
        rig->ClearSelection(RigSystem::kPointLevel);
        rig->SelectPoint(c.selected, true);
        const std::vector<RigPoint> before = rig->points;
        MoveWorld(rig, node, Point3(0, 0, 10));
        for (int i = 0; i < int(before.size()); ++i) {
            const bool moves =
                i == c.selected || std::count(c.children.begin(), c.children.end(), i);
            EXPECT_EQ(rig->points[size_t(i)].pos != before[size_t(i)].pos, moves)
                << "selected " << c.selected << ", point " << i;
            EXPECT_EQ(rig->MovedMarks()[size_t(i)], i == c.selected ? 1 : moves ? 2 : 0);
        }
    }

    rig->SelectAll(RigSystem::kPointLevel);
    EXPECT_FALSE(rig->points[kRoot].selected);
    rig->SelectPoint(kRoot, true);
    EXPECT_FALSE(rig->PointSelection()[kRoot]);
    MoveWorld(rig, node, Point3(1, 2, 3));
    EXPECT_EQ(Pos(kRoot), Point3(0, 0, 0));
}

// The tools act in world space through the node's transform and the tool's axes: a
// point's world position moves by the offset, turns about the axis origin, scales from it.
TEST_F(RigPointEdit, ToolsActInTheirAxesThroughTheNode) {
    const Matrix3 nodeTM = RotateZMatrix(0.7f) * TransMatrix(Point3(30, -10, 5));
    node->SetNodeTM(0, nodeTM);
    EditPoints();
    rig->SelectPoint(kHead, true);
    auto world = [&] { return Pos(kHead) * 100.0f * node->GetObjectTM(0); };
    Matrix3 partm = node->GetObjectTM(0);
    Matrix3 axis = TransMatrix(Point3(1, 2, 3));

    Point3 start = world();
    Point3 offset(4, -6, 8);
    rig->Move(0, partm, axis, offset);
    EXPECT_TRUE(Near(world() / 100.0f, (start + offset) / 100.0f));

    start = world();
    Quat turn(AngAxis(Point3(0, 0, 1), 0.5f));
    rig->Rotate(0, partm, axis, turn);
    EXPECT_TRUE(Near(world() / 100.0f,
                     ((start - axis.GetTrans()) * QuatMatrix(turn) + axis.GetTrans()) / 100.0f));

    start = world();
    Point3 scale(2, 2, 0.5f);
    rig->Scale(0, partm, axis, scale);
    const Point3 d = start - axis.GetTrans();
    EXPECT_TRUE(
        Near(world() / 100.0f, (Point3(d.x * 2, d.y * 2, d.z * 0.5f) + axis.GetTrans()) / 100.0f));

    XFormModes modes;
    rig->ActivateSubobjSel(0, modes);
    start = world();
    rig->Move(0, partm, axis, offset);
    EXPECT_EQ(world(), start) << "the object level moves no point";
}

// A drag of many steps is one undo entry holding every point it moved, mirrors
// included; undo gives back the exact positions, redo the moved ones.
TEST_F(RigPointEdit, OneUndoStepPerGesture) {
    EditPoints();
    rig->SelectPoint(kLClav, true);
    theHold.ClearUndo();
    const std::vector<RigPoint> before = rig->points;
    theHold.Begin();
    for (int step = 0; step < 5; ++step) MoveWorld(rig, node, Point3(1.3f, -0.7f, 2.1f));
    theHold.Accept(WStr(L"Move"));
    const std::vector<RigPoint> after = rig->points;
    ASSERT_NE(after, before);
    theHold.Begin();
    MoveWorld(rig, node, Point3(0, 0, 5));
    theHold.Accept(WStr(L"Move"));
    EXPECT_EQ(theHold.NumUndoEntries(), 2);

    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(rig->points, after);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(rig->points, before);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(rig->points, after);
}

// Each selection change is one "Select" entry that gives back the selection and
// selected_component: all sets it to 0, none to -1, a component selects its points.
TEST_F(RigPointEdit, SelectionChangesUndoAndRedo) {
    EditPoints();
    rig->SelectComponent(kCompArms);
    EXPECT_EQ(Selected(), (std::vector<int>{kRClav, kLClav, kRArm, kLArm}));
    EXPECT_EQ(theHold.UndoName(0), WStr(GetString(IDS_RIG_SELECT)));
    rig->SelectAll(RigSystem::kPointLevel);
    EXPECT_EQ(SelectedComponentParam(), 0);
    EXPECT_EQ(Selected().size(), rig->points.size() - 1) << "all but the fixed point";
    rig->ClearSelection(RigSystem::kPointLevel);
    EXPECT_EQ(SelectedComponentParam(), -1);
    EXPECT_TRUE(Selected().empty());
    rig->SelectPoint(kHead, true);
    rig->InvertSelection(RigSystem::kPointLevel);
    EXPECT_EQ(Selected().size(), rig->points.size() - 2);
    EXPECT_EQ(theHold.NumUndoEntries(), 5);
    rig->ClearSelection(RigSystem::kPointLevel);
    rig->ClearSelection(RigSystem::kPointLevel);
    EXPECT_EQ(theHold.NumUndoEntries(), 6) << "a change that changes nothing records nothing";

    ASSERT_TRUE(theHold.Undo());
    ASSERT_TRUE(theHold.Undo());
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(Selected(), std::vector<int>{});
    EXPECT_EQ(SelectedComponentParam(), -1);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(SelectedComponentParam(), 0);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(Selected(), (std::vector<int>{kRClav, kLClav, kRArm, kLArm}));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(SelectedComponentParam(), 0);
    EXPECT_EQ(rig->PointSelection().NumberSet(), int(rig->points.size()) - 1);
}

// Listens to the rig's block: whether the selection-effect switch was on at each change.
class EffectWatch : public ReferenceMaker {
public:
    explicit EffectWatch(IParamBlock2* pb) { ReplaceReference(0, pb); }
    ~EffectWatch() override { DeleteAllRefsFromMe(); }
    int NumRefs() override { return 1; }
    ReferenceTarget* GetReference(int) override { return block_; }
    RefResult NotifyRefChanged(const Interval&, ReferenceTarget*, PartID&, RefMessage message,
                               bool) override {
        if (message == REFMSG_CHANGE) switchOn.push_back(!StructureAccessor::SelectionEffectOn());
        return REF_SUCCEED;
    }
    std::vector<bool> switchOn;

protected:
    void SetReference(int, ReferenceTarget* target) override { block_ = target; }

private:
    ReferenceTarget* block_ = nullptr;
};

// A picked point is selected alone (or flipped with invert), and its component goes
// to selected_component with the selection effect off, so the component's other
// points stay as they were; a fixed point's hit is ignored.
TEST_F(RigPointEdit, PickedPointWritesItsComponent) {
    EditPoints();
    HitRecord hit;
    hit.nodeRef = node;
    hit.hitInfo = kLArm;
    {
        EffectWatch watch(rig->Block());
        rig->SelectSubComponent(&hit, true, false);
        EXPECT_EQ(watch.switchOn, std::vector<bool>{true}) << "81 is written once, switch on";
    }
    EXPECT_EQ(Selected(), std::vector<int>{kLArm});
    EXPECT_EQ(SelectedComponentParam(), int(kCompArms));
    EXPECT_EQ(rig->selectedComponent, int(kCompArms));
    EXPECT_TRUE(StructureAccessor::SelectionEffectOn());

    hit.hitInfo = kHead;
    rig->SelectSubComponent(&hit, true, false, true);
    rig->SelectSubComponent(&hit, true, false, true);
    hit.hitInfo = kLArm;
    rig->SelectSubComponent(&hit, true, false, true);
    EXPECT_TRUE(Selected().empty());
    EXPECT_EQ(SelectedComponentParam(), int(kCompArms));

    hit.hitInfo = kRoot;
    const int entries = theHold.NumUndoEntries();
    rig->SelectSubComponent(&hit, true, false);
    EXPECT_TRUE(Selected().empty());
    EXPECT_EQ(theHold.NumUndoEntries(), entries);
}

}  // namespace
}  // namespace zorvanta::test

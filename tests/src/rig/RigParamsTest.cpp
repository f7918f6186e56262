#include <gtest/gtest.h>

#include "rig/RigComponents.h"
#include "tests/src/rig/RigObjectTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

using RigParams = RigObjectTest;

// A new type starts from its own structure counts, whatever the previous type set.
TEST_F(RigParams, TypeChangeWritesTheTypesStructureDefaults) {
    RigSystem* rig = MakeRig();
    IParamBlock2* pb = rig->Block();
    const struct {
        int type;
        int arms, legs, tails, ponytails, fangs, fingers, fingerBones;
    } rows[] = {
        {kRigInsect, 0, 3, 1, 2, 1, 5, 3},    {kRigBiped, 1, 1, 0, 0, 0, 5, 3},
        {kRigQuadruped, 1, 1, 1, 0, 0, 1, 1}, {kRigTail, 1, 1, 1, 0, 0, 5, 3},
        {kRigMinotaur, 1, 1, 1, 0, 0, 5, 3},  {kRigCentaur, 1, 1, 1, 0, 0, 5, 3},
        {kRigInsect, 0, 3, 1, 2, 1, 5, 3},    {kRigHands, 1, 1, 0, 0, 0, 5, 3},
        {kRigTentacle, 1, 1, 0, 0, 0, 5, 3},
    };
    for (const auto& r : rows) {
        SCOPED_TRACE(r.type);
        pb->SetValue(RIG_FINGERS, 0, 9);
        SetParam(rig, RIG_TYPE, r.type);
        EXPECT_EQ(pb->GetInt(RIG_TYPE), r.type);
        EXPECT_EQ(pb->GetInt(RIG_ARM_PAIRS), r.arms);
        EXPECT_EQ(pb->GetInt(RIG_LEG_PAIRS), r.legs);
        EXPECT_EQ(pb->GetInt(RIG_TAILS), r.tails);
        EXPECT_EQ(pb->GetInt(RIG_PONYTAILS), r.ponytails);
        EXPECT_EQ(pb->GetInt(RIG_FANGS), r.fangs);
        EXPECT_EQ(pb->GetInt(RIG_FINGERS), r.fingers);
        EXPECT_EQ(pb->GetInt(RIG_FINGER_BONES), r.fingerBones);
        // The rebuild saw the values the block holds now.
        EXPECT_EQ(rig->LastParams().values, GuideParams::Read(pb).values);
    }
}

// Type and side changes put every point back at its default; other parameters keep
// the points the user moved.
TEST_F(RigParams, TypeAndSideDiscardMovedPointsOthersKeepThem) {
    RigSystem* rig = MakeRig();
    rig->AddExtra(L"antenna", L"pelvis", kSideCenter, 3);
    const Point3 moved(10, 20, 30);
    const struct {
        RigParam id;
        int value;
        bool keeps;
    } cases[] = {
        {RIG_FINGERS, 2, true},        {RIG_SPINE_CONTROLS, 5, true}, {RIG_FACE, 1, true},
        {RIG_METACARPALS, 1, true},    {RIG_ARM_PAIRS, 3, true},      {RIG_SIDE, 0, false},
        {RIG_TYPE, kRigInsect, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.id);
        rig->SetPointPos(L"antenna", moved, -1, 1);
        rig->SetPointPos(L"upper_arm", moved, kSideRight);
        SetParam(rig, c.id, c.value);
        // A discarded point goes back to where the new template puts it.
        EXPECT_EQ(rig->GetPointPos(L"antenna", -1, 1).Equals(moved, 1e-4f), c.keeps);
        // A new arm count reshapes the arms themselves.
        if (c.id != RIG_ARM_PAIRS) {
            EXPECT_EQ(rig->GetPointPos(L"upper_arm", kSideRight).Equals(moved, 1e-4f), c.keeps);
        }
    }
}

// Undo and redo of a type change give the points back exactly, with the counts the
// type wrote; the next edit after the undo keeps the moved points again.
TEST_F(RigParams, UndoAndRedoOfTypeChangeReturnThePoints) {
    RigSystem* rig = MakeRig();
    IParamBlock2* pb = rig->Block();
    SetParam(rig, RIG_TYPE, kRigInsect);
    rig->AddExtra(L"tail", {}, kSideBoth, 3);
    rig->SetPointPos(L"tail", Point3(1, 2, 3), kSideLeft, 2);
    theHold.ClearUndo();
    const std::vector<RigPoint> before = rig->points;

    SetParam(rig, RIG_TYPE, kRigBiped);
    const std::vector<RigPoint> after = rig->points;
    ASSERT_NE(after, before);
    EXPECT_EQ(pb->GetInt(RIG_ARM_PAIRS), 1);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(rig->points, before);
    // The values the points were made from come back with them.
    EXPECT_EQ(rig->LastParams().values, GuideParams::Read(pb).values);
    EXPECT_EQ(pb->GetInt(RIG_TYPE), kRigInsect);
    EXPECT_EQ(pb->GetInt(RIG_ARM_PAIRS), 0);
    EXPECT_EQ(pb->GetInt(RIG_PONYTAILS), 2);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(rig->points, after);
    EXPECT_EQ(pb->GetInt(RIG_LEG_PAIRS), 1);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(rig->points, before);

    SetParam(rig, RIG_TOES, 3);
    EXPECT_TRUE(rig->GetPointPos(L"tail", kSideLeft, 2).Equals(Point3(1, 2, 3), 1e-5f));
}

// The size scales positions read from the object at once; the colours and the writes
// of selected_component rebuild nothing.
TEST_F(RigParams, SizeAndSelectedComponent) {
    RigSystem* rig = MakeRig();
    rig->AddExtra(L"tail", {}, kSideCenter, 2);
    rig->SetPointPos(L"tail", Point3(50, 0, 0), -1, 1);
    SetParam(rig, RIG_SELECTED_COMPONENT, 5);
    EXPECT_EQ(rig->selectedComponent, 5);
    Step([&] { rig->Block()->SetValue(RIG_HELPER_SIZE, 0, 200.0f); });
    EXPECT_TRUE(rig->GetPointPos(L"tail", -1, 1).Equals(Point3(100, 0, 0), 1e-4f));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_TRUE(rig->GetPointPos(L"tail", -1, 1).Equals(Point3(50, 0, 0), 1e-4f));
}

}  // namespace
}  // namespace zorvanta::test

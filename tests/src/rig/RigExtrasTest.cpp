#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "host/script/ExecuteScript.h"
#include "rig/RigExtraPoints.h"
#include "tests/src/rig/RigObjectTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

// What an undo must give back exactly.
struct RigState {
    std::vector<RigPoint> points;
    std::vector<RigExtra> extras;
    bool operator==(const RigState&) const = default;
};
RigState StateOf(const RigSystem* rig) {
    return {rig->points, rig->extras};
}

using RigExtras = RigObjectTest;

// Free names count from 1 and compare without case; a removed name is free again.
TEST_F(RigExtras, NamesAreTheFirstFreeExtraNumber) {
    RigSystem* rig = MakeRig();
    EXPECT_EQ(rig->GetExtraName(rig->AddExtra()), WStr(L"extra_1"));
    EXPECT_EQ(rig->GetExtraName(rig->AddExtra()), WStr(L"extra_2"));
    ASSERT_TRUE(rig->RemoveExtra(0));
    EXPECT_EQ(rig->GetExtraName(rig->AddExtra()), WStr(L"extra_1"));
    // A given name that is taken, in any case, falls back to a free number.
    EXPECT_EQ(rig->GetExtraName(rig->AddExtra(L"EXTRA_2")), WStr(L"extra_3"));
    EXPECT_EQ(rig->GetExtraName(rig->AddExtra(L"Tail")), WStr(L"Tail"));
    EXPECT_EQ(rig->GetNumExtras(), 4);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Rig System Change"));
}

// No side given: right or left from the parent's prefix, centre for any other parent.
TEST_F(RigExtras, SideFollowsTheParentsPrefix) {
    RigSystem* rig = MakeRig();
    const struct {
        const wchar_t* parent;
        int side;
        int expected;
    } cases[] = {
        {L"l_hand", kSideNone, kSideLeft},
        {L"r_foot", kSideNone, kSideRight},
        {L"spine_1", kSideNone, kSideCenter},
        {L"l_hand", kSideBoth, kSideBoth},
        {L"l_hand", 7, kSideLeft},
    };
    for (const auto& c : cases) {
        const int i = rig->AddExtra({}, c.parent, c.side);
        EXPECT_EQ(rig->GetExtraSide(i), c.expected) << c.parent << " " << c.side;
    }
}

// Bad indices read as nothing and change nothing; no undo step is made.
TEST_F(RigExtras, BadIndexChangesNothing) {
    RigSystem* rig = MakeRig();
    rig->AddExtra(L"tail", {}, kSideCenter, 3);
    theHold.ClearUndo();
    const RigState before = StateOf(rig);
    const int n = rig->GetNumExtras();
    EXPECT_EQ(rig->GetExtraNumControls(n), 0);
    EXPECT_EQ(rig->GetExtraNumBones(-1), 0);
    EXPECT_EQ(rig->GetExtraName(n), WStr());
    EXPECT_EQ(rig->GetExtraParent(n), WStr());
    EXPECT_FALSE(rig->GetExtraUseBones(n));
    EXPECT_FALSE(rig->RemoveExtra(n));
    EXPECT_FALSE(rig->SetExtraName(n, L"x"));
    EXPECT_FALSE(rig->SetExtraParent(-1, L"x"));
    EXPECT_FALSE(rig->SetExtraSide(n, kSideLeft));
    EXPECT_FALSE(rig->SetExtraNumControls(n, 2));
    EXPECT_FALSE(rig->SetExtraNumBones(n, 2));
    EXPECT_FALSE(rig->SetExtraUseBones(n, true));
    // Bad values on a good index.
    EXPECT_FALSE(rig->SetExtraSide(0, 4));
    EXPECT_FALSE(rig->SetExtraNumControls(0, 0));
    EXPECT_FALSE(rig->SetExtraName(0, L""));
    EXPECT_EQ(rig->AddExtra({}, {}, kSideNone, 0), -1);
    EXPECT_EQ(StateOf(rig), before);
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
}

// A chain's points: named by side and count, hanging one on the other from the parent,
// mirrored pairs for both sides, bone points when the extra uses bones.
TEST_F(RigExtras, ExtraPointsFollowNamingAndLinks) {
    RigSystem* rig = MakeRig();
    rig->AddExtra(L"tail", {}, kSideCenter, 3);
    rig->AddExtra(L"ear", L"tail_3", kSideBoth, 2, 3, true);
    const int tail3 = rig->FindPoint(L"tail_3");
    ASSERT_GE(tail3, 0);
    EXPECT_EQ(rig->points[size_t(tail3)].parent, rig->FindPoint(L"tail_2"));
    const int r1 = rig->FindPoint(L"ear", kSideRight, 0), l1 = rig->FindPoint(L"ear", kSideLeft, 0);
    ASSERT_GE(r1, 0);
    ASSERT_GE(l1, 0);
    EXPECT_EQ(rig->points[size_t(r1)].mirror, l1);
    EXPECT_EQ(rig->points[size_t(r1)].parent, tail3);
    EXPECT_EQ(rig->points[size_t(r1)].pos, rig->points[size_t(tail3)].pos);
    EXPECT_EQ(rig->points[size_t(r1)].component, kExtraComponentBase + 1);
    EXPECT_GE(rig->FindPoint(L"ear_bone", kSideLeft, 2), 0);
    EXPECT_LT(rig->FindPoint(L"ear_bone", kSideLeft, 3), 0);
    // The new extras' placement flags are spent; the bones flag stays.
    EXPECT_EQ(rig->extras[0].flags, 0u);
    EXPECT_EQ(rig->extras[1].flags, uint32_t(kExtraUseBones));
    // The extra on the other one sorts after it whatever the names.
    ASSERT_TRUE(rig->SetExtraName(0, L"zz"));
    EXPECT_EQ(rig->GetExtraName(0), WStr(L"zz"));
    EXPECT_EQ(rig->GetExtraParent(1), WStr(L"zz_3"));
    EXPECT_EQ(rig->points[size_t(rig->FindPoint(L"zz_3"))].pos, rig->points[size_t(tail3)].pos);
}

// Every extra edit is one undo step that gives back the points and the extras exactly,
// and its redo the state after it.
TEST_F(RigExtras, EachEditUndoesAndRedoesExactly) {
    RigSystem* rig = MakeRig();
    rig->AddExtra(L"tail", {}, kSideCenter, 3);
    rig->AddExtra(L"fin", L"tail_2", kSideBoth, 2);
    rig->SetPointPos(L"tail_3", Point3(5, 6, 7));
    rig->WriteSelectedComponent(kExtraComponentBase + 1);
    theHold.ClearUndo();
    const std::pair<const char*, std::function<void()>> edits[] = {
        {"add", [&] { rig->AddExtra({}, L"fin_1", kSideNone, 2, 3, true); }},
        {"remove", [&] { rig->RemoveExtra(0); }},
        {"name", [&] { rig->SetExtraName(0, L"Aaa"); }},
        {"parent", [&] { rig->SetExtraParent(1, L"tail_3"); }},
        {"side", [&] { rig->SetExtraSide(1, kSideLeft); }},
        {"controls", [&] { rig->SetExtraNumControls(0, 5); }},
        {"bones", [&] { rig->SetExtraNumBones(1, 4); }},
        {"use bones", [&] { rig->SetExtraUseBones(1, true); }},
    };
    for (const auto& [what, edit] : edits) {
        SCOPED_TRACE(what);
        const RigState before = StateOf(rig);
        const int selected = rig->Block()->GetInt(RIG_SELECTED_COMPONENT);
        edit();
        const RigState after = StateOf(rig);
        EXPECT_NE(after, before);
        ASSERT_EQ(theHold.NumUndoEntries(), 1);
        ASSERT_TRUE(theHold.Undo());
        EXPECT_EQ(StateOf(rig), before);
        EXPECT_EQ(rig->Block()->GetInt(RIG_SELECTED_COMPONENT), selected);
        EXPECT_EQ(rig->selectedComponent, selected);
        ASSERT_TRUE(theHold.Redo());
        EXPECT_EQ(StateOf(rig), after);
        ASSERT_TRUE(theHold.Undo());
        theHold.ClearUndo();
    }
}

// Removing the selected extra clears the selected component; removing one before it
// keeps it on the same extra.
TEST_F(RigExtras, RemoveKeepsSelectedComponentOnItsExtra) {
    RigSystem* rig = MakeRig();
    rig->AddExtra(L"a", {}, kSideCenter);
    rig->AddExtra(L"b", {}, kSideCenter);
    rig->AddExtra(L"c", {}, kSideCenter);
    rig->WriteSelectedComponent(kExtraComponentBase + 2);
    rig->RemoveExtra(0);
    EXPECT_EQ(rig->selectedComponent, kExtraComponentBase + 1);
    rig->RemoveExtra(1);
    EXPECT_EQ(rig->selectedComponent, -1);
    EXPECT_EQ(rig->Block()->GetInt(RIG_SELECTED_COMPONENT), -1);
}

// The published interface from a script, with keyword arguments, one-based indices and
// the enums by name; bad arguments are errors that change nothing.
TEST_F(RigExtras, InterfaceFromAScript) {
    RigSystem* rig = MakeRig(L"Hero");
    auto run = [&](const wchar_t* text) {
        ip->ClearListener();
        FPValue result;
        const bool ok = ExecuteTarnixScriptScript(text, false, &result);
        return ok ? ip->ListenerText().str() : std::wstring(L"error");
    };
    EXPECT_EQ(run(L"print ($Hero.AddExtra())\n"
                  L"$Hero.AddExtra name:\"tail\" parent:\"l_hand\" num_controls:3 use_bones:true\n"
                  L"print ($Hero.GetNumExtras())\n"
                  L"print ($Hero.GetExtraName 2)\n"
                  L"print ($Hero.GetExtraSide 2)\n"
                  L"print ($Hero.GetExtraNumControls 2)\n"
                  L"print ($Hero.GetExtraNumControls 3)\n"),
              L"true\n2\n\"tail\"\n1\n3\n0\n");
    EXPECT_TRUE(rig->GetExtraUseBones(1));
    EXPECT_EQ(run(L"print ($Hero.SetExtraSide 2 #Both)\nprint ($Hero.SetExtraNumControls 1 4)\n"
                  L"print ($Hero.SetExtraName 3 \"x\")"),
              L"true\ntrue\nfalse\n");
    EXPECT_EQ(rig->GetExtraSide(1), kSideBoth);
    EXPECT_EQ(rig->GetExtraNumControls(0), 4);
    EXPECT_EQ(run(L"$Hero.SetPointPos \"tail\" [1, 2, 3] side:#Left index:2\n"
                  L"print ($Hero.GetPointPos \"tail\" side:1 index:2)"),
              L"[1.0,2.0,3.0]\n");

    const RigState before = StateOf(rig);
    EXPECT_EQ(run(L"$Hero.AddExtra side:7"), L"error");
    EXPECT_EQ(run(L"$Hero.AddExtra num_bones:0"), L"error");
    EXPECT_EQ(run(L"$Hero.type = 28"), L"error");
    EXPECT_EQ(StateOf(rig), before);
    EXPECT_EQ(run(L"$Hero.type = #Insect\nprint $Hero.type"), L"17\n");
    EXPECT_EQ(rig->Block()->GetInt(RIG_LEG_PAIRS), 3);
    EXPECT_EQ(run(L"print ($Hero.Load \"x.rig\")"),
              L"Rig templates cannot be read yet: x.rig\nOK\n");
}

}  // namespace
}  // namespace zorvanta::test

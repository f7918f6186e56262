#include <gtest/gtest.h>

#include <map>
#include <random>

#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

class References : public ::testing::Test {
protected:
    void TearDown() override {
        theHold.ClearUndo();
        EXPECT_TRUE(TestTarget::live.empty()) << TestTarget::live.size() << " objects leaked";
        for (TestTarget* t : std::set<TestTarget*>(TestTarget::live)) t->DeleteThis();
    }
};

TEST_F(References, LastReferenceGoneDeletesTheTargetAndItsOwnTargets) {
    auto* root = new TestTarget;
    auto* a = new TestTarget;
    auto* b = new TestTarget;
    root->ReplaceReference(0, a);
    root->ReplaceReference(1, a);  // one maker, two slots: one dependent
    a->ReplaceReference(0, b);
    EXPECT_EQ(a->NumDependents(), 1);
    root->DeleteReference(0);
    EXPECT_EQ(TestTarget::live.size(), 3u);     // slot 1 still refers to a
    root->ReplaceReference(1, nullptr, false);  // delOld false: the caller keeps a
    EXPECT_EQ(TestTarget::live.size(), 3u);
    root->ReplaceReference(2, a);
    root->DeleteReference(2);  // now a goes, and b with it
    EXPECT_EQ(TestTarget::live.size(), 1u);
    EXPECT_EQ(root->ReplaceReference(3, nullptr), REF_FAIL);  // no such slot
    root->DeleteMe();
}

TEST_F(References, DeleteMeTellsDependentsAndCutsTheirReferences) {
    auto* root = new TestTarget;
    auto* other = new TestTarget;
    auto* shared = new TestTarget;
    root->ReplaceReference(0, shared);
    other->ReplaceReference(2, shared);
    root->ReplaceReference(1, other);
    shared->DeleteMe();
    EXPECT_EQ(root->Ref(0), nullptr);
    EXPECT_EQ(other->Ref(2), nullptr);
    ASSERT_FALSE(root->heard.empty());
    EXPECT_EQ(root->heard.front().message, REFMSG_TARGET_DELETED);
    EXPECT_EQ(other->heard.size(), 1u);  // the deletion message is not passed on
    root->DeleteMe();
}

TEST_F(References, MessagesPropagateUntilStoppedAndNotWhileDisabled) {
    // leaf <- mid <- top, and leaf <- side: a change of leaf reaches all three.
    auto* top = new TestTarget;
    auto* mid = new TestTarget;
    auto* side = new TestTarget;
    auto* leaf = new TestTarget;
    top->ReplaceReference(0, mid);
    top->ReplaceReference(1, side);
    mid->ReplaceReference(0, leaf);
    side->ReplaceReference(0, leaf);
    leaf->SetValue(1);
    ASSERT_EQ(mid->heard.size(), 1u);
    EXPECT_EQ(mid->heard[0].from, leaf);
    EXPECT_EQ(top->heard.size(), 2u);  // once along each path
    EXPECT_EQ(top->heard[0].from, mid);

    mid->stopMessages = true;
    leaf->SetValue(2);
    EXPECT_EQ(top->heard.size(), 3u);  // only through side
    DisableRefMsgs();
    leaf->SetValue(3);
    EnableRefMsgs();
    EXPECT_EQ(mid->heard.size(), 2u);

    // The loop probe marks every dependent it reaches: top through side, but nothing that
    // hangs on mid alone, since mid stops messages.
    auto* onlyMid = new TestTarget;
    onlyMid->ReplaceReference(0, mid);
    leaf->NotifyDependents(FOREVER, PART_ALL, REFMSG_LOOPTEST);
    EXPECT_TRUE(mid->TestAFlag(A_LOOP_MARK) && side->TestAFlag(A_LOOP_MARK) &&
                top->TestAFlag(A_LOOP_MARK));
    EXPECT_FALSE(leaf->TestAFlag(A_LOOP_MARK) || onlyMid->TestAFlag(A_LOOP_MARK));
    onlyMid->DeleteMe();
    top->DeleteMe();
}

TEST_F(References, DependentsLettingGoDuringAMessageDoNotHideOthers) {
    auto* t = new TestTarget;
    std::vector<TestTarget*> makers;
    for (int i = 0; i < 4; ++i) {
        makers.push_back(new TestTarget);
        makers.back()->ReplaceReference(0, t);
        makers.back()->dropOnChange = i % 2 == 0;
    }
    t->SetValue(1);
    for (TestTarget* m : makers) EXPECT_EQ(m->heard.size(), 1u);
    EXPECT_EQ(t->NumDependents(), 2);
    t->SetValue(2);
    EXPECT_EQ(makers[1]->heard.size(), 2u);
    EXPECT_EQ(makers[0]->heard.size(), 1u);
    for (TestTarget* m : makers) m->DeleteMe();
    EXPECT_EQ(TestTarget::live.count(t), 0u);  // t went with its last dependent
}

TEST_F(References, LoopTestAndDependentWalks) {
    auto* top = new TestTarget;
    auto* mid = new TestTarget;
    auto* leaf = new TestTarget;
    top->ReplaceReference(0, mid);
    mid->ReplaceReference(0, leaf);
    EXPECT_EQ(top->TestForLoop(FOREVER, leaf), REF_FAIL);  // leaf -> top would close a cycle
    EXPECT_EQ(leaf->TestForLoop(FOREVER, leaf), REF_FAIL);
    EXPECT_EQ(leaf->TestForLoop(FOREVER, top), REF_SUCCEED);  // top already depends on leaf
    struct Collect : DependentEnumProc {
        std::vector<ReferenceMaker*> seen;
        DepEnumResult proc(ReferenceMaker* m) override {
            seen.push_back(m);
            return DEP_ENUM_CONTINUE;
        }
    } all;
    leaf->DoEnumDependents(&all);
    EXPECT_EQ(all.seen, (std::vector<ReferenceMaker*>{mid, top}));
    DependentIterator direct(leaf);
    EXPECT_EQ(direct.Next(), mid);
    EXPECT_EQ(direct.Next(), nullptr);
    top->DeleteMe();
}

// The reachable graph from a root: each object's value and its slots, by object.
using Snapshot = std::map<TestTarget*, std::pair<int, std::vector<TestTarget*>>>;

void Collect(TestTarget* t, Snapshot& s) {
    if (!t || s.count(t)) return;
    auto& entry = s[t];
    entry.first = t->Value();
    for (int i = 0; i < TestTarget::kSlots; ++i) {
        entry.second.push_back(t->Ref(i));
        Collect(t->Ref(i), s);
    }
}

Snapshot Take(TestTarget* root) {
    Snapshot s;
    Collect(root, s);
    return s;
}

// Random edits under holds (values, references, new objects, deletions, nested and
// cancelled holds); undoing everything gives the first state back exactly, redoing
// everything the last, and nothing leaks or is used after being freed.
TEST_F(References, UndoAndRedoOfRandomEditsGiveBackExactStates) {
    std::mt19937 rng(77);
    auto pick = [&rng](int n) { return int(std::uniform_int_distribution<int>(0, n - 1)(rng)); };
    auto* root = new TestTarget;
    const Snapshot initial = Take(root);
    int entries = 0;
    for (int step = 0; step < 400; ++step) {
        const Snapshot now = Take(root);
        std::vector<TestTarget*> reachable;
        for (auto& [t, unused] : now) reachable.push_back(t);
        TestTarget* t = reachable[size_t(pick(int(reachable.size())))];
        TestTarget* other = reachable[size_t(pick(int(reachable.size())))];
        const int slot = pick(TestTarget::kSlots);
        theHold.Begin();
        switch (pick(5)) {
            case 0:
                t->SetValue(pick(1000));
                break;
            case 1: {
                auto* fresh = new TestTarget;
                fresh->SetValue(step);
                t->ReplaceReference(slot, fresh);
                break;
            }
            case 2:
                if (other->TestForLoop(FOREVER, t) == REF_SUCCEED) t->ReplaceReference(slot, other);
                break;
            case 3:
                if (t != root) t->DeleteMe();
                break;
            case 4:
                theHold.Begin();  // a nested hold merges into this one
                t->DeleteReference(slot);
                other->SetValue(-step);
                theHold.Accept(L"inner");
                break;
        }
        if (pick(8) == 0) {
            theHold.Cancel();
            ASSERT_EQ(Take(root), now) << "cancel at step " << step;
        } else {
            const int before = theHold.NumUndoEntries();
            theHold.Accept(WStr(L"step"));
            entries += theHold.NumUndoEntries() - before;
        }
    }
    const Snapshot final = Take(root);
    ASSERT_EQ(theHold.NumUndoEntries(), entries);
    while (theHold.Undo()) {
    }
    EXPECT_EQ(Take(root), initial);
    while (theHold.Redo()) {
    }
    EXPECT_EQ(Take(root), final);
    theHold.ClearUndo();
    root->DeleteMe();
}

TEST_F(References, ObjectsDeletedUnderAHoldComeBackWithUndo) {
    auto* root = new TestTarget;
    auto* child = new TestTarget;
    auto* grandchild = new TestTarget;
    root->ReplaceReference(0, child);
    child->ReplaceReference(0, grandchild);
    grandchild->SetValue(5);
    theHold.Begin();
    child->DeleteMe();
    theHold.Accept(L"Delete");
    EXPECT_EQ(root->Ref(0), nullptr);
    EXPECT_EQ(TestTarget::live.size(), 3u);  // kept by the undo record
    EXPECT_EQ(child->Ref(0), nullptr);       // a deleted object lets go of its own targets
    EXPECT_EQ(grandchild->NumDependents(), 0);
    ASSERT_TRUE(theHold.Undo());
    ASSERT_EQ(root->Ref(0), child);
    ASSERT_EQ(child->Ref(0), grandchild);
    EXPECT_EQ(grandchild->Value(), 5);
    theHold.Redo();
    theHold.ClearUndo();  // the records go, and the deleted objects with them
    EXPECT_EQ(TestTarget::live.size(), 1u);
    root->DeleteMe();
}

}  // namespace
}  // namespace host

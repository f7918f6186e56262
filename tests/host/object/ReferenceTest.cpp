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
    // n new targets, each referring to the next in slot 0.
    static std::vector<TestTarget*> Chain(int n) {
        std::vector<TestTarget*> c(static_cast<size_t>(n));
        for (auto& t : c) t = new TestTarget;
        for (size_t i = 0; i + 1 < c.size(); ++i) c[i]->ReplaceReference(0, c[i + 1]);
        return c;
    }
};

TEST_F(References, TargetsGoWithTheirLastReferenceAndTakeTheirOwnAlong) {
    const auto c = Chain(3);  // root -> a -> b
    TestTarget *root = c[0], *a = c[1];
    root->ReplaceReference(1, a);  // one maker in two slots is one dependent
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

TEST_F(References, MessagesPropagateUntilStoppedAndNotWhileDisabled) {
    // leaf <- mid <- top and leaf <- side <- top; onlyMid hangs on mid alone.
    const auto c = Chain(3);
    TestTarget *top = c[0], *mid = c[1], *leaf = c[2], *side = new TestTarget,
               *onlyMid = new TestTarget;
    top->ReplaceReference(1, side);
    side->ReplaceReference(0, leaf);
    onlyMid->ReplaceReference(0, mid);
    leaf->SetValue(1);
    ASSERT_EQ(mid->heard.size(), 1u);
    EXPECT_EQ(mid->heard[0].from, leaf);
    EXPECT_EQ(top->heard.size(), 2u);  // once along each path, from the nearer target
    EXPECT_EQ(top->heard[0].from, mid);
    mid->stopMessages = true;
    leaf->SetValue(2);
    EXPECT_EQ(top->heard.size(), 3u);  // only through side now
    DisableRefMsgs();
    leaf->SetValue(3);
    EnableRefMsgs();
    EXPECT_EQ(mid->heard.size(), 2u);
    // The loop probe marks every dependent it reaches.
    leaf->NotifyDependents(FOREVER, PART_ALL, REFMSG_LOOPTEST);
    EXPECT_TRUE(mid->TestAFlag(A_LOOP_MARK) && side->TestAFlag(A_LOOP_MARK) &&
                top->TestAFlag(A_LOOP_MARK));
    EXPECT_FALSE(leaf->TestAFlag(A_LOOP_MARK) || onlyMid->TestAFlag(A_LOOP_MARK));
    onlyMid->DeleteMe();
    top->DeleteMe();
}

TEST_F(References, DependentsLettingGoDuringAMessageDoNotHideOthers) {
    auto* t = new TestTarget;
    std::vector<TestTarget*> makers(4);
    for (size_t i = 0; i < makers.size(); ++i) {
        makers[i] = new TestTarget;
        makers[i]->ReplaceReference(0, t);
        makers[i]->dropOnChange = i % 2 == 0;
    }
    t->SetValue(1);
    for (TestTarget* m : makers) EXPECT_EQ(m->heard.size(), 1u);
    EXPECT_EQ(t->NumDependents(), 2);
    for (TestTarget* m : makers) m->DeleteMe();
    EXPECT_EQ(TestTarget::live.count(t), 0u);  // t went with its last dependent
}

TEST_F(References, LoopTestAndDependentWalksFollowTheDependencies) {
    const auto c = Chain(3);  // top -> mid -> leaf
    TestTarget *top = c[0], *mid = c[1], *leaf = c[2];
    EXPECT_EQ(top->TestForLoop(FOREVER, leaf), REF_FAIL);  // leaf -> top would close a cycle
    EXPECT_EQ(leaf->TestForLoop(FOREVER, leaf), REF_FAIL);
    EXPECT_EQ(leaf->TestForLoop(FOREVER, top), REF_SUCCEED);
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
    EXPECT_TRUE(direct.Next() == mid && direct.Next() == nullptr);
    top->DeleteMe();
}

// Undoing deletions is covered by the random walk below.
TEST_F(References, DeletionTellsDependentsAndTheUndoRecordKeepsTheObjects) {
    const auto c = Chain(3);  // root -> child -> grandchild, and other -> child
    TestTarget *root = c[0], *child = c[1], *grandchild = c[2], *other = new TestTarget;
    other->ReplaceReference(2, child);
    root->ReplaceReference(1, other);
    theHold.Begin();
    child->DeleteMe();
    theHold.Accept(L"Delete");
    EXPECT_EQ(root->heard.back().message, REFMSG_TARGET_DELETED);
    EXPECT_EQ(other->heard.back().message, REFMSG_TARGET_DELETED);  // not passed on to root
    EXPECT_EQ(TestTarget::live.size(), 4u);                         // kept by the undo record...
    EXPECT_EQ(grandchild->NumDependents(), 0);  // ...but no longer holding its own targets
    theHold.ClearUndo();                        // the records go, and the deleted objects with them
    EXPECT_EQ(TestTarget::live.size(), 2u);
    root->DeleteMe();
}

// The graph reachable from a root: each object's value and slots.
using Snapshot = std::map<TestTarget*, std::pair<int, std::vector<TestTarget*>>>;

void Collect(TestTarget* t, Snapshot& s) {
    if (!t || s.count(t)) return;
    s[t].first = t->Value();
    for (int i = 0; i < TestTarget::kSlots; ++i) {
        s[t].second.push_back(t->Ref(i));
        Collect(t->Ref(i), s);
    }
}

Snapshot Take(TestTarget* root) {
    Snapshot s;
    Collect(root, s);
    return s;
}

// Random edits under holds (values set twice, references, new objects, deletions, nested and
// cancelled holds): undo all gives the first state, redo all the last, with no leaks.
TEST_F(References, UndoAndRedoOfRandomEditsGiveBackExactStates) {
    std::mt19937 rng(77);
    auto pick = [&rng](size_t n) { return std::uniform_int_distribution<size_t>(0, n - 1)(rng); };
    auto* root = new TestTarget;
    const Snapshot initial = Take(root);
    int entries = 0;
    for (int step = 0; step < 400; ++step) {
        const Snapshot now = Take(root);
        std::vector<TestTarget*> reachable;
        for (auto& [t, unused] : now) reachable.push_back(t);
        TestTarget *t = reachable[pick(reachable.size())],
                   *other = reachable[pick(reachable.size())];
        const int slot = int(pick(TestTarget::kSlots));
        theHold.Begin();
        switch (pick(5)) {
            case 0:  // undo must restore the first record last
                t->SetValue(int(pick(1000)));
                t->SetValue(int(pick(1000)));
                break;
            case 1:
                t->ReplaceReference(slot, new TestTarget);
                break;
            case 2:
                if (other->TestForLoop(FOREVER, t) == REF_SUCCEED) t->ReplaceReference(slot, other);
                break;
            case 3:
                if (t != root) t->DeleteMe();
                break;
            case 4:
                theHold.Begin();  // a nested hold merges into this one, or cancels only itself
                t->DeleteReference(slot);
                other->SetValue(-step);
                if (pick(3) == 0) {
                    theHold.Cancel();
                    ASSERT_EQ(Take(root), now) << "inner cancel at step " << step;
                } else {
                    theHold.Accept(L"inner");
                }
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

}  // namespace
}  // namespace host

#include <gtest/gtest.h>

#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

// A restore object that reports what the hold does with it.
struct Probe : RestoreObj {
    struct Log {
        int restores = 0, redos = 0, endHolds = 0, alive = 0;
        bool sawRestoring = false, sawUndo = false, sawRedoing = false;
    };
    explicit Probe(Log& log) : log(log) { ++log.alive; }
    ~Probe() override { --log.alive; }
    void Restore(bool isUndo) override {
        ++log.restores;
        bool undo = false;
        log.sawRestoring =
            theHold.Restoring(undo) && theHold.RestoreOrRedoing() && !theHold.Holding();
        log.sawUndo = undo && isUndo;
    }
    void Redo() override {
        ++log.redos;
        log.sawRedoing = theHold.Redoing();
    }
    void EndHold() override { ++log.endHolds; }
    Log& log;
};

class Holds : public ::testing::Test {
protected:
    void TearDown() override { theHold.ClearUndo(); }
};

TEST_F(Holds, NestedHoldsMergeIntoOneNamedEntry) {
    Probe::Log log;
    theHold.Begin();
    theHold.Put(new Probe(log));
    theHold.Begin();
    theHold.Put(new Probe(log));
    theHold.Accept(L"inner");
    EXPECT_EQ(theHold.NumUndoEntries(), 0);  // still open
    theHold.Accept(L"outer");
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"outer"));
    EXPECT_EQ(log.endHolds, 2);  // on accepting the whole hold
    theHold.Begin();
    theHold.Accept(L"empty");  // nothing recorded: no entry
    EXPECT_EQ(theHold.NumUndoEntries(), 1);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_TRUE(log.sawRestoring && log.sawUndo);
    EXPECT_EQ(theHold.RedoName(0), WStr(L"outer"));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_TRUE(log.sawRedoing);
    EXPECT_EQ(log.restores, 2);
    EXPECT_EQ(log.redos, 2);
}

TEST_F(Holds, UndoRunsLastToFirstAndRedoFirstToLast) {
    auto* t = new TestTarget;
    theHold.Begin();
    t->SetValue(1);
    t->SetValue(2);
    theHold.Accept(L"Twice");
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(t->Value(), 0);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(t->Value(), 2);
    theHold.ClearUndo();
    t->DeleteMe();
}

TEST_F(Holds, CancelRestoresOnlyWhatItsBeginOpened) {
    auto* t = new TestTarget;
    auto* u = new TestTarget;
    theHold.Begin();
    t->SetValue(1);
    theHold.Begin();
    u->SetValue(2);
    t->SetValue(3);
    theHold.Cancel();  // the inner hold: u back to 0, t back to 1
    EXPECT_EQ(u->Value(), 0);
    EXPECT_EQ(t->Value(), 1);
    theHold.Accept(L"Outer");
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(t->Value(), 0);
    EXPECT_FALSE(theHold.Undo());  // the cancelled part left no entry
    theHold.ClearUndo();
    t->DeleteMe();
    u->DeleteMe();
}

TEST_F(Holds, NothingIsRecordedOutsideAnOpenUnsuspendedHold) {
    Probe::Log log;
    theHold.Put(new Probe(log));  // no hold: deleted at once
    EXPECT_EQ(log.alive, 0);
    theHold.Begin();
    theHold.Suspend();
    theHold.Suspend();
    theHold.Resume();
    EXPECT_FALSE(theHold.Holding());
    theHold.Put(new Probe(log));
    theHold.Resume();
    EXPECT_TRUE(theHold.Holding());
    EXPECT_FALSE(theHold.Undo());  // refused while a hold is open
    theHold.Put(new Probe(log));
    theHold.Accept(L"One");
    EXPECT_EQ(log.alive, 1);
    theHold.Begin();
    theHold.Put(new Probe(log));
    theHold.Accept(L"Two");  // a new entry drops the redo stack: nothing there yet
    theHold.Undo();
    theHold.Begin();
    theHold.Put(new Probe(log));
    theHold.Accept(L"Three");  // now it drops "Two"
    EXPECT_EQ(theHold.NumRedoEntries(), 0);
    EXPECT_EQ(log.alive, 2);
}

}  // namespace
}  // namespace host

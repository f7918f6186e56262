#include <gtest/gtest.h>

#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

// A restore object that reports what the hold does with it.
struct Probe : RestoreObj {
    struct Log {
        int restores = 0, redos = 0, endHolds = 0, alive = 0;
        bool sawUndo = false, sawRedo = false;
    };
    explicit Probe(Log& log) : log(log) { ++log.alive; }
    ~Probe() override { --log.alive; }
    void Restore(bool isUndo) override {
        bool undo = false;
        log.sawUndo = theHold.Restoring(undo) && undo && isUndo && !theHold.Holding();
        ++log.restores;
    }
    void Redo() override {
        log.sawRedo = theHold.Redoing() && theHold.RestoreOrRedoing();
        ++log.redos;
    }
    void EndHold() override { ++log.endHolds; }
    Log& log;
};

class Holds : public ::testing::Test {
protected:
    void TearDown() override { theHold.ClearUndo(); }
};

// Undo order and inner cancels are covered by the random walk in ReferenceTest.
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
    EXPECT_TRUE(theHold.UndoName(0) == WStr(L"outer") && log.endHolds == 2);
    theHold.Begin();
    theHold.Accept(L"empty");  // nothing recorded: no entry
    EXPECT_EQ(theHold.NumUndoEntries(), 1);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_TRUE(log.sawUndo && theHold.RedoName(0) == WStr(L"outer"));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_TRUE(log.sawRedo && log.restores == 2 && log.redos == 2);
    theHold.ClearUndo();  // the probes write to log as they go
}

TEST_F(Holds, NothingIsRecordedOutsideAnOpenUnsuspendedHold) {
    Probe::Log log;
    theHold.Put(new Probe(log));  // no hold: deleted at once
    EXPECT_EQ(log.alive, 0);
    theHold.Begin();
    theHold.Suspend();
    theHold.Suspend();
    theHold.Resume();
    theHold.Put(new Probe(log));  // still suspended once
    theHold.Resume();
    EXPECT_TRUE(theHold.Holding() && !theHold.Undo());  // undo refused while a hold is open
    theHold.Put(new Probe(log));
    theHold.Accept(L"One");
    EXPECT_EQ(log.alive, 1);
    theHold.Begin();
    theHold.Put(new Probe(log));
    theHold.Accept(L"Two");
    theHold.Undo();
    theHold.Begin();
    theHold.Put(new Probe(log));
    theHold.Accept(L"Three");  // a new entry drops the redo stack, "Two" with it
    EXPECT_TRUE(theHold.NumRedoEntries() == 0 && log.alive == 2);
    theHold.ClearUndo();
    EXPECT_EQ(log.alive, 0);
}

}  // namespace
}  // namespace host

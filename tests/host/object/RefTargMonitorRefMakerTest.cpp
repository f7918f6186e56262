#include <gtest/gtest.h>

#include "host/object/RefTargMonitorRefMaker.h"
#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

// An owner of one weak reference that logs what its target says.
struct Watcher : IRefTargMonitor {
    explicit Watcher(ReferenceTarget* target) : weak(new RefTargMonitorRefMaker(*this, target)) {}
    ~Watcher() override {
        if (weak) weak->DeleteThis();
    }
    RefResult ProcessRefTargMonitorMsg(const Interval&, ReferenceTarget*, PartID&,
                                       RefMessage message, bool fromTarget, bool,
                                       RefTargMonitorRefMaker*) override {
        heard.push_back(message);
        EXPECT_TRUE(fromTarget);
        if (message != REFMSG_TARGET_DELETED || !goWithTarget) return REF_SUCCEED;
        weak = nullptr;  // the reference system deletes the maker that answers this
        return REF_AUTO_DELETE;
    }
    int ProcessEnumDependents(DependentEnumProc*) override { return 0; }

    RefTargMonitorRefMaker* weak;
    std::vector<RefMessage> heard;
    bool goWithTarget = false;
};

class WeakReferences : public ::testing::Test {
protected:
    void TearDown() override {
        theHold.ClearUndo();
        EXPECT_TRUE(TestTarget::live.empty());
    }
};

TEST_F(WeakReferences, NeitherOwnNorKeepTheirTargetButHearIt) {
    auto* root = new TestTarget;
    auto* t = new TestTarget;
    root->ReplaceReference(0, t);
    Watcher watcher(t), gone(t);
    gone.goWithTarget = true;  // its maker answers REF_AUTO_DELETE and is deleted for it
    t->SetValue(1);
    EXPECT_EQ(watcher.heard, std::vector<RefMessage>{REFMSG_CHANGE});
    EXPECT_TRUE(t->HasDependents() && t->HasStrongDependents());
    root->DeleteReference(0);  // the last strong reference: t goes despite the watcher
    EXPECT_EQ(TestTarget::live.size(), 1u);
    EXPECT_EQ(watcher.heard.back(), REFMSG_TARGET_DELETED);
    EXPECT_EQ(watcher.weak->GetRef(), nullptr);  // only cleared
    EXPECT_EQ(gone.weak, nullptr);

    auto* loose = new TestTarget;  // letting go of a target nobody owns leaves it alone
    watcher.weak->SetRef(loose);
    watcher.weak->SetRef(nullptr);
    EXPECT_EQ(TestTarget::live.count(loose), 1u);
    loose->DeleteMe();
    root->DeleteMe();
}

TEST_F(WeakReferences, AreNotRecordedForUndo) {
    auto* root = new TestTarget;
    auto* t = new TestTarget;
    root->ReplaceReference(0, t);
    Watcher watcher(nullptr);
    theHold.Begin();
    watcher.weak->SetRef(t);
    theHold.Accept(L"Watch");
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
    // Deleting under a hold clears the weak reference; undo gives the target back to its owners.
    theHold.Begin();
    t->DeleteMe();
    theHold.Accept(L"Delete");
    EXPECT_EQ(watcher.weak->GetRef(), nullptr);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(root->Ref(0), t);
    EXPECT_EQ(t->NumDependents(), 1);  // root only
    root->DeleteMe();
}

}  // namespace
}  // namespace host

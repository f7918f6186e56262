#include <gtest/gtest.h>

#include "extra/ExtraIds.h"
#include "extra/WeakRefOwner.h"
#include "extra/WeakRefOwnerAccessor.h"
#include "extra/WeakRefOwnerPickNode.h"
#include "host/classes/PointHelper.h"
#include "host/io/CloneRemapDir.h"
#include "host/io/SceneFile.h"
#include "host/object/PanelService.h"
#include "host/object/ParamBlockDesc2.h"
#include "host/object/ViewExp.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

enum : ParamID { pNode, pNodes };

class OwnerDesc : public ClassDesc2 {
public:
    int IsPublic() override { return 0; }
    Animatable* Create(bool loading) override;
    const wchar_t* ClassName() override { return L"Weak Owner"; }
    SClass_ID SuperClassID() override { return REF_TARGET_CLASS_ID; }
    Class_ID ClassID() override { return Class_ID(0x7e57, 0x1e847b01); }
    const wchar_t* Category() override { return L""; }
} ownerDesc;

// A node that helpers named "Pickable..." only may be picked.
struct PickableOnly : PBValidator {
    bool Validate(PB2Value& v) override {
        auto* node = dynamic_cast<INode*>(v.r);
        return node && WStr(node->GetName()).data()[0] == L'P';
    }
} pickableOnly;

// Fetched before the table: a call inside it makes GCC see a half-built table.
PBAccessor* const weakAccessor = &WeakRefOwnerAccessor::Instance();

ParamBlockDesc2 ownerBlock(
    0, L"params", P_AUTO_CONSTRUCT, 0, &ownerDesc,
    {
        {pNode, L"node", TYPE_INODE, 0, 0, {}, std::nullopt, weakAccessor, &pickableOnly},
        {pNodes, L"nodes", TableOf(TYPE_INODE), 0, 0, {}, std::nullopt, weakAccessor},
    });

// An owner of two weak node parameters, one plain and one table, that logs the messages
// it forwards. Its rollup is open while dialog is set.
class Owner : public ReferenceTarget, public WeakRefOwner {
public:
    explicit Owner(bool loading = false) {
        if (!loading) ownerDesc.MakeAutoParamBlocks(this);
    }
    Class_ID ClassID() override { return ownerDesc.ClassID(); }
    SClass_ID SuperClassID() override { return REF_TARGET_CLASS_ID; }
    int NumRefs() override { return 1; }
    ReferenceTarget* GetReference(int) override { return pb; }
    int NumParamBlocks() override { return 1; }
    using ReferenceTarget::GetInterface;
    void* GetInterface(uint32_t id) override {
        return id == WEAK_REF_OWNER_INTERFACE ? static_cast<WeakRefOwner*>(this) : nullptr;
    }
    ReferenceTarget* Clone(RemapDir& remap) override {
        auto* copy = new Owner(true);
        copy->ReplaceReference(0, remap.CloneRef(pb));
        CloneWeakRefs(*copy, remap);
        BaseClone(this, copy, remap);
        return copy;
    }

    int NumWeakParams() override { return 2; }
    IParamBlock2* GetParamBlock(int) override { return pb; }
    ParamID GetParamId(int i) override { return i == 0 ? pNode : pNodes; }
    int GetPickControlId(int i) override { return 100 + i; }
    void* GetDialog(int) override { return dialog; }
    RefResult ForwardMessage(const Interval&, ReferenceTarget*, PartID& partID, RefMessage message,
                             bool) override {
        forwarded.push_back({message, partID});
        // What the owner's dependents say back travels to the weak owner again.
        if (echo) ProcessRefTargMonitorMsg(FOREVER, nullptr, partID, message, true, true, nullptr);
        return REF_SUCCEED;
    }

    IParamBlock2* pb = nullptr;
    void* dialog = nullptr;
    bool echo = false;
    std::vector<std::pair<RefMessage, PartID>> forwarded;

protected:
    void SetReference(int, ReferenceTarget* t) override { pb = DefinedBlock(t); }
};

Animatable* OwnerDesc::Create(bool loading) {
    return new Owner(loading);
}

// Records what the pick does to the owner's button.
struct RecordingPanels : PanelService {
    void SetButtonText(void*, int id, const WStr& text) override { texts.push_back({id, text}); }
    void SetButtonCheck(void*, int id, bool on) override { checks.push_back({id, on}); }
    std::vector<std::pair<int, WStr>> texts;
    std::vector<std::pair<int, bool>> checks;
};

// A live viewport whose hit log the test fills.
struct LoggedView : ViewExp {
    bool IsAlive() override { return true; }
    GraphicsWindow* getGW() override { return nullptr; }
    void GetAffineTM(Matrix3& tm) override { tm.IdentityMatrix(); }
    int GetViewType() override { return 0; }
    bool IsPerspView() override { return false; }
    float GetFOV() override { return 0.0f; }
    int GetViewportWidth() override { return 100; }
    int GetViewportHeight() override { return 100; }
    float GetVPWorldWidth(const Point3&) override { return 1.0f; }
    Point3 GetPointOnCP(const IPoint2&) override { return {}; }
};

class WeakReferences : public host::test::SceneTest {
protected:
    void SetUp() override {
        SceneTest::SetUp();
        ClassRegistry::Instance().Register(&ownerDesc);
        owner = new Owner();
        keeperHolds(owner);
    }
    void TearDown() override {
        SetPanelService(nullptr);
        SceneTest::TearDown();
    }
    // The owner lives as a custom track of the scene root, so that the scene owns it.
    void keeperHolds(Owner* o) {
        ip->GetTrackViewRootNode()->AddController(o, L"owner", Class_ID(1, 2));
    }
    INode* Node(const wchar_t* name) { return ip->CreateObjectNode(new PointHelper(), name); }

    Owner* owner = nullptr;
};

TEST_F(WeakReferences, SlotsFollowTheParameters) {
    EXPECT_EQ(owner->EntryCount(0), 1);
    EXPECT_EQ(owner->EntryCount(1), 0);  // an empty table
    EXPECT_EQ(owner->GetRefAt(1, 0), nullptr);
    EXPECT_EQ(owner->NumIndirectRefs(), 1);
    owner->SetRefAt(nullptr, 0, 0);  // nothing to watch: no monitor
    EXPECT_EQ(owner->GetRefAt(0, 0), nullptr);

    INode* a = Node(L"PickableA");
    INode* b = Node(L"PickableB");
    ASSERT_TRUE(owner->pb->SetValue(pNode, 0, static_cast<ReferenceTarget*>(a)));
    EXPECT_EQ(owner->GetRef(pNode), a);
    EXPECT_EQ(owner->pb->GetReferenceTarget(pNode), a) << "reads come from the weak slot";
    EXPECT_EQ(owner->GetRefAt(0, -3), a) << "a negative index reads as 0";
    EXPECT_EQ(a->HasStrongDependents(), true) << "the block refers to the node";

    // Table edits: appended elements start empty and take values; deletes close up.
    owner->pb->Append(pNodes, 3);
    EXPECT_EQ(owner->EntryCount(1), 3);
    owner->pb->SetValue(pNodes, 0, static_cast<ReferenceTarget*>(b), 2);
    owner->pb->SetValue(pNodes, 0, static_cast<ReferenceTarget*>(a), 0);
    EXPECT_EQ(owner->NumIndirectRefs(), 4);
    EXPECT_EQ(owner->GetIndirectReference(3), b) << "the flat list runs slot by slot";
    EXPECT_EQ(owner->GetIndirectReference(4), nullptr);
    owner->pb->Delete(pNodes, 0, 1);
    EXPECT_EQ(owner->EntryCount(1), 2);
    EXPECT_EQ(owner->GetRef(pNodes, 1), b);
    owner->InsertEmpty(1, 5, 1);  // past the end: nothing
    EXPECT_EQ(owner->EntryCount(1), 2);
}

TEST_F(WeakReferences, DeletingTheTargetClearsTheSlotAndUndoBringsItBack) {
    INode* target = Node(L"PickableTarget");
    owner->pb->SetValue(pNode, 0, static_cast<ReferenceTarget*>(target));
    owner->forwarded.clear();

    theHold.Begin();
    ip->DeleteNode(target);
    theHold.Accept(L"Delete");
    EXPECT_EQ(owner->GetRef(pNode), nullptr);
    EXPECT_EQ(owner->pb->GetReferenceTarget(pNode), nullptr);
    EXPECT_EQ(ip->GetTrackViewRootNode()->GetTrack(0), owner) << "the owner stays";
    ASSERT_FALSE(owner->forwarded.empty());
    EXPECT_EQ(owner->forwarded.front(), std::make_pair(REFMSG_WEAK_TARGET_DELETED, PART_ALL));

    ASSERT_TRUE(theHold.Undo());
    INode* back = ip->GetINodeByName(L"PickableTarget");
    ASSERT_NE(back, nullptr);
    EXPECT_EQ(owner->GetRef(pNode), back);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(owner->GetRef(pNode), nullptr);
}

TEST_F(WeakReferences, ForwardedMessagesAreNotForwardedAgain) {
    INode* target = Node(L"PickableTarget");
    owner->pb->SetValue(pNode, 0, static_cast<ReferenceTarget*>(target));
    owner->forwarded.clear();
    owner->echo = true;
    PartID part = PART_TM;
    owner->ProcessRefTargMonitorMsg(FOREVER, target, part, REFMSG_NODE_FORWARDED, true, true,
                                    nullptr);
    EXPECT_EQ(owner->forwarded.size(), 1u);
    owner->ProcessRefTargMonitorMsg(FOREVER, target, part, REFMSG_WEAK_OWNER_EVENT, false, true,
                                    nullptr);
    EXPECT_EQ(owner->forwarded.size(), 2u);
    EXPECT_EQ(owner->forwarded.back(), std::make_pair(REFMSG_WEAK_OWNER_EVENT, PART_ALL));
    // Other messages of the target stay with the owner.
    EXPECT_EQ(
        owner->ProcessRefTargMonitorMsg(FOREVER, target, part, REFMSG_CHANGE, true, true, nullptr),
        REF_SUCCEED);
    EXPECT_EQ(owner->forwarded.size(), 2u);
}

TEST_F(WeakReferences, ClonesWatchTheClonedTargetOrTheSameOne) {
    INode* outside = Node(L"PickableOutside");
    owner->pb->SetValue(pNode, 0, static_cast<ReferenceTarget*>(outside));
    auto* clone = static_cast<Owner*>(CloneRefHierarchy(owner));
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->GetRef(pNode), outside) << "a target outside the clone stays the same";
    keeperHolds(clone);
    // The original's slot is its own: clearing it leaves the clone's.
    owner->pb->SetValue(pNode, 0, static_cast<ReferenceTarget*>(nullptr));
    EXPECT_EQ(clone->GetRef(pNode), outside);
}

TEST_F(WeakReferences, ASceneFileKeepsTheWatchedNodes) {
    owner->pb->SetValue(pNode, 0, static_cast<ReferenceTarget*>(Node(L"PickableSaved")));
    owner->pb->Append(pNodes, 2);
    owner->pb->SetValue(pNodes, 0, static_cast<ReferenceTarget*>(Node(L"PickableInTable")), 1);
    const std::string path = testing::TempDir() + "weak_refs.tnx";
    std::string error;
    ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
    ip->Reset();
    ASSERT_TRUE(LoadSceneFile(path, *ip, error)) << error;
    auto* loaded = dynamic_cast<Owner*>(ip->GetTrackViewRootNode()->GetTrack(0));
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->GetRef(pNode), ip->GetINodeByName(L"PickableSaved"));
    EXPECT_EQ(loaded->GetRef(pNodes, 0), nullptr);
    EXPECT_EQ(loaded->GetRef(pNodes, 1), ip->GetINodeByName(L"PickableInTable"));
    EXPECT_NE(loaded->GetRef(pNodes, 1), nullptr);
}

TEST_F(WeakReferences, PickSetsTheParameterAsOneUndoStep) {
    RecordingPanels panels;
    SetPanelService(&panels);
    int rollup = 0;
    owner->dialog = &rollup;
    INode* picked = Node(L"PickableOne");
    INode* refused = Node(L"Other");

    owner->StartPick(pNodes + 7);  // no such weak parameter: nothing starts
    EXPECT_EQ(ip->GetCurPickMode(), nullptr);
    owner->StartPick(pNode);
    auto& picker = WeakRefOwnerPickNode::Instance();
    ASSERT_EQ(ip->GetCurPickMode(), &picker);
    EXPECT_EQ(ip->Status().Prompt(), WStr(L"Select Object"));
    EXPECT_EQ(panels.checks.back(), std::make_pair(100, true));
    EXPECT_FALSE(picker.Filter(refused));
    EXPECT_TRUE(picker.Filter(picked));

    LoggedView view;
    EXPECT_FALSE(picker.Pick(ip, &view)) << "nothing under the mouse";
    view.LogHit(picked, nullptr, 0, 0);
    EXPECT_TRUE(picker.Pick(ip, &view));
    ip->ClearPickMode();
    EXPECT_EQ(owner->GetRef(pNode), picked);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Parameter Change"));
    EXPECT_EQ(panels.texts.back(), std::make_pair(100, WStr(L"PickableOne")));
    EXPECT_EQ(panels.checks.back(), std::make_pair(100, false));
    EXPECT_EQ(ip->Status().Prompt(), WStr());

    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(owner->GetRef(pNode), nullptr);
    EXPECT_EQ(panels.texts.back(), std::make_pair(100, WStr(L"None")));
}

}  // namespace
}  // namespace zorvanta::test

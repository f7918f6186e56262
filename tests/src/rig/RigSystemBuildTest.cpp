#include <algorithm>

#include "controllers/RigControl.h"
#include "controllers/RigWalkers.h"
#include "host/object/ILayerManager.h"
#include "host/object/SubObject.h"
#include "rig/RigBuild.h"
#include "tests/src/rig/RigTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

using CreateRig = RigTest;

bool FigureMode(INode* node) {
    RigControl* rc = FindRigControl(node->GetTMController());
    return rc && rc->GetFigureMode();
}

// Every rig type, the offered ones and those only published: the build runs to its end
// as one undo step, undo gives back the scene byte for byte (nodes, layers, the rig's
// block) and redo the same nodes.
TEST_F(CreateRig, EveryTypeUndoesExactlyAndRedoesTheSameNodes) {
    for (int type = 0; type < kRigTypeCount; ++type) {
        SCOPED_TRACE(type);
        ip->Reset();
        RigSystem* rig = MakeRig(type);
        ASSERT_NE(rig, nullptr);
        rig->Block()->SetValue(RIG_ROOT_BONE, 0, 1);
        const std::vector<uint8_t> before = SceneBytes();
        const std::vector<std::wstring> sceneBefore = SceneNames();

        rig->CreateRig();
        EXPECT_FALSE(rig->Active());
        ASSERT_EQ(theHold.NumUndoEntries(), 1);
        EXPECT_TRUE(theHold.UndoName(0) == WStr(L"Create Rig"));
        const std::vector<std::wstring> built = BuiltNames(rig);
        const std::vector<std::wstring> sceneAfter = SceneNames();
        const std::vector<uint8_t> bytesAfter = SceneBytes();
        EXPECT_NE(std::find(built.begin(), built.end(), L"Rig_bone_root"), built.end());

        ASSERT_TRUE(theHold.Undo());
        EXPECT_TRUE(rig->Active());
        EXPECT_EQ(SceneNames(), sceneBefore);
        EXPECT_TRUE(SceneBytes() == before) << "undo leaves the scene exactly as it was";

        ASSERT_TRUE(theHold.Redo());
        EXPECT_EQ(BuiltNames(rig), built);
        EXPECT_EQ(SceneNames(), sceneAfter) << "the same nodes in the same places";
        EXPECT_TRUE(SceneBytes() == bytesAfter) << "with the same links, controllers and layers";
        EXPECT_FALSE(rig->Active());
    }
}

// Types without builders (Ears and the published-only ones) still get the common start
// and end: the main control, out of figure mode, and nothing else.
TEST_F(CreateRig, TypesWithoutBuildersMakeTheMainControlOnly) {
    for (int type : {8, 19, 20, 21, 22, 23, 24, 25, 26, 27}) {
        SCOPED_TRACE(type);
        ip->Reset();
        RigSystem* rig = MakeRig(type);
        ASSERT_NE(rig, nullptr);
        rig->CreateRig();
        ASSERT_EQ(BuiltNames(rig), std::vector<std::wstring>{L"Rig_main"});
        INode* main = ip->GetINodeByName(L"Rig_main");
        EXPECT_FALSE(FigureMode(main));
        EXPECT_FALSE(rig->Active());
    }
}

// The build leaves the point level, whose points it no longer shows; a second call
// returns at once.
TEST_F(CreateRig, TwiceAddsNothing) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    XFormModes modes;
    rig->ActivateSubobjSel(RigSystem::kPointLevel, modes);
    rig->CreateRig();
    EXPECT_EQ(rig->SubObjectLevel(), 0);
    const std::vector<uint8_t> once = SceneBytes();
    rig->CreateRig();
    EXPECT_TRUE(SceneBytes() == once);
    EXPECT_EQ(theHold.NumUndoEntries(), 1);
}

TEST_F(CreateRig, NamesLayersAndPlacementFollowTheRigObject) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    rig->Block()->SetValue(RIG_NAME, 0, L"A");
    rig->Block()->SetValue(RIG_ROOT_BONE, 0, 1);
    rigNode->SetNodeTM(0, TransMatrix(Point3(10, 20, 0)));
    rig->CreateRig();

    INode* main = ip->GetINodeByName(L"A_main");
    INode* root = ip->GetINodeByName(L"A_bone_root");
    ASSERT_TRUE(main && root);
    EXPECT_EQ(root->GetParentNode(), main);
    EXPECT_TRUE(root->GetBoneNodeOnOff());
    EXPECT_TRUE(root->GetTransformLock(0, 0));
    EXPECT_EQ(main->GetWireColor(), ToColorRef(rig->Block()->GetColor(RIG_COLOR_4)));
    EXPECT_TRUE(main->GetNodeTM(0).GetTrans().Equals(Point3(10, 20, 0), 1e-4f))
        << "the rig moves to its object's node";
    EXPECT_TRUE(root->GetNodeTM(0).GetTrans().Equals(Point3(10, 20, 0), 1e-4f));
    EXPECT_FALSE(FigureMode(main));

    ILayerManager* layers = ip->GetLayerManager();
    ILayer* rigLayer = layers->GetLayer(WStr(L"A"));
    ASSERT_NE(rigLayer, nullptr);
    for (const wchar_t* word : {L"A Controls", L"A Helpers", L"A Bones"}) {
        ILayer* layer = layers->GetLayer(WStr(word));
        ASSERT_NE(layer, nullptr) << word;
        EXPECT_EQ(layer->GetParentLayer(), rigLayer);
    }
    EXPECT_EQ(layers->GetNodeLayer(main), layers->GetLayer(WStr(L"A Controls")));
    EXPECT_EQ(layers->GetNodeLayer(root), layers->GetLayer(WStr(L"A Bones")));
}

TEST_F(CreateRig, ResetDeletesWhatWasBuiltAndKeepsTheRigObject) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    rig->Block()->SetValue(RIG_ROOT_BONE, 0, 1);
    rig->ResetRig();  // nothing built yet: refused
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
    const std::vector<std::wstring> before = SceneNames();
    rig->CreateRig();
    const std::vector<std::wstring> built = BuiltNames(rig);
    ASSERT_FALSE(built.empty());

    rig->ResetRig();
    EXPECT_TRUE(rig->Active());
    EXPECT_EQ(rig->Block()->Count(RIG_NODES), 0);
    for (const std::wstring& name : built) EXPECT_EQ(ip->GetINodeByName(name.c_str()), nullptr);
    EXPECT_EQ(SceneNames(), before) << "only the rig object's node is left";
    ASSERT_EQ(theHold.NumUndoEntries(), 2);
    EXPECT_TRUE(theHold.UndoName(0) == theHold.UndoName(1));

    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(BuiltNames(rig), built);
    EXPECT_FALSE(rig->Active());
}

}  // namespace
}  // namespace zorvanta::test

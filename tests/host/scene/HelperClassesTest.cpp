#include "host/classes/BoneObject.h"
#include "host/classes/ICurveCtl.h"
#include "host/classes/PointHelper.h"
#include "host/object/ILayerManager.h"
#include "host/object/Notifications.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {
namespace {

using HelperClasses = SceneTest;

Box3 LocalBox(Object* obj, TimeValue t = 0) {
    Box3 box;
    obj->GetLocalBoundBox(t, nullptr, nullptr, box);
    return box;
}

// Builders make helpers and bones by class id and set their parameters by number.
TEST_F(HelperClasses, PointsAndBonesByClassIdAndParameterNumber) {
    auto* point = static_cast<Object*>(CreateInstance(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID));
    auto* bone = static_cast<Object*>(CreateInstance(GEOMOBJECT_CLASS_ID, BONE_OBJECT_CLASS_ID));
    ASSERT_TRUE(point && bone);
    IParamBlock2* pp = point->GetParamBlock(0);
    EXPECT_EQ(pp->GetInt(PointHelper::CROSS), 1);
    EXPECT_EQ(pp->GetInt(PointHelper::BOX), 0);
    pp->SetValue(PointHelper::SIZE, 0, 4.0f);
    EXPECT_EQ(LocalBox(point).pmax, Point3(2, 2, 2));

    IParamBlock2* bp = bone->GetParamBlock(0);
    bp->SetValue(BoneObject::WIDTH, 0, 2.0f);
    bp->SetValue(BoneObject::HEIGHT, 0, 4.0f);
    bp->SetValue(BoneObject::LENGTH, 0, 30.0f);
    bp->SetValue(BoneObject::TAPER, 0, 0.0f);  // flat: the tip keeps the full section
    EXPECT_EQ(LocalBox(bone).pmin, Point3(0, -1, -2));
    EXPECT_EQ(LocalBox(bone).pmax, Point3(30, 1, 2));
    bp->SetValue(BoneObject::FRONT_FIN, 0, 1);
    EXPECT_EQ(LocalBox(bone).pmax.z, 2.0f + 10.0f);

    // In a node, the world box follows the node; a parameter change undoes.
    INode* node = ip->CreateObjectNode(bone);
    node->SetNodeTM(0, TransMatrix(Point3(5, 0, 0)));
    Box3 world;
    bone->GetWorldBoundBox(0, node, nullptr, world);
    EXPECT_NEAR(world.pmin.x, 5.0f, 1e-5f);
    theHold.Begin();
    bp->SetValue(BoneObject::LENGTH, 0, 50.0f);
    theHold.Accept(WStr(L"Length"));
    EXPECT_EQ(LocalBox(bone).pmax.x, 50.0f);
    theHold.Undo();
    EXPECT_EQ(LocalBox(bone).pmax.x, 30.0f);
    point->DeleteMe();
}

TEST_F(HelperClasses, LayersNestAndHoldNodesUndoably) {
    ILayerManager* layers = ip->GetLayerManager();
    ASSERT_NE(layers, nullptr);
    ILayer* rig = layers->CreateLayer(WStr(L"Rig"));
    ILayer* bones = layers->CreateLayer(WStr(L"Rig Bones"));
    ASSERT_TRUE(rig && bones);
    EXPECT_EQ(layers->CreateLayer(WStr(L"Rig")), nullptr) << "names are unique";
    EXPECT_EQ(layers->GetLayer(WStr(L"Rig Bones")), bones);
    EXPECT_TRUE(bones->SetParentLayer(rig));
    EXPECT_FALSE(rig->SetParentLayer(bones)) << "no loops";

    INode* node = ip->CreateObjectNode(nullptr);
    ILayer* defaultLayer = layers->GetNodeLayer(node);
    EXPECT_TRUE(defaultLayer->GetName() == WStr(L"0"));
    theHold.Begin();
    bones->AddToLayer(node);
    theHold.Accept(WStr(L"Layer"));
    EXPECT_EQ(layers->GetNodeLayer(node), bones);
    theHold.Undo();
    EXPECT_EQ(layers->GetNodeLayer(node), defaultLayer);
    ip->Reset();
    EXPECT_EQ(layers->GetLayerCount(), 1);
}

TEST_F(HelperClasses, LayerMakingAndNestingUndo) {
    ILayerManager* layers = ip->GetLayerManager();
    ASSERT_NE(layers, nullptr);
    theHold.Begin();
    ILayer* rig = layers->CreateLayer(WStr(L"Rig"));
    ILayer* bones = layers->CreateLayer(WStr(L"Rig Bones"));
    ASSERT_TRUE(rig && bones && bones->SetParentLayer(rig));
    theHold.Accept(WStr(L"Layers"));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(layers->GetLayerCount(), 1);
    EXPECT_EQ(layers->GetLayer(WStr(L"Rig")), nullptr);
    ASSERT_TRUE(theHold.Redo());
    ASSERT_EQ(layers->GetLayerCount(), 3);
    EXPECT_EQ(layers->GetLayer(WStr(L"Rig Bones")), bones);  // the same layers come back
    EXPECT_EQ(bones->GetParentLayer(), rig);
}

TEST_F(HelperClasses, CurveControlEvaluatesAndUndoes) {
    auto* ctl =
        static_cast<ICurveCtl*>(CreateInstance(REF_TARGET_CLASS_ID, CURVE_CONTROL_CLASS_ID));
    ASSERT_NE(ctl, nullptr);
    ICurve* curve = ctl->GetControlCurve(0);
    ASSERT_EQ(curve->GetNumPts(), 2);
    EXPECT_NEAR(curve->GetValue(0, 0.25f), 0.25f, 1e-5f);  // a straight line
    EXPECT_EQ(curve->GetValue(0, -1.0f), 0.0f);            // ends hold
    EXPECT_EQ(curve->GetValue(0, 2.0f), 1.0f);

    theHold.Begin();
    // A smooth middle point at (0.5, 0.8) with level handles: the curve is flat there.
    EXPECT_EQ(curve->Insert({{0.5f, 0.8f}, {-0.2f, 0.0f}, {0.2f, 0.0f}, CURVEP_BEZIER}), 1);
    theHold.Accept(WStr(L"Insert"));
    EXPECT_NEAR(curve->GetValue(0, 0.5f), 0.8f, 1e-4f);
    EXPECT_NEAR((curve->GetValue(0, 0.501f) - curve->GetValue(0, 0.499f)) / 0.002f, 0.0f, 0.05f);
    EXPECT_LT(curve->GetValue(0, 0.45f), 0.8f);
    EXPECT_GT(curve->GetValue(0, 0.55f), 0.8f);
    // Its left segment runs from a corner at (0, 0): y(x) is the Bezier with control
    // values 0, 0, 0.8, 0.8 at the parameter where x reaches 0.25.
    const float x = 0.25f;
    float lo = 0, hi = 1;
    auto cubic = [](float a, float b, float c, float d, float u) {
        const float v = 1 - u;
        return v * v * v * a + 3 * v * v * u * b + 3 * v * u * u * c + u * u * u * d;
    };
    for (int i = 0; i < 50; ++i)
        ((cubic(0, 0, 0.3f, 0.5f, (lo + hi) / 2) < x) ? lo : hi) = (lo + hi) / 2;
    EXPECT_NEAR(curve->GetValue(0, x), cubic(0, 0, 0.8f, 0.8f, lo), 1e-4f);

    int rangeCalls = 0;
    ctl->SetRangeChangedCallback([&](ICurveCtl*) { ++rangeCalls; });
    ctl->SetXRange(-1, 2);
    EXPECT_EQ(rangeCalls, 1);
    theHold.Undo();
    EXPECT_EQ(ctl->GetControlCurve(0), curve) << "the curve object survives undo";
    EXPECT_EQ(curve->GetNumPts(), 2);
    ctl->DeleteMe();
}

int startups = 0;
void CountStartup(void*, NotifyInfo*) {
    ++startups;
}

TEST_F(HelperClasses, StartingTheHostBroadcastsOnce) {
    RegisterNotification(CountStartup, nullptr, NOTIFY_SYSTEM_STARTUP);
    StartHost();
    StartHost();
    EXPECT_EQ(startups, 1);
    UnRegisterNotification(CountStartup, nullptr, NOTIFY_SYSTEM_STARTUP);
}

}  // namespace
}  // namespace host::test

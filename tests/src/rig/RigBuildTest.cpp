#include <cmath>
#include <numbers>

#include "frame/FrameIds.h"
#include "helpers/HelperIds.h"
#include "host/classes/BoneObject.h"
#include "host/math/Quat.h"
#include "host/object/ILayerManager.h"
#include "host/object/Object.h"
#include "rig/RigBuild.h"
#include "rig/RigConstraints.h"
#include "tests/src/rig/RigTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

using RigFactories = RigTest;

TEST_F(RigFactories, ColoursFollowSideAlternateAndGamma) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    for (int i = 0; i < 6; ++i)
        rig->Block()->SetValue(ParamID(RIG_COLOR_1 + i), 0,
                               Point3(0.1f * float(i + 1), 0.5f, 1.0f));
    struct Case {
        int side;
        bool alternate;
        ParamID color;
    };
    const Case cases[] = {
        {kSideRight, false, RIG_COLOR_2},  {kSideRight, true, RIG_COLOR_1},
        {kSideLeft, false, RIG_COLOR_6},   {kSideLeft, true, RIG_COLOR_5},
        {kSideCenter, false, RIG_COLOR_4}, {kSideNone, true, RIG_COLOR_3},
    };
    const RigBuild plain(*rig);
    for (const Case& c : cases)
        EXPECT_EQ(plain.SideColor(c.side, c.alternate), rig->Block()->GetColor(c.color))
            << "side " << c.side << " alternate " << c.alternate;

    ASSERT_TRUE(ip->SetGamma(true, 2.0f));
    const RigBuild corrected(*rig);
    const Point3 c6 = corrected.SideColor(kSideLeft, false);
    EXPECT_NEAR(c6.x, 0.36f, 1e-6f);  // 0.6 squared
    EXPECT_NEAR(c6.y, 0.25f, 1e-6f);

    EXPECT_EQ(ToColorRef(Point3(1.0f, 0.5f, 0.0f)), RGB(255, 128, 0));
    EXPECT_EQ(ToColorRef(Point3(0.001f, 0.998f, 0.25f)), RGB(0, 254, 64));
}

TEST_F(RigFactories, ControlsAreNamedColouredMirroredAndRecorded) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    rig->Block()->SetValue(RIG_NAME, 0, L"Hero");
    RigBuild b(*rig);
    b.controlsLayer = b.GetOrCreateLayer(L"Controls");
    const Matrix3 at = TransMatrix(Point3(5, 6, 7));
    INode* right = b.NewControlShapeNode(at, nullptr, 5, 4.0f, false, L"upper_arm", kSideRight, -1,
                                         -1, 0, Point3(1, 0, 0), 0, 0, 2);
    INode* left = b.NewControlShapeNode(at, right, 5, 4.0f, true, L"finger", kSideLeft, 0, 1, 0,
                                        Point3(), 0, 2, 2);
    ASSERT_TRUE(right && left);
    EXPECT_STREQ(right->GetName(), L"Hero_r_upper_arm");
    EXPECT_STREQ(left->GetName(), L"Hero_l_finger_1_2");
    EXPECT_EQ(right->GetWireColor(), ToColorRef(b.SideColor(kSideRight, false)));
    EXPECT_EQ(left->GetWireColor(), ToColorRef(b.SideColor(kSideLeft, true)));
    // Right controls draw mirrored across the axis their mirror position names.
    EXPECT_EQ(right->GetObjOffsetScale().s, Point3(-1, 1, 1));
    EXPECT_EQ(left->GetObjOffsetScale().s, Point3(1, 1, 1));
    EXPECT_EQ(left->GetParentNode(), right);
    EXPECT_TRUE(left->GetNodeTM(0).Equals(at, 1e-5f)) << "placed in world space under a parent";
    EXPECT_FALSE(right->Renderable());

    IParamBlock2* shape = RigBuild::ShapeBlock(right);
    ASSERT_NE(shape, nullptr);
    EXPECT_EQ(shape->GetInt(CH_TYPE), 5);
    EXPECT_EQ(shape->GetFloat(CH_HEIGHT), 4.0f);
    EXPECT_EQ(shape->GetMatrix3(CH_GIZMO).GetTrans(), Point3(1, 0, 0));

    EXPECT_EQ(b.rightControls.Count(), 1);
    EXPECT_EQ(b.leftControls.Count(), 1);
    EXPECT_EQ(b.controlNodes.Count(), 2);
    EXPECT_EQ(BuiltNames(rig),
              (std::vector<std::wstring>{L"Hero_r_upper_arm", L"Hero_l_finger_1_2"}));
    ILayerManager* layers = ip->GetLayerManager();
    ILayer* controls = layers->GetLayer(WStr(L"Hero Controls"));
    ASSERT_NE(controls, nullptr);
    EXPECT_EQ(controls->GetParentLayer(), layers->GetLayer(WStr(L"Hero")));
    EXPECT_EQ(layers->GetNodeLayer(left), controls);
    EXPECT_EQ(b.GetOrCreateLayer(L"Controls"), controls) << "a second ask finds the same layer";
}

TEST_F(RigFactories, BonesAndHelpersAreLockedStaticAndGrouped) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    RigBuild b(*rig);
    const Matrix3 at = TransMatrix(Point3(0, 0, 10));
    INode* bone = b.NewBone(at, nullptr, 2.0f, 8.0f, true, L"calf", kSideLeft, -1, -1, true);
    INode* helper = b.NewPointHelper(at, bone, 3.0f, L"ik_hip", kSideCenter, -1, -1, false);
    ASSERT_TRUE(bone && helper);
    EXPECT_STREQ(bone->GetName(), L"Rig_bone_l_calf");
    EXPECT_STREQ(helper->GetName(), L"Rig_helper_ik_hip");
    EXPECT_TRUE(bone->GetBoneNodeOnOff());
    EXPECT_FALSE(bone->GetBoneAutoAlign());
    EXPECT_EQ(bone->GetWireColor(), 0xcab9adu);
    EXPECT_EQ(helper->GetWireColor(), 0x808080u);
    for (int type = 0; type < 3; ++type)
        for (int axis = 0; axis < 3; ++axis) {
            EXPECT_TRUE(bone->GetTransformLock(type, axis));
            EXPECT_FALSE(helper->GetTransformLock(type, axis));
        }
    EXPECT_EQ(bone->GetTMController()->ClassID(), STATIC_TRANSFORM_CLASS_ID);
    EXPECT_TRUE(helper->GetNodeTM(0).Equals(at, 1e-5f));
    IParamBlock2* bonePb = bone->GetObjectRef()->GetParamBlock(0);
    EXPECT_EQ(bonePb->GetFloat(BoneObject::TAPER), 0.0f) << "flat";
    EXPECT_EQ(bonePb->GetFloat(BoneObject::LENGTH), 8.0f);
    EXPECT_EQ(b.boneNodes.Count(), 1);
    EXPECT_EQ(b.helperNodes.Count(), 1);
    EXPECT_EQ(BuiltNames(rig).size(), 2u);
}

// A helper bone between two ends turned 0 and 90 degrees about Z takes the 45 degree
// turn between them, measured on its world transform.
TEST_F(RigFactories, HelperBoneTakesTheAverageRotationOfItsEnds) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    RigBuild b(*rig);
    constexpr float kPi = std::numbers::pi_v<float>;
    INode* upper = b.NewPointHelper(Matrix3(), nullptr, 1.0f, L"upper", kSideCenter, -1, -1, false);
    Matrix3 turned = RotateZMatrix(kPi / 2);
    turned.SetTrans(Point3(10, 0, 0));
    INode* lower = b.NewPointHelper(turned, nullptr, 1.0f, L"lower", kSideCenter, -1, -1, false);
    INode* joint = b.NewHelperBone(upper, lower, L"elbow", 1.0f, kSideCenter, -1, -1);
    ASSERT_NE(joint, nullptr);
    const Matrix3 tm = joint->GetNodeTM(0);
    EXPECT_TRUE(tm.GetTrans().Equals(Point3(10, 0, 0), 1e-4f)) << "at the target";
    const Point3 x = Normalize(tm.GetRow(0));
    EXPECT_NEAR(x.x, std::cos(kPi / 4), 1e-4f);
    EXPECT_NEAR(x.y, std::sin(kPi / 4), 1e-4f);
    EXPECT_EQ(joint->GetTMController()->GetScaleController()->ClassID(), STATIC_SCALE_CLASS_ID);
    EXPECT_FALSE(ConstrainOrientation(joint, INodeTab(), false, 0)) << "no targets, no change";
}

// The toolkit's own constraints come from the class factory: while one is missing its
// helper answers false and the node keeps its controller. The PRS of static tracks is
// the host's and always there.
TEST_F(RigFactories, ConstraintHelpersSkipMissingClassesAndKeepTheWorldTransform) {
    RigSystem* rig = MakeRig();
    ASSERT_NE(rig, nullptr);
    RigBuild b(*rig);
    const Point3 where(1, 2, 3);
    INode* a = b.NewPointHelper(TransMatrix(where), nullptr, 1.0f, L"a", -1, -1, -1, false);
    INode* target = b.NewPointHelper(Matrix3(), nullptr, 1.0f, L"t", -1, -1, -1, false);
    ASSERT_TRUE(a && target);
    struct Helper {
        Class_ID id;
        bool (*constrain)(INode*, INode*);
    };
    const Helper helpers[] = {
        {PARENT_CONSTRAINT_CLASS_ID,
         [](INode* n, INode* t) { return ConstrainParent(n, t, true); }},
        {TRANSFORM_CONSTRAINT_CLASS_ID,
         [](INode* n, INode* t) { return ConstrainTransform(n, t, false); }},
        {STRETCH_CONSTRAINT_CLASS_ID,
         [](INode* n, INode* t) { return ConstrainStretch(n, n, t, 0); }},
    };
    for (const Helper& h : helpers) {
        if (ClassRegistry::Instance().Find(CTRL_MATRIX3_CLASS_ID, h.id)) continue;
        Control* before = a->GetTMController();
        EXPECT_FALSE(h.constrain(a, target));
        EXPECT_EQ(a->GetTMController(), before);
    }

    INode* b2 = b.NewPointHelper(TransMatrix(where), target, 1.0f, L"b", -1, -1, -1, false);
    target->SetNodeTM(0, TransMatrix(Point3(0, 0, 5)));
    ASSERT_TRUE(AssignPRSStatic(b2, 0));
    Control* prs = b2->GetTMController();
    EXPECT_EQ(prs->ClassID(), PRS_CLASS_ID);
    EXPECT_EQ(prs->GetPositionController()->ClassID(), STATIC_POSITION_CLASS_ID);
    EXPECT_EQ(prs->GetRotationController()->ClassID(), STATIC_ROTATION_CLASS_ID);
    EXPECT_EQ(prs->GetScaleController()->ClassID(), STATIC_SCALE_CLASS_ID);
    EXPECT_TRUE(b2->GetNodeTM(0).GetTrans().Equals(Point3(1, 2, 8), 1e-4f))
        << "keeps its world transform";
}

}  // namespace
}  // namespace zorvanta::test

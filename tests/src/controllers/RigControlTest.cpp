#include <cmath>

#include "controllers/GimbalProxy.h"
#include "controllers/RigControl.h"
#include "controllers/RigWalkers.h"
#include "controllers/RotationXYZ.h"
#include "host/classes/ListControl.h"
#include "host/io/CloneRemapDir.h"
#include "host/math/Euler.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/Animate.h"
#include "host/object/Object.h"
#include "host/script/ExecuteScript.h"
#include "host/viewport/RecordingGraphicsWindow.h"
#include "host/viewport/Viewport.h"
#include "tests/host/math/MathTestSupport.h"
#include "tests/src/controllers/ControllersTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;
using host::test::MatrixNear;

constexpr TimeValue kFrame = 160;

class RigControlTest : public ControllerTest {
protected:
    void SetUp() override {
        ControllerTest::SetUp();
        Register<RigControl>(L"RigControl");
    }
    void TearDown() override {
        ip->SetRefCoordSys(COORDS_WORLD);
        AnimateOff();
        ControllerTest::TearDown();
    }

    // A point helper node driven by a new rig control, under parent when given.
    RigControl* MakeControl(const wchar_t* name, INode* parent = nullptr) {
        auto* object =
            dynamic_cast<Object*>(CreateInstance(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID));
        INode* node = ip->CreateObjectNode(object, name);
        auto* control = new RigControl(false);
        node->SetTMController(control);
        if (parent) parent->AttachChild(node, false);
        return control;
    }
    static INode* NodeOf(RigControl* c) { return FindOwnerNode(c); }
    static IParamBlock2* Block(RigControl* c) { return c->GetParamBlock(0); }

    // Keys a pose on the three sub-controllers at t.
    static void KeyPose(RigControl* c, TimeValue t, const Point3& pos, const Point3& euler,
                        const Point3& scale) {
        AnimateOn();
        Point3 p = pos;
        c->GetPositionController()->SetValue(t, &p, 1, CTRL_ABSOLUTE);
        Quat q;
        const float angles[3] = {euler.x, euler.y, euler.z};
        EulerToQuat(angles, q);
        c->RealRotationController()->SetValue(t, &q, 1, CTRL_ABSOLUTE);
        ScaleValue s(scale);
        c->GetScaleController()->SetValue(t, &s, 1, CTRL_ABSOLUTE);
        AnimateOff();
    }

    static Matrix3 Evaluate(RigControl* c, const Matrix3& parent, TimeValue t) {
        Matrix3 tm = parent;
        Interval valid = FOREVER;
        c->GetValue(t, &tm, valid, CTRL_RELATIVE);
        return tm;
    }
};

Matrix3 SomeOffset() {
    Matrix3 m = RotateXMatrix(0.4f) * RotateZMatrix(-0.7f);
    m.SetTrans(Point3(3, -2, 5));
    return m;
}

// A turned, moved parent with the scale given.
Matrix3 ScaledParent(const Point3& scale) {
    Matrix3 m = ScaleMatrix(scale) * RotateYMatrix(0.6f) * RotateZMatrix(0.3f);
    m.SetTrans(Point3(-4, 1, 2));
    return m;
}

Matrix3 SomeParent() {
    return ScaledParent(Point3(2, 1, 1));
}

TEST_F(RigControlTest, BindPoseSitsAtTheOffsetAndOffsetModesAgreeForIdentity) {
    RigControl* c = MakeControl(L"c");
    ASSERT_NE(c->RealRotationController(), nullptr);
    EXPECT_EQ(c->RealRotationController()->ClassID(), ROTATION_XYZ_CLASS_ID);
    const Matrix3 parent = SomeParent();

    // All animation values zero: the node is the offset, in both offset modes.
    for (int indep = 0; indep < 2; ++indep) {
        Block(c)->SetValue(RigControl::kIndependentOffset, 0, indep);
        c->SetOffsetTM(SomeOffset());
        EXPECT_TRUE(MatrixNear(Evaluate(c, parent, 0), SomeOffset() * parent, 1e-4f));
    }

    // With the identity offset the two modes give the same matrix for any pose.
    c->SetOffsetTM(Matrix3());
    KeyPose(c, kFrame, Point3(1, 2, 3), Point3(0.3f, -1.1f, 2.0f), Point3(1, 2, 0.5f));
    Block(c)->SetValue(RigControl::kIndependentOffset, 0, 1);
    const Matrix3 independent = Evaluate(c, parent, kFrame);
    Block(c)->SetValue(RigControl::kIndependentOffset, 0, 0);
    EXPECT_TRUE(MatrixNear(Evaluate(c, parent, kFrame), independent, 1e-5f));
}

TEST_F(RigControlTest, IndependentOffsetAppliesPositionRotationAndScaleStepByStep) {
    RigControl* c = MakeControl(L"c");
    Matrix3 offset = ScaleMatrix(Point3(2, 2, 2)) * RotateZMatrix(0.5f);
    offset.SetTrans(Point3(1, 0, 0));
    c->SetOffsetTM(offset);
    KeyPose(c, kFrame, Point3(0, 3, 0), Point3(0, 0, 0.25f), Point3(1, 1, 1));

    // Independent: the position moves in the parent's axes, then the offset's rotation,
    // the rotation track, the offset's scale.
    Matrix3 expected = ScaleMatrix(Point3(2, 2, 2)) * RotateZMatrix(0.25f) * RotateZMatrix(0.5f);
    expected.SetTrans(Point3(1, 3, 0));
    EXPECT_TRUE(MatrixNear(Evaluate(c, Matrix3(), kFrame), expected, 1e-4f));

    // Whole: the position moves inside the offset's rotated and scaled axes.
    Block(c)->SetValue(RigControl::kIndependentOffset, 0, 0);
    Matrix3 local = RotateZMatrix(0.25f);
    local.SetTrans(Point3(0, 3, 0));
    EXPECT_TRUE(MatrixNear(Evaluate(c, Matrix3(), kFrame), local * offset, 1e-4f));
}

TEST_F(RigControlTest, StraightScaleKeepsRowsOrthogonalUnderAScaledTurnedParent) {
    RigControl* c = MakeControl(L"c");
    KeyPose(c, kFrame, Point3(1, 1, 1), Point3(0.7f, 0.2f, -0.4f), Point3(1, 1, 1));
    auto shear = [](const Matrix3& m) {
        return std::fabs(DotProd(m[0], m[1])) + std::fabs(DotProd(m[1], m[2])) +
               std::fabs(DotProd(m[0], m[2]));
    };
    EXPECT_GT(shear(Evaluate(c, SomeParent(), kFrame)), 0.05f);
    Block(c)->SetValue(RigControl::kStraightScale, 0, 1);
    const Matrix3 straight = Evaluate(c, SomeParent(), kFrame);
    EXPECT_LT(shear(straight), 1e-5f);
    // The parent's scale survives as a per-axis factor.
    EXPECT_NEAR(Length(straight[0]), 2.0f, 1e-4f);
    EXPECT_NEAR(Length(straight[1]), 1.0f, 1e-4f);
}

// A parent with uniform scale: under a non-uniform one the independent offset's
// position, rotation and scale steps cannot reach every sheared world transform.
Matrix3 UniformParent() {
    return ScaledParent(Point3(2, 2, 2));
}

TEST_F(RigControlTest, SetNodeTMPlacesTheNodeInEveryOffsetMode) {
    RigControl* parentControl = MakeControl(L"parent");
    RigControl* c = MakeControl(L"c", NodeOf(parentControl));
    parentControl->SetOffsetTM(UniformParent());
    c->SetOffsetTM(SomeOffset());
    Matrix3 wanted = RotateYMatrix(1.2f) * RotateXMatrix(-0.4f);
    wanted.SetTrans(Point3(7, 8, -9));
    for (int indep = 0; indep < 2; ++indep) {
        Block(c)->SetValue(RigControl::kIndependentOffset, 0, indep);
        NodeOf(c)->SetNodeTM(kFrame, wanted);
        EXPECT_TRUE(MatrixNear(NodeOf(c)->GetNodeTM(kFrame), wanted, 1e-3f)) << "indep " << indep;
        EXPECT_TRUE(MatrixNear(c->GetOffsetTM(), SomeOffset(), 1e-6f));
    }
}

TEST_F(RigControlTest, FigureModeDrivesByTheOffsetAndEditsItWithoutKeys) {
    RigControl* c = MakeControl(L"c");
    KeyPose(c, kFrame, Point3(5, 5, 5), Point3(1, 0, 0), Point3(2, 2, 2));
    c->SetOffsetTM(SomeOffset());
    c->SetFigureMode(true);
    EXPECT_TRUE(MatrixNear(NodeOf(c)->GetNodeTM(kFrame), SomeOffset(), 1e-5f));

    AnimateOn();
    const int keys = c->GetPositionController()->NumKeys();
    NodeOf(c)->Move(2 * kFrame, Matrix3(), Point3(1, 2, 3));
    EXPECT_EQ(c->GetPositionController()->NumKeys(), keys);
    EXPECT_TRUE(MatrixNear(c->GetOffsetTM(), SomeOffset() * TransMatrix(Point3(1, 2, 3)), 1e-5f));

    // A set places the offset itself.
    const Matrix3 wanted = TransMatrix(Point3(-1, -1, -1));
    NodeOf(c)->SetNodeTM(3 * kFrame, wanted);
    EXPECT_TRUE(MatrixNear(c->GetOffsetTM(), wanted, 1e-6f));
    EXPECT_EQ(c->GetPositionController()->NumKeys(), keys);

    // The offset is a constant: written and read at time 0 whatever the time.
    EXPECT_TRUE(MatrixNear(NodeOf(c)->GetNodeTM(0), wanted, 1e-6f));
    EXPECT_EQ(Block(c)->GetController(RigControl::kOffsetTM), nullptr);
}

TEST_F(RigControlTest, FigureModeIsRigWide) {
    RigControl* root = MakeControl(L"root");
    RigControl* arm = MakeControl(L"arm", NodeOf(root));
    RigControl* hand = MakeControl(L"hand", NodeOf(arm));
    MakeControl(L"other");
    hand->SetFigureMode(true);
    EXPECT_TRUE(root->GetFigureMode());
    EXPECT_TRUE(arm->GetFigureMode());
    EXPECT_TRUE(hand->GetFigureMode());
    EXPECT_FALSE(FindRigControl(ip->GetINodeByName(L"other")->GetTMController())->GetFigureMode());
    root->SetFigureMode(false);
    EXPECT_FALSE(hand->GetFigureMode());

    // connect_mirror_offset goes rig-wide too.
    Block(arm)->SetValue(RigControl::kConnectMirrorOffset, 0, 0);
    EXPECT_EQ(Block(root)->GetInt(RigControl::kConnectMirrorOffset), 0);
    EXPECT_EQ(Block(hand)->GetInt(RigControl::kConnectMirrorOffset), 0);
}

TEST_F(RigControlTest, MovesTurnsAndScalesReachTheTracksInWorldTerms) {
    RigControl* parentControl = MakeControl(L"parent");
    RigControl* c = MakeControl(L"c", NodeOf(parentControl));
    parentControl->SetOffsetTM(RotateZMatrix(0.8f) * TransMatrix(Point3(2, 0, 0)));
    c->SetOffsetTM(SomeOffset());
    INode* node = NodeOf(c);
    const Matrix3 before = node->GetNodeTM(0);

    node->Move(0, Matrix3(), Point3(1, -2, 0.5f));
    EXPECT_TRUE(MatrixNear(node->GetNodeTM(0), before * TransMatrix(Point3(1, -2, 0.5f)), 1e-4f));

    const Matrix3 moved = node->GetNodeTM(0);
    Matrix3 axis = moved;
    axis.NoScale();
    node->Rotate(0, axis, AngAxis(Point3(0, 0, 1), 0.6f), true);
    const Matrix3 turned = node->GetNodeTM(0);
    EXPECT_TRUE(MatrixNear(turned, RotateZMatrix(0.6f) * moved, 1e-4f) ||
                MatrixNear(turned, RotateZMatrix(-0.6f) * moved, 1e-4f));
    EXPECT_NEAR(DotProd(Normalize(turned[2]), Normalize(moved[2])), 1.0f, 1e-4f);

    node->Scale(0, turned, Point3(2, 2, 2), true);
    EXPECT_NEAR(Length(node->GetNodeTM(0)[0]), 2.0f * Length(turned[0]), 1e-3f);
}

TEST_F(RigControlTest, OffsetEditsUndoExactly) {
    RigControl* c = MakeControl(L"c");
    c->SetOffsetTM(SomeOffset());
    const Matrix3 before = NodeOf(c)->GetNodeTM(0);
    theHold.Begin();
    c->SetOffsetPos(Point3(9, 9, 9));
    c->SetOffsetRot(Quat(RotateYMatrix(1.0f)));
    c->SetOffsetScale(Point3(3, 3, 3));
    theHold.Accept(WStr(L"Parameter Change"));
    EXPECT_TRUE(MatrixNear(
        c->GetOffsetTM(),
        ScaleMatrix(Point3(3, 3, 3)) * RotateYMatrix(1.0f) * TransMatrix(Point3(9, 9, 9)), 1e-4f));
    EXPECT_TRUE(c->GetOffsetScale().Equals(Point3(3, 3, 3), 1e-4f));
    theHold.Undo();
    EXPECT_TRUE(c->GetOffsetTM().Equals(SomeOffset(), 0.0f));
    EXPECT_TRUE(NodeOf(c)->GetNodeTM(0).Equals(before, 0.0f));
}

TEST_F(RigControlTest, CopyCloneSaveAndReparentKeepTheTransform) {
    RigControl* c = MakeControl(L"c");
    c->SetOffsetTM(SomeOffset());
    KeyPose(c, 0, Point3(1, 2, 3), Point3(0.1f, 0.2f, 0.3f), Point3(1, 1, 1));
    c->SetLocked(true);

    auto* clone = static_cast<RigControl*>(CloneRefHierarchy(c));
    EXPECT_TRUE(clone->GetLocked());
    EXPECT_TRUE(MatrixNear(Evaluate(clone, SomeParent(), 0), Evaluate(c, SomeParent(), 0), 0.0f));
    clone->DeleteMe();

    // A locked track ignores edits.
    const Matrix3 pose = Evaluate(c, Matrix3(), 0);
    NodeOf(c)->Move(0, Matrix3(), Point3(10, 0, 0));
    EXPECT_TRUE(Evaluate(c, Matrix3(), 0).Equals(pose, 0.0f));
    c->SetLocked(false);

    // Copy takes another controller's transform into the tracks.
    RigControl* other = MakeControl(L"other");
    other->Copy(NodeOf(c)->GetTMController());
    EXPECT_TRUE(MatrixNear(Evaluate(other, Matrix3(), 0), pose, 1e-4f));

    // Linking keeps the world transform through ChangeParents.
    RigControl* parent = MakeControl(L"parent");
    parent->SetOffsetTM(UniformParent());
    NodeOf(parent)->AttachChild(NodeOf(other), true);
    EXPECT_TRUE(MatrixNear(NodeOf(other)->GetNodeTM(0), pose, 1e-3f));
}

TEST_F(RigControlTest, GimbalProxyTurnsTheRealEulerTracks) {
    RigControl* c = MakeControl(L"c");
    c->SetOffsetTM(RotateXMatrix(0.5f));
    KeyPose(c, 0, Point3(), Point3(0.2f, 0.4f, 0.6f), Point3(1, 1, 1));
    Control* real = c->RealRotationController();
    EXPECT_EQ(c->GetRotationController(), real);

    ip->SetRefCoordSys(COORDS_GIMBAL);
    auto* proxy = dynamic_cast<ListControl*>(c->GetRotationController());
    ASSERT_NE(proxy, nullptr);
    EXPECT_EQ(proxy->GetActive(), 1);
    EXPECT_EQ(proxy->GetName(0), WStr(L"Parent Rot"));
    Control* euler = proxy->GetSubCtrl(1);
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(static_cast<DummyFloat*>(euler->SubAnim(i))->GetInner(), real->SubAnim(i));
    // The proxy's value is the offset's rotation followed by the real angles.
    Matrix3 viaProxy, viaReal = RotateXMatrix(0.5f);
    Interval valid = FOREVER;
    proxy->GetValue(0, &viaProxy, valid, CTRL_RELATIVE);
    real->GetValue(0, &viaReal, valid, CTRL_RELATIVE);
    EXPECT_TRUE(MatrixNear(viaProxy, viaReal, 1e-5f));

    // A ring drag on one axis reaches that real track only.
    float before[3];
    for (int i = 0; i < 3; ++i)
        static_cast<Control*>(real->SubAnim(i))->GetValue(0, &before[i], valid);
    float delta = 0.3f;
    static_cast<Control*>(euler->SubAnim(1))->SetValue(0, &delta, 1, CTRL_RELATIVE);
    float after[3];
    for (int i = 0; i < 3; ++i)
        static_cast<Control*>(real->SubAnim(i))->GetValue(0, &after[i], valid);
    EXPECT_EQ(after[0], before[0]);
    EXPECT_NEAR(after[1], before[1] + 0.3f, 1e-6f);
    EXPECT_EQ(after[2], before[2]);

    {
        GimbalProxy::Suspend suspend;
        EXPECT_EQ(c->GetRotationController(), real);
    }
    c->SetFigureMode(true);
    EXPECT_EQ(c->GetRotationController(), nullptr);
}

TEST_F(RigControlTest, PublishedPropertiesAndFigureModeText) {
    RigControl* c = MakeControl(L"c");
    ASSERT_TRUE(
        ExecuteTarnixScriptScript(L"c = $c.controller\n"
                                  L"c.offset_pos = [1, 2, 3]\n"
                                  L"if c.offset_pos != [1, 2, 3] do throw \"offset_pos\"\n"
                                  L"c.figure_mode = true\n"));
    EXPECT_TRUE(c->GetFigureMode());
    EXPECT_EQ(c->GetOffsetTM().GetTrans(), Point3(1, 2, 3));

    RecordingGraphicsWindow gw{400, 300};
    Viewport view{gw, VIEW_TOP};
    EXPECT_EQ(c->Display(0, NodeOf(c), &view, 0), 1);
    EXPECT_TRUE(gw.Texts().empty());  // not selected
    ip->SelectNode(NodeOf(c));
    c->Display(0, NodeOf(c), &view, 0);
    ASSERT_EQ(gw.Texts().size(), 1u);
    EXPECT_EQ(gw.Texts()[0].text, WStr(L"FIGURE MODE ON"));
}

}  // namespace
}  // namespace zorvanta::test

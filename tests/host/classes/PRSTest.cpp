#include <gtest/gtest.h>

#include "host/classes/HostClasses.h"
#include "host/classes/PRS.h"
#include "host/classes/ScaleXYZ.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;
using test::MatrixNear;

// The default PRS, whose bezier scale can stretch along turned axes.
class PRSController : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        prs_ = static_cast<PRS*>(NewDefaultMatrix3Controller());
        ASSERT_NE(prs_, nullptr);
    }
    void TearDown() override {
        prs_->DeleteMe();
        theHold.ClearUndo();
    }

    Matrix3 World(const Matrix3& parent, TimeValue t = 0) {
        Matrix3 tm = parent;
        Interval valid = FOREVER;
        prs_->GetValue(t, &tm, valid, CTRL_RELATIVE);
        return tm;
    }
    // Sends a packet of command c for the given parent, axis system, factors or offset,
    // and rotation.
    void Write(SetXFormCommand c, const Matrix3& parent, const Matrix3& axis, const Point3& p = {},
               const AngAxis& aa = {}, bool localOrigin = false, TimeValue t = 0) {
        SetXFormPacket packet;
        packet.command = c;
        packet.tmParent = parent;
        packet.tmAxis = axis;
        packet.p = p;
        packet.aa = aa;
        packet.localOrigin = localOrigin;
        prs_->SetValue(t, &packet);
    }
    PRS* prs_ = nullptr;
};

Matrix3 RigidTM(MathRandom& rnd) {
    Matrix3 m;
    rnd.Rotation().MakeMatrix(m);
    m.SetTrans(rnd.Vector(-10, 10));
    return m;
}

TEST_F(PRSController, LocalTransformIsScaleThenRotationThenPosition) {
    MathRandom rnd(7);
    for (int i = 0; i < 50; ++i) {
        Point3 pos = rnd.Vector(-5, 5);
        Quat rot = rnd.Rotation();
        ScaleValue scale(rnd.Vector(0.2f, 3.0f));
        prs_->GetPositionController()->SetValue(0, &pos);
        prs_->GetRotationController()->SetValue(0, &rot);
        prs_->GetScaleController()->SetValue(0, &scale);
        Matrix3 r;
        rot.MakeMatrix(r);
        const Matrix3 parent = RigidTM(rnd);
        ASSERT_TRUE(
            MatrixNear(World(parent), ScaleMatrix(scale.s) * r * TransMatrix(pos) * parent, 1e-3f));
    }
    Control* floatTrack = NewDefaultFloatController();
    EXPECT_FALSE(prs_->SetRotationController(floatTrack));  // wrong value type
    floatTrack->DeleteMe();
}

// Each packet changes the world transform exactly as the tool asked, whatever the
// parent and the axis system; a set places stretches along turned axes too.
TEST_F(PRSController, PacketsActInWorldSpaceAboutTheAxis) {
    MathRandom rnd(11);
    for (int i = 0; i < 40; ++i) {
        const Matrix3 parent = RigidTM(rnd);
        const Matrix3 stretched =
            ScaleValueMatrix(ScaleValue(rnd.Vector(0.3f, 3.0f), rnd.Rotation())) * RigidTM(rnd);
        Write(XFORM_SET, parent, stretched);
        ASSERT_TRUE(MatrixNear(World(parent), stretched, 2e-3f));
        Matrix3 target = ScaleMatrix(rnd.Vector(0.5f, 2.0f)) * RigidTM(rnd);
        Write(XFORM_SET, parent, target);
        ASSERT_TRUE(MatrixNear(World(parent), target, 1e-3f));

        const Point3 offset = rnd.Vector(-3, 3);
        Write(XFORM_MOVE, parent, {}, offset);
        target.Translate(offset);
        ASSERT_TRUE(MatrixNear(World(parent), target, 1e-3f));

        // A turn about a random axis system's pivot: W' = W * A^-1 * R * A.
        const Matrix3 axis = RigidTM(rnd);
        const AngAxis aa(Normalize(rnd.Vector(-1, 1)), rnd.Uniform(-3, 3));
        Write(XFORM_ROTATE, parent, axis, {}, aa);
        Matrix3 turn;
        Quat(aa).MakeMatrix(turn);
        target = target * Inverse(axis) * turn * axis;
        ASSERT_TRUE(MatrixNear(World(parent), target, 2e-3f));

        // A scale along the node's own axes about a pivot elsewhere.
        Matrix3 own = ReplaceRotation(Matrix3(), OrthoQuat(target));
        own.SetTrans(rnd.Vector(-5, 5));
        const Point3 factors = rnd.Vector(0.5f, 2.0f);
        Write(XFORM_SCALE, parent, own, factors);
        target = target * Inverse(own) * ScaleMatrix(factors) * own;
        ASSERT_TRUE(MatrixNear(World(parent), target, 3e-3f));
    }
}

TEST_F(PRSController, LocalOriginKeepsThePosition) {
    const Matrix3 parent = TransMatrix({1, 2, 3});
    Write(XFORM_SET, parent, TransMatrix({4, 0, 0}));
    const AngAxis aa({0, 0, 1}, 1.0f);
    SetXFormPacket byQuat;  // the turn given as a quaternion
    byQuat.command = XFORM_ROTATE, byQuat.tmParent = parent, byQuat.q = Quat(aa);
    byQuat.localOrigin = true;
    prs_->SetValue(0, &byQuat);
    Write(XFORM_SCALE, parent, {}, {2, 2, 2}, {}, true);
    const Matrix3 world = World(parent);
    EXPECT_TRUE(test::PointNear(world.GetTrans(), {4, 0, 0}, 1e-5f));
    Matrix3 turn;
    Quat(aa).MakeMatrix(turn);
    EXPECT_TRUE(MatrixNear(world, ScaleMatrix({2, 2, 2}) * turn * TransMatrix({4, 0, 0}), 1e-4f));
}

// Keeps the last scale increment written to it, and reads as no scale.
class RecordingScale : public Control {
public:
    SClass_ID SuperClassID() override { return CTRL_SCALE_CLASS_ID; }
    void GetValue(TimeValue, void*, Interval&, GetSetMethod) override {}
    void SetValue(TimeValue, void* val, int, GetSetMethod method) override {
        if (method == CTRL_RELATIVE) increment = *static_cast<ScaleValue*>(val);
    }
    ScaleValue increment;
};

// Factors along a turned axis system reach the scale controller as a scale along the
// same world directions, expressed in the node's own axes.
TEST_F(PRSController, ScaleAlongTurnedAxesCarriesTheAxis) {
    auto* recorder = new RecordingScale;
    ASSERT_TRUE(prs_->SetScaleController(recorder));
    MathRandom rnd(3);
    const Matrix3 parent = RigidTM(rnd), node = RigidTM(rnd), axis = RigidTM(rnd);
    Write(XFORM_SET, parent, node);
    const Point3 factors(2.0f, 0.5f, 3.0f);
    Write(XFORM_SCALE, parent, axis, factors, {}, true);
    Matrix3 nodeRotation = node, axisRotation = axis;
    nodeRotation.NoTrans();
    axisRotation.NoTrans();
    const Matrix3 worldStretch = Inverse(axisRotation) * ScaleMatrix(factors) * axisRotation;
    EXPECT_TRUE(MatrixNear(ScaleValueMatrix(recorder->increment),
                           nodeRotation * worldStretch * Inverse(nodeRotation), 1e-4f));
}

// A new scale XYZ is at rest, factors of 1 and no keys even when made in animate mode;
// relative writes multiply.
TEST_F(PRSController, ScaleTracksStartAtOneAndMultiply) {
    AnimateOn();
    auto* scale = new ScaleXYZ;
    AnimateOff();
    ScaleValue step(Point3(2, 3, 0.5f)), read;
    scale->SetValue(0, &step, 1, CTRL_RELATIVE);
    scale->SetValue(0, &step, 1, CTRL_RELATIVE);
    Interval valid = FOREVER;
    scale->GetValue(0, &read, valid);
    EXPECT_TRUE(read.s == Point3(4, 9, 0.25f) && scale->NumKeys() == 0);
    scale->DeleteMe();
}

// A move in animate mode keys only the position tracks; undo restores every track.
TEST_F(PRSController, AnimatedMoveKeysPositionAndUndoes) {
    const Matrix3 before = World(Matrix3());
    AnimateOn();
    theHold.Begin();
    Write(XFORM_MOVE, Matrix3(), Matrix3(), {1, 2, 3}, {}, false, 4800);
    theHold.Accept(L"Move");
    AnimateOff();
    EXPECT_TRUE(prs_->GetPositionController()->NumKeys() == 1 &&
                prs_->GetRotationController()->NumKeys() == 0 && prs_->NumKeys() == 1 &&
                prs_->GetKeyTime(0) == 4800);
    EXPECT_TRUE(MatrixNear(World(Matrix3(), 4800), before * TransMatrix({1, 2, 3}), 1e-5f));
    theHold.Undo();
    EXPECT_TRUE(prs_->NumKeys() == 0 && MatrixNear(World(Matrix3(), 4800), before, 0.0f));
}

}  // namespace
}  // namespace host

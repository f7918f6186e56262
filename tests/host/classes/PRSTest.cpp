#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "host/classes/HostClasses.h"
#include "host/classes/IEulerControl.h"
#include "host/classes/IKeyControl.h"
#include "host/classes/PRS.h"
#include "host/classes/ScaleXYZ.h"
#include "host/math/Euler.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/Animate.h"
#include "host/object/ClassRegistry.h"
#include "host/object/Hold.h"
#include "host/object/ReferenceMaker.h"
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

// The default PRS reads its default parts through a plan of cursors and builds the
// transform in registers; the parts' own relative reads, called one by one, are the
// general path. Both must agree to the bit, whatever the keys, the order of reads and
// the edits between them.
class PRSReadPlanTest : public PRSController {
protected:
    Control* Track(int i) {
        Control* part = i < 3 ? prs_->GetPositionController() : prs_->GetRotationController();
        const int axis = i % 3;
        return axis == 0 ? part->GetXController()
                         : (axis == 1 ? part->GetYController() : part->GetZController());
    }
    int Uniform(int lo, int hi) { return std::uniform_int_distribution<int>(lo, hi)(rng_); }
    float Value(float lo, float hi) { return std::uniform_real_distribution<float>(lo, hi)(rng_); }

    // Keys at random times with every tangent type, custom lengths now and then, and
    // random out-of-range types; some tracks get no key or one.
    uint32_t Flags() {
        return SetOutTanType(SetInTanType(0, BezierTangent(Uniform(0, 6))),
                             BezierTangent(Uniform(0, 6)));
    }
    void KeyFloat(Control* track) {
        IKeyControl* keys = GetKeyControlInterface(track);
        const int count = Uniform(0, 9);
        for (int k = 0; k < count; ++k) {
            IBezFloatKey key;
            key.time = Uniform(-400, 4000);
            key.val = Value(-3.0f, 3.0f);
            key.flags = Flags();
            key.intan = Value(-0.01f, 0.01f);
            key.outtan = Value(-0.01f, 0.01f);
            if (Uniform(0, 5) == 0) key.outLength = Value(0.1f, 0.9f);
            keys->AppendKey(&key);
        }
        keys->SortKeys();
        track->SetORT(Uniform(0, 5), ORT_BEFORE);
        track->SetORT(Uniform(0, 5), ORT_AFTER);
    }
    // Mirrors, and turned scale axes shared by all keys or differing from key to key.
    void KeyScale(Control* track) {
        IKeyControl* keys = GetKeyControlInterface(track);
        const int count = Uniform(0, 9);
        const int axes = Uniform(0, 2);  // identity, one turned axis, an axis per key
        const Quat shared = rnd_.Rotation();
        for (int k = 0; k < count; ++k) {
            IBezScaleKey key;
            key.time = Uniform(-400, 4000);
            key.val = ScaleValue(rnd_.Vector(-1.5f, 1.5f),
                                 axes == 0 ? Quat() : (axes == 1 ? shared : rnd_.Rotation()));
            key.flags = Flags();
            keys->AppendKey(&key);
        }
        keys->SortKeys();
    }
    // Smooth keys every 200 ticks over 0 to 4000, which cursors read.
    void KeyEvenly(Control* track) {
        IKeyControl* keys = GetKeyControlInterface(track);
        for (TimeValue t = 0; t <= 4000; t += 200) {
            IBezFloatKey key;
            key.time = t;
            key.val = Value(-3.0f, 3.0f);
            keys->AppendKey(&key);
        }
    }
    void KeyAll() {
        for (int i = 0; i < 6; ++i) KeyFloat(Track(i));
        KeyScale(prs_->GetScaleController());
        Euler()->SetOrder(Uniform(0, kEulerOrderCount - 1));
    }
    IEulerControl* Euler() {
        return static_cast<IEulerControl*>(
            prs_->GetRotationController()->GetInterface(I_EULERCTRL));
    }

    // Times in playback order (small and large steps), then scrubbing, then backwards,
    // reaching before the first key and past the last; last, playback up to kResume,
    // where the next reads begin, so that they find the cursors inside the keys.
    static constexpr TimeValue kResume = 2000;
    std::vector<TimeValue> Times() {
        std::vector<TimeValue> times;
        for (TimeValue t = -600; t < 4400; t += Uniform(1, 200)) times.push_back(t);
        for (int n = 0; n < 60; ++n) times.push_back(Uniform(-600, 4400));
        for (TimeValue t = 4400; t > -600; t -= Uniform(1, 300)) times.push_back(t);
        for (TimeValue t = 1000; t < kResume; t += Uniform(1, 100)) times.push_back(t);
        times.push_back(kResume);
        return times;
    }

    // The plan's result and the parts' one by one, compared bit for bit: rows, identity
    // flags and validity.
    void ExpectSameAsParts(TimeValue t, const Matrix3& parent) {
        Matrix3 planned = parent;
        Interval plannedValid = FOREVER;
        prs_->GetValue(t, &planned, plannedValid, CTRL_RELATIVE);
        Matrix3 general = parent;
        Interval generalValid = FOREVER;
        for (Control* part : {prs_->GetPositionController(), prs_->GetRotationController(),
                              prs_->GetScaleController()})
            part->GetValue(t, &general, generalValid, CTRL_RELATIVE);
        ASSERT_EQ(std::memcmp(&planned, &general, sizeof(Matrix3)), 0) << "at " << t;
        ASSERT_EQ(plannedValid.Start(), generalValid.Start()) << "at " << t;
        ASSERT_EQ(plannedValid.End(), generalValid.End()) << "at " << t;
    }
    void ExpectSameAsParts(const Matrix3& parent) {
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(kResume, parent));
        for (TimeValue t : Times()) ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(t, parent));
    }

    std::mt19937 rng_{17};
    test::MathRandom rnd_{29};
};

TEST_F(PRSReadPlanTest, RandomKeysReadAsThePartsReadThem) {
    for (int scene = 0; scene < 40; ++scene) {
        SCOPED_TRACE(scene);
        prs_->DeleteMe();
        prs_ = static_cast<PRS*>(NewDefaultMatrix3Controller());
        KeyAll();
        // The identity parent keeps its flags until a part clears them.
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(Matrix3()));
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(rnd_.Affine()));
    }
}

// Keys at the same times on all nine channels, which the plan packs into one table once
// it has been read a few times; tangents of every type leave spans that are not cubics
// in every channel, and the scale turns one axis for all keys or none.
TEST_F(PRSReadPlanTest, SharedKeyTimesReadAsThePartsReadThem) {
    for (int scene = 0; scene < 20; ++scene) {
        SCOPED_TRACE(scene);
        prs_->DeleteMe();
        prs_ = static_cast<PRS*>(NewDefaultMatrix3Controller());
        std::vector<TimeValue> times;
        for (TimeValue t = Uniform(-400, 0); t < 4000; t += Uniform(1, 600)) times.push_back(t);
        for (int i = 0; i < 6; ++i) {
            IKeyControl* keys = GetKeyControlInterface(Track(i));
            for (TimeValue t : times) {
                IBezFloatKey key;
                key.time = t;
                key.val = Value(-3.0f, 3.0f);
                key.flags = Uniform(0, 3) == 0 ? Flags() : 0;
                keys->AppendKey(&key);
            }
        }
        IKeyControl* scales = GetKeyControlInterface(prs_->GetScaleController());
        const Quat axis = scene % 2 ? rnd_.Rotation() : Quat();
        for (TimeValue t : times) {
            IBezScaleKey key;
            key.time = t;
            key.val = ScaleValue(rnd_.Vector(-1.5f, 1.5f), axis);
            scales->AppendKey(&key);
        }
        Euler()->SetOrder(Uniform(0, kEulerOrderCount - 1));
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(rnd_.Affine()));
    }
}

// Each edit leaves the plan reading tables that are gone or hold other keys, or parts that
// changed, unless the plan is built again. The reads after an edit begin where the cursors
// stopped before it.
TEST_F(PRSReadPlanTest, EditsBetweenReadsAreSeen) {
    for (int i = 0; i < 6; ++i) KeyEvenly(Track(i));
    KeyScale(prs_->GetScaleController());
    const Matrix3 parent = rnd_.Affine();
    auto check = [&](const char* edit) {
        SCOPED_TRACE(edit);
        ASSERT_NO_FATAL_FAILURE(ExpectSameAsParts(parent));
    };
    check("keys");

    IKeyControl* keys = GetKeyControlInterface(Track(4));
    KeyEvenly(Track(4));  // twice the keys: the segment table moves
    keys->SortKeys();
    check("keys added");

    theHold.Begin();
    Euler()->SetOrder((Euler()->GetOrder() + 4) % kEulerOrderCount);
    GetKeyControlInterface(Track(0))->SetNumKeys(0);
    theHold.Accept(L"Edit");
    check("order and keys");
    ASSERT_TRUE(theHold.Undo());
    check("undo");
    ASSERT_TRUE(theHold.Redo());
    check("redo");

    DisableRefMsgs();
    IBezFloatKey moved;
    keys->GetKey(3, &moved);
    moved.val += 1.0f;
    keys->SetKey(3, &moved);
    EnableRefMsgs();
    check("a key set with messages off");

    // A track of another class: the parts are read one by one; then bezier again.
    auto* tcb = static_cast<Control*>(CreateInstance(CTRL_FLOAT_CLASS_ID, TCB_FLOAT_CLASS_ID));
    ASSERT_TRUE(prs_->GetPositionController()->AssignController(tcb, 1));
    check("a TCB track");
    ASSERT_TRUE(prs_->GetPositionController()->AssignController(NewDefaultFloatController(), 1));
    KeyFloat(Track(1));
    check("a new bezier track");
    ASSERT_TRUE(prs_->AssignController(NewDefaultScaleController(), 2));
    check("a new scale");
}

}  // namespace
}  // namespace host

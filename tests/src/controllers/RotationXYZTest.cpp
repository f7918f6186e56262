#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <random>

#include "host/io/CloneRemapDir.h"
#include "host/object/Animate.h"
#include "tests/host/io/SaveLoadTestSupport.h"
#include "tests/src/controllers/ControllersTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

constexpr float kTwoPi = 6.2831855f;

class RotationXYZTest : public ControllerTest {
protected:
    void TearDown() override {
        AnimateOff();
        ip->SetRefCoordSys(COORDS_VIEW);
        ControllerTest::TearDown();
    }

    // The three tracks' values at t.
    static Point3 Tracks(RotationXYZ* c, TimeValue t = 0) {
        Point3 v;
        Interval valid = FOREVER;
        Control* tracks[3] = {c->GetXController(), c->GetYController(), c->GetZController()};
        for (int i = 0; i < 3; ++i) tracks[i]->GetValue(t, &v[i], valid);
        return v;
    }
    static void SetTracks(RotationXYZ* c, const Point3& v) {
        Control* tracks[3] = {c->GetXController(), c->GetYController(), c->GetZController()};
        for (int i = 0; i < 3; ++i) {
            float f = v[i];
            tracks[i]->SetValue(0, &f);
        }
    }
    static Quat Value(RotationXYZ* c, TimeValue t = 0) {
        Quat q;
        Interval valid = FOREVER;
        c->GetValue(t, &q, valid, CTRL_ABSOLUTE);
        return q;
    }
    static void Turn(RotationXYZ* c, const Point3& axis, float angle, TimeValue t = 0) {
        AngAxis aa(axis, angle);
        c->SetValue(t, &aa, 1, CTRL_RELATIVE);
    }

    std::mt19937 rng{17};
    float Angle(float range = 3.0f) {
        return std::uniform_real_distribution<float>(-range, range)(rng);
    }
};

// The orders by name: the letters are the axes in order of application.
constexpr const char* kOrderNames[9] = {"XYZ", "XZY", "YZX", "YXZ", "ZXY",
                                        "ZYX", "XYX", "YZY", "ZXZ"};

// The rotation of order with the tracks' values, built one axis at a time: orders 0 to 5
// take each axis's angle from that axis's track, the repeating orders the tracks in turn.
Matrix3 AxisByAxis(int order, const Point3& tracks) {
    Matrix3 m;
    for (int step = 0; step < 3; ++step) {
        const int axis = kOrderNames[order][step] - 'X';
        const float angle = tracks[order >= 6 ? step : axis];
        if (axis == 0) m.RotateX(angle);
        if (axis == 1) m.RotateY(angle);
        if (axis == 2) m.RotateZ(angle);
    }
    return m;
}

TEST_F(RotationXYZTest, EvaluatesToTheMatrixBuiltAxisByAxis) {
    auto* c = new RotationXYZ();
    const Matrix3 parent = RotateXMatrix(0.3f) * RotateZMatrix(-1.1f) * TransMatrix({1, 2, 3});
    for (int order = 0; order < 9; ++order) {
        c->SetOrder(order);
        for (int sample = 0; sample < 20; ++sample) {
            SCOPED_TRACE(testing::Message() << kOrderNames[order] << " sample " << sample);
            const Point3 tracks(Angle(7), Angle(7), Angle(7));
            SetTracks(c, tracks);
            const Matrix3 expected = AxisByAxis(order, tracks);
            EXPECT_TRUE(QuatMatrix(Value(c)).Equals(expected, 1e-5f));
            Matrix3 tm = parent;
            Interval valid = FOREVER;
            c->GetValue(0, &tm, valid, CTRL_RELATIVE);
            EXPECT_TRUE(tm.Equals(expected * parent, 1e-5f));
        }
    }
    c->DeleteMe();
}

// A turn about a generic axis is applied in steps, so the angles follow its arc: two
// whole turns come back to the start with two turns wound on one angle only.
TEST_F(RotationXYZTest, SevenHundredTwentyDegreesWindOneAngleTwice) {
    auto* c = new RotationXYZ();
    const Point3 start(0.2f, -0.1f, 0.15f);
    SetTracks(c, start);
    Turn(c, Normalize(Point3(1.0f, 0.08f, -0.05f)), 4.0f * 3.14159265f);
    const Point3 end = Tracks(c);
    int wound = 0;
    for (int i = 0; i < 3; ++i) {
        const float turns = std::round((end[i] - start[i]) / kTwoPi);
        EXPECT_NEAR(end[i] - start[i], turns * kTwoPi, 1e-3f) << i;
        if (turns != 0.0f) {
            EXPECT_EQ(std::fabs(turns), 2.0f) << i;
            ++wound;
        }
    }
    EXPECT_EQ(wound, 1);
    c->DeleteMe();
}

// In the gimbal coordinate system a handle's axis, marked by its exact components,
// changes the one angle it turns, and no other track by a single bit.
TEST_F(RotationXYZTest, GimbalHandleChangesOneTrack) {
    ip->SetRefCoordSys(COORDS_GIMBAL);
    struct Case {
        int order;
        int changedTrack[3];  // by handle axis X, Y, Z
    };
    // XYX: an X handle turns the third angle (track Z), a Y handle the second, and Z,
    // which the order doesn't name, the first.
    const Case cases[] = {{0, {0, 1, 2}}, {4, {0, 1, 2}}, {6, {2, 1, 0}}};
    for (const Case& test : cases) {
        auto* c = new RotationXYZ();
        c->SetOrder(test.order);
        for (int axis = 0; axis < 3; ++axis) {
            SCOPED_TRACE(testing::Message() << kOrderNames[test.order] << " axis " << axis);
            const Point3 before(Angle(), Angle(), Angle());
            SetTracks(c, before);
            Point3 handle;
            handle[axis] = 1.0f;
            handle[(axis + 2) % 3] = FLT_MIN;
            Turn(c, handle, 0.3f);
            const Point3 after = Tracks(c);
            for (int track = 0; track < 3; ++track) {
                if (track == test.changedTrack[axis])
                    EXPECT_FLOAT_EQ(after[track], before[track] - 0.3f);
                else
                    EXPECT_EQ(after[track], before[track]);
            }
        }
        c->DeleteMe();
    }
}

// A turn about the present direction of one Euler axis changes that angle only, and
// gives the rotation a generic turn would.
TEST_F(RotationXYZTest, TurnAboutAnEulerAxisChangesThatAngle) {
    auto* c = new RotationXYZ();
    c->SetOrder(4);  // ZXY: the middle axis X is carried by the last turn, about Y
    const Point3 before(0.4f, -0.7f, 1.2f);
    SetTracks(c, before);
    const Point3 middleAxis = VectorTransform(RotateYMatrix(before.y), Point3::XAxis);
    const Quat q = Value(c);
    Turn(c, middleAxis, 0.25f);
    const Point3 after = Tracks(c);
    EXPECT_FLOAT_EQ(after.x, before.x - 0.25f);
    EXPECT_EQ(after.y, before.y);
    EXPECT_EQ(after.z, before.z);
    EXPECT_TRUE(
        QuatMatrix(Value(c)).Equals(QuatMatrix(q * Quat(AngAxis(middleAxis, 0.25f))), 1e-5f));
    c->DeleteMe();
}

// Keys set while animating, a rotation turning steadily about X past half a turn and
// beyond: each key follows the one before, so the X curve rises without a flip or a
// jump of a turn, and the controller's keys are the keys set.
TEST_F(RotationXYZTest, AbsoluteKeysStayContinuousWithThePreviousKey) {
    auto* c = new RotationXYZ();
    AnimateOn();
    const Quat tilt(AngAxis(Point3::YAxis, -0.2f));
    for (int k = 0; k < 16; ++k) {
        Quat q = Quat(AngAxis(Point3::XAxis, -0.5f * float(k))) * tilt;
        c->SetValue(10 * k, &q);
    }
    AnimateOff();
    ASSERT_EQ(c->NumKeys(), 16);
    EXPECT_EQ(c->GetKeyTime(15), 150);
    for (int k = 0; k < 16; ++k) {
        const Point3 v = Tracks(c, 10 * k);
        EXPECT_NEAR(v.x, 0.5f * float(k), 1e-4f) << k;
        EXPECT_NEAR(v.y, 0.2f, 1e-4f) << k;
        EXPECT_NEAR(v.z, 0.0f, 1e-4f) << k;
    }
    c->DeleteMe();
}

// Several writes in one hold: one undo entry that gives the tracks back bit for bit, and
// the controller's value with them; redo gives the writes' result.
TEST_F(RotationXYZTest, UndoAndRedoOfWritesReturnTheTracksExactly) {
    auto* c = new RotationXYZ();
    SetTracks(c, Point3(0.3f, -1.2f, 2.0f));
    const Point3 before = Tracks(c);
    const Quat valueBefore = Value(c);
    theHold.Begin();
    Turn(c, Normalize(Point3(1, 2, 3)), 2.0f);
    Quat q(AngAxis(Normalize(Point3(-1, 0.5f, 0.2f)), 1.0f));
    c->SetValue(0, &q);
    Turn(c, Normalize(Point3(0, 1, -1)), -4.0f);
    theHold.Accept(L"Rotate");
    EXPECT_FALSE(c->TestAFlag(A_EULER_RESTORE_PUT));
    const Point3 after = Tracks(c);
    ASSERT_EQ(theHold.NumUndoEntries(), 1);
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(Tracks(c), before);
    EXPECT_EQ(Value(c), valueBefore);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(Tracks(c), after);
    c->DeleteMe();
}

TEST_F(RotationXYZTest, SetOrderIsUndoableAndTheSameOrderRecordsNothing) {
    auto* c = new RotationXYZ();
    SetTracks(c, Point3(0.5f, 0.6f, 0.7f));
    theHold.Begin();
    c->SetOrder(0);
    c->SetOrder(9);
    c->SetOrder(-1);
    theHold.Accept(L"Nothing");
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
    EXPECT_EQ(c->GetOrder(), 0);

    theHold.Begin();
    c->SetOrder(5);
    theHold.Accept(L"Order");
    // The tracks are reinterpreted, not converted.
    EXPECT_TRUE(QuatMatrix(Value(c)).Equals(AxisByAxis(5, Point3(0.5f, 0.6f, 0.7f)), 1e-5f));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(c->GetOrder(), 0);
    EXPECT_TRUE(QuatMatrix(Value(c)).Equals(AxisByAxis(0, Point3(0.5f, 0.6f, 0.7f)), 1e-5f));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(c->GetOrder(), 5);
    c->DeleteMe();
}

TEST_F(RotationXYZTest, LocksRefuseWritesAndTrackAssignments) {
    auto* c = new RotationXYZ();
    SetTracks(c, Point3(0.1f, 0.2f, 0.3f));
    c->SetLocked(true);
    Turn(c, Point3::ZAxis, 1.0f);
    EXPECT_EQ(Tracks(c), Point3(0.1f, 0.2f, 0.3f));
    c->SetLocked(false);

    auto* locked = new StaticFloat();
    locked->SetLocked(true);
    ASSERT_TRUE(c->AssignController(locked, 1));
    auto* refused = new StaticFloat();
    EXPECT_FALSE(c->AssignController(refused, 1));
    EXPECT_EQ(c->GetYController(), locked);
    EXPECT_TRUE(c->AssignController(new StaticFloat(), 2));
    refused->DeleteMe();
    c->DeleteMe();
}

TEST_F(RotationXYZTest, SaveLoadAndCloneKeepOrderLockJointAndTracks) {
    auto* c = new RotationXYZ();
    c->SetOrder(7);
    SetTracks(c, Point3(0.4f, -0.5f, 2.5f));
    c->SetLocked(true);
    JointParamsEuler* joint = c->GetJointParams();
    ASSERT_NE(joint, nullptr);
    joint->flags[1] = JointParams::LIMITED;
    joint->min[1] = -0.5f;
    joint->damping[2] = 0.25f;
    joint->extra[3] = 7.0f;
    const Quat value = Value(c);

    auto* loaded = host::test::SaveAndLoad(c);
    auto* clone = static_cast<RotationXYZ*>(CloneRefHierarchy(c));
    for (RotationXYZ* copy : {loaded, clone}) {
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(copy->GetOrder(), 7);
        EXPECT_TRUE(copy->GetLocked());
        EXPECT_EQ(Value(copy), value);
        ASSERT_NE(copy->GetJointParams(), nullptr);
        EXPECT_EQ(copy->GetJointParams()->flags[1], JointParams::LIMITED);
        EXPECT_EQ(copy->GetJointParams()->min[1], -0.5f);
        EXPECT_EQ(copy->GetJointParams()->damping[2], 0.25f);
        EXPECT_EQ(copy->GetJointParams()->extra[3], 7.0f);
    }
    EXPECT_NE(clone->GetXController(), c->GetXController());
    host::test::LoadEveryPrefix(c);

    ChunkWriter bad;
    bad.WriteChunk(ROTATION_XYZ_ORDER_CHUNK, int32_t(9));
    RotationXYZ refused(true);
    ChunkReader reader(bad.Bytes());
    EXPECT_EQ(refused.Load(&reader), IO_ERROR);
    EXPECT_EQ(refused.GetOrder(), 0);
    for (RotationXYZ* object : {c, loaded, clone}) object->DeleteMe();
}

}  // namespace
}  // namespace zorvanta::test

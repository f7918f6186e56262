#include <gtest/gtest.h>

#include <random>

#include "host/classes/EulerXYZ.h"
#include "host/classes/HostClasses.h"
#include "host/classes/PositionXYZ.h"
#include "host/math/Euler.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"

namespace host {
namespace {

class XYZControllers : public ::testing::Test {
protected:
    void SetUp() override { RegisterHostClasses(); }
    void TearDown() override { theHold.ClearUndo(); }
};

bool SameRotation(const Quat& a, const Quat& b) {
    return a.Equals(b, 1e-4f) || a.Equals(-b, 1e-4f);
}

TEST_F(XYZControllers, PositionIsThreeFloatTracks) {
    auto* c = static_cast<PositionXYZ*>(NewDefaultPositionController());
    ASSERT_TRUE(c && c->ClassID() == POSITION_XYZ_CLASS_ID);
    Point3 p(1, 2, 3);
    theHold.Begin();
    c->SetValue(0, &p);
    Point3 step(1, 1, 1);
    c->SetValue(0, &step, 1, CTRL_RELATIVE);  // adds to each track
    theHold.Accept(L"Move");
    Interval valid = FOREVER;
    Point3 got;
    c->GetValue(0, &got, valid);
    EXPECT_EQ(got, Point3(2, 3, 4));
    Matrix3 tm = RotateZMatrix(0.5f);  // a relative read translates in the matrix's own space
    c->GetValue(0, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(TransMatrix({2, 3, 4}) * RotateZMatrix(0.5f), 1e-5f));
    theHold.Undo();
    c->GetValue(0, &got, valid);
    EXPECT_EQ(got, Point3());
    AnimateOn();  // keys on all three tracks, merged by time
    c->SetValue(4800, &p);
    p = Point3(0, 5, 0);
    c->SetValue(9600, &p);
    AnimateOff();
    EXPECT_TRUE(c->NumKeys() == 2 && c->GetKeyTime(1) == 9600 &&
                c->GetTimeRange() == Interval(4800, 9600));
    Control* rotation = NewDefaultRotationController();
    EXPECT_FALSE(c->AssignController(rotation, 0));  // not a float track
    rotation->DeleteMe();
    c->DeleteMe();
}

// Any rotation written in any order reads back as the same rotation, and a relative
// read applies it in the matrix's own space.
TEST_F(XYZControllers, EulerXYZKeepsRotationsInEveryOrder) {
    auto* c = static_cast<EulerXYZ*>(NewDefaultRotationController());
    ASSERT_TRUE(c && c->ClassID() == EULER_XYZ_CLASS_ID);
    auto* euler = static_cast<IEulerControl*>(c->GetInterface(I_EULERCTRL));
    ASSERT_NE(euler, nullptr);
    std::mt19937 rng(6);
    std::uniform_real_distribution<float> u(-1, 1);
    for (int order = 0; order < kEulerOrderCount; ++order) {
        euler->SetOrder(order);
        for (int n = 0; n < 50; ++n) {
            Quat q = Normalize(Quat(u(rng), u(rng), u(rng), u(rng)));
            c->SetValue(0, &q);
            Quat got;
            Interval valid = FOREVER;
            c->GetValue(0, &got, valid);
            ASSERT_TRUE(SameRotation(got, q)) << order;
            Matrix3 tm = TransMatrix({1, 2, 3});
            c->GetValue(0, &tm, valid, CTRL_RELATIVE);
            EXPECT_TRUE(tm.Equals(QuatMatrix(q) * TransMatrix({1, 2, 3}), 1e-4f));
            AngAxis turn(Normalize(Point3(u(rng), u(rng), u(rng))), 0.4f);
            c->SetValue(0, &turn, 1, CTRL_RELATIVE);  // composed after the present rotation
            c->GetValue(0, &got, valid);
            EXPECT_TRUE(SameRotation(got, q * Quat(turn)));
        }
    }
    c->DeleteMe();
}

TEST_F(XYZControllers, EulerXYZTracksHoldAnglesWindAndUndoOrderChanges) {
    auto* c = static_cast<EulerXYZ*>(NewDefaultRotationController());
    const float xyz[3] = {0.1f, 0.2f, 0.3f};
    Control* tracks[3] = {c->GetXController(), c->GetYController(), c->GetZController()};
    for (int i = 0; i < 3; ++i) tracks[i]->SetValue(0, const_cast<float*>(&xyz[i]));
    auto rotation = [c] {
        Matrix3 tm;
        Interval valid = FOREVER;
        c->GetValue(0, &tm, valid, CTRL_RELATIVE);
        return tm;
    };
    c->SetOrder(EULERTYPE_ZXY);  // Z first, then X, then Y, each by its own track's angle
    EXPECT_TRUE(
        rotation().Equals(RotateZMatrix(0.3f) * RotateXMatrix(0.1f) * RotateYMatrix(0.2f), 1e-6f));
    c->SetOrder(EULERTYPE_XYX);  // a repeating order: the tracks are the three angles in turn
    EXPECT_TRUE(
        rotation().Equals(RotateXMatrix(0.1f) * RotateYMatrix(0.2f) * RotateXMatrix(0.3f), 1e-6f));
    c->SetOrder(EULERTYPE_XYZ);
    for (int n = 1; n <= 720; ++n) {  // two whole turns about X, a degree at a time
        Quat q = Quat(RotateXMatrix(float(n) * 3.1415927f / 180.0f));
        c->SetValue(0, &q);
    }
    float x = 0;
    Interval valid = FOREVER;
    c->GetXController()->GetValue(0, &x, valid);
    EXPECT_NEAR(x, 4 * 3.1415927f, 1e-3f);  // continuous: no jump back into -pi..pi
    theHold.Begin();
    c->SetOrder(EULERTYPE_ZYX);
    c->SetOrder(EULERTYPE_ZYX);  // the same order changes nothing
    theHold.Accept(L"Change Euler Order");
    EXPECT_EQ(c->GetOrder(), EULERTYPE_ZYX);
    theHold.Undo();
    c->SetOrder(9);  // refused
    EXPECT_EQ(c->GetOrder(), EULERTYPE_XYZ);
    c->DeleteMe();
}

}  // namespace
}  // namespace host

#include <gtest/gtest.h>

#include <random>

#include "host/classes/BezierFloat.h"
#include "host/classes/BezierPosition.h"
#include "host/classes/HostClasses.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"

namespace host {
namespace {

// Each axis of a bezier position is the bezier float made from that axis of its keys,
// whatever the tangent types, custom tangents, lengths and out-of-range types.
TEST(BezierPosition, EachAxisIsABezierFloat) {
    std::mt19937 rng(17);
    std::uniform_real_distribution<float> value(-10.0f, 10.0f), length(0.1f, 0.6f);
    auto* position = new BezierPosition;
    BezierFloat* axes[3] = {new BezierFloat, new BezierFloat, new BezierFloat};
    for (int k = 0; k < 12; ++k) {
        IBezPoint3Key key;
        key.time = k * 400 + int(rng() % 200);
        const auto type = BezierTangent(rng() % 7);
        key.flags = SetOutTanType(SetInTanType(0, type), BezierTangent(rng() % 7));
        for (int axis = 0; axis < 3; ++axis) {
            key.val[axis] = value(rng);
            key.intan[axis] = value(rng) * 0.001f;
            key.outtan[axis] = value(rng) * 0.001f;
            key.inLength[axis] = length(rng);
            key.outLength[axis] = rng() % 2 ? length(rng) : 1.0f / 3.0f;
            IBezFloatKey single;
            single.time = key.time, single.flags = key.flags, single.val = key.val[axis];
            single.intan = key.intan[axis], single.outtan = key.outtan[axis];
            single.inLength = key.inLength[axis], single.outLength = key.outLength[axis];
            axes[axis]->AppendKey(&single);
        }
        position->AppendKey(&key);
    }
    const int orts[][2] = {{ORT_CYCLE, ORT_LINEAR}, {ORT_OSCILLATE, ORT_RELATIVE_REPEAT}};
    for (const auto& ort : orts) {
        position->SetORT(ort[0], ORT_BEFORE);
        position->SetORT(ort[1], ORT_AFTER);
        for (BezierFloat* axis : axes) {
            axis->SetORT(ort[0], ORT_BEFORE);
            axis->SetORT(ort[1], ORT_AFTER);
        }
        int mismatches = 0;  // counted, so that a failure still frees the tracks
        for (TimeValue t = -6000; t < 12000; t += 37) {
            const Point3 p = position->Evaluate(t);
            for (int axis = 0; axis < 3; ++axis) mismatches += p[axis] != axes[axis]->Evaluate(t);
        }
        EXPECT_EQ(mismatches, 0);
    }
    for (BezierFloat* axis : axes) axis->DeleteMe();
    position->DeleteMe();
}

TEST(BezierPosition, WritesKeyInAnimateModeAndUndo) {
    RegisterHostClasses();
    auto* c =
        static_cast<Control*>(CreateInstance(CTRL_POSITION_CLASS_ID, BEZIER_POSITION_CLASS_ID));
    ASSERT_NE(c, nullptr);
    Point3 p(1, 2, 3);
    c->SetValue(0, &p);  // no keys, not animating: the held value
    AnimateOn();
    theHold.Begin();
    Point3 q(5, 5, 5);
    c->SetValue(4800, &q);
    Point3 step(1, 0, 0);
    c->SetValue(4800, &step, 1, CTRL_RELATIVE);  // adds to the key at 4800
    theHold.Accept(L"Move");
    AnimateOff();
    EXPECT_EQ(c->NumKeys(), 1);
    Interval valid = FOREVER;
    Point3 got;
    c->GetValue(4800, &got, valid);
    EXPECT_EQ(got, Point3(6, 5, 5));
    Matrix3 tm = RotateZMatrix(0.3f);
    c->GetValue(4800, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(TransMatrix({6, 5, 5}) * RotateZMatrix(0.3f), 1e-5f));
    theHold.Undo();
    EXPECT_EQ(c->NumKeys(), 0);
    c->GetValue(4800, &got, valid);
    EXPECT_EQ(got, Point3(1, 2, 3));
    theHold.ClearUndo();
    c->DeleteMe();
}

}  // namespace
}  // namespace host

#include <gtest/gtest.h>

#include "host/classes/IKeyControl.h"
#include "host/io/CloneRemapDir.h"
#include "tests/controllers/ControllersTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

class StepAndDummy : public ControllerTest {
protected:
    // A step track with keys (time, value) on its inner bezier float.
    StepFloat* Stepped(std::initializer_list<std::pair<TimeValue, float>> keys) {
        auto* step = new StepFloat();
        for (auto [t, v] : keys) {
            IBezFloatKey key;
            key.time = t;
            key.val = v;
            key.flags = host::test::LinearFlags();
            GetKeyControlInterface(step->GetInner())->AppendKey(&key);
        }
        return step;
    }
    static float At(Control* c, TimeValue t, Interval* validity = nullptr) {
        float v = 0.0f;
        Interval valid = FOREVER;
        c->GetValue(t, &v, valid);
        if (validity) *validity = valid;
        return v;
    }
};

TEST_F(StepAndDummy, StepFloatHoldsEachKeyUntilTheNext) {
    StepFloat* step = Stepped({{100, 1.0f}, {200, 5.0f}, {400, -2.0f}});
    struct Case {
        TimeValue t;
        float value;
        Interval valid;
    };
    const Case cases[] = {
        {0, 1.0f, {TIME_NegInfinity, 99}},  // before the first key: the first key's value
        {100, 1.0f, {100, 199}},            // on a key: that key
        {199, 1.0f, {100, 199}},            // a tick before a key: the one before
        {200, 5.0f, {200, 399}},
        {399, 5.0f, {200, 399}},
        {400, -2.0f, {400, TIME_PosInfinity}},
        {9000, -2.0f, {400, TIME_PosInfinity}},
    };
    for (const Case& c : cases) {
        Interval valid;
        EXPECT_FLOAT_EQ(At(step, c.t, &valid), c.value) << "at " << c.t;
        EXPECT_EQ(valid, c.valid) << "at " << c.t;
    }
    EXPECT_EQ(step->NumKeys(), 3);
    EXPECT_EQ(step->GetKeyTime(1), 200);
    step->DeleteMe();
}

TEST_F(StepAndDummy, StepFloatWithoutKeysReadsItsInnerTrack) {
    StepFloat* step = Stepped({});
    float v = 3.0f;
    step->SetValue(50, &v);
    Interval valid;
    EXPECT_FLOAT_EQ(At(step, 1234, &valid), 3.0f);
    EXPECT_EQ(valid, FOREVER);
    // A relative write adds to the held value.
    float add = 2.0f;
    step->SetValue(0, &add, 1, CTRL_RELATIVE);
    EXPECT_FLOAT_EQ(At(step, 0), 5.0f);
    step->DeleteMe();
}

TEST_F(StepAndDummy, StepFloatRepeatsRelativelyByWholeCycles) {
    StepFloat* step = Stepped({{0, 0.0f}, {50, 1.0f}, {100, 4.0f}});
    step->SetORT(ORT_RELATIVE_REPEAT, ORT_AFTER);
    step->SetORT(ORT_RELATIVE_REPEAT, ORT_BEFORE);
    // Each cycle adds the difference of the ends, 4.
    EXPECT_FLOAT_EQ(At(step, 120), 4.0f);   // folded to 20: key 0, one cycle on
    EXPECT_FLOAT_EQ(At(step, 160), 5.0f);   // folded to 60: key 50
    EXPECT_FLOAT_EQ(At(step, 260), 9.0f);   // two cycles on
    EXPECT_FLOAT_EQ(At(step, -40), -3.0f);  // folded to 60, one cycle back
    step->SetORT(ORT_CONSTANT, ORT_AFTER);
    EXPECT_FLOAT_EQ(At(step, 260), 4.0f);
    step->DeleteMe();
}

TEST_F(StepAndDummy, StepFloatClonesItsInnerTrack) {
    StepFloat* step = Stepped({{10, 2.0f}, {20, 3.0f}});
    auto* clone = static_cast<StepFloat*>(CloneRefHierarchy(step));
    ASSERT_NE(clone, nullptr);
    EXPECT_NE(clone->GetInner(), step->GetInner());
    for (TimeValue t : {0, 10, 15, 20, 30}) EXPECT_FLOAT_EQ(At(clone, t), At(step, t));
    step->DeleteMe();
    clone->DeleteMe();
}

TEST_F(StepAndDummy, DummyFloatOffsetsItsInnerTrack) {
    DummyFloat dummy;
    dummy.SetOffset(0.5f);
    float held = 2.0f;
    Interval valid = FOREVER;
    dummy.GetValue(0, &held, valid);
    EXPECT_FLOAT_EQ(held, 2.5f);  // no inner track: the offset added to what val held

    StaticFloat inner;
    dummy.SetInner(&inner);
    float v = 3.0f;
    dummy.SetValue(0, &v);
    EXPECT_FLOAT_EQ(inner.GetStaticValue(), 2.5f);
    EXPECT_FLOAT_EQ(At(&dummy, 0), 3.0f);
    dummy.SetValue(0, &v, 1, CTRL_RELATIVE);  // relative goes to the inner track unchanged
    EXPECT_FLOAT_EQ(inner.GetStaticValue(), 5.5f);
}

TEST_F(StepAndDummy, DummyRotationAppliesOrReplaces) {
    DummyRotation dummy;
    Quat q(AngAxis(Point3(0, 1, 0), 0.8f));
    dummy.SetValue(0, &q);
    const Matrix3 parent = TransMatrix(Point3(1, 2, 3));
    Matrix3 tm = parent;
    Interval valid = FOREVER;
    dummy.GetValue(0, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(QuatMatrix(q) * parent, 1e-5f));
    dummy.SetRelative(false);
    tm = parent;
    dummy.GetValue(0, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(QuatMatrix(q), 1e-5f));
    AngAxis more(Point3(0, 1, 0), 0.2f);
    dummy.SetValue(0, &more, 1, CTRL_RELATIVE);
    Quat read;
    dummy.GetValue(0, &read, valid);
    EXPECT_TRUE(read.Equals(Quat(AngAxis(Point3(0, 1, 0), 1.0f)), 1e-5f));
}

}  // namespace
}  // namespace zorvanta::test

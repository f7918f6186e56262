#include "host/classes/BezierFloat.h"

#include <gtest/gtest.h>

#include <vector>

#include "host/object/Animate.h"

namespace host {
namespace {

// A track of keys given as (time, value, in type, out type).
struct KeySpec {
    TimeValue t;
    float v;
    BezierTangent in = BEZKEY_SMOOTH, out = BEZKEY_SMOOTH;
};

BezierFloat* Track(const std::vector<KeySpec>& keys) {
    auto* c = new BezierFloat;
    for (const KeySpec& k : keys) {
        IBezFloatKey key;
        key.time = k.t;
        key.val = k.v;
        key.flags = SetOutTanType(SetInTanType(0, k.in), k.out);
        c->AppendKey(&key);
    }
    return c;
}

// The slope in value per tick just after (or before) t, by a small finite difference.
float SlopeAfter(BezierFloat* c, TimeValue t) {
    return (c->Evaluate(t + 4) - c->Evaluate(t)) / 4.0f;
}
float SlopeBefore(BezierFloat* c, TimeValue t) {
    return (c->Evaluate(t) - c->Evaluate(t - 4)) / 4.0f;
}

TEST(BezierFloat, TangentTypesShapeTheCurve) {
    BezierFloat* c = Track({{0, 0, BEZKEY_LINEAR, BEZKEY_LINEAR},
                            {4800, 10, BEZKEY_LINEAR, BEZKEY_LINEAR},
                            {9600, 20, BEZKEY_FLAT, BEZKEY_SMOOTH},
                            {14400, 5},
                            {19200, 0, BEZKEY_SMOOTH, BEZKEY_STEP},
                            {24000, 7}});
    for (const KeySpec k :
         {KeySpec{0, 0}, {4800, 10}, {9600, 20}, {14400, 5}, {19200, 0}, {24000, 7}})
        EXPECT_FLOAT_EQ(c->Evaluate(k.t), k.v);
    EXPECT_NEAR(c->Evaluate(1200), 2.5f, 1e-5f);  // linear to linear: a straight line
    EXPECT_NEAR(c->Evaluate(3600), 7.5f, 1e-5f);
    EXPECT_NEAR(SlopeBefore(c, 9600), 0.0f, 1e-5f);  // flat in
    // Smooth at an inner key: one slope on both sides, that of the neighbours.
    EXPECT_NEAR(SlopeBefore(c, 14400), SlopeAfter(c, 14400), 1e-4f);
    EXPECT_NEAR(SlopeAfter(c, 14400), (0.0f - 20.0f) / 9600.0f, 1e-4f);
    EXPECT_EQ(c->Evaluate(23999), 0.0f);  // a step out holds until the next key
    BezierFloat* eased =
        Track({{0, 0, BEZKEY_LINEAR, BEZKEY_FAST}, {1000, 10, BEZKEY_SLOW, BEZKEY_LINEAR}});
    EXPECT_NEAR(SlopeAfter(eased, 0), 2 * 0.01f, 1e-4f);         // fast: twice the segment's slope
    EXPECT_NEAR(SlopeBefore(eased, 1000), 0.5f * 0.01f, 1e-4f);  // slow: half of it
    eased->DeleteMe();
    c->DeleteMe();
}

// Custom tangents with handle lengths other than a third: the curve is the 2D Bezier
// of (time, value), computed here by bisection on its time component. Set on a key
// that was smooth, so that the custom values must replace the computed ones.
TEST(BezierFloat, HandleLengthsReshapeTheCurve) {
    const float dt = 4800.0f, v0 = 2.0f, v1 = 10.0f;
    BezierFloat* c = Track({{0, v0}, {4800, v1}});
    IBezFloatKey a, b;
    c->GetKey(0, &a);
    a.outtan = 0.004f, a.outLength = 0.6f, a.flags = 0x1680;  // custom in and out
    c->SetKey(0, &a);
    c->GetKey(1, &b);
    b.intan = 0.001f, b.inLength = 0.1f, b.flags = 0x1680;
    c->SetKey(1, &b);
    auto cubic = [](float p0, float p1, float p2, float p3, float u) {
        const float w = 1.0f - u;
        return w * w * w * p0 + 3 * w * w * u * p1 + 3 * w * u * u * p2 + u * u * u * p3;
    };
    for (TimeValue t = 240; t < 4800; t += 480) {
        float lo = 0.0f, hi = 1.0f;
        for (int i = 0; i < 40; ++i) {
            const float mid = 0.5f * (lo + hi);
            (cubic(0, 0.6f * dt, 0.9f * dt, dt, mid) < float(t) ? lo : hi) = mid;
        }
        const float expected =
            cubic(v0, v0 + 0.004f * 0.6f * dt, v1 + 0.001f * 0.1f * dt, v1, 0.5f * (lo + hi));
        EXPECT_NEAR(c->Evaluate(t), expected, 1e-3f) << "at " << t;
    }
    c->DeleteMe();
}

TEST(BezierFloat, OutOfRangeTypesRepeatOrExtendTheCurve) {
    BezierFloat* c = Track({{1000, 1}, {2000, 5}, {3000, 3}});
    EXPECT_EQ(c->Evaluate(-50000), 1.0f);  // constant by default
    EXPECT_EQ(c->Evaluate(50000), 3.0f);
    c->SetORT(ORT_CYCLE, ORT_AFTER);
    EXPECT_NEAR(c->Evaluate(2500 + 2000 * 3), c->Evaluate(2500), 1e-5f);
    c->SetORT(ORT_OSCILLATE, ORT_BEFORE);
    EXPECT_NEAR(c->Evaluate(1000 - 500), c->Evaluate(1000 + 500), 1e-5f);  // mirrored
    c->SetORT(ORT_RELATIVE_REPEAT, ORT_AFTER);
    EXPECT_NEAR(c->Evaluate(2500 + 2000 * 2), c->Evaluate(2500) + 2 * (3.0f - 1.0f), 1e-5f);
    c->SetORT(ORT_LINEAR, ORT_AFTER);  // goes on along the last key's tangent
    IBezFloatKey last;
    c->GetKey(2, &last);
    EXPECT_NEAR(c->Evaluate(3000 + 100) - c->Evaluate(3000), 100 * last.outtan, 1e-5f);
    EXPECT_NEAR(last.outtan, SlopeBefore(c, 3000), 1e-4f);  // and so continues the curve
    c->SetORT(ORT_IDENTITY, ORT_AFTER);                     // refused
    EXPECT_EQ(c->GetORT(ORT_AFTER), ORT_LINEAR);
    c->DeleteMe();
}

TEST(BezierFloat, SetValueKeysWhenAnimatingShiftsTheCurveOtherwiseOrIsTentative) {
    auto* c = new BezierFloat;
    float v = 4;
    c->SetValue(100, &v);  // no keys: the held value
    Interval valid = FOREVER;
    float got = 0;
    c->GetValue(-7, &got, valid);
    EXPECT_TRUE(got == 4 && valid == FOREVER);
    AnimateOn();
    v = 7;
    c->SetValue(4800, &v);
    v = 9;
    c->SetValue(0, &v);
    AnimateOff();
    ASSERT_EQ(c->NumKeys(), 2);
    EXPECT_TRUE(c->GetKeyTime(0) == 0 && c->GetKeyTime(1) == 4800);
    v = 1;
    c->SetValue(2400, &v, 1, CTRL_RELATIVE);  // no key at 2400: every key moves by 1
    EXPECT_TRUE(c->Evaluate(0) == 10 && c->Evaluate(4800) == 8);
    valid = FOREVER;
    got = 100;
    c->GetValue(2400, &got, valid, CTRL_RELATIVE);
    EXPECT_NEAR(got, 100 + c->Evaluate(2400), 1e-4f);
    EXPECT_EQ(valid, Interval(2400, 2400));
    valid = FOREVER;
    c->GetValue(9000, &got, valid);
    EXPECT_EQ(valid, Interval(4800, TIME_PosInfinity));  // constant after the last key
    // Tentative writes (commit 0, as during a drag) are committed or restored.
    v = 5;
    c->SetValue(4800, &v, 0);
    v = 6;
    c->SetValue(4800, &v, 0);
    EXPECT_EQ(c->Evaluate(4800), 6.0f);
    c->RestoreValue(4800);  // back to before the first tentative change
    EXPECT_EQ(c->Evaluate(4800), 8.0f);
    c->SetValue(4800, &v, 0);
    c->CommitValue(4800);
    c->RestoreValue(4800);  // nothing tentative left
    EXPECT_EQ(c->Evaluate(4800), 6.0f);
    v = 7;
    c->SetValue(0, &v, 0);
    v = 8;
    c->SetValue(0, &v, 1);  // a committed change ends the tentative one
    c->RestoreValue(0);
    EXPECT_EQ(c->Evaluate(0), 8.0f);
    c->DeleteMe();
}

TEST(BezierFloat, KeyOperations) {
    BezierFloat* c = Track({{0, 0}, {1000, 4}, {2000, 2}, {3000, 8}});
    const float before = c->Evaluate(1500);
    c->AddNewKey(1500, IKEY_SELECTED);  // a new key keeps the curve's value there
    EXPECT_EQ(c->NumKeys(), 5);
    EXPECT_NEAR(c->Evaluate(1500), before, 1e-5f);
    EXPECT_TRUE(c->IsKeyAtTime(1500, 0) && c->IsKeySelected(2) && !c->IsKeySelected(1));
    c->SelectKeys(Interval(2500, 3000), true);
    Tab<TimeValue> times;
    c->GetKeyTimes(times, Interval(500, 2000), 0);
    EXPECT_TRUE(times.Count() == 3 && times[0] == 1000 && times[2] == 2000);
    c->MoveKeys(100, true);  // the selected keys only
    EXPECT_TRUE(c->GetKeyIndex(1600) == 2 && c->GetKeyIndex(3100) == 4);
    c->DeleteKeys(0);  // the selected ones
    EXPECT_EQ(c->NumKeys(), 3);
    c->DeleteKeyAtTime(1000);
    EXPECT_EQ(c->GetTimeRange(), Interval(0, 2000));
    auto* keys = static_cast<IKeyControl*>(c->GetInterface(I_KEYCONTROL));
    ASSERT_EQ(keys, static_cast<IKeyControl*>(c));
    keys->SetNumKeys(1);
    EXPECT_EQ(keys->GetNumKeys(), 1);
    float seven = 7.0f;
    c->SetValue(0, &seven);  // not animating: the one key moves to 7
    c->DeleteKeys(TRACK_DOALL);
    EXPECT_EQ(c->NumKeys(), 0);
    EXPECT_EQ(c->Evaluate(123), 7.0f);  // keeps the value it had at the start
    c->DeleteMe();
}

// Reads remember where the last one was; any order of reads (playback forwards and
// backwards, jumps, repeats, key times) gives what a track read only once gives.
TEST(BezierFloat, ReadOrderDoesNotChangeValues) {
    std::vector<KeySpec> keys;
    for (int k = 0; k < 12; ++k)
        keys.push_back({k * 400, float((k * 7) % 5), k % 3 == 0 ? BEZKEY_LINEAR : BEZKEY_SMOOTH,
                        k % 4 == 1 ? BEZKEY_STEP : BEZKEY_SMOOTH});
    auto make = [&] { return Track(keys); };
    BezierFloat* track = make();
    std::vector<TimeValue> times;
    for (TimeValue t = -200; t <= 4800; t += 160) times.push_back(t);            // forwards
    for (TimeValue t = 4700; t >= 0; t -= 130) times.push_back(t);               // backwards
    for (int i = 0; i < 60; ++i) times.push_back(TimeValue((i * 7919) % 4600));  // jumps
    for (TimeValue t = 0; t < 4300; t += 170)
        times.insert(times.end(), {t, t + 450, t});  // rocking
    for (TimeValue t : times) {
        BezierFloat* fresh = make();
        ASSERT_EQ(track->Evaluate(t), fresh->Evaluate(t)) << t;
        fresh->DeleteMe();
    }
    track->DeleteMe();
}

}  // namespace
}  // namespace host

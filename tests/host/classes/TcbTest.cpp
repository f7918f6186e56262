#include <gtest/gtest.h>

#include <cmath>
#include <type_traits>
#include <vector>

#include "host/classes/TcbFloat.h"
#include "host/classes/TcbPosition.h"
#include "host/classes/TcbRotation.h"
#include "host/classes/TcbScale.h"
#include "host/object/Animate.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;

struct KeyDef {
    TimeValue time;
    float val, tens = 0, cont = 0, bias = 0, easeIn = 0, easeOut = 0;
};

// A float track, or (turns) a rotation track turning about Z by each key's value in radians.
template <class Track = TcbFloat, class Key = ITCBFloatKey>
Track* MakeTrack(const std::vector<KeyDef>& defs) {
    auto* track = new Track;
    for (const KeyDef& s : defs) {
        Key key;
        if constexpr (std::is_same_v<Key, ITCBRotKey>)
            key.val = AngAxis(Point3::ZAxis, s.val);
        else
            key.val = s.val;
        key.time = s.time, key.tens = s.tens, key.cont = s.cont, key.bias = s.bias;
        key.easeIn = s.easeIn, key.easeOut = s.easeOut;
        track->AppendKey(&key);
    }
    return track;
}
constexpr auto Floats = MakeTrack<TcbFloat, ITCBFloatKey>;
constexpr auto TurnsAboutZ = MakeTrack<TcbRotation, ITCBRotKey>;

// The Kochanek-Bartels curve as the paper writes it, for keys P with durations N:
//   source (out) DS_i = (1-t)(1+c)(1+b)/2 (P_i - P_i-1) + (1-t)(1-c)(1-b)/2 (P_i+1 - P_i)
//   dest   (in)  DD_i = (1-t)(1-c)(1+b)/2 (P_i - P_i-1) + (1-t)(1+c)(1-b)/2 (P_i+1 - P_i)
// scaled by 2N_i / (N_i-1 + N_i) and 2N_i-1 / (N_i-1 + N_i); open ends by the
// 3/2-chord rule. Between keys the Hermite cubic in the eased time fraction.
float ReferenceCurve(const std::vector<KeyDef>& k, float t) {
    const size_t n = k.size();
    std::vector<float> ds(n), dd(n);
    for (size_t i = 1; i + 1 < n; ++i) {
        const float tn = 1 - k[i].tens, c = k[i].cont, b = k[i].bias;
        const float back = k[i].val - k[i - 1].val, fwd = k[i + 1].val - k[i].val;
        const float n0 = float(k[i].time - k[i - 1].time), n1 = float(k[i + 1].time - k[i].time);
        ds[i] = (tn * (1 + c) * (1 + b) / 2 * back + tn * (1 - c) * (1 - b) / 2 * fwd) * 2 * n1 /
                (n0 + n1);
        dd[i] = (tn * (1 - c) * (1 + b) / 2 * back + tn * (1 + c) * (1 - b) / 2 * fwd) * 2 * n0 /
                (n0 + n1);
    }
    ds[0] = (1 - k[0].tens) * (1.5f * (k[1].val - k[0].val) - 0.5f * dd[1]);
    dd[n - 1] = (1 - k[n - 1].tens) * (1.5f * (k[n - 1].val - k[n - 2].val) - 0.5f * ds[n - 2]);
    size_t s = 0;
    while (s + 2 < n && t >= float(k[s + 1].time)) ++s;
    float u = (t - float(k[s].time)) / float(k[s + 1].time - k[s].time);
    // The ease: constant acceleration over the first a, deceleration over the last b.
    const float a = k[s].easeOut, b = k[s + 1].easeIn;
    if (a + b > 0) {
        const float v = 2 / (2 - a - b);
        u = u < a ? v * u * u / (2 * a)
                  : (u <= 1 - b ? v * (u - a / 2) : 1 - v * (1 - u) * (1 - u) / (2 * b));
    }
    const float u2 = u * u, u3 = u2 * u;
    return (2 * u3 - 3 * u2 + 1) * k[s].val + (u3 - 2 * u2 + u) * ds[s] +
           (-2 * u3 + 3 * u2) * k[s + 1].val + (u3 - u2) * dd[s + 1];
}

TEST(Tcb, FloatFollowsKochanekBartels) {
    MathRandom rnd(41);
    for (int trial = 0; trial < 20; ++trial) {
        std::vector<KeyDef> keys;
        TimeValue time = 0;
        for (int i = 0; i < 5; ++i) {
            keys.push_back({time, rnd.Uniform(-10, 10), rnd.Uniform(-1, 1), rnd.Uniform(-1, 1),
                            rnd.Uniform(-1, 1), rnd.Uniform(0, 0.5f), rnd.Uniform(0, 0.5f)});
            time += TimeValue(rnd.Uniform(160, 4800));
        }
        TcbFloat* track = Floats(keys);
        for (TimeValue t = 0; t <= keys.back().time; t += 37)
            ASSERT_NEAR(track->Evaluate(t), ReferenceCurve(keys, float(t)), 2e-4f) << trial;
        track->DeleteMe();
    }
    TcbFloat* single = Floats({{500, 3}});  // a key alone holds its value
    EXPECT_TRUE(single->Evaluate(-100) == 3.0f && single->Evaluate(9000) == 3.0f);
    single->DeleteMe();
}

float TurnAboutZ(const Quat& q) {
    const AngAxis aa(q);
    return aa.axis.z >= 0 ? aa.angle : -aa.angle;
}

// A rotation about one axis follows the float curve of its angle, and goes the shorter
// way between keys.
TEST(Tcb, RotationAboutOneAxisFollowsItsAngle) {
    const std::vector<KeyDef> keys = {{0, 0.1f, 0.3f, -0.2f, 0.4f},
                                      {1200, 1.0f, -0.5f, 0.3f, 0.1f, 0.2f, 0.3f},
                                      {3000, 0.4f},
                                      {4000, 1.5f, 0.2f, 0.6f, -0.4f}};
    TcbRotation* rotation = TurnsAboutZ(keys);
    TcbFloat* angle = Floats(keys);
    for (TimeValue t = 0; t <= 4000; t += 50)
        ASSERT_NEAR(TurnAboutZ(rotation->Evaluate(t)), angle->Evaluate(t), 2e-4f) << t;
    rotation->DeleteMe();
    angle->DeleteMe();
    TcbRotation* across = TurnsAboutZ({{0, 0.2f}, {1000, 6.0f}});  // 6 rad is -0.28 rad
    for (TimeValue t = 0; t <= 1000; t += 100)
        EXPECT_NEAR(TurnAboutZ(across->Evaluate(t)),
                    0.2f + (6.0f - 2 * test::kPi - 0.2f) * float(t) / 1000.0f, 1e-4f);
    across->DeleteMe();
}

// The body-frame angular velocity per tick just after (side 1) or before t, to second
// order from the turns over 8 and 16 ticks.
Point3 AngularVelocity(TcbRotation* r, TimeValue t, int side) {
    const Quat at = Inverse(r->Evaluate(t));
    const Point3 near = RotationVector(at * r->Evaluate(t + 8 * side));
    const Point3 far = RotationVector(at * r->Evaluate(t + 16 * side));
    return (near * 4.0f - far) / float(16 * side);
}

TEST(Tcb, RotationKeepsTheSpeedThroughKeys) {
    MathRandom rnd(7);
    for (int trial = 0; trial < 10; ++trial) {
        auto* track = new TcbRotation;
        TimeValue time = 0;
        Quat q;
        for (int i = 0; i < 5; ++i) {
            ITCBRotKey key;
            key.time = time;
            q = q * RotationVectorQuat(rnd.Vector(-1.2f, 1.2f));
            key.val = AngAxis(q);
            key.tens = rnd.Uniform(-0.5f, 0.5f);
            key.bias = rnd.Uniform(-0.5f, 0.5f);
            track->AppendKey(&key);
            time += TimeValue(rnd.Uniform(600, 3000));
        }
        ITCBRotKey key;
        for (int i = 0; i < 5; ++i) {
            track->GetKey(i, &key);
            EXPECT_TRUE(test::SameRotation(track->Evaluate(key.time), Quat(key.val), 1e-5f));
            if (i == 0 || i == 4) continue;
            const Point3 before = AngularVelocity(track, key.time, -1);
            const Point3 after = AngularVelocity(track, key.time, 1);
            EXPECT_LT(Length(before - after), 1e-2f * Length(after)) << trial << " " << i;
        }
        track->DeleteMe();
    }
}

TEST(Tcb, AnimatingWritesKeysOfEveryType) {
    auto* rotation = new TcbRotation;
    auto* position = new TcbPosition;
    auto* scale = new TcbScale;
    AnimateOn();
    for (TimeValue t : {0, 2000, 1000}) {
        Quat q = RotationVectorQuat(Point3(0, 0, 0.5f * float(t) / 1000.0f));
        rotation->SetValue(t, &q);
        Point3 p(float(t), 1, 2);
        position->SetValue(t, &p);
        ScaleValue s(Point3(1 + float(t) / 1000.0f, 1, 1));
        scale->SetValue(t, &s);
    }
    AnimateOff();
    EXPECT_EQ(rotation->NumKeys(), 3);
    EXPECT_NEAR(TurnAboutZ(rotation->Evaluate(1000)), 0.5f, 1e-5f);
    EXPECT_NEAR(TurnAboutZ(rotation->Evaluate(500)), 0.25f, 1e-4f);
    EXPECT_NEAR(position->Evaluate(1500).x, 1500.0f, 1e-2f);
    EXPECT_NEAR(scale->Evaluate(500).s.x, 1.5f, 1e-4f);
    // Outside animate mode a write moves the whole rotation track by the change.
    Quat turn = RotationVectorQuat(Point3(0, 0, 0.35f));
    rotation->SetValue(500, &turn);
    EXPECT_NEAR(TurnAboutZ(rotation->Evaluate(0)), 0.1f, 1e-5f);
    EXPECT_NEAR(TurnAboutZ(rotation->Evaluate(2000)), 1.1f, 1e-5f);
    // Relative repeat carries the whole track's turn into the next cycle.
    rotation->SetORT(ORT_RELATIVE_REPEAT, ORT_AFTER);
    EXPECT_NEAR(TurnAboutZ(rotation->Evaluate(3000)), 0.6f + 1.0f, 1e-4f);
    rotation->DeleteMe();
    position->DeleteMe();
    scale->DeleteMe();
}

}  // namespace
}  // namespace host

// The limbs' guide layouts: arms and hands, legs and feet, animal legs, paws and insect
// legs. Constants are right-side positions in the limb's own frame, where the limb is
// about one unit long.
#include <algorithm>
#include <array>
#include <numbers>

#include "rig/GuideLayoutParts.h"

namespace zorvanta::guide {

using namespace host;

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

// One joint of a limb: its name, local position, draw flags and the parameter counting
// the twist bones of the segment that starts at it (-1 for none).
struct Joint {
    const wchar_t* name;
    Point3 pos;
    uint32_t flags = 0;
    int twist = -1;
};

constexpr Joint kArm[] = {
    {L"clavicle", {-0.02f, -0.04f, -0.02f}, kPointClavicle},
    {L"upper_arm", {-0.2f, 0.0f, 0.0f}, kPointUpperArm, RIG_UPPER_ARM_TWIST_BONES},
    {L"forearm", {-0.51f, 0.05f, -0.25f}, kPointForearm, RIG_FOREARM_TWIST_BONES}};
// The wrist, where the hand frame is placed.
constexpr Point3 kWrist(-0.78f, 0.0f, -0.49f);

// A quadruped's front leg; the arm builder reads it by the arm's names.
constexpr Joint kQuadArm[] = {
    {L"clavicle", {-0.05f, 0.025f, 1.0f}, kPointClavicle},
    {L"upper_arm", {-0.13f, -0.02f, 0.9f}, kPointUpperArm, RIG_UPPER_ARM_TWIST_BONES},
    {L"forearm", {-0.13f, 0.08f, 0.65f}, kPointForearm, RIG_FOREARM_TWIST_BONES},
    {L"front_cannon", {-0.13f, 0.0f, 0.35f}, 0, RIG_FRONT_CANNON_TWIST_BONES}};
constexpr Joint kFrontLeg[] = {
    {L"leg_clavicle", {-0.05f, 0.025f, 1.0f}},
    {L"front_thigh", {-0.13f, -0.02f, 0.9f}},
    {L"front_calf", {-0.13f, 0.08f, 0.65f}},
    {L"front_cannon", {-0.13f, 0.0f, 0.35f}, 0, RIG_FRONT_CANNON_TWIST_BONES}};
constexpr Joint kLeg[] = {{L"thigh", {-0.13f, 0.0f, 1.0f}, 0, RIG_THIGH_TWIST_BONES},
                          {L"calf", {-0.13f, -0.05f, 0.55f}, 0, RIG_CALF_TWIST_BONES}};
constexpr Joint kAnimalLeg[] = {{L"thigh", {-0.13f, 0.0f, 0.95f}, 0, RIG_THIGH_TWIST_BONES},
                                {L"calf", {-0.13f, -0.09f, 0.7f}, 0, RIG_CALF_TWIST_BONES},
                                {L"cannon", {-0.13f, 0.07f, 0.37f}, 0, RIG_CANNON_TWIST_BONES}};
constexpr Joint kInsectLeg[] = {
    {L"coxa", {-0.07f, 0.0f, 0.24f}},   {L"femur", {-0.2f, 0.0f, 0.2f}},
    {L"tibia", {-0.45f, 0.0f, 0.45f}},  {L"metatarsus", {-0.82f, 0.0f, 0.35f}},
    {L"tarsus", {-0.93f, 0.0f, 0.07f}}, {L"leg_tip", {-1.0f, 0.0f, 0.0f}}};

// The foot stands on the ground under the ankle, a quarter of the leg long.
constexpr float kFootScale = 0.25f;
// Hand finger rows: the first joint of finger f at kFingerStart + f * kFingerSpacing, the
// joints of a finger kFingerJoint apart; a thumb (the first of several fingers) is half
// as long and starts half as far from the wrist.
constexpr Point3 kFingerStart(-0.2f, -0.04f, -0.2f);
constexpr float kFingerSpacing = 0.066f;
constexpr float kFingerJoint = 0.1f;
constexpr float kThumbScale = 0.5f;
constexpr Point3 kHandEnd(-0.15f, 0.09f, -0.15f);
// Foot points in the foot frame: the ball, where the toes start, and the toe row's width.
constexpr Point3 kBall(0.0f, -0.45f, 0.05f);
constexpr float kToeLength = 0.25f;
constexpr float kToeRowHalfWidth = 0.15f;

// The joints of a limb as a chain of pairs, each named with the limb's index; returns
// the pairs made, joint by joint.
template <size_t N>
std::array<PointPair, N> AddJoints(GuideBuilder& b, int component, const Joint (&joints)[N],
                                   int side, int index, PointPair parent, const SideFrames& frames,
                                   bool keepOld) {
    std::array<PointPair, N> made;
    for (size_t i = 0; i < N; ++i) {
        parent = AddPair(b, component, joints[i].name, index, joints[i].pos, side, parent, frames,
                         keepOld, joints[i].flags);
        made[i] = parent;
    }
    return made;
}

// For each joint with a twist count above 1: count - 1 twist points
// "<joint>_twist[_<index+1>]_<k>" dividing its segment in count equal parts. The last
// segment ends at end.
template <size_t N>
void AddTwists(GuideBuilder& b, int component, const Joint (&joints)[N], int index,
               RigParam limbParam, const Point3& end, int side,
               const std::array<PointPair, N>& made, const SideFrames& frames) {
    for (size_t i = 0; i < N; ++i) {
        if (joints[i].twist < 0) continue;
        const RigParam countParam = RigParam(joints[i].twist);
        const int count = b.Params()[countParam];
        if (count <= 1) continue;
        const std::wstring name = std::wstring(joints[i].name) + L"_twist";
        Chain twist;
        twist.component = component;
        twist.name = name.c_str();
        twist.index = index;
        twist.controls = count - 1;
        twist.from = joints[i].pos;
        twist.to = i + 1 < N ? joints[i + 1].pos : end;
        twist.gapStart = true;
        twist.keepControls = b.KeepOld({limbParam, countParam});
        AddChain(b, twist, side, made[i], frames);
    }
}

// The ankle in a foot frame.
constexpr Point3 kAnkle(0.0f, 0.0f, 0.4f);

Matrix3 FootFrame(const Point3& ankle) {
    return Frame(kFootScale, Point3(ankle.x, ankle.y, 0.0f));
}

// A leg's joints, then its foot (or front paw) on the ground under the last joint, then
// its twist points.
template <size_t N>
void AddLegWithFoot(GuideBuilder& b, const Joint (&joints)[N], bool front, const SideFrames& frames,
                    int side, PointPair parent) {
    const auto leg =
        AddJoints(b, kCompLegs, joints, side, -1, parent, frames, b.KeepOld(RIG_LEG_PAIRS));
    const Matrix3 foot = FootFrame(joints[N - 1].pos);
    FootLayout(b, frames.Then(foot), side, front, leg.back());
    AddTwists(b, kCompLegs, joints, -1, RIG_LEG_PAIRS, kAnkle * foot, side, leg, frames);
}

}  // namespace

void ArmLayout(GuideBuilder& b, const SideFrames& frames, int side, int index, PointPair parent) {
    const auto arm =
        AddJoints(b, kCompArms, kArm, side, index, parent, frames, b.KeepOld(RIG_ARM_PAIRS));
    Matrix3 hand = ScaleMatrix(Point3(0.29f, 0.29f, 0.29f));
    hand.RotateY(-kPi / 5.0f);
    hand.RotateZ(kPi / 20.0f);
    hand.Translate(kWrist);
    HandLayout(b, frames.Then(hand), side, index, arm.back());
    AddTwists(b, kCompArms, kArm, index, RIG_ARM_PAIRS, kWrist, side, arm, frames);
}

void QuadArmLayout(GuideBuilder& b, const SideFrames& frames, int side, int index,
                   PointPair parent) {
    const auto leg =
        AddJoints(b, kCompArms, kQuadArm, side, index, parent, frames, b.KeepOld(RIG_ARM_PAIRS));
    // The hoof's fingers point forward (-Y) from the bottom of the cannon.
    const Point3 ankle = kQuadArm[3].pos;
    Matrix3 hand = ScaleMatrix(Point3(kFootScale, kFootScale, kFootScale));
    hand.RotateZ(kPi / 2.0f);
    hand.Translate(Point3(ankle.x, ankle.y, kAnkle.z * kFootScale));
    HandLayout(b, frames.Then(hand), side, index, leg.back());
    AddTwists(b, kCompArms, kQuadArm, index, RIG_ARM_PAIRS, hand.GetTrans(), side, leg, frames);
}

void HandLayout(GuideBuilder& b, const SideFrames& frames, int side, int index, PointPair parent) {
    const GuideParams& params = b.Params();
    const PointPair hand = AddPair(b, kCompArms, L"hand", index, Point3(), side, parent, frames,
                                   b.KeepOld(RIG_ARM_PAIRS));
    const int fingers = params[RIG_FINGERS];
    const bool keep = b.KeepOld({RIG_ARM_PAIRS, RIG_FINGERS, RIG_FINGER_BONES, RIG_METACARPALS});
    const WStr metacarpal = RigShortName(L"metacarpal", kSideNone, index);
    for (int f = 0; f < fingers; ++f) {
        const float scale = fingers > 1 && f == 0 ? kThumbScale : 1.0f;
        const Point3 start(kFingerStart.x * scale, kFingerStart.y + kFingerSpacing * float(f),
                           kFingerStart.z * scale);
        PointPair root = hand;
        if (params.On(RIG_METACARPALS))
            root =
                AddPair(b, kCompFingers, metacarpal.data(), f,
                        Point3(start.x * 0.5f, start.y, start.z * 0.5f), side, hand, frames, keep);
        const WStr finger = RigShortName(L"finger", kSideNone, index, f);
        Chain chain;
        chain.component = kCompFingers;
        chain.name = finger.data();
        chain.controls = std::max(1, params[RIG_FINGER_BONES]);
        chain.from = start;
        chain.to = start + Point3(-kFingerJoint * scale * float(chain.controls), 0.0f, 0.0f);
        chain.keepControls = keep;
        AddChain(b, chain, side, root, frames);
    }
    AddPair(b, kCompArms, RigShortName(L"hand_end", kSideNone, index).data(), -1, kHandEnd, side,
            hand, frames, b.KeepOld(RIG_ARM_PAIRS));
}

void LegLayout(GuideBuilder& b, const SideFrames& frames, int side, PointPair parent) {
    AddLegWithFoot(b, kLeg, false, frames, side, parent);
}

void AnimalLegLayout(GuideBuilder& b, const SideFrames& frames, int side, PointPair parent) {
    AddLegWithFoot(b, kAnimalLeg, false, frames, side, parent);
}

void FrontLegLayout(GuideBuilder& b, const SideFrames& frames, int side, PointPair parent) {
    AddLegWithFoot(b, kFrontLeg, true, frames, side, parent);
}

void FootLayout(GuideBuilder& b, const SideFrames& frames, int side, bool front, PointPair parent) {
    const GuideParams& params = b.Params();
    const std::wstring base = front ? L"front_foot" : L"foot";
    const wchar_t* toeName = front ? L"front_toe" : L"toe";
    const wchar_t* metatarsalName = front ? L"front_metatarsal" : L"metatarsal";
    const bool keep = b.KeepOld(RIG_LEG_PAIRS);
    const PointPair foot =
        AddPair(b, kCompLegs, base.c_str(), -1, kAnkle, side, parent, frames, keep);
    const struct {
        const wchar_t* suffix;
        Point3 pos;
    } pivots[] = {{L"_heel", {0.0f, -0.2f, 0.0f}},
                  {L"_tip", {0.0f, -0.7f, 0.0f}},
                  {L"_inner", {0.225f, -0.4f, 0.0f}},
                  {L"_outer", {-0.225f, -0.35f, 0.0f}}};
    for (const auto& pivot : pivots)
        AddPair(b, kCompLegs, (base + pivot.suffix).c_str(), -1, pivot.pos, side, foot, frames,
                keep);
    const int toes = params[RIG_TOES];
    // Without toes the foot's bone ends at the ball.
    if (toes == 0)
        AddPair(b, kCompLegs, (base + L"_end").c_str(), -1, kBall, side, foot, frames, keep);
    const bool keepToes = b.KeepOld({RIG_LEG_PAIRS, RIG_TOES, RIG_TOE_BONES, RIG_METATARSALS});
    for (int t = 0; t < toes; ++t) {
        const float x =
            toes == 1 ? 0.0f : kToeRowHalfWidth * (1.0f - 2.0f * float(t) / float(toes - 1));
        const Point3 start(kBall.x + x, kBall.y, kBall.z);
        PointPair root = foot;
        if (params.On(RIG_METATARSALS))
            root = AddPair(b, kCompToes, metatarsalName, t, Point3(x * 0.5f, -0.2f, 0.2f), side,
                           foot, frames, keepToes);
        const WStr toe = RigShortName(toeName, kSideNone, t);
        Chain chain;
        chain.component = kCompToes;
        chain.name = toe.data();
        chain.controls = std::max(1, params[RIG_TOE_BONES]);
        chain.from = start;
        chain.to = Point3(start.x, start.y - kToeLength, 0.0f);
        chain.keepControls = keepToes;
        AddChain(b, chain, side, root, frames);
    }
}

void InsectLegLayout(GuideBuilder& b, const SideFrames& frames, int side, int index,
                     PointPair parent) {
    AddJoints(b, kCompLegs, kInsectLeg, side, index, parent, frames, b.KeepOld(RIG_LEG_PAIRS));
}

}  // namespace zorvanta::guide

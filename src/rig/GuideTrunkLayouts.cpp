// The trunk's guide layouts: spine, neck and head, tails, ponytails and fangs.
#include <algorithm>
#include <numbers>

#include "rig/GuideLayoutParts.h"

namespace zorvanta::guide {

using namespace host;

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

// Where the head sits in its frame: the neck runs from the origin up to the head, the
// head end is the top of the skull.
constexpr Point3 kHeadPos(0.0f, 0.0f, 0.45f);
constexpr Point3 kHeadEndPos(0.0f, 0.0f, 1.0f);
// A fang, right side, in the head's frame: low at the front of the head.
constexpr Point3 kFangPos(-0.12f, -0.35f, 0.3f);
// Pairs of tails or ponytails stand apart by this much (local units) per pair.
constexpr float kAppendagePairSpread = 0.1f;

// The parameters of one kind of appendage chain.
struct AppendageKind {
    int component;
    const wchar_t* name;
    RigParam count;
    RigParam controls;
    RigParam bones;
    RigParam useBones;
};
constexpr AppendageKind kTail{kCompTail,         L"tail",        RIG_TAILS,
                              RIG_TAIL_CONTROLS, RIG_TAIL_BONES, RIG_USE_TAIL_BONES};
constexpr AppendageKind kPonytail{kCompPonytail,      L"ponytail",
                                  RIG_PONYTAILS,      RIG_PONYTAIL_CONTROLS,
                                  RIG_PONYTAIL_BONES, RIG_USE_PONYTAIL_BONES};

// An odd count puts one chain on the centre; the others go in pairs, numbered from 1.
void AppendageLayout(GuideBuilder& b, const AppendageKind& kind, const Matrix3& frame, int parent) {
    const GuideParams& params = b.Params();
    const int count = params[kind.count];
    Chain chain;
    chain.component = kind.component;
    chain.name = kind.name;
    chain.controls = params[kind.controls];
    chain.from = Point3(0.0f, 0.0f, 0.0f);
    chain.to = Point3(0.0f, 1.0f, 0.0f);
    chain.gapStart = true;
    chain.gapEnd = false;
    chain.bones = BoneCount(b, kind.bones, kind.useBones);
    chain.keepControls = b.KeepOld({kind.count, kind.controls});
    chain.keepBones = chain.keepControls && b.KeepOld({kind.bones, kind.useBones});
    const SideFrames centre = SideFrames::Mirrored(frame);
    if (count % 2 == 1) AddChain(b, chain, kSideCenter, {parent, parent}, centre);
    for (int pair = 0; pair < count / 2; ++pair) {
        chain.index = pair;
        const float x = -kAppendagePairSpread * float(pair + 1);
        AddChain(b, chain, kSideBoth, {parent, parent},
                 centre.Then(TransMatrix(Point3(x, 0.0f, 0.0f))));
    }
}

}  // namespace

SpineResult SpineLayout(GuideBuilder& b, const Matrix3& frame, bool horizontal, int parent,
                        int spineIndex) {
    const GuideParams& params = b.Params();
    // From the pelvis at the origin to the chest at local z 1: an upright spine bends
    // gently forward at the waist and leans its chest back; a horizontal one (laid by its
    // frame with local +Y up) arches its back.
    const Point3 curve[4] = {Point3(0.0f, 0.0f, 0.0f),
                             Point3(0.0f, horizontal ? 0.1f : -0.1f, 0.33f),
                             Point3(0.0f, horizontal ? 0.1f : 0.0f, 0.67f),
                             Point3(0.0f, horizontal ? 0.0f : 0.05f, 1.0f)};
    const SideFrames frames = SideFrames::Mirrored(frame);
    SpineResult result;
    result.pelvis =
        b.AddCenterPoint(kCompSpine, L"pelvis", spineIndex, curve[0], parent, frame, true);
    const int count = std::max(1, params[RIG_SPINE_CONTROLS]);
    const bool keep = b.KeepOld(RIG_SPINE_CONTROLS);
    const WStr base = RigShortName(L"spine", kSideNone, spineIndex);
    std::vector<Point3> polyline{curve[0]};
    int previous = result.pelvis;
    for (int i = 0; i < count; ++i) {
        const Point3 pos = BezierPoint(curve, SplineFraction(curve, float(i + 1) / float(count)));
        previous = b.AddCenterPoint(kCompSpine, base.data(), i, pos, previous, frame, keep);
        result.spine.push_back(previous);
        polyline.push_back(pos);
    }
    const int bones = BoneCount(b, RIG_SPINE_BONES, RIG_USE_SPINE_BONES);
    const bool keepBones = keep && b.KeepOld({RIG_SPINE_BONES, RIG_USE_SPINE_BONES});
    AddBonePoints(b, kCompSpine, L"spine", spineIndex, bones, polyline, kSideCenter,
                  {result.pelvis, -1}, frames, keepBones);
    return result;
}

HeadResult HeadPoints(GuideBuilder& b, const Matrix3& frame, int parent) {
    HeadResult result;
    const bool keep = b.KeepOld(RIG_HEADS);
    result.head = b.AddCenterPoint(kCompHead, L"head", -1, kHeadPos, parent, frame, keep);
    result.headEnd =
        b.AddCenterPoint(kCompHead, L"head_end", -1, kHeadEndPos, result.head, frame, keep);
    return result;
}

HeadResult NeckHeadLayout(GuideBuilder& b, const Matrix3& frame, int parent, bool insect) {
    const GuideParams& params = b.Params();
    Chain neck;
    neck.component = kCompNeck;
    neck.name = L"neck";
    neck.controls = params[RIG_NECK_CONTROLS];
    neck.from = Point3(0.0f, 0.0f, 0.0f);
    neck.to = kHeadPos;
    neck.bones = BoneCount(b, RIG_NECK_BONES, RIG_USE_NECK_BONES);
    neck.keepControls = b.KeepOld(RIG_NECK_CONTROLS);
    neck.keepBones = neck.keepControls && b.KeepOld({RIG_NECK_BONES, RIG_USE_NECK_BONES});
    // The neck's bone points come after the head, so that the head is the top neck
    // point's first child.
    const int bones = neck.bones;
    neck.bones = 0;
    const SideFrames frames = SideFrames::Mirrored(frame);
    const std::vector<PointPair> controls = AddChain(b, neck, kSideCenter, {parent, -1}, frames);
    HeadResult result = HeadPoints(b, frame, controls.back().right);
    result.neck = controls.front().right;
    std::vector<Point3> polyline;
    const int count = int(controls.size());
    for (int i = 0; i <= count; ++i) polyline.push_back(kHeadPos * (float(i) / float(count)));
    AddBonePoints(b, kCompNeck, L"neck", -1, bones, polyline, kSideCenter, {result.neck, -1},
                  frames, neck.keepBones);

    // Fangs belong to the insect head; the other heads ignore the setting.
    if (insect && params.On(RIG_FANGS)) FangLayout(b, frame, result.head);
    PonytailLayout(b, PonytailFrame(insect) * frame, result.head);
    if (params.On(RIG_FACE)) FaceLayout(b, frame, result.head);
    return result;
}

Matrix3 PonytailFrame(bool insect) {
    return insect ? Frame(1.0f, Point3(0.0f, -0.3f, 0.8f), 0.5f * kPi)
                  : Frame(0.8f, Point3(0.0f, 0.3f, 0.85f), -0.25f * kPi);
}

void TailLayout(GuideBuilder& b, const Matrix3& frame, int parent) {
    AppendageLayout(b, kTail, frame, parent);
}

void PonytailLayout(GuideBuilder& b, const Matrix3& frame, int parent) {
    AppendageLayout(b, kPonytail, frame, parent);
}

void FangLayout(GuideBuilder& b, const Matrix3& frame, int parent) {
    AddPair(b, kCompHead, L"fang", -1, kFangPos, kSideBoth, {parent, parent},
            SideFrames::Mirrored(frame), b.KeepOld(RIG_FANGS));
}

}  // namespace zorvanta::guide

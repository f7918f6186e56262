// The face's guide layout, in the head's frame: the head at local z 0.45, the top of the
// skull at 1, the face towards -Y. Each region is a row of controls whose counts come
// from its component's parameters, with its corner point and its bone points.
#include "rig/GuideLayoutParts.h"

namespace zorvanta::guide {

using namespace host;

namespace {

// One row of a face region: controls on the line from -> to (right side, or the centre
// line), the corner at to when named.
struct FaceRow {
    int component;
    const wchar_t* name;
    Point3 from;
    Point3 to;
    bool gapStart;
    bool gapEnd;
    const wchar_t* corner;
    RigParam controls;
    RigParam bones;
    RigParam useBones;
    bool centre;          // a row on the centre line, made once
    const wchar_t* hang;  // the point the row hangs on, null for the head
};

// clang-format off
constexpr FaceRow kRows[] = {
    // component, name, from, to, gapStart, gapEnd, corner, controls, bones, use bones,
    // centre, hangs on
    {kCompEyebrows, L"eyebrow", {-0.07f, -0.45f, 0.75f}, {-0.35f, -0.32f, 0.73f}, false, true,
     L"eyebrow_corner", RIG_EYEBROWS_CONTROLS, RIG_EYEBROWS_BONES, RIG_USE_EYEBROW_BONES, false,
     L"eyebrow"},
    {kCompEyelids, L"eyelid_top", {-0.07f, -0.42f, 0.65f}, {-0.23f, -0.37f, 0.65f}, true, true,
     L"eyelid_corner", RIG_EYELIDS_CONTROLS, RIG_EYELIDS_BONES, RIG_USE_EYELID_BONES, false,
     L"eyelid"},
    {kCompEyelids, L"eyelid_bottom", {-0.07f, -0.42f, 0.6f}, {-0.23f, -0.37f, 0.6f}, true, true,
     L"eyelid_bottom_corner", RIG_EYELIDS_CONTROLS, RIG_EYELIDS_BONES, RIG_USE_EYELID_BONES,
     false, L"eyelid"},
    {kCompCheekbones, L"cheekbone", {-0.1f, -0.42f, 0.53f}, {-0.34f, -0.3f, 0.58f}, false, true,
     L"cheekbone_corner", RIG_CHEEKBONE_CONTROLS, RIG_CHEEKBONE_BONES, RIG_USE_CHEEKBONE_BONES,
     false, nullptr},
    {kCompNose, L"nose", {0.0f, -0.47f, 0.62f}, {0.0f, -0.54f, 0.5f}, true, false, nullptr,
     RIG_NOSE_CONTROLS, RIG_NOSE_BONES, RIG_USE_NOSE_BONES, true, nullptr},
    {kCompLips, L"lip_top", {0.0f, -0.48f, 0.41f}, {-0.11f, -0.43f, 0.39f}, true, true,
     L"lip_corner", RIG_LIPS_CONTROLS, RIG_LIPS_BONES, RIG_USE_LIPS_BONES, false, L"lip_top"},
    {kCompLips, L"lip_bottom", {0.0f, -0.47f, 0.37f}, {-0.105f, -0.43f, 0.38f}, true, true,
     L"lip_bottom_corner", RIG_LIPS_CONTROLS, RIG_LIPS_BONES, RIG_USE_LIPS_BONES, false,
     L"lip_bottom"},
    {kCompNasolabial, L"nasolabial", {-0.09f, -0.46f, 0.5f}, {-0.15f, -0.4f, 0.38f}, false, true,
     L"nasolabial_corner", RIG_NASOLABIAL_CONTROLS, RIG_NASOLABIAL_BONES,
     RIG_USE_NASOLABIAL_BONES, false, nullptr},
    {kCompChin, L"chin", {0.0f, -0.44f, 0.28f}, {-0.14f, -0.38f, 0.32f}, true, true,
     L"chin_corner", RIG_CHIN_CONTROLS, RIG_CHIN_BONES, RIG_USE_CHIN_BONES, false, L"chin"},
    {kCompTongue, L"tongue", {0.0f, -0.2f, 0.38f}, {0.0f, -0.42f, 0.38f}, true, false, nullptr,
     RIG_TONGUE_CONTROLS, RIG_TONGUE_BONES, RIG_USE_TONGUE_BONES, true, nullptr},
};
// clang-format on

// Single points the rows hang on: the brow's middle, the eyes' centres (a pair), the lips'
// and the chin's middles.
struct FaceAnchor {
    int component;
    const wchar_t* name;
    Point3 pos;
    bool centre;
};
constexpr FaceAnchor kAnchors[] = {
    {kCompEyebrows, L"eyebrow", {0.0f, -0.46f, 0.74f}, true},
    {kCompEyelids, L"eyelid", {-0.15f, -0.36f, 0.625f}, false},
    {kCompLips, L"lip_top", {0.0f, -0.48f, 0.41f}, true},
    {kCompLips, L"lip_bottom", {0.0f, -0.47f, 0.37f}, true},
    {kCompChin, L"chin", {0.0f, -0.44f, 0.28f}, true},
};

}  // namespace

void FaceLayout(GuideBuilder& b, const Matrix3& frame, int head) {
    const SideFrames frames = SideFrames::Mirrored(frame);
    const PointPair headPair{head, head};
    const bool keepFace = b.KeepOld(RIG_FACE);
    for (const FaceAnchor& anchor : kAnchors)
        AddPair(b, anchor.component, anchor.name, -1, anchor.pos,
                anchor.centre ? kSideCenter : kSideBoth, headPair, frames, keepFace);
    for (const FaceRow& row : kRows) {
        PointPair parent = headPair;
        if (row.hang) {
            const WStr pointName(row.hang);
            const int centre = b.Find(pointName);
            parent = centre >= 0 ? PointPair{centre, centre}
                                 : PointPair{b.Find(WStr(std::wstring(L"r_") + row.hang)),
                                             b.Find(WStr(std::wstring(L"l_") + row.hang))};
        }
        Chain chain;
        chain.component = row.component;
        chain.name = row.name;
        chain.controls = b.Params()[row.controls];
        chain.from = row.from;
        chain.to = row.to;
        chain.gapStart = row.gapStart;
        chain.gapEnd = row.gapEnd;
        chain.corner = row.corner;
        chain.bones = BoneCount(b, row.bones, row.useBones);
        chain.keepControls = keepFace && b.KeepOld(row.controls);
        chain.keepBones = chain.keepControls && b.KeepOld({row.bones, row.useBones});
        AddChain(b, chain, row.centre ? kSideCenter : kSideBoth, parent, frames);
    }
}

}  // namespace zorvanta::guide

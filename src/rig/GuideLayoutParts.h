#pragma once

#include <vector>

#include "rig/GuideBuilder.h"
#include "rig/RigNames.h"

// The part layouts that the rig types compose. Every part takes its right-side constants
// (X negative) in a local frame; the caller places the part by that frame. Left points
// are the right ones mirrored through the rig's YZ plane.
namespace zorvanta::guide {

// The frames of the two members of a pair: left is right mirrored in the outer space
// (right * scale(-1, 1, 1)), so a sub-frame composes the same way on both sides.
struct SideFrames {
    host::Matrix3 right;
    host::Matrix3 left;

    static SideFrames Mirrored(const host::Matrix3& right);
    // The sub-frame local inside both frames.
    SideFrames Then(const host::Matrix3& local) const { return {local * right, local * left}; }
};

// The indices of a pair's points; -1 for a side not made.
struct PointPair {
    int right = -1;
    int left = -1;
};

// A frame that scales by scale, turns by rotX about X (radians), then moves to trans.
host::Matrix3 Frame(float scale, const host::Point3& trans, float rotX = 0.0f);

// One mirrored point of a part: name with index (-1 for none), at localPos in frames.
PointPair AddPair(GuideBuilder& b, int component, const wchar_t* name, int index,
                  const host::Point3& localPos, int side, PointPair parent,
                  const SideFrames& frames, bool keepOld, uint32_t flags = 0);

// The curve parameter at which the arc length of the cubic Bezier reaches fraction (0 to
// 1) of its whole length: even spacing along a curve.
float SplineFraction(const host::Point3 (&bezier)[4], float fraction);
host::Point3 BezierPoint(const host::Point3 (&bezier)[4], float t);

// The position at fraction (0 to 1) of the polyline's length.
host::Point3 PolylinePoint(const std::vector<host::Point3>& polyline, float fraction);

// count bone points "<name>_bone[_<index+1>]_<n>" at the middles of count equal shares
// of the polyline (local), each a child of the one before; the first hangs on parent.
void AddBonePoints(GuideBuilder& b, int component, const wchar_t* name, int index, int count,
                   const std::vector<host::Point3>& polyline, int side, PointPair parent,
                   const SideFrames& frames, bool keepOld);

// A row of numbered control points on the line from -> to (local), each a child of the
// one before, then an optional corner point at to and the row's bone points. Control k
// of n sits at (k + gapStart) / (n + gapStart + gapEnd - 1) of the line: a gap leaves
// the end to a point that is not one of the controls. The bone points run along from
// (with gapStart), the controls and to (with gapEnd).
struct Chain {
    int component = 0;
    const wchar_t* name = L"";
    int index = -1;  // the chain's number in its names, -1 for none
    int controls = 1;
    host::Point3 from;
    host::Point3 to;
    bool gapStart = false;
    bool gapEnd = true;
    const wchar_t* corner = nullptr;
    int bones = 0;  // bone points; 0 for none
    bool keepControls = true;
    bool keepBones = true;
    uint32_t flags = 0;
};
// Returns the controls, then the corner when there is one.
std::vector<PointPair> AddChain(GuideBuilder& b, const Chain& chain, int side, PointPair parent,
                                const SideFrames& frames);
// The bone count of a chain: bones when the toggle is on, else 0.
int BoneCount(const GuideBuilder& b, RigParam bones, RigParam useBones);

// --- Trunk ------------------------------------------------------------------------------
struct SpineResult {
    int pelvis = -1;
    std::vector<int> spine;  // "spine_1" to "spine_<spine_controls>"
    int Top() const { return spine.empty() ? pelvis : spine.back(); }
};
// "pelvis" and the spine controls on a curve from the frame's origin to local (0, 0, 1):
// upright, or horizontal for a frame turned to lay local Z along the body. spineIndex 0
// or more names a second spine ("pelvis_2", "spine_2_1").
SpineResult SpineLayout(GuideBuilder& b, const host::Matrix3& frame, bool horizontal, int parent,
                        int spineIndex = -1);

struct HeadResult {
    int neck = -1;
    int head = -1;
    int headEnd = -1;
};
// The neck chain, "head" and "head_end", then the fangs, ponytails and face the parameters
// ask for. insect points the ponytails forward as antennae.
HeadResult NeckHeadLayout(GuideBuilder& b, const host::Matrix3& frame, int parent,
                          bool insect = false);
// "head" and "head_end" in frame, as the head layout places them.
HeadResult HeadPoints(GuideBuilder& b, const host::Matrix3& frame, int parent);
// The tails: an odd count puts one chain on the centre, the rest go in pairs. Each chain
// runs along the frame's +Y, one unit long.
void TailLayout(GuideBuilder& b, const host::Matrix3& frame, int parent);
// The ponytails, by the same rule as the tails.
void PonytailLayout(GuideBuilder& b, const host::Matrix3& frame, int parent);
// The frame of the ponytails in the head's frame: hair falls from the back of the skull,
// an insect's antennae rise from its brow.
host::Matrix3 PonytailFrame(bool insect);
// "r_fang" and "l_fang" in the head's frame.
void FangLayout(GuideBuilder& b, const host::Matrix3& frame, int parent);

// --- Limbs ------------------------------------------------------------------------------
// index is the pair's number for pairs after the first and -1 for the first.
void ArmLayout(GuideBuilder& b, const SideFrames& frames, int side, int index, PointPair parent);
// A quadruped's front leg made by the arm builder: the front leg's shape with the arm's
// names, ending in a hand.
void QuadArmLayout(GuideBuilder& b, const SideFrames& frames, int side, int index,
                   PointPair parent);
void HandLayout(GuideBuilder& b, const SideFrames& frames, int side, int index, PointPair parent);
void LegLayout(GuideBuilder& b, const SideFrames& frames, int side, PointPair parent);
void AnimalLegLayout(GuideBuilder& b, const SideFrames& frames, int side, PointPair parent);
void FrontLegLayout(GuideBuilder& b, const SideFrames& frames, int side, PointPair parent);
// A foot (front false) or a front paw: heel, tip, inner and outer points and the toes.
void FootLayout(GuideBuilder& b, const SideFrames& frames, int side, bool front, PointPair parent);
void InsectLegLayout(GuideBuilder& b, const SideFrames& frames, int side, int index,
                     PointPair parent);

// --- Face -------------------------------------------------------------------------------
// The face points in the head's frame (head at local z 0.45, its end at 1).
void FaceLayout(GuideBuilder& b, const host::Matrix3& frame, int head);

}  // namespace zorvanta::guide

// The guide layouts of the rig types: each type places the part layouts in their frames.
// Frames scale first, then turn about X, then move; the body is about one unit tall with
// its pelvis at z 0.55.
#include "rig/GuideLayouts.h"

#include <algorithm>
#include <numbers>

#include "rig/GuideLayoutParts.h"

namespace zorvanta {

using namespace host;
using namespace guide;

namespace {

constexpr float kPi = std::numbers::pi_v<float>;

// An upright torso: the spine from the pelvis at z 0.55, the head on top, the arms at shoulder
// height and the legs a little more than half the height.
constexpr float kPelvisHeight = 0.55f;
constexpr float kSpineScale = 0.29f;
constexpr float kHeadScale = 0.13f;
constexpr float kHeadHeight = 0.87f;
constexpr float kShoulderHeight = 0.86f;
constexpr float kArmScale = 0.45f;
// Further arm pairs sit lower on the chest by this much each.
constexpr float kArmPairDrop = 0.12f;
constexpr float kLegScale = 0.55f;
constexpr float kTailScale = 0.5f;
// A four-legged body: the spine lies along -Y from the hips to the withers.
constexpr float kHorseSpineScale = 0.49f;
constexpr Point3 kHorsePelvis(0.0f, 0.24f, 0.55f);
constexpr float kHipsY = 0.26f;
constexpr float kShouldersY = -0.26f;
// A four-legged head leans forward from the withers; the tail is shorter.
constexpr float kQuadHeadScale = 0.25f;
constexpr Point3 kQuadHeadBase(0.0f, -0.28f, 0.56f);
constexpr float kQuadTailScale = 0.4f;
// An insect's body lies low along -Y with its head in front and its legs spread out
// along the middle (by kInsectLegSpread to either side of the centre).
constexpr float kInsectBodyScale = 0.4f;
constexpr Point3 kInsectPelvis(0.0f, 0.2f, 0.3f);
constexpr float kInsectHeadScale = 0.2f;
constexpr Point3 kInsectHeadBase(0.0f, -0.22f, 0.3f);
constexpr float kInsectLegScale = 0.45f;
constexpr float kInsectLegSpread = 0.12f;
constexpr float kInsectHipHeight = 0.19f;
constexpr float kInsectTailScale = 0.3f;
// A Centaur's upright torso stands on the withers.
constexpr float kTorsoY = -0.25f;
// Part types with both sides: the right part moves out to -X by this much.
constexpr float kHandsApart = 0.2f;
constexpr float kFeetApart = 0.4f;

PointPair Both(int i) {
    return {i, i};
}

Matrix3 Move(float x, float y, float z) {
    return TransMatrix(Point3(x, y, z));
}

// The pair's index in names: none for the first pair.
int PairIndex(int pair) {
    return pair == 0 ? -1 : pair;
}

// The arms of an upright torso standing at y, spread down the chest from the shoulders;
// each pair hangs on the spine point at its height.
void BuildArmLayouts(GuideBuilder& b, float y, const SpineResult& spine) {
    const int pairs = b.Params()[RIG_ARM_PAIRS];
    const int top = int(spine.spine.size()) - 1;
    for (int pair = 0; pair < pairs; ++pair) {
        const float z = kShoulderHeight - kArmPairDrop * float(pair);
        const int parent = spine.spine[size_t(std::max(0, top - pair))];
        ArmLayout(b, SideFrames::Mirrored(Frame(kArmScale, Point3(0.0f, y, z))), kSideBoth,
                  PairIndex(pair), Both(parent));
    }
}

// A quadruped's front legs, built by the arm builder; their names count on from first.
void BuildQuadFrontLegs(GuideBuilder& b, int first, int parent) {
    const int pairs = b.Params()[RIG_ARM_PAIRS];
    for (int pair = 0; pair < pairs; ++pair) {
        const float y = kShouldersY + kArmPairDrop * float(pair);
        QuadArmLayout(b, SideFrames::Mirrored(Frame(kLegScale, Point3(0.0f, y, 0.0f))), kSideBoth,
                      PairIndex(first + pair), Both(parent));
    }
}

void BuildBackLegs(GuideBuilder& b, int pelvis) {
    if (b.Params()[RIG_LEG_PAIRS] <= 0) return;
    AnimalLegLayout(b, SideFrames::Mirrored(Frame(kLegScale, Point3(0.0f, kHipsY, 0.0f))),
                    kSideBoth, Both(pelvis));
}

SpineResult BuildHorseSpine(GuideBuilder& b) {
    return SpineLayout(b, Frame(kHorseSpineScale, kHorsePelvis, kPi / 2.0f), true, -1);
}

void BuildTails(GuideBuilder& b, const Point3& root, float scale, int pelvis) {
    TailLayout(b, Frame(scale, root, -kPi / 4.0f), pelvis);
}

void BuildBiped(GuideBuilder& b, bool animalLegs) {
    const GuideParams& params = b.Params();
    const SpineResult spine =
        SpineLayout(b, Frame(kSpineScale, Point3(0.0f, 0.0f, kPelvisHeight)), false, -1);
    if (params[RIG_HEADS] > 0)
        NeckHeadLayout(b, Frame(kHeadScale, Point3(0.0f, 0.0f, kHeadHeight)), spine.Top());
    BuildArmLayouts(b, 0.0f, spine);
    if (params[RIG_LEG_PAIRS] > 0) {
        const SideFrames legs = SideFrames::Mirrored(Frame(kLegScale, Point3()));
        if (animalLegs)
            AnimalLegLayout(b, legs, kSideBoth, Both(spine.pelvis));
        else
            LegLayout(b, legs, kSideBoth, Both(spine.pelvis));
    }
    BuildTails(b, Point3(0.0f, 0.0f, kPelvisHeight), kTailScale, spine.pelvis);
}

void BuildQuadruped(GuideBuilder& b) {
    const SpineResult spine = BuildHorseSpine(b);
    if (b.Params()[RIG_HEADS] > 0)
        NeckHeadLayout(b, Frame(kQuadHeadScale, kQuadHeadBase, kPi / 4.0f), spine.Top());
    BuildQuadFrontLegs(b, 0, spine.Top());
    BuildBackLegs(b, spine.pelvis);
    BuildTails(b, kHorsePelvis, kQuadTailScale, spine.pelvis);
}

void BuildCentaur(GuideBuilder& b) {
    const SpineResult horse = BuildHorseSpine(b);
    BuildBackLegs(b, horse.pelvis);
    BuildTails(b, kHorsePelvis, kQuadTailScale, horse.pelvis);
    const SpineResult torso = SpineLayout(
        b, Frame(kSpineScale, Point3(0.0f, kTorsoY, kPelvisHeight)), false, horse.Top(), 1);
    if (b.Params()[RIG_HEADS] > 0)
        NeckHeadLayout(b, Frame(kHeadScale, Point3(0.0f, kTorsoY, kHeadHeight)), torso.Top());
    BuildArmLayouts(b, kTorsoY, torso);
    // The horse's front legs take the arm names after the torso's arms.
    BuildQuadFrontLegs(b, b.Params()[RIG_ARM_PAIRS], horse.Top());
}

void BuildInsect(GuideBuilder& b) {
    const GuideParams& params = b.Params();
    const SpineResult spine =
        SpineLayout(b, Frame(kInsectBodyScale, kInsectPelvis, kPi / 2.0f), true, -1);
    const Matrix3 head = Frame(kInsectHeadScale, kInsectHeadBase, kPi / 3.0f);
    if (params[RIG_HEADS] > 0) {
        NeckHeadLayout(b, head, spine.Top(), true);
    } else {
        if (params.On(RIG_FANGS)) FangLayout(b, head, spine.Top());
        PonytailLayout(b, PonytailFrame(true) * head, spine.Top());
    }
    // The legs spread along the body from the front to the back, each pair hanging on the
    // spine point one further back, from the chest.
    const int pairs = params[RIG_LEG_PAIRS];
    const int top = int(spine.spine.size()) - 1;
    for (int pair = 0; pair < pairs; ++pair) {
        const float y =
            pairs == 1 ? 0.0f : kInsectLegSpread * (2.0f * float(pair) / float(pairs - 1) - 1.0f);
        const Matrix3 frame = Frame(kInsectLegScale, Point3(0.0f, y, kInsectHipHeight));
        const int parent = spine.spine[size_t(std::max(0, top - pair))];
        InsectLegLayout(b, SideFrames::Mirrored(frame), kSideBoth, pair, Both(parent));
    }
    BuildTails(b, kInsectPelvis, kInsectTailScale, spine.pelvis);
}

// A part type on the rig's side; with both sides the right one moves out by apart.
SideFrames PartFrames(const GuideBuilder& b, float scale, float apart) {
    if (b.Params().Side() != kSideBoth) return SideFrames::Mirrored(Matrix3());
    return SideFrames::Mirrored(ScaleMatrix(Point3(scale, scale, scale)) * Move(-apart, 0, 0));
}

// Types 9 and 10 stand on a fixed pelvis.
int FixedPelvis(GuideBuilder& b) {
    return b.AddCenterPoint(kCompSpine, L"pelvis", -1, Point3(0.0f, 0.0f, 1.0f), -1, Matrix3(),
                            true, kPointFixed);
}

}  // namespace

void BuildGuideLayout(GuideBuilder& b) {
    const GuideParams& params = b.Params();
    const int side = params.Side();
    const SideFrames identity = SideFrames::Mirrored(Matrix3());
    switch (params.Type()) {
        case kRigBiped:
            BuildBiped(b, false);
            break;
        case kRigHands:
            HandLayout(b, PartFrames(b, 0.8f, kHandsApart), side, -1, {});
            break;
        case kRigFeet:
            FootLayout(b, PartFrames(b, 1.0f, kFeetApart), side, false, {});
            break;
        case kRigArms:
            for (int pair = 0; pair < params[RIG_ARM_PAIRS]; ++pair)
                ArmLayout(b, SideFrames::Mirrored(Move(0, 0, -0.25f * float(pair))), side,
                          PairIndex(pair), {});
            break;
        case kRigLegs:
            if (params[RIG_LEG_PAIRS] > 0) LegLayout(b, identity, side, {});
            break;
        case kRigSpine:
            SpineLayout(b, Matrix3(), false, -1);
            break;
        case kRigHead:
            NeckHeadLayout(b, Matrix3(), -1);
            break;
        case kRigTail:
            TailLayout(b, Matrix3(), -1);
            break;
        case kRigFrontLegs:
            FrontLegLayout(b, identity, side, Both(FixedPelvis(b)));
            break;
        case kRigBackLegs:
            AnimalLegLayout(b, identity, side, Both(FixedPelvis(b)));
            break;
        case kRigQuadruped:
            BuildQuadruped(b);
            break;
        case kRigMinotaur:
            BuildBiped(b, true);
            break;
        case kRigCentaur:
            BuildCentaur(b);
            break;
        case kRigFrontPaws:
            FootLayout(b, PartFrames(b, 1.0f, kFeetApart), side, true, {});
            break;
        case kRigBackPaws:
            FootLayout(b, PartFrames(b, 1.0f, kFeetApart), side, false, {});
            break;
        case kRigInsectLeg:
            InsectLegLayout(b, identity, side, 0, {});
            break;
        case kRigInsect:
            BuildInsect(b);
            break;
        case kRigFace: {
            const HeadResult head = HeadPoints(b, Matrix3(), -1);
            FaceLayout(b, Matrix3(), head.head);
            break;
        }
        default:
            break;  // Ears and the published-only types have no points
    }
}

}  // namespace zorvanta

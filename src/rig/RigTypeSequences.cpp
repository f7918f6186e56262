// What CreateRig builds for each rig type: a short sequence of builder calls, each
// handing its nodes on to the next.
#include "helpers/HelperIds.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Object.h"
#include "rig/RigBuild.h"
#include "rig/RigBuilders.h"
#include "rig/RigIds.h"
#include "rig/RigSystem.h"

namespace zorvanta {

using namespace host;

namespace {

int Param(RigBuild& b, ParamID id) {
    return b.pblock->GetInt(id);
}

// Runs step(side) for the sides the rig's side parameter asks for.
template <class Step>
bool PerSide(RigBuild& b, const Step& step) {
    const int sideParam = Param(b, RIG_SIDE);
    bool built = false;
    for (int side : {kSideRight, kSideLeft})
        if (BuildsSide(sideParam, side)) built |= step(side);
    return built;
}

// The legs of the Legs, FrontLegs and BackLegs types, on the root.
bool BuildRootLegs(RigBuild& b, int kind) {
    return PerSide(b, [&](int side) { return BuildLeg(b, side, kind, b.rootNode, b.rootNode, 0); });
}

// The shape of a one-spine body: Biped, Minotaur and Quadruped.
struct BodyPlan {
    int spineMode;
    int legKind;
    bool quadArms;  // front legs built as the quadruped's arm pairs
};

// One spine with a head, arms, a pair of legs and tails.
bool BuildBody(RigBuild& b, const BodyPlan& plan) {
    b.quadMode = plan.spineMode == kSpineFourLegged;
    SpineOutputs spine;
    bool built = BuildSpine(b, b.rootNode, b.rootNode, spine, plan.spineMode, -1);
    if (Param(b, RIG_HEADS) > 0) built |= BuildHead(b, spine.headParent, spine.headLink, false);
    INode* chest = spine.armParent;
    built |= plan.quadArms ? BuildArmPairsQuad(b, 2, chest, chest, chest)
                           : BuildArmPairs(b, 2, chest, chest, chest);
    const bool legs = Param(b, RIG_LEG_PAIRS) > 0;
    if (legs)
        for (int side : {kSideRight, kSideLeft})
            built |= BuildLeg(b, side, plan.legKind, spine.legParent, spine.legParent, 0);
    built |= BuildTails(b, spine.legParent, spine.legParent, chest);
    if (!legs) b.panelOffset = Point2(0.0f, -194.0f);
    return built;
}

}  // namespace

bool BuildsSide(int sideParam, int side) {
    return sideParam == kSideBoth || sideParam == side;
}

bool BuildCentaur(RigBuild& b) {
    b.panelOffset = Point2(0.0f, 200.0f);
    b.panelCursor[0].y += 200.0f;
    SpineOutputs horse;
    bool built = BuildSpine(b, b.rootNode, b.rootNode, horse, kSpineFourLegged, -1);
    if (Param(b, RIG_LEG_PAIRS) != 0)
        for (int side : {kSideRight, kSideLeft})
            built |= BuildLeg(b, side, kLegAnimal, horse.legParent, horse.legParent, 0);
    built |= BuildTails(b, horse.legParent, horse.legParent, horse.armParent);
    b.panelOffset = Point2(0.0f, 0.0f);
    SpineOutputs torso;
    built |= BuildSpine(b, horse.armParent, horse.armParent, torso, kSpineUpright, 1);
    // The horse's chest hangs under the torso's base and shrinks to a small box.
    if (horse.armParent && torso.legParent) {
        torso.legParent->AttachChild(horse.armParent, true);
        if (IParamBlock2* pb = RigBuild::ShapeBlock(horse.armParent)) {
            pb->SetValue(CH_TYPE, 0, 1);
            pb->SetValue(CH_SIZE, 0, pb->GetFloat(CH_SIZE) * 0.1f);
        }
    }
    if (Param(b, RIG_HEADS) != 0) built |= BuildHead(b, torso.headParent, torso.headLink, false);
    built |= BuildArmPairs(b, 2, torso.armParent, torso.armParent, torso.armParent);
    b.panelOffset = Point2(0.0f, 200.0f);
    built |= BuildArmPairsQuad(b, 2, horse.armParent, horse.armParent, horse.armParent);
    b.panelOffset = Point2(0.0f, 202.0f);
    if (Param(b, RIG_LEG_PAIRS) == 0) b.panelOffset = Point2(0.0f, 8.0f);
    return built;
}

bool BuildInsect(RigBuild& b) {
    b.panelOffset = Point2(-156.0f, -40.0f);
    SpineOutputs spine;
    bool built = BuildSpine(b, b.rootNode, b.rootNode, spine, kSpineInsect, -1);
    if (Param(b, RIG_HEADS) != 0) {
        built |= BuildHead(b, spine.headParent, spine.headLink, true);
    } else if (Param(b, RIG_FANGS)) {
        for (int side : {kSideRight, kSideLeft})
            built |= BuildFang(b, side, spine.headParent, spine.headLink);
        built |= BuildPonytails(b, spine.headParent, spine.headLink, spine.armParent);
    }
    for (int pair = 0; pair < Param(b, RIG_LEG_PAIRS); ++pair)
        built |= BuildInsectLegPair(b, 2, pair, spine.legParent, spine.legParent);
    built |= BuildTails(b, spine.legParent, spine.legParent, spine.armParent);
    b.panelOffset = Point2(0.0f, -188.0f);
    return built;
}

bool BuildTypeSequence(RigBuild& b, int type) {
    SpineOutputs spine;
    switch (type) {
        case kRigBiped:
            return BuildBody(b, {kSpineTwoLegged, kLegPlain, false});
        case kRigHands:
            return PerSide(b, [&](int side) { return BuildHand(b, side, 0, b.rootNode); });
        case kRigFeet:
            return BuildFeetType(b, kFeetPlain);
        case kRigArms: {
            bool built = false;
            for (int pair = 0; pair < Param(b, RIG_ARM_PAIRS); ++pair)
                built |= PerSide(
                    b, [&](int side) { return BuildArm(b, side, pair, b.rootNode, b.rootNode); });
            return built;
        }
        case kRigLegs:
            return BuildRootLegs(b, kLegPlain);
        case kRigSpine:
            return BuildSpine(b, b.rootNode, b.rootNode, spine, kSpineTwoLegged, -1);
        case kRigHead:
            return BuildHead(b, b.rootNode, b.rootNode, false);
        case kRigTail:
            return BuildTails(b, b.rootNode, b.rootNode, b.rootNode);
        case kRigFrontLegs:
            return BuildRootLegs(b, kLegFront);
        case kRigBackLegs:
            return BuildRootLegs(b, kLegAnimal);
        case kRigQuadruped:
            return BuildBody(b, {kSpineFourLegged, kLegAnimal, true});
        case kRigMinotaur:
            return BuildBody(b, {kSpineTwoLegged, kLegAnimal, false});
        case kRigCentaur:
            return BuildCentaur(b);
        case kRigFrontPaws:
            return BuildFeetType(b, kFeetFrontPaws);
        case kRigBackPaws:
            return BuildFeetType(b, kFeetBackPaws);
        case kRigInsectLeg:
            return PerSide(
                b, [&](int side) { return BuildInsectLeg(b, side, b.rootNode, b.rootNode, 0); });
        case kRigInsect:
            return BuildInsect(b);
        case kRigFace:
            return BuildFace(b, b.rootNode, b.mainNode);
        default:
            // Ears and the published-only types have no builders: the build goes on to
            // its common end.
            return false;
    }
}

}  // namespace zorvanta

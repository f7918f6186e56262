#pragma once

#include "host/core/WStr.h"
#include "host/math/Point2.h"
#include "host/math/Point3.h"
#include "host/object/INode.h"

// The builders that turn one part of a rig's guide points into nodes, in the order the
// type sequences call them. Each reads the rig's block and points through the build and
// returns whether it built its part; a part whose builder the toolkit does not have yet
// builds nothing and answers false (or null), so that a sequence goes on with the parts
// it has. Nodes a builder hands to the next one come back through output arguments;
// every one of them may be null.
namespace zorvanta {

class RigBuild;

// How a spine is built: two-legged rigs, four-legged bodies, a centaur's upright torso,
// insects.
enum SpineMode : int {
    kSpineTwoLegged = 0,
    kSpineFourLegged = 1,
    kSpineUpright = 4,
    kSpineInsect = 7
};
// What a leg is: a human leg (thigh, calf), a quadruped's front leg (clavicle, thigh,
// calf, cannon) or an animal's back leg (thigh, calf, cannon).
enum LegKind : int { kLegPlain = 0, kLegFront = 1, kLegAnimal = 2 };
// Feet of the Feet, FrontPaws and BackPaws types.
enum FeetKind : int { kFeetPlain = 0, kFeetFrontPaws = 1, kFeetBackPaws = 2 };

// The nodes a spine hands on: the head's parent and link, the arms' parent (chest), the
// legs' parent (pelvis) and the control that carries the spine's chain helper.
struct SpineOutputs {
    host::INode* headParent = nullptr;
    host::INode* headLink = nullptr;
    host::INode* armParent = nullptr;
    host::INode* legParent = nullptr;
    host::INode* chainControl = nullptr;
};

// The type's sequence of builders (the rig types of RigIds.h); types without one build
// nothing. Whether any builder built its part.
bool BuildTypeSequence(RigBuild& b, int type);
// The sides a one-sided step runs for, from the rig's side parameter: right for 0 or 2,
// left for 1 or 2.
bool BuildsSide(int sideParam, int side);
// Two bodies in one rig: a horse's body with legs and tails, and an upright torso with
// head and arms on it.
bool BuildCentaur(RigBuild& b);
// A spine, a head or fangs and ponytails, leg_pairs pairs of insect legs, tails.
bool BuildInsect(RigBuild& b);

// Trunk and chains.
bool BuildSpine(RigBuild& b, host::INode* parent, host::INode* link, SpineOutputs& out, int mode,
                int index);
bool BuildHead(RigBuild& b, host::INode* parent, host::INode* link, bool insect);
bool BuildTails(RigBuild& b, host::INode* parent, host::INode* link, host::INode* chestLink);
bool BuildPonytails(RigBuild& b, host::INode* parent, host::INode* link, host::INode* chestLink);
bool BuildFang(RigBuild& b, int side, host::INode* parent, host::INode* link);
bool BuildFace(RigBuild& b, host::INode* headBone, host::INode* headControl);
bool BuildExtras(RigBuild& b);
// The root control under mainNode, made at the end of the build; null without it.
host::INode* BuildRootBone(RigBuild& b);

// Limbs.
bool BuildArmPairs(RigBuild& b, int mode, host::INode* parent, host::INode* link,
                   host::INode* chestLink);
bool BuildArmPairsQuad(RigBuild& b, int mode, host::INode* parent, host::INode* link,
                       host::INode* chestLink);
bool BuildArm(RigBuild& b, int side, int pair, host::INode* parent, host::INode* link);
bool BuildLeg(RigBuild& b, int side, int kind, host::INode* parent, host::INode* link, int pair);
bool BuildHand(RigBuild& b, int side, int type, host::INode* parent);
bool BuildFeetType(RigBuild& b, int kind);
bool BuildInsectLeg(RigBuild& b, int side, host::INode* parent, host::INode* link, int pair);
bool BuildInsectLegPair(RigBuild& b, int mode, int pair, host::INode* parent, host::INode* link);

// Items of the panel being built (the body's, or the face's while buildingFace), at
// position + panelOffset in panel pixels; false when there is no such panel.
bool PanelAddAction(RigBuild& b, host::Point2 position, host::Point2 size, const host::WStr& label,
                    const host::WStr& script);
bool PanelAddPicker(RigBuild& b, host::INode* node, host::Point2 position, host::Point2 size,
                    const host::WStr& label);
bool PanelAddGroup(RigBuild& b, const host::INodeTab& nodes, host::Point2 position,
                   host::Point2 size, const host::WStr& label, const host::Point3& color);
bool PanelAddVisibility(RigBuild& b, const host::INodeTab& nodes, const host::WStr& label);

}  // namespace zorvanta

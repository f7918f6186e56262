#pragma once

#include <cstdint>

#include "host/object/ClassId.h"
#include "host/object/FPInterfaceDesc.h"
#include "host/object/PBAccessor.h"

// The rig object's fixed numbers: parameter ids of its block, interface, enum and chunk
// ids, rig types, sides, component ids and point flags. Scene files, rig templates and
// scripts store them; they never change.
namespace zorvanta {

// The rig object's block "params" (id 0). Unnamed in scripts: 0, 1 and 3.
enum RigParam : host::ParamID {
    RIG_NODES = 0,   // node table: every node the build made
    RIG_ACTIVE = 1,  // true while the template is being edited (not built)
    RIG_NAME = 2,
    RIG_TYPE = 3,
    RIG_HELPER_SIZE = 4,
    RIG_DRAW_ON_TOP = 5,
    RIG_SIDE = 6,
    RIG_AFFECT_CHILDREN = 7,
    RIG_AFFECT_MIRROR = 8,
    RIG_MIRROR_RELATIVE_TO_PARENT = 9,
    RIG_COLOR_1 = 10,
    RIG_COLOR_2 = 11,
    RIG_COLOR_3 = 12,
    RIG_COLOR_4 = 13,
    RIG_COLOR_5 = 14,
    RIG_COLOR_6 = 15,
    RIG_IKFK_SOLVERS = 16,
    RIG_SUB_CONTROLS = 19,
    RIG_BENDY_CONTROLS = 20,
    RIG_ROOT_BONE = 21,
    RIG_CORRECTIVE_BONES = 22,
    RIG_END_BONES = 23,
    RIG_FINGERS = 31,
    RIG_FINGER_BONES = 32,
    RIG_METACARPALS = 33,
    RIG_TOES = 34,
    RIG_TOE_BONES = 35,
    RIG_METATARSALS = 36,
    RIG_REVERSE_FOOT = 37,
    RIG_UPPER_ARM_TWIST_BONES = 38,
    RIG_FOREARM_TWIST_BONES = 39,
    RIG_FRONT_CANNON_TWIST_BONES = 40,
    RIG_THIGH_TWIST_BONES = 41,
    RIG_CALF_TWIST_BONES = 42,
    RIG_CANNON_TWIST_BONES = 43,
    RIG_SPINE_CONTROLS = 44,
    RIG_SPINE_BONES = 46,
    RIG_IK_SPINE = 47,
    RIG_NECK_CONTROLS = 48,
    RIG_NECK_BONES = 49,
    RIG_FACE = 50,
    RIG_MORPHER_BASED = 51,
    RIG_EYELIDS_CONTROLS = 52,
    RIG_EYELIDS_BONES = 53,
    RIG_EYEBROWS_CONTROLS = 54,
    RIG_EYEBROWS_BONES = 55,
    RIG_CHEEKBONE_CONTROLS = 56,
    RIG_CHEEKBONE_BONES = 57,
    RIG_NOSE_CONTROLS = 58,
    RIG_NOSE_BONES = 59,
    RIG_LIPS_CONTROLS = 60,
    RIG_LIPS_BONES = 61,
    RIG_NASOLABIAL_CONTROLS = 62,
    RIG_NASOLABIAL_BONES = 63,
    RIG_CHIN_CONTROLS = 64,
    RIG_CHIN_BONES = 65,
    RIG_TONGUE_CONTROLS = 66,
    RIG_TONGUE_BONES = 67,
    RIG_TAIL_CONTROLS = 68,
    RIG_TAIL_BONES = 69,
    RIG_FANGS = 72,
    RIG_HEADS = 74,
    RIG_PONYTAILS = 75,
    RIG_TAILS = 76,
    RIG_ARM_PAIRS = 77,
    RIG_LEG_PAIRS = 78,
    RIG_PONYTAIL_CONTROLS = 79,
    RIG_PONYTAIL_BONES = 80,
    RIG_SELECTED_COMPONENT = 81,
    RIG_USE_SPINE_BONES = 82,
    RIG_USE_NECK_BONES = 83,
    RIG_USE_TAIL_BONES = 84,
    RIG_USE_PONYTAIL_BONES = 85,
    RIG_USE_EYELID_BONES = 86,
    RIG_USE_EYEBROW_BONES = 87,
    RIG_USE_CHEEKBONE_BONES = 88,
    RIG_USE_NOSE_BONES = 89,
    RIG_USE_LIPS_BONES = 90,
    RIG_USE_NASOLABIAL_BONES = 91,
    RIG_USE_CHIN_BONES = 92,
    RIG_USE_TONGUE_BONES = 93,
};
// One past the highest parameter id: the size of tables indexed by id.
inline constexpr int kRigParamIdCount = 94;

inline constexpr host::Interface_ID RIG_SYSTEM_INTERFACE_ID(0x45596d57, 0x1e847b40);

// The rig types. The first 19 have guide layouts and build sequences; the rest are only
// published to scripts and build nothing.
enum RigType : int {
    kRigBiped = 0,
    kRigHands = 1,
    kRigFeet = 2,
    kRigArms = 3,
    kRigLegs = 4,
    kRigSpine = 5,
    kRigHead = 6,
    kRigTail = 7,
    kRigEars = 8,
    kRigFrontLegs = 9,
    kRigBackLegs = 10,
    kRigQuadruped = 11,
    kRigMinotaur = 12,
    kRigCentaur = 13,
    kRigFrontPaws = 14,
    kRigBackPaws = 15,
    kRigInsectLeg = 16,
    kRigInsect = 17,
    kRigFace = 18,
    kRigAnt = 19,
    kRigBird = 20,
    kRigOctopus = 21,
    kRigSnake = 22,
    kRigFish = 23,
    kRigClaws = 24,
    kRigBirdLeg = 25,
    kRigWing = 26,
    kRigTentacle = 27,
};
inline constexpr int kRigTypeCount = 28;
// The types the panel offers (0 to 18).
inline constexpr int kRigOfferedTypeCount = 19;
// The full rigs among them, as a mask of type numbers: 0, 11, 12, 13, 17.
inline constexpr uint32_t kFullRigTypeMask = 0x23801;

// Sides. The rig's own side parameter takes 0 to 2; extras and the builders also use
// none and centre.
enum RigSide : int {
    kSideNone = -1,
    kSideRight = 0,
    kSideLeft = 1,
    kSideBoth = 2,
    kSideCenter = 3,
};
// Whether side is one of the values above (what an extra's side may be).
inline constexpr bool ValidRigSide(int side) {
    return side >= kSideNone && side <= kSideCenter;
}

// Component ids: which structure a guide point belongs to. Values of 1000 and more in
// selected_component name extra number value - 1000.
enum RigComponent : int {
    kCompSpine = 0,
    kCompNeck = 1,
    kCompHead = 2,
    kCompArms = 3,
    kCompFingers = 4,
    kCompLegs = 5,
    kCompToes = 6,
    kCompTail = 7,
    kCompPonytail = 8,
    kCompCheekbones = 9,
    kCompChin = 10,
    kCompFace = 11,  // face points without a structure of their own
    kCompEyebrows = 12,
    kCompEyelids = 13,
    kCompLips = 14,
    kCompNasolabial = 15,
    kCompNose = 16,
    kCompTongue = 17,
};
inline constexpr int kExtraComponentBase = 1000;

// Guide point flags.
enum RigPointFlag : uint32_t {
    kPointRight = 1,  // right member of a mirrored pair
    kPointLeft = 2,   // left member of a mirrored pair
    kPointClavicle = 4,
    kPointFollowGrandparent = 8,    // moves with its parent's parent
    kPointFixed = 16,               // cannot be selected or moved
    kPointFollowMirrorParent = 32,  // moves with its mirror partner's parent
    kPointUpperArm = 2048,
    kPointForearm = 2432,
};

// Extra flags.
enum RigExtraFlag : uint32_t {
    kExtraNew = 2,      // points not placed yet: put at their defaults on the next rebuild
    kExtraReplace = 4,  // put the points at their defaults again on the next rebuild
    kExtraUseBones = 8,
};

// The published interface's enums.
enum RigEnumId : host::EnumID { kRigTypeEnum = 0, kRigSideEnum = 1 };

// The rig object's own chunks in scene files: its guide points and its extras.
inline constexpr uint16_t RIG_POINTS_CHUNK = 0x0100;
inline constexpr uint16_t RIG_EXTRAS_CHUNK = 0x0110;

}  // namespace zorvanta

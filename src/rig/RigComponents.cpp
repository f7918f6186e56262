#include "rig/RigComponents.h"

#include <algorithm>

namespace zorvanta {

namespace {

// clang-format off
constexpr ComponentRow kRows[] = {
    {kCompArms, L"Arms", {{{L"Arm Pairs:", RIG_ARM_PAIRS}, {L"Upper Arm Twists:", RIG_UPPER_ARM_TWIST_BONES},
                           {L"Forearm Twists:", RIG_FOREARM_TWIST_BONES}, {L"Front Cannon Twists:", RIG_FRONT_CANNON_TWIST_BONES}}},
     {}},
    {kCompFingers, L"Fingers", {{{L"Fingers:", RIG_FINGERS}, {L"Finger Bones:", RIG_FINGER_BONES}}},
     {L"Metacarpals", RIG_METACARPALS}},
    {kCompHead, L"Head", {{{L"Heads:", RIG_HEADS}}}, {L"Fangs", RIG_FANGS}},
    {kCompLegs, L"Legs", {{{L"Leg Pairs:", RIG_LEG_PAIRS}, {L"Thigh Twists:", RIG_THIGH_TWIST_BONES},
                           {L"Calf Twists:", RIG_CALF_TWIST_BONES}, {L"Cannon Twists:", RIG_CANNON_TWIST_BONES}}},
     {L"Reverse Foot", RIG_REVERSE_FOOT}},
    {kCompNeck, L"Neck", {{{L"Neck Controls:", RIG_NECK_CONTROLS}, {L"Neck Bones:", RIG_NECK_BONES}}},
     {}, RIG_USE_NECK_BONES, 1},
    {kCompPonytail, L"Ponytail", {{{L"Ponytails:", RIG_PONYTAILS}, {L"Ponytail Controls:", RIG_PONYTAIL_CONTROLS},
                                   {L"Ponytail Bones:", RIG_PONYTAIL_BONES}}},
     {}, RIG_USE_PONYTAIL_BONES, 2},
    {kCompSpine, L"Spine", {{{L"Spine Controls:", RIG_SPINE_CONTROLS}, {L"Spine Bones:", RIG_SPINE_BONES}}},
     {L"IK Spine", RIG_IK_SPINE}, RIG_USE_SPINE_BONES, 1},
    {kCompTail, L"Tail", {{{L"Tails:", RIG_TAILS}, {L"Tail Controls:", RIG_TAIL_CONTROLS}, {L"Tail Bones:", RIG_TAIL_BONES}}},
     {}, RIG_USE_TAIL_BONES, 2},
    {kCompToes, L"Toes", {{{L"Toes:", RIG_TOES}, {L"Toe Bones:", RIG_TOE_BONES}}},
     {L"Metatarsals", RIG_METATARSALS}},
    {kCompCheekbones, L"Cheekbones", {{{L"Cheekbone Controls:", RIG_CHEEKBONE_CONTROLS}, {L"Cheekbone Bones:", RIG_CHEEKBONE_BONES}}},
     {}, RIG_USE_CHEEKBONE_BONES, 1},
    {kCompChin, L"Chin", {{{L"Chin Controls:", RIG_CHIN_CONTROLS}, {L"Chin Bones:", RIG_CHIN_BONES}}},
     {}, RIG_USE_CHIN_BONES, 1},
    {kCompEyebrows, L"Eyebrows", {{{L"Eyebrow Controls:", RIG_EYEBROWS_CONTROLS}, {L"Eyebrow Bones:", RIG_EYEBROWS_BONES}}},
     {}, RIG_USE_EYEBROW_BONES, 1},
    {kCompEyelids, L"Eyelids", {{{L"Eyelid Controls:", RIG_EYELIDS_CONTROLS}, {L"Eyelid Bones:", RIG_EYELIDS_BONES}}},
     {}, RIG_USE_EYELID_BONES, 1},
    {kCompLips, L"Lips", {{{L"Lip Controls:", RIG_LIPS_CONTROLS}, {L"Lip Bones:", RIG_LIPS_BONES}}},
     {}, RIG_USE_LIPS_BONES, 1},
    {kCompNasolabial, L"Nasolabial", {{{L"Nasolabial Controls:", RIG_NASOLABIAL_CONTROLS}, {L"Nasolabial Bones:", RIG_NASOLABIAL_BONES}}},
     {}, RIG_USE_NASOLABIAL_BONES, 1},
    {kCompNose, L"Nose", {{{L"Nose Controls:", RIG_NOSE_CONTROLS}, {L"Nose Bones:", RIG_NOSE_BONES}}},
     {}, RIG_USE_NOSE_BONES, 1},
    {kCompTongue, L"Tongue", {{{L"Tongue Controls:", RIG_TONGUE_CONTROLS}, {L"Tongue Bones:", RIG_TONGUE_BONES}}},
     {}, RIG_USE_TONGUE_BONES, 1},
};
// clang-format on

// The types whose structure counts differ from the common defaults.
struct TypeDefaultsRow {
    int type;
    TypeStructureDefaults values;
};
constexpr TypeDefaultsRow kTypeDefaults[] = {
    {kRigTail, {.tails = 1}},
    {kRigQuadruped, {.tails = 1, .fingers = 1, .fingerBones = 1}},
    {kRigMinotaur, {.tails = 1}},
    {kRigCentaur, {.tails = 1}},
    {kRigInsect, {.armPairs = 0, .legPairs = 3, .tails = 1, .ponytails = 2, .fangs = 1}},
};

}  // namespace

std::span<const ComponentRow> ComponentRows() {
    return kRows;
}

const ComponentRow* FindComponentRow(int id) {
    const auto* row = std::find_if(std::begin(kRows), std::end(kRows),
                                   [&](const ComponentRow& r) { return r.id == id; });
    return row == std::end(kRows) ? nullptr : row;
}

bool SlotEnabled(const ComponentRow& row, int slot, bool useBones) {
    return row.bonesToggle == RIG_NODES || slot != row.bonesSlot || useBones;
}

bool ParamVisible(RigParam id, int type) {
    switch (id) {
        case RIG_FRONT_CANNON_TWIST_BONES:
            return type == kRigQuadruped;
        case RIG_CANNON_TWIST_BONES:
            return type >= kRigFrontLegs && type <= kRigCentaur;
        case RIG_FANGS:
            return type == kRigInsect;
        default:
            return true;
    }
}

TypeStructureDefaults StructureDefaultsFor(int type) {
    for (const TypeDefaultsRow& row : kTypeDefaults)
        if (row.type == type) return row.values;
    return {};
}

std::array<std::pair<RigParam, int>, 7> StructureDefaultValues(int type) {
    const TypeStructureDefaults d = StructureDefaultsFor(type);
    return {{{RIG_ARM_PAIRS, d.armPairs},
             {RIG_LEG_PAIRS, d.legPairs},
             {RIG_TAILS, d.tails},
             {RIG_PONYTAILS, d.ponytails},
             {RIG_FANGS, d.fangs},
             {RIG_FINGERS, d.fingers},
             {RIG_FINGER_BONES, d.fingerBones}}};
}

}  // namespace zorvanta

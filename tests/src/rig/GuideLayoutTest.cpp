// The guide layouts of the rig types, checked against hand-written tables of names,
// parents and mirror partners, and against the mirror symmetry they must have.
#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <set>
#include <sstream>

#include "rig/GuideLayouts.h"
#include "tests/src/rig/RigObjectTestSupport.h"

namespace zorvanta::test {
namespace {

using host::Point3;

// The structure counts a type starts with (the block defaults, then the type's own).
GuideParams TypeDefaults(int type) {
    GuideParams p = GuideParams::Defaults();
    p[RIG_TYPE] = type;
    p[RIG_ARM_PAIRS] = type == kRigInsect ? 0 : 1;
    p[RIG_LEG_PAIRS] = type == kRigInsect ? 3 : 1;
    const bool tails = type == kRigTail || type == kRigQuadruped || type == kRigMinotaur ||
                       type == kRigCentaur || type == kRigInsect;
    p[RIG_TAILS] = tails ? 1 : 0;
    p[RIG_PONYTAILS] = type == kRigInsect ? 2 : 0;
    p[RIG_FANGS] = type == kRigInsect ? 1 : 0;
    p[RIG_FINGERS] = type == kRigQuadruped ? 1 : 5;
    p[RIG_FINGER_BONES] = type == kRigQuadruped ? 1 : 3;
    return p;
}

std::vector<RigPoint> Layout(const GuideParams& params, const std::vector<RigPoint>& old = {},
                             const GuideParams* last = nullptr, int selected = -1) {
    std::vector<RigPoint> points;
    GuideBuilder builder(points, old, params, last ? *last : params, selected);
    BuildGuideLayout(builder);
    return points;
}

// One expected point: "name parent mirror", with "-" for none.
using Row = std::string;

// Expands the table text. Each line is "parent: chain, chain": every chain starts from
// parent, each name the child of the one before. "x{1-3}" is x1 x2 x3 in a row. A name
// "*_x" stands for the pair "r_x" (parent "*_p" read as "r_p") and "l_x", each other's
// mirror; "-" is no parent.
std::set<Row> Expand(const std::string& table) {
    std::set<Row> rows;
    std::istringstream lines(table);
    std::string line;
    while (std::getline(lines, line, ';')) {
        const size_t colon = line.find(':');
        if (colon == std::string::npos) continue;
        std::string parent;
        std::istringstream(line.substr(0, colon)) >> parent;
        std::istringstream chains(line.substr(colon + 1));
        std::string chain;
        while (std::getline(chains, chain, ',')) {
            std::vector<std::string> names;
            std::istringstream words(chain);
            for (std::string w; words >> w;) {
                const size_t brace = w.find('{');
                if (brace == std::string::npos) {
                    names.push_back(w);
                    continue;
                }
                const int from = std::stoi(w.substr(brace + 1));
                const int to = std::stoi(w.substr(w.find('-', brace) + 1));
                for (int i = from; i <= to; ++i)
                    names.push_back(w.substr(0, brace) + std::to_string(i));
            }
            for (const char* side : {"r_", "l_"}) {
                std::string up = parent;
                for (const std::string& n : names) {
                    const bool pair = n.rfind("*_", 0) == 0;
                    if (!pair && std::string(side) == "l_") {
                        up = n;
                        continue;
                    }
                    const std::string name = pair ? side + n.substr(2) : n;
                    const std::string mirror =
                        pair ? (std::string(side) == "r_" ? "l_" : "r_") + n.substr(2) : "-";
                    const std::string p = up.rfind("*_", 0) == 0 ? side + up.substr(2) : up;
                    rows.insert(name + " " + p + " " + mirror);
                    up = n;
                }
            }
        }
    }
    return rows;
}

std::set<Row> Actual(const std::vector<RigPoint>& points) {
    std::set<Row> rows;
    for (const RigPoint& p : points) {
        const std::string parent = p.parent >= 0 ? Narrow(points[size_t(p.parent)].name) : "-";
        const std::string mirror = p.mirror >= 0 ? Narrow(points[size_t(p.mirror)].name) : "-";
        rows.insert(Narrow(p.name) + " " + parent + " " + mirror);
    }
    return rows;
}

// Shared pieces of the tables, each with its parent written as P.
const std::string kSpine = "-: pelvis spine_1 spine_2 spine_3; pelvis: spine_bone_{1-6};";
const std::string kFingers =
    "*_hand: *_finger_1_{1-3}, *_finger_2_{1-3}, *_finger_3_{1-3}, *_finger_4_{1-3}, "
    "*_finger_5_{1-3}, *_hand_end;";
const std::string kArm = "P: *_clavicle *_upper_arm *_forearm *_hand;" + kFingers +
                         "*_upper_arm: *_upper_arm_twist_{1-2}; *_forearm: *_forearm_twist_{1-2};";
const std::string kFoot = "*_foot: *_foot_heel, *_foot_tip, *_foot_inner, *_foot_outer, *_toe_1_1;";
const std::string kLeg = "P: *_thigh *_calf *_foot;" + kFoot +
                         "*_thigh: *_thigh_twist_{1-2}; *_calf: *_calf_twist_{1-2};";
const std::string kAnimalLeg = "P: *_thigh *_calf *_cannon *_foot;" + kFoot +
                               "*_thigh: *_thigh_twist_{1-2}; *_calf: *_calf_twist_{1-2};"
                               "*_cannon: *_cannon_twist_{1-2};";
const std::string kTail = "P: tail_1 tail_2 tail_3;";

std::string With(std::string text, const std::string& parent) {
    for (size_t at; (at = text.find("P:")) != std::string::npos;) text.replace(at, 1, parent);
    return text;
}

struct TypeTable {
    int type;
    size_t count;  // counted by hand from the type's default parameters
    std::string table;
};

std::vector<TypeTable> Tables() {
    const std::string head = "spine_3: neck_1 head head_end;";
    return {
        // spine 1 + 3 + 6, neck and head 3, per side arm 4 + 15 fingers + end + 4 twists,
        // leg 3 + 4 foot pivots + 1 toe + 4 twists.
        {kRigBiped, 10 + 3 + 2 * 24 + 2 * 12,
         kSpine + head + With(kArm, "spine_3") + With(kLeg, "pelvis")},
        {kRigHands, 2 * 17, "-: *_hand;" + kFingers},
        {kRigFeet, 2 * 6, "-: *_foot;" + kFoot},
        {kRigArms, 2 * 24, With(kArm, "-")},
        {kRigLegs, 2 * 12, With(kLeg, "-")},
        {kRigSpine, 10, kSpine},
        {kRigHead, 3, "-: neck_1 head head_end"},
        {kRigTail, 3, With(kTail, "-")},
        {kRigEars, 0, ""},
        // fixed pelvis, per side 4 joints + paw 1 + 4 pivots + 1 toe + 2 twists
        {kRigFrontLegs, 1 + 2 * 12,
         "-: pelvis; pelvis: *_leg_clavicle *_front_thigh *_front_calf *_front_cannon "
         "*_front_foot; *_front_foot: *_front_foot_heel, *_front_foot_tip, *_front_foot_inner, "
         "*_front_foot_outer, *_front_toe_1_1; *_front_cannon: *_front_cannon_twist_{1-2}"},
        {kRigBackLegs, 1 + 2 * 15, "-: pelvis;" + With(kAnimalLeg, "pelvis")},
        // front legs by arm names: 5 joints, one finger, hand end, 6 twists
        {kRigQuadruped, 10 + 3 + 2 * 13 + 2 * 15 + 3,
         kSpine + head +
             "spine_3: *_clavicle *_upper_arm *_forearm *_front_cannon *_hand;"
             "*_hand: *_finger_1_1, *_hand_end; *_upper_arm: *_upper_arm_twist_{1-2};"
             "*_forearm: *_forearm_twist_{1-2}; *_front_cannon: *_front_cannon_twist_{1-2};" +
             With(kAnimalLeg, "pelvis") + With(kTail, "pelvis")},
        {kRigMinotaur, 10 + 3 + 2 * 24 + 2 * 15 + 3,
         kSpine + head + With(kArm, "spine_3") + With(kAnimalLeg, "pelvis") +
             With(kTail, "pelvis")},
        // horse spine, back legs, tail, torso spine 10, head, arms, horse front legs as the
        // second arm pair: 5 joints + 15 fingers + end + 6 twists per side
        {kRigCentaur, 10 + 2 * 15 + 3 + 10 + 3 + 2 * 24 + 2 * 27,
         kSpine + With(kAnimalLeg, "pelvis") + With(kTail, "pelvis") +
             "spine_3: pelvis_2 spine_2_1 spine_2_2 spine_2_3; pelvis_2: spine_bone_2_{1-6};"
             "spine_2_3: neck_1 head head_end;" +
             With(kArm, "spine_2_3") +
             "spine_3: *_clavicle_2 *_upper_arm_2 *_forearm_2 *_front_cannon_2 *_hand_2;"
             "*_hand_2: *_finger_2_1_{1-3}, *_finger_2_2_{1-3}, *_finger_2_3_{1-3}, "
             "*_finger_2_4_{1-3}, *_finger_2_5_{1-3}, *_hand_end_2;"
             "*_upper_arm_2: *_upper_arm_twist_2_{1-2}; *_forearm_2: *_forearm_twist_2_{1-2};"
             "*_front_cannon_2: *_front_cannon_twist_2_{1-2};"},
        {kRigFrontPaws, 2 * 6,
         "-: *_front_foot; *_front_foot: *_front_foot_heel, *_front_foot_tip, "
         "*_front_foot_inner, *_front_foot_outer, *_front_toe_1_1"},
        {kRigBackPaws, 2 * 6, "-: *_foot;" + kFoot},
        {kRigInsectLeg, 2 * 6,
         "-: *_coxa_1 *_femur_1 *_tibia_1 *_metatarsus_1 *_tarsus_1 *_leg_tip_1"},
        // spine, head, fangs, one pair of antennae of 3, three leg pairs of 6, a tail
        {kRigInsect, 10 + 3 + 2 + 2 * 3 + 3 * 2 * 6 + 3,
         kSpine + head + "head: *_fang, *_ponytail_1_{1-3};" +
             "spine_3: *_coxa_1 *_femur_1 *_tibia_1 *_metatarsus_1 *_tarsus_1 *_leg_tip_1;"
             "spine_2: *_coxa_2 *_femur_2 *_tibia_2 *_metatarsus_2 *_tarsus_2 *_leg_tip_2;"
             "spine_1: *_coxa_3 *_femur_3 *_tibia_3 *_metatarsus_3 *_tarsus_3 *_leg_tip_3;" +
             With(kTail, "pelvis")},
        // head 2; 4 centre anchors and the eyes; per side brow 3 + corner, two lids of
        // 1 + corner, cheek 3 + corner, two lips of 1 + corner, nasolabial 1 + corner + 3
        // bones, chin 1 + corner; nose 1 and tongue 2 on the centre
        {kRigFace, 2 + 6 + 2 * (4 + 4 + 4 + 4 + 5 + 2) + 1 + 2,
         "-: head head_end; head: eyebrow, *_eyelid, lip_top, lip_bottom, chin;"
         "eyebrow: *_eyebrow_{1-3} *_eyebrow_corner;"
         "*_eyelid: *_eyelid_top_1 *_eyelid_corner, *_eyelid_bottom_1 *_eyelid_bottom_corner;"
         "head: *_cheekbone_{1-3} *_cheekbone_corner; head: nose_1;"
         "lip_top: *_lip_top_1 *_lip_corner; lip_bottom: *_lip_bottom_1 *_lip_bottom_corner;"
         "head: *_nasolabial_1 *_nasolabial_corner; *_nasolabial_1: *_nasolabial_bone_{1-3};"
         "chin: *_chin_1 *_chin_corner; head: tongue_1 tongue_2"},
    };
}

using GuideLayoutTest = RigObjectTest;

// The symmetry and order every layout keeps: unique names; parents before children and
// each parent's first child the first non-fixed point made under it; right points on -X
// with their left partners exactly mirrored; centre points on X 0. One-sided layouts are
// checked for their order and their side only.
void ExpectWellFormed(const std::vector<RigPoint>& points, bool bothSides) {
    std::set<std::string> names;
    for (size_t i = 0; i < points.size(); ++i) {
        const RigPoint& p = points[i];
        SCOPED_TRACE(Narrow(p.name));
        EXPECT_TRUE(names.insert(Narrow(p.name)).second) << "duplicate";
        EXPECT_LT(p.parent, int(i));
        int first = -1;
        for (size_t c = i + 1; c < points.size() && first < 0; ++c)
            if (points[c].parent == int(i) && !points[c].Fixed()) first = int(c);
        EXPECT_EQ(p.firstChild, first);
        if (p.flags & kPointRight) {
            // A one-sided part may start on the centre line (a hand at its origin).
            if (!bothSides) {
                EXPECT_LE(p.pos.x, 0.0f);
                continue;
            }
            EXPECT_LT(p.pos.x, 0.0f);
            ASSERT_GE(p.mirror, 0);
            const RigPoint& left = points[size_t(p.mirror)];
            EXPECT_TRUE(left.flags & kPointLeft);
            EXPECT_NEAR(left.pos.x, -p.pos.x, 1e-5f);
            EXPECT_NEAR(left.pos.y, p.pos.y, 1e-5f);
            EXPECT_NEAR(left.pos.z, p.pos.z, 1e-5f);
        } else if (!(p.flags & kPointLeft) && bothSides) {
            EXPECT_NEAR(p.pos.x, 0.0f, 1e-5f);
        }
    }
}

TEST_F(GuideLayoutTest, EveryTypeMakesItsTableOfPoints) {
    for (const TypeTable& t : Tables()) {
        SCOPED_TRACE("type " + std::to_string(t.type));
        const std::vector<RigPoint> points = Layout(TypeDefaults(t.type));
        const std::set<Row> expected = Expand(t.table);
        EXPECT_EQ(expected.size(), t.count) << "the table itself";
        EXPECT_EQ(points.size(), t.count);
        const std::set<Row> actual = Actual(points);
        for (const Row& row : expected) EXPECT_TRUE(actual.count(row)) << "missing " << row;
        for (const Row& row : actual) EXPECT_TRUE(expected.count(row)) << "unexpected " << row;
        ExpectWellFormed(points, true);
    }
}

TEST_F(GuideLayoutTest, OneSideMakesOnlyThatSide) {
    for (int type : {kRigHands, kRigArms, kRigLegs, kRigFrontLegs, kRigInsectLeg}) {
        GuideParams params = TypeDefaults(type);
        params[RIG_SIDE] = kSideLeft;
        const std::vector<RigPoint> points = Layout(params);
        ASSERT_FALSE(points.empty());
        for (const RigPoint& p : points) {
            SCOPED_TRACE(Narrow(p.name));
            EXPECT_EQ(p.mirror, -1);
            EXPECT_FALSE(p.flags & kPointRight);
            if (!p.Fixed()) {
                EXPECT_EQ(Narrow(p.name).rfind("l_", 0), 0u);
            }
        }
        params[RIG_SIDE] = kSideRight;
        ExpectWellFormed(Layout(params), false);
    }
}

// The point names of a layout.
std::set<std::string> Names(const std::vector<RigPoint>& points) {
    std::set<std::string> names;
    for (const RigPoint& p : points) names.insert(Narrow(p.name));
    return names;
}

std::string ParentName(const std::vector<RigPoint>& points, const std::string& name) {
    for (const RigPoint& p : points)
        if (Narrow(p.name) == name)
            return p.parent >= 0 ? Narrow(points[size_t(p.parent)].name) : "-";
    return "(no point)";
}

TEST_F(GuideLayoutTest, CountsShapeTheLayout) {
    GuideParams params = TypeDefaults(kRigBiped);
    params[RIG_ARM_PAIRS] = 2;
    std::vector<RigPoint> points = Layout(params);
    ExpectWellFormed(points, true);
    std::set<std::string> names = Names(points);
    for (const char* name : {"r_upper_arm", "l_upper_arm_2", "r_clavicle_2", "l_hand_2",
                             "r_finger_2_5_3", "l_forearm_twist_2_2", "r_hand_end_2"})
        EXPECT_TRUE(names.count(name)) << name;
    // The second pair hangs lower on the spine.
    EXPECT_EQ(ParentName(points, "r_clavicle"), "spine_3");
    EXPECT_EQ(ParentName(points, "l_clavicle_2"), "spine_2");

    params[RIG_ARM_PAIRS] = 0;
    params[RIG_USE_SPINE_BONES] = 0;
    params[RIG_SPINE_CONTROLS] = 5;
    params[RIG_TOES] = 3;
    params[RIG_TOE_BONES] = 2;
    params[RIG_METATARSALS] = 1;
    points = Layout(params);
    ExpectWellFormed(points, true);
    names = Names(points);
    for (const std::string& name : names) {
        EXPECT_EQ(name.find("arm"), std::string::npos) << name;
        EXPECT_EQ(name.find("hand"), std::string::npos) << name;
        EXPECT_EQ(name.find("spine_bone"), std::string::npos) << name;
    }
    for (const char* name : {"spine_5", "r_toe_3_2", "l_metatarsal_3"})
        EXPECT_TRUE(names.count(name)) << name;

    // An odd tail count puts one tail on the centre and pairs the others; the face hangs on
    // the head.
    params[RIG_TAILS] = 3;
    params[RIG_USE_TAIL_BONES] = 1;
    params[RIG_FACE] = 1;
    points = Layout(params);
    ExpectWellFormed(points, true);
    EXPECT_EQ(ParentName(points, "tail_1"), "pelvis");
    EXPECT_EQ(ParentName(points, "l_tail_1_1"), "pelvis");
    EXPECT_EQ(ParentName(points, "r_tail_1_3"), "r_tail_1_2");
    EXPECT_EQ(ParentName(points, "r_tail_bone_1_6"), "r_tail_bone_1_5");
    EXPECT_EQ(ParentName(points, "tail_bone_1"), "pelvis");
    EXPECT_EQ(ParentName(points, "r_tail_2_1"), "(no point)");
    EXPECT_EQ(ParentName(points, "l_eyebrow_1"), "eyebrow");
    EXPECT_EQ(ParentName(points, "eyebrow"), "head");
    EXPECT_FALSE(names.count("spine_6"));
    EXPECT_FALSE(names.count("r_foot_end"));
}

}  // namespace
}  // namespace zorvanta::test

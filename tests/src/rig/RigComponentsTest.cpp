#include <set>
#include <string>

#include <gtest/gtest.h>

#include "host/object/ParamBlockDesc2.h"
#include "rig/RigComponents.h"
#include "tests/src/rig/RigObjectTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

std::wstring NameOf(RigParam id) {
    const ParamDef* def = RigSystem::BlockDesc()->GetParamDef(id);
    return def && def->name ? def->name : L"";
}

bool IsBool(RigParam id) {
    const ParamDef* def = RigSystem::BlockDesc()->GetParamDef(id);
    return def && def->type == TYPE_BOOL;
}

// Every component but the face's own has one row; every slot is an integer count of the
// block, every check box a bool, and a bones check box enables exactly the bones count
// of its own structure.
TEST_F(RigObjectTest, ComponentRowsMatchTheBlock) {
    std::set<int> ids;
    for (const ComponentRow& row : ComponentRows()) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(ids.insert(row.id).second);
        EXPECT_EQ(FindComponentRow(row.id), &row);
        ASSERT_NE(row.slots[0].label, nullptr);
        for (int s = 0; s < 4; ++s) {
            const ComponentSlot& slot = row.slots[size_t(s)];
            if (!slot.label) continue;
            const ParamDef* def = RigSystem::BlockDesc()->GetParamDef(slot.param);
            ASSERT_NE(def, nullptr);
            EXPECT_EQ(def->type, TYPE_INT);
            EXPECT_TRUE(SlotEnabled(row, s, true));
        }
        EXPECT_TRUE(!row.toggle.label || IsBool(row.toggle.param));
        if (row.bonesToggle == RIG_NODES) continue;
        const std::wstring toggle = NameOf(row.bonesToggle);
        EXPECT_EQ(toggle.rfind(L"use_", 0), 0u) << toggle;
        const std::wstring bones = NameOf(row.slots[size_t(row.bonesSlot)].param);
        EXPECT_EQ(bones.substr(bones.size() - 6), L"_bones") << bones;
        EXPECT_FALSE(SlotEnabled(row, row.bonesSlot, false));
        EXPECT_TRUE(SlotEnabled(row, 0, false));
    }
    EXPECT_EQ(ids.size(), 17u);
    EXPECT_EQ(FindComponentRow(kCompFace), nullptr);
    EXPECT_EQ(ComponentRows()[0].id, kCompArms);
    EXPECT_EQ(ComponentRows()[16].id, kCompTongue);
}

// Front cannon twists show for quadrupeds only, cannon twists for the four-legged types,
// fangs for insects; everything else always.
TEST(RigComponents, ParameterVisibilityByType) {
    for (int type = 0; type < kRigTypeCount; ++type) {
        SCOPED_TRACE(type);
        EXPECT_EQ(ParamVisible(RIG_FRONT_CANNON_TWIST_BONES, type), type == 11);
        EXPECT_EQ(ParamVisible(RIG_CANNON_TWIST_BONES, type), type >= 9 && type <= 13);
        EXPECT_EQ(ParamVisible(RIG_FANGS, type), type == 17);
        EXPECT_TRUE(ParamVisible(RIG_THIGH_TWIST_BONES, type));
        EXPECT_TRUE(ParamVisible(RIG_HEADS, type));
    }
}

}  // namespace
}  // namespace zorvanta::test

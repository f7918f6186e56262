#include <gtest/gtest.h>

#include <algorithm>

#include "host/classes/PointHelper.h"
#include "host/object/TrackBarFilterManager.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {
namespace {

class TrackBarFilters : public SceneTest {
protected:
    void TearDown() override {
        for (Class_ID id : {kNoPosition, kNoScale}) manager.UnRegisterFilter(manager.FindFilter(id));
        SceneTest::TearDown();
    }
    static constexpr Class_ID kNoPosition{0x7e57, 1};
    static constexpr Class_ID kNoScale{0x7e57, 2};
    TrackBarFilterManager& manager = TrackBarFilterManager::Instance();
};

// Drops the position track of a transform (sub-anim 0 of the node's PRS).
bool NoPosition(Animatable*, Animatable* parent, int subNum, Animatable*, INode* node) {
    return !(parent == node->GetTMController() && subNum == 0);
}
bool NoScale(Animatable*, Animatable* parent, int subNum, Animatable*, INode* node) {
    return !(parent == node->GetTMController() && subNum == 2);
}

TEST_F(TrackBarFilters, ActiveFiltersDropTracksAndMayStopAtThem) {
    EXPECT_EQ(GetCOREInterface(TRACKBAR_FILTER_MANAGER_INTERFACE), &manager);
    INode* node = ip->CreateObjectNode(new PointHelper(), L"Tracked");
    Control* prs = node->GetTMController();
    Control* x = prs->GetPositionController()->GetXController();
    Control* scale = prs->GetScaleController();
    auto has = [&](Animatable* track) {
        const std::vector<Animatable*> tracks = manager.FilteredTracks(node);
        return std::find(tracks.begin(), tracks.end(), track) != tracks.end();
    };
    const size_t all = manager.FilteredTracks(node).size();
    EXPECT_TRUE(has(prs) && has(x) && has(scale));

    const int noPosition = manager.RegisterFilter(NoPosition, nullptr, L"No position", kNoPosition,
                                                  true, true);
    ASSERT_GE(noPosition, 0);
    EXPECT_EQ(manager.RegisterFilter(NoScale, nullptr, L"", kNoPosition), -1) << "id taken";
    EXPECT_FALSE(has(prs->GetPositionController()));
    EXPECT_FALSE(has(x)) << "stop traversal drops the tracks below too";
    manager.SetFilterActive(noPosition, false);
    EXPECT_EQ(manager.FilteredTracks(node).size(), all);

    manager.RegisterFilter(NoScale, nullptr, L"No scale", kNoScale, true, false);
    EXPECT_FALSE(has(scale));
    EXPECT_EQ(manager.FilteredTracks(node).size(), all - 1) << "the scale's own tracks stay";
}

}  // namespace
}  // namespace host::test

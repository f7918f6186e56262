#include <cmath>

#include "host/classes/PointHelper.h"
#include "host/object/CreateMouseCallBack.h"
#include "host/object/ObjectDisplay.h"
#include "host/object/SubObject.h"
#include "tests/src/rig/RigEditTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

class RigPointDisplay : public RigEditTest {
protected:
    void SetUp() override {
        RigEditTest::SetUp();
        node->SetNodeTM(0, TransMatrix(Point3(10, 20, 0)));
        view.ZoomExtents(Box3(Point3(-60, -60, -60), Point3(80, 100, 160)));
    }
    void TearDown() override {
        ip->SetActiveViewExp(nullptr);
        RigEditTest::TearDown();
    }
    Point3 World(int i) { return Pos(i) * 100.0f * node->GetObjectTM(0); }
    // Where point i is drawn, in window pixels.
    IPoint2 Pixel(int i) {
        DrawNode(node);
        for (const GWMarker& m : gw.Markers())
            if (Length(m.world - World(i)) < 1e-3f)
                return {int(std::lround(m.window.x)), int(std::lround(m.window.y))};
        ADD_FAILURE() << "point " << i << " is not drawn";
        return {};
    }
    const GWMarker* MarkerAt(int i) {
        for (const GWMarker& m : gw.Markers())
            if (Length(m.world - World(i)) < 1e-3f) return &m;
        return nullptr;
    }
};

// Each point is a marker and each parent link a line, in the side's main colour; a
// selected point is highlighted and drawn last, a fixed one has its own mark; the
// render limits are as they were after draw_on_top. A built rig draws only a small
// marker at its origin.
TEST_F(RigPointDisplay, StickFigureWithHighlightsAndABuiltMarker) {
    rig->SelectPoint(kHead, true);
    const uint32_t limits = gw.getRndLimits() | GW_Z_BUFFER;
    gw.setRndLimits(limits);
    DrawNode(node);
    EXPECT_EQ(gw.getRndLimits(), limits);
    ASSERT_EQ(gw.Markers().size(), rig->points.size());
    ASSERT_EQ(gw.Lines().size(), 8u);
    for (const GWLine& line : gw.Lines()) {
        bool linksParent = false;
        for (const RigPoint& p : rig->points)
            if (p.parent >= 0 &&
                Length(line.world[1] - p.pos * 100.0f * node->GetObjectTM(0)) < 1e-3f)
                linksParent = Length(line.world[0] - World(p.parent)) < 1e-3f;
        EXPECT_TRUE(linksParent);
    }
    IParamBlock2* pb = rig->Block();
    EXPECT_EQ(MarkerAt(kRClav)->color, pb->GetColor(RIG_COLOR_2));
    EXPECT_EQ(MarkerAt(kLClav)->color, pb->GetColor(RIG_COLOR_6));
    EXPECT_EQ(MarkerAt(kPelvis)->color, pb->GetColor(RIG_COLOR_4));
    EXPECT_EQ(MarkerAt(kRoot)->type, X_MRKR);
    EXPECT_EQ(MarkerAt(kRoot)->color, GetUIColor(COLOR_FREEZE));
    EXPECT_EQ(gw.Markers().back().world, World(kHead));
    EXPECT_EQ(gw.Markers().back().color, GetUIColor(COLOR_SUBSELECTION));
    EXPECT_NE(gw.Markers().back().type, MarkerAt(kPelvis)->type);

    rig->Block()->SetValue(RIG_ACTIVE, 0, 0);
    DrawNode(node);
    EXPECT_TRUE(gw.Lines().empty());
    ASSERT_EQ(gw.Markers().size(), 1u);
    EXPECT_EQ(gw.Markers()[0].world, Point3(10, 20, 0));
    Box3 box;
    rig->GetWorldBoundBox(0, node, &view, box);
    EXPECT_TRUE(box.Contains(Point3(10, 20, 0)) && box.Width() == Point3(0, 0, 0));
}

// At the point level a click on a point logs that point and a click beside it nothing;
// at the object level the same click picks the node. A window around the figure logs
// every point but the fixed one, and taking all of them selects them.
TEST_F(RigPointDisplay, PickingPointsThroughTheViewport) {
    EditPoints();
    IPoint2 at = Pixel(kLArm);
    view.ClearHitList();
    EXPECT_EQ(rig->HitTest(0, node, HITTYPE_POINT, 1, 0, &at, &view, nullptr), 1);
    ASSERT_NE(view.GetClosestHit(), nullptr);
    EXPECT_EQ(view.GetClosestHit()->hitInfo, uint32_t(kLArm));
    IPoint2 beside{at.x, at.y + 12};
    view.ClearHitList();
    EXPECT_EQ(rig->HitTest(0, node, HITTYPE_POINT, 1, 0, &beside, &view, nullptr), 0);
    EXPECT_EQ(view.GetHitLog().Count(), 0);
    rig->SelectPoint(kLArm, true);
    EXPECT_EQ(rig->HitTest(0, node, HITTYPE_POINT, 1, HIT_UNSELONLY, &at, &view, nullptr), 0);

    EXPECT_EQ(ip->PickNode(view, at), node);
    EXPECT_EQ(ip->PickNode(view, beside), nullptr);

    rig->ClearSelection(RigSystem::kPointLevel);
    IPoint2 window[2] = {{0, 0}, {view.GetViewportWidth() - 1, view.GetViewportHeight() - 1}};
    view.ClearHitList();
    ASSERT_EQ(rig->HitTest(0, node, HITTYPE_BOX, 0, 0, window, &view, nullptr), 1);
    EXPECT_EQ(view.GetHitLog().Count(), int(rig->points.size()) - 1);
    ip->SetActiveViewExp(&view);
    HitRecord first = view.GetHitLog()[0];
    rig->SelectSubComponent(&first, true, true);
    EXPECT_EQ(rig->PointSelection().NumberSet(), 1) << "a copy of a hit is not the log";
    rig->SelectSubComponent(const_cast<HitRecord*>(&view.GetHitLog()[0]), true, true);
    EXPECT_EQ(rig->PointSelection().NumberSet(), int(rig->points.size()) - 1);
    EXPECT_EQ(rig->Block()->GetInt(RIG_SELECTED_COMPONENT), int(kCompFingers));
}

// The boxes hold the points (object space, and through the node); the sub-object centre
// is the mean of the selected points in world, and all follow a move.
TEST_F(RigPointDisplay, BoundsAndSelectionCentre) {
    auto near = [](const Point3& a, const Point3& b) { return Length(a - b) < 1e-4f; };
    Box3 box;
    rig->GetLocalBoundBox(0, node, &view, box);
    EXPECT_TRUE(near(box.pmin, Point3(-30, 0, 0)) && near(box.pmax, Point3(30, 0, 120)));
    rig->GetWorldBoundBox(0, node, &view, box);
    EXPECT_TRUE(near(box.pmin, Point3(-20, 20, 0)) && near(box.pmax, Point3(40, 20, 120)));

    struct Centres : SubObjAxisCallback {
        void Center(const Point3& c, int) override { centres.push_back(c); }
        void TM(const Matrix3& tm, int) override { tms.push_back(tm); }
        std::vector<Point3> centres;
        std::vector<Matrix3> tms;
    } cb;
    EditPoints();
    rig->GetSubObjectCenters(&cb, 0, node, nullptr);
    EXPECT_TRUE(cb.centres.empty()) << "no selection, no centre";
    rig->SelectPoint(kLArm, true);
    rig->SelectPoint(kHead, true);
    rig->GetSubObjectCenters(&cb, 0, node, nullptr);
    rig->GetSubObjectTMs(&cb, 0, node, nullptr);
    ASSERT_EQ(cb.centres.size(), 1u);
    EXPECT_TRUE(Length(cb.centres[0] - (World(kLArm) + World(kHead)) / 2.0f) < 1e-3f);
    ASSERT_EQ(cb.tms.size(), 1u);
    EXPECT_TRUE(Length(cb.tms[0].GetTrans() - cb.centres[0]) < 1e-3f);

    Set(RIG_AFFECT_MIRROR, 0);
    Matrix3 partm = node->GetObjectTM(0), axis;
    Point3 offset(20, 0, 0);
    rig->Move(0, partm, axis, offset);
    rig->GetWorldBoundBox(0, node, &view, box);
    // l_upper_arm goes out to x 50; l_pad follows the other side's chain and stays at 40.
    EXPECT_TRUE(near(box.pmax, Point3(50, 20, 120)));
}

// One click on the construction plane places a new rig there and ends creation, as one
// "Create" entry; running out of clicks, or an object with no such callback, makes
// nothing.
TEST_F(RigPointDisplay, OneClickCreatesTheRigWhereClicked) {
    theHold.ClearUndo();
    const IPoint2 click{300, 80};
    INode* made = CreateNodeByClicks(*ip, new RigSystem, view, {click});
    ASSERT_NE(made, nullptr);
    const Point3 expected = view.GetPointOnCP(click);
    EXPECT_GT(Length(expected), 1.0f);
    EXPECT_TRUE(Length(made->GetNodeTM(0).GetTrans() - expected) < 1e-4f);
    EXPECT_EQ(theHold.NumUndoEntries(), 1);
    EXPECT_EQ(theHold.UndoName(0), WStr(L"Create"));
    const int children = ip->GetRootNode()->NumberOfChildren();
    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(ip->GetRootNode()->NumberOfChildren(), children - 1);

    EXPECT_EQ(CreateNodeByClicks(*ip, new RigSystem, view, {}), nullptr);
    EXPECT_EQ(ip->GetRootNode()->NumberOfChildren(), children - 1);
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
    auto* point = new PointHelper;
    EXPECT_EQ(point->GetCreateMouseCallBack(), nullptr);
    EXPECT_EQ(CreateNodeByClicks(*ip, point, view, {click}), nullptr);
    point->DeleteMe();
}

}  // namespace
}  // namespace zorvanta::test

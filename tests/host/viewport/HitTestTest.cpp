#include "host/classes/PointHelper.h"
#include "host/object/HitRegion.h"
#include "host/object/PickMode.h"
#include "host/viewport/HitTester.h"
#include "tests/host/viewport/ViewportTestSupport.h"

namespace host::test {
namespace {

// A segment from (100, 100) to (200, 100) against every region shape, crossing and
// window selection.
TEST(HitTester, RegionsAgainstASegment) {
    const Point3 a(100, 100, 5), b(200, 100, 7);
    const IPoint2 fenceAround[] = {{90, 90}, {210, 90}, {210, 110}, {90, 110}, FENCE_END};
    const IPoint2 fenceAcross[] = {{150, 50}, {160, 50}, {160, 150}, {150, 150}, FENCE_END};
    const struct {
        const char* what;
        int type;
        int crossing;
        std::vector<IPoint2> points;
        bool hit;
    } cases[] = {
        {"point on the line", HITTYPE_POINT, 1, {{150, 103}}, true},
        {"point beyond tolerance", HITTYPE_POINT, 1, {{150, 105}}, false},
        {"point past the end", HITTYPE_POINT, 1, {{206, 100}}, false},
        {"box across, crossing", HITTYPE_BOX, 1, {{140, 90}, {160, 110}}, true},
        {"box across, window", HITTYPE_BOX, 0, {{140, 90}, {160, 110}}, false},
        {"box around, window", HITTYPE_BOX, 0, {{210, 110}, {90, 90}}, true},
        {"box beside", HITTYPE_BOX, 1, {{140, 120}, {160, 130}}, false},
        {"circle touching", HITTYPE_CIRCLE, 1, {{150, 120}, {150, 100}}, true},
        {"circle short of it", HITTYPE_CIRCLE, 1, {{150, 120}, {150, 101}}, false},
        {"circle around, window", HITTYPE_CIRCLE, 0, {{150, 100}, {210, 100}}, true},
        {"fence around, window", HITTYPE_FENCE, 0, {fenceAround, fenceAround + 5}, true},
        {"fence across, window", HITTYPE_FENCE, 0, {fenceAcross, fenceAcross + 5}, false},
        {"fence across, crossing", HITTYPE_FENCE, 1, {fenceAcross, fenceAcross + 5}, true},
    };
    for (const auto& c : cases) {
        HitRegion region;
        std::vector<IPoint2> points = c.points;
        MakeHitRegion(region, c.type, c.crossing, 4, points.data());
        HitTester tester;
        tester.SetRegion(region);
        tester.TestSegment(a, b);
        EXPECT_EQ(tester.Hit(), c.hit) << c.what;
    }

    HitRegion region;
    const IPoint2 pick{150, 103};
    MakeHitRegion(region, HITTYPE_POINT, 1, 4, &pick);
    HitTester tester;
    tester.SetRegion(region);
    tester.TestSegment(a, b);
    EXPECT_EQ(tester.Distance(), 3u);
    EXPECT_FLOAT_EQ(tester.Depth(), 6.0f) << "the depth where the line passes the pick";
    // Window selection wants all of an object: one primitive outside spoils it.
    MakeHitRegion(region, HITTYPE_BOX, 0, 4, std::vector<IPoint2>{{90, 90}, {210, 110}}.data());
    tester.SetRegion(region);
    tester.Clear();
    tester.TestSegment(a, b);
    EXPECT_TRUE(tester.Hit());
    tester.TestPoint(Point3(300, 300, 0));
    EXPECT_FALSE(tester.Hit());
}

using ScenePicking = ViewTest;

// Of two helpers drawn over each other the one nearer the camera is picked; of two
// lines near the pick point the nearer in pixels; empty space and frozen nodes give
// nothing.
TEST_F(ScenePicking, PicksTheNearestNode) {
    INode* low = MakeNode(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID, L"Low");
    INode* high = MakeNode(HELPER_CLASS_ID, POINT_HELPER_CLASS_ID, L"High");
    low->SetNodeTM(0, TransMatrix(Point3(0, 0, -30)));
    high->SetNodeTM(0, TransMatrix(Point3(0, 0, 30)));
    view.ZoomExtents(SceneBounds(*ip, 0));

    Point3 centre;
    const Point3 origin;
    gw.setTransform(Matrix3());
    gw.transPoint(&origin, &centre);
    const IPoint2 onBoth{int(std::lround(centre.x)), int(std::lround(centre.y))};
    EXPECT_EQ(HitTestScene(*ip, view, 0, onBoth), high) << "the top view looks down on it";
    EXPECT_EQ(view.GetHitLog().Count(), 2);
    // A pick mode's hit test sees the same, less the nodes its filter refuses.
    EXPECT_EQ(ip->PickNode(view, onBoth), high);
    struct NotHigh : PickNodeCallback {
        INode* high;
        bool Filter(INode* node) override { return node != high; }
    } notHigh;
    notHigh.high = high;
    EXPECT_EQ(ip->PickNode(view, onBoth, &notHigh), low);
    EXPECT_EQ(view.GetHitLog().Count(), 1);

    // Move the high one aside by a few pixels: the low one's cross is now nearer.
    const float unitsPerPixel = view.GetVPWorldWidth(origin) / float(view.GetViewportWidth());
    high->SetNodeTM(0, TransMatrix(Point3(3.0f * unitsPerPixel, 3.0f * unitsPerPixel, 30)));
    EXPECT_EQ(HitTestScene(*ip, view, 0, onBoth), low);

    EXPECT_EQ(HitTestScene(*ip, view, 0, IPoint2{5, 5}), nullptr);
    EXPECT_EQ(view.GetHitLog().Count(), 0);
    low->Freeze(true);
    high->Hide(true);
    EXPECT_EQ(HitTestScene(*ip, view, 0, onBoth), nullptr);
}

}  // namespace
}  // namespace host::test

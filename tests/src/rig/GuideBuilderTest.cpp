// Point creation: names, flags, mirrors and frames; carrying moved points over a rebuild.
#include <gtest/gtest.h>

#include "rig/GuideLayoutParts.h"
#include "rig/GuideLayouts.h"
#include "tests/src/rig/RigObjectTestSupport.h"

namespace zorvanta::test {
namespace {

using host::Matrix3;
using host::Point3;

void ExpectPoint(const Point3& a, const Point3& b) {
    EXPECT_NEAR(a.x, b.x, 1e-5f);
    EXPECT_NEAR(a.y, b.y, 1e-5f);
    EXPECT_NEAR(a.z, b.z, 1e-5f);
}

TEST(GuideBuilderTest, MirroredPointsTakeNamesFlagsFramesAndPartners) {
    std::vector<RigPoint> points;
    const std::vector<RigPoint> none;
    const GuideParams params;
    GuideBuilder b(points, none, params, params, -1);
    const Matrix3 right = host::TransMatrix(Point3(0.0f, 0.0f, 2.0f));
    const int root = b.AddCenterPoint(kCompSpine, L"spine", 1, Point3(), -1, right, false);
    int r = -1, l = -1;
    b.AddMirroredPoints(kCompArms, L"hand", -1, Point3(-1.0f, 0.5f, 0.0f), kSideBoth, root, root,
                        right, GuideBuilder::MirrorFrame(right), false, &r, &l, kPointClavicle);
    ASSERT_EQ(points.size(), 3u);
    EXPECT_EQ(points[0].name, host::WStr(L"spine_2"));
    EXPECT_EQ(points[size_t(r)].name, host::WStr(L"r_hand"));
    EXPECT_EQ(points[size_t(l)].name, host::WStr(L"l_hand"));
    EXPECT_EQ(points[size_t(r)].flags, kPointClavicle + 1u);
    EXPECT_EQ(points[size_t(l)].flags, kPointClavicle + 2u);
    EXPECT_EQ(points[size_t(r)].mirror, l);
    EXPECT_EQ(points[size_t(l)].mirror, r);
    ExpectPoint(points[size_t(r)].pos, Point3(-1.0f, 0.5f, 2.0f));
    ExpectPoint(points[size_t(l)].pos, Point3(1.0f, 0.5f, 2.0f));
    EXPECT_EQ(points[0].firstChild, r);

    // One side, or one unprefixed point; a fixed point never becomes a first child.
    b.AddMirroredPoints(kCompArms, L"finger", 2, Point3(), kSideLeft, -1, l, right, right, false,
                        &r, &l, kPointFixed);
    EXPECT_EQ(r, -1);
    EXPECT_EQ(points[size_t(l)].name, host::WStr(L"l_finger_3"));
    EXPECT_EQ(points[size_t(l)].mirror, -1);
    EXPECT_EQ(points[size_t(points[size_t(l)].parent)].firstChild, -1);
    b.AddMirroredPoints(kCompTail, L"tail", 0, Point3(), kSideCenter, -1, -1, right, right, false,
                        &r, &l);
    EXPECT_EQ(points[size_t(r)].name, host::WStr(L"tail_1"));
    EXPECT_EQ(l, -1);
    EXPECT_EQ(b.Find(L"l_finger_3"), 4 - 1);
    EXPECT_EQ(b.Find(L"r_finger_3"), -1);
}

TEST(GuideBuilderTest, MirrorFrameScalesBeforeTheFrame) {
    Matrix3 frame = host::RotateZMatrix(0.5f);
    frame.Translate(Point3(3.0f, 1.0f, 0.0f));
    const Point3 p(0.25f, 0.5f, 0.75f);
    ExpectPoint(p * GuideBuilder::MirrorFrame(frame), Point3(-p.x, p.y, p.z) * frame);
}

TEST(GuideBuilderTest, SplineFractionSpacesByArcLength) {
    // A straight curve whose parameter runs fast at the start and slowly at the end.
    const Point3 curve[4] = {Point3(0, 0, 0), Point3(0, 0, 0.9f), Point3(0, 0, 0.95f),
                             Point3(0, 0, 1)};
    for (float f : {0.0f, 0.2f, 0.5f, 0.9f, 1.0f})
        EXPECT_NEAR(guide::BezierPoint(curve, guide::SplineFraction(curve, f)).z, f, 2e-3f) << f;
}

class RebuildTest : public RigObjectTest {
protected:
    void SetUp() override {
        RigObjectTest::SetUp();
        rig = new RigSystem;
        ip->CreateObjectNode(rig, L"Rig");
        params = GuideParams::Read(rig->Block());
        params[RIG_FANGS] = 0;
        rig->RebuildPoints(true, params);
    }
    // The points of a fresh layout of p.
    static std::vector<RigPoint> Fresh(const GuideParams& p) {
        std::vector<RigPoint> points;
        const std::vector<RigPoint> none;
        GuideBuilder b(points, none, p, p, -1);
        BuildGuideLayout(b);
        return points;
    }
    void Move(const wchar_t* name, const Point3& pos) {
        const int i = rig->FindPoint(name);
        ASSERT_GE(i, 0);
        rig->points[size_t(i)].pos = pos;
        rig->points[size_t(i)].selected = 1;
    }

    RigSystem* rig = nullptr;
    GuideParams params;
};

TEST_F(RebuildTest, ChangingFingersResetsOnlyTheFingers) {
    Move(L"r_finger_2_1", Point3(5, 5, 5));
    Move(L"r_thigh", Point3(-1, 2, 3));
    std::vector<RigPoint> before = rig->Points();
    params[RIG_FINGERS] = 4;
    rig->RebuildPoints(false, params);
    const std::vector<RigPoint> fresh = Fresh(params);
    ASSERT_EQ(rig->Points().size(), fresh.size());
    ASSERT_EQ(fresh.size() + 2 * 3, before.size());
    for (size_t i = 0; i < fresh.size(); ++i) {
        const RigPoint& p = rig->Points()[i];
        SCOPED_TRACE(Narrow(p.name));
        if (p.component == kCompFingers) {
            EXPECT_EQ(p.pos, fresh[i].pos);
            EXPECT_EQ(p.selected, 0);
            continue;
        }
        bool found = false;
        for (const RigPoint& old : before)
            if (old.name == p.name) {
                EXPECT_EQ(p.pos, old.pos);
                EXPECT_EQ(p.selected, old.selected);
                found = true;
            }
        EXPECT_TRUE(found);
    }
    ExpectPoint(rig->Points()[size_t(rig->FindPoint(L"r_thigh"))].pos, Point3(-1, 2, 3));
}

TEST_F(RebuildTest, RebuiltPointsOfTheSelectedComponentAreSelected) {
    rig->selectedComponent = kCompToes;
    params[RIG_TOES] = 2;
    rig->RebuildPoints(false, params);
    for (const RigPoint& p : rig->Points()) EXPECT_EQ(p.selected, p.component == kCompToes ? 1 : 0);
}

TEST_F(RebuildTest, TypeOrSideChangeWithDiscardResetsEverything) {
    for (RigParam id : {RIG_SIDE, RIG_TYPE}) {
        Move(L"r_thigh", Point3(-1, 2, 3));
        Move(L"pelvis", Point3(0, 0, 0.2f));
        params[id] = id == RIG_SIDE ? int(kSideRight) : int(kRigMinotaur);
        rig->RebuildPoints(true, params);
        EXPECT_EQ(rig->Points(), Fresh(params)) << id;
        // Without discard the moved points would have stayed: the reset comes from it.
        Move(L"r_thigh", Point3(-1, 2, 3));
        rig->RebuildPoints(false, params);
        ExpectPoint(rig->Points()[size_t(rig->FindPoint(L"r_thigh"))].pos, Point3(-1, 2, 3));
    }
}

}  // namespace
}  // namespace zorvanta::test

#include <gtest/gtest.h>

#include "host/classes/BezierScale.h"
#include "host/classes/HostClasses.h"
#include "host/classes/PRS.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MathRandom;
using test::MatrixNear;

ScaleValue Read(Control* c, TimeValue t) {
    ScaleValue s;
    Interval valid = FOREVER;
    c->GetValue(t, &s, valid);
    return s;
}

// The default PRS now carries a bezier scale, and places a node at any transform,
// stretched along turned axes included.
TEST(BezierScale, DefaultPRSPlacesStretchedTransforms) {
    RegisterHostClasses();
    auto* prs = static_cast<PRS*>(NewDefaultMatrix3Controller());
    ASSERT_TRUE(prs->GetScaleController() &&
                prs->GetScaleController()->ClassID() == BEZIER_SCALE_CLASS_ID);
    MathRandom rnd(23);
    for (int i = 0; i < 30; ++i) {
        Matrix3 rigid, parent;
        rnd.Rotation().MakeMatrix(rigid);
        rigid.SetTrans(rnd.Vector(-5, 5));
        rnd.Rotation().MakeMatrix(parent);
        const Matrix3 target =
            ScaleValueMatrix(ScaleValue(rnd.Vector(0.3f, 3.0f), rnd.Rotation())) * rigid;
        SetXFormPacket packet;
        packet.tmParent = parent;
        packet.tmAxis = target;
        prs->SetValue(0, &packet);
        Matrix3 world = parent;
        Interval valid = FOREVER;
        prs->GetValue(0, &world, valid, CTRL_RELATIVE);
        ASSERT_TRUE(MatrixNear(world, target, 2e-3f));
    }
    prs->DeleteMe();
}

// Factors follow the keys; the axis turns between keys; a relative repeat multiplies
// by the ratio of the last key to the first; a relative write multiplies.
TEST(BezierScale, KeysRepeatAndWritesMultiply) {
    auto* c = new BezierScale;
    const Quat turned(AngAxis({0, 0, 1}, 1.0f));
    AnimateOn();
    theHold.Begin();
    ScaleValue first(Point3(1, 1, 1)), last(Point3(2, 4, 0.5f), turned);
    c->SetValue(0, &first);
    c->SetValue(4800, &last);
    theHold.Accept(L"Scale");
    AnimateOff();
    EXPECT_EQ(c->NumKeys(), 2);
    EXPECT_TRUE(test::SameRotation(Read(c, 2400).q, Slerp(Quat(), turned, 0.5f), 1e-5f));
    EXPECT_EQ(Read(c, 4800).s, Point3(2, 4, 0.5f));
    c->SetORT(ORT_RELATIVE_REPEAT, ORT_AFTER);
    const ScaleValue later = Read(c, 4800 + 1200), earlier = Read(c, 1200);
    EXPECT_TRUE(
        test::PointNear(later.s, {earlier.s.x * 2, earlier.s.y * 4, earlier.s.z * 0.5f}, 1e-4f));
    const ScaleValue twoCycles = Read(c, 2 * 4800 + 1200);
    EXPECT_TRUE(test::PointNear(twoCycles.s,
                                {earlier.s.x * 4, earlier.s.y * 16, earlier.s.z * 0.25f}, 1e-3f));
    ScaleValue twice(Point3(2, 2, 2));
    c->SetValue(0, &twice, 1, CTRL_RELATIVE);  // the key at 0
    EXPECT_TRUE(test::PointNear(Read(c, 0).s, {2, 2, 2}, 1e-5f));
    theHold.Undo();
    EXPECT_EQ(c->NumKeys(), 0);
    theHold.ClearUndo();
    // A relative write along turned axes stretches along them.
    c->SetValue(0, &twice);  // no keys: the held value
    ScaleValue along(Point3(1, 3, 1), turned);
    c->SetValue(0, &along, 1, CTRL_RELATIVE);
    EXPECT_TRUE(MatrixNear(ScaleValueMatrix(Read(c, 0)),
                           ScaleMatrix({2, 2, 2}) * ScaleValueMatrix(along), 1e-4f));
    c->DeleteMe();
}

}  // namespace
}  // namespace host

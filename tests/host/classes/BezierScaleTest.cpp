#include <gtest/gtest.h>

#include "host/classes/BezierScale.h"
#include "host/math/MatrixHelpers.h"
#include "host/object/Animate.h"
#include "host/object/Hold.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::MatrixNear;

ScaleValue Read(Control* c, TimeValue t) {
    ScaleValue s;
    Interval valid = FOREVER;
    c->GetValue(t, &s, valid);
    return s;
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
    Read(c, 0);  // the first read after edits builds the tables; later reads take the short path
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

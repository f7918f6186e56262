#include "host/classes/TextShape.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/classes/HostClasses.h"
#include "host/object/Animate.h"
#include "host/object/Deformer.h"
#include "host/object/Hold.h"
#include "tests/host/math/MathTestSupport.h"

namespace host {
namespace {

using test::PointNear;

// A text shape that counts its builds.
class CountingText : public TextShape {
public:
    void BuildShape(TimeValue t, BezierShape& s) override {
        ++builds;
        TextShape::BuildShape(t, s);
    }
    int builds = 0;
};

struct Shift : Deformer {
    Point3 Map(int, const Point3& p) override { return p + Point3(5, 0, 0); }
};

::testing::AssertionResult SameBox(const Box3& a, const Box3& b, float eps = 1e-4f) {
    if (PointNear(a.pmin, b.pmin, eps) && PointNear(a.pmax, b.pmax, eps))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "boxes differ";
}

Box3 LocalBox(SimpleSpline* s, TimeValue t) {
    Box3 box;
    s->GetLocalBoundBox(t, nullptr, nullptr, box);
    return box;
}

class TextShapes : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        ClassRegistry::Instance().Register(GetTextShapeDesc());
    }
    void TearDown() override {
        AnimateOff();
        theHold.ClearUndo();
    }
    static IParamBlock2* Text(SimpleSpline* s) { return s->GetParamBlock(0); }
    static IParamBlock2* Interp(SimpleSpline* s) { return s->GetParamBlock(1); }
};

// A loading instance waits for the scene reader's blocks and builds nothing.
TEST_F(TextShapes, ALoadingInstanceBuildsNothing) {
    auto* loaded = static_cast<TextShape*>(GetTextShapeDesc()->Create(true));
    EXPECT_EQ(loaded->GetParamBlock(0), nullptr);
    EXPECT_TRUE(LocalBox(loaded, 0).IsEmpty());
    loaded->DeleteThis();
}

TEST_F(TextShapes, LaysOutOneBoxPerCharacterLineByLine) {
    auto* text = new TextShape;
    const std::wstring source = L"AB C\nD  E\n\nF";
    const float size = 10, kerning = 1, leading = 4;
    ASSERT_TRUE(Text(text)->SetValue(TextShape::TEXT, 0, source.c_str()) &&
                Text(text)->SetValue(TextShape::SIZE, 0, size) &&
                Text(text)->SetValue(TextShape::KERNING, 0, kerning) &&
                Text(text)->SetValue(TextShape::LEADING, 0, leading));
    // Where each box should be, worked out by column and line of the source text.
    std::vector<Box3> expected;
    int line = 0, column = 0;
    for (const wchar_t c : source) {
        if (c == L'\n') {
            ++line, column = 0;
            continue;
        }
        const Point3 corner(float(column++) * (6 + kerning), -float(line) * (size + leading), 0);
        if (c != L' ') expected.push_back(Box3(corner, corner + Point3(6, size, 0)));
    }
    const BezierShape& shape = text->GetShape(0);
    ASSERT_EQ(shape.SplineCount(), int(expected.size()));
    for (int i = 0; i < shape.SplineCount(); ++i) {
        const Spline3D* s = shape.GetSpline(i);
        EXPECT_TRUE(s->Closed() && s->KnotCount() == 4 && s->GetKnotType(0) == KTYPE_CORNER);
        EXPECT_TRUE(SameBox(s->GetBBox(), expected[size_t(i)])) << "character " << i;
        EXPECT_NEAR(s->SplineLength(), 2 * (6 + size), 1e-3f);
    }
    // "D  E" is the widest line; "F" sits three lines down.
    EXPECT_TRUE(SameBox(LocalBox(text, 0), Box3({0, -3 * (size + leading), 0}, {27, size, 0})));
    text->DeleteMe();
}

TEST_F(TextShapes, RebuildsOnlyAfterAParameterChanges) {
    auto* text = new CountingText;
    EXPECT_TRUE(SameBox(LocalBox(text, 0), Box3({}, {4 * 0.6f * 100, 100, 0})));
    text->Eval(0);
    text->ObjectValidity(0);
    EXPECT_EQ(text->builds, 1);
    ASSERT_TRUE(Text(text)->SetValue(TextShape::SIZE, 0, 50.0f));
    EXPECT_TRUE(SameBox(LocalBox(text, 0), Box3({}, {4 * 0.6f * 50, 50, 0})));
    EXPECT_EQ(text->builds, 2);
    // The interpolation block is a parameter block of the shape too.
    const struct {
        ParamID id;
        int value, steps;
        bool optimize;
    } settings[] = {{SimpleSpline::STEPS, 3, 3, true},
                    {SimpleSpline::ADAPTIVE, 1, -1, true},
                    {SimpleSpline::OPTIMIZE, 0, -1, false}};
    for (const auto& s : settings) {
        ASSERT_TRUE(Interp(text)->SetValue(s.id, 0, s.value));
        EXPECT_EQ(text->GetShape(0).steps, s.steps);
        EXPECT_EQ(text->GetShape(0).optimize, s.optimize);
    }
    EXPECT_EQ(text->builds, 5);
    text->DeleteMe();
}

TEST_F(TextShapes, AnAnimatedSizeHoldsOnlyAtItsTime) {
    auto* text = new CountingText;
    AnimateOn();
    ASSERT_TRUE(Text(text)->SetValue(TextShape::SIZE, 4800, 200.0f));
    AnimateOff();
    const Interval valid = text->ObjectValidity(0);
    EXPECT_TRUE(valid.InInterval(0) && !valid.InInterval(2400) && !valid.InInterval(4800));
    EXPECT_NEAR(LocalBox(text, 0).pmax.y, 100, 1e-3f);
    EXPECT_NEAR(LocalBox(text, 4800).pmax.y, 200, 1e-3f);
    const float middle = LocalBox(text, 2400).pmax.y;
    EXPECT_TRUE(middle > 100 && middle < 200);
    EXPECT_EQ(text->builds, 3);
    text->DeleteMe();
}

TEST_F(TextShapes, UndoAndRedoOfAnEditRebuildTheirShapes) {
    auto* text = new TextShape;
    const Box3 original = LocalBox(text, 0);
    theHold.Begin();
    ASSERT_TRUE(Text(text)->SetValue(TextShape::TEXT, 0, L"Hi\nthere") &&
                Text(text)->SetValue(TextShape::KERNING, 0, 5.0f));
    theHold.Accept(L"Edit Text");
    const Box3 edited = LocalBox(text, 0);
    EXPECT_EQ(text->GetShape(0).SplineCount(), 7);
    EXPECT_FALSE(SameBox(original, edited));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_TRUE(SameBox(LocalBox(text, 0), original, 0.0f));
    EXPECT_EQ(text->GetShape(0).SplineCount(), 4);
    ASSERT_TRUE(theHold.Redo());
    EXPECT_TRUE(SameBox(LocalBox(text, 0), edited, 0.0f));
    text->DeleteMe();
}

TEST_F(TextShapes, DeformersMoveKnotsWithTheirHandlesUntilTheNextBuild) {
    auto* text = new TextShape;
    const Box3 built = LocalBox(text, 0);
    EXPECT_EQ(text->NumPoints(), 4 * 4 * 3);  // four characters, four knots, three vertices
    Shift shift;
    text->Deform(&shift);
    Box3 moved = built;
    moved.pmin.x += 5, moved.pmax.x += 5;
    EXPECT_TRUE(SameBox(LocalBox(text, 0), moved));
    // Knots and handles moved together: the segments are still straight sides.
    EXPECT_NEAR(text->GetShape(0).GetSpline(0)->SplineLength(), 2 * (60 + 100), 1e-3f);
    Matrix3 doubled = ScaleMatrix({2, 2, 2});
    Box3 deformBox;
    text->GetDeformBBox(0, deformBox, &doubled);
    EXPECT_TRUE(SameBox(deformBox, moved * doubled));
    ASSERT_TRUE(Text(text)->SetValue(TextShape::LEADING, 0, 1.0f));
    EXPECT_TRUE(SameBox(LocalBox(text, 0), built));
    text->DeleteMe();
}

}  // namespace
}  // namespace host

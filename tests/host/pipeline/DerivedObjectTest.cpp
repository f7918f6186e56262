#include <functional>
#include <string>

#include "host/object/Animate.h"
#include "tests/host/pipeline/PipelineTestSupport.h"

namespace host::test {
namespace {

using DerivedObjectTest = PipelineTest;

const Point3 kUp(0, 0, 1);

// Scaling and moving do not commute: the result tells the order the stack ran in.
TEST_F(DerivedObjectTest, StackAppliesModifiersFromTheBottomUp) {
    const MNMesh box = BoxMesh(Point3(2, 4, 6));
    for (const bool offsetOnTop : {true, false}) {
        SCOPED_TRACE(offsetOnTop ? "offset on top" : "offset below");
        EditableMesh* base = NewMeshObject(box);
        IDerivedObject* derived = CreateDerivedObject(base);
        INode* node = ip->CreateObjectNode(derived);
        auto* scale = new ScaleModifier(2);
        ASSERT_TRUE(derived->AddModifier(scale));
        ASSERT_TRUE(derived->AddModifier(new OffsetModifier(kUp, 3), nullptr, offsetOnTop ? 0 : 1));

        std::vector<Point3> expected;
        for (int v = 0; v < box.numv(); ++v)
            expected.push_back(offsetOnTop ? box.P(v) * 2 + kUp * 3 : (box.P(v) + kUp * 3) * 2);
        ExpectPointsNear(PointsOf(node->EvalWorldState(0).obj), expected);
        ExpectPointsNear(PointsOf(derived), expected);
        EXPECT_EQ(base->GetMesh(), box);  // the stack worked on a copy
        EXPECT_EQ(scale->lastNode, node);

        // A new modifier's context holds the box of what reaches it.
        const Box3 input = derived->GetModContext(offsetOnTop ? 0 : 1)->box;
        const float grow = offsetOnTop ? 2.0f : 1.0f;
        EXPECT_TRUE(input.pmin.Equals(Point3(-1, -2, -3) * grow, 1e-5f));
        EXPECT_TRUE(input.pmax.Equals(Point3(1, 2, 3) * grow, 1e-5f));
    }

    IDerivedObject* derived = CreateDerivedObject(NewMeshObject(box));
    ip->CreateObjectNode(derived);
    auto* stray = new ScaleModifier(1);
    EXPECT_FALSE(derived->AddModifier(nullptr));
    EXPECT_FALSE(derived->AddModifier(stray, nullptr, 1));  // past the bottom of an empty stack
    EXPECT_FALSE(derived->DeleteModifier(0));
    stray->DeleteThis();
}

TEST_F(DerivedObjectTest, WorldStateIsCachedUntilSomethingBelowChanges) {
    EditableMesh* base = NewMeshObject(BoxMesh(Point3(1, 1, 1)));
    IDerivedObject* derived = CreateDerivedObject(base);
    INode* node = ip->CreateObjectNode(derived);
    auto* scale = new ScaleModifier(2);
    OffsetModifier* offset = new OffsetModifier(kUp, 1);
    derived->AddModifier(scale);
    derived->AddModifier(offset);
    auto top = [&](TimeValue t) { return node->EvalWorldState(t).obj->GetPoint(0); };

    // Nothing is animated: one evaluation serves every time. (Adding the offset ran the
    // scale once already, for the offset's context.)
    const int scaleRuns = scale->evaluations;
    EXPECT_EQ(node->EvalWorldState(0).obj, node->EvalWorldState(4800).obj);
    EXPECT_EQ(offset->evaluations, 1);
    EXPECT_EQ(scale->evaluations, scaleRuns + 1);
    EXPECT_TRUE(top(0).Equals(base->GetPoint(0) * 2 + kUp, 1e-6f));

    // A new value of the top modifier's controller.
    float amount = 5;
    offset->GetAmountController()->SetValue(0, &amount);
    EXPECT_TRUE(top(0).Equals(base->GetPoint(0) * 2 + kUp * 5, 1e-6f));
    EXPECT_EQ(offset->evaluations, 2);
    EXPECT_EQ(scale->inputChanges, 0);

    // A change of the bottom modifier is an input change for the one above it; a change
    // of the base object is one for both.
    scale->SetFactor(3);
    EXPECT_EQ(offset->inputChanges, 1);
    base->SetPoint(0, Point3(7, 8, 9));
    EXPECT_EQ(offset->inputChanges, 2);
    EXPECT_EQ(scale->inputChanges, 1);
    EXPECT_TRUE(top(0).Equals(Point3(21, 24, 32), 1e-5f));

    // With keys, the result holds for an instant between them, and before the first key
    // for as long as the track is flat.
    AnimateOn();
    for (const auto& [t, v] : {std::pair<TimeValue, float>{0, 0}, {4800, 10}}) {
        amount = v;
        offset->GetAmountController()->SetValue(t, &amount);
    }
    AnimateOff();
    const int before = offset->evaluations;
    top(2400);
    top(2400);
    EXPECT_EQ(offset->evaluations, before + 1);
    EXPECT_EQ(derived->ObjectValidity(2400), Interval(2400, 2400));
    top(2401);
    EXPECT_EQ(offset->evaluations, before + 2);
    top(-100);
    top(-200);
    EXPECT_EQ(offset->evaluations, before + 3);
    EXPECT_EQ(derived->ObjectValidity(-200), Interval(TIME_NegInfinity, 0));

    // A second node on the same stack, at another time: the first node's world state
    // must not keep the result that the second one's evaluation replaced.
    INode* instance = ip->CreateObjectNode(derived);
    const Point3 scaled = base->GetPoint(0) * 3;
    EXPECT_TRUE(top(0).Equals(scaled, 1e-5f));
    EXPECT_TRUE(instance->EvalWorldState(4800).obj->GetPoint(0).Equals(scaled + kUp * 10, 1e-5f));
    EXPECT_TRUE(top(0).Equals(scaled, 1e-5f));
}

// What a stack is, as the tests compare it: its objects, contexts, switches and result.
struct StackState {
    Object* base = nullptr;
    std::vector<Modifier*> mods;
    std::vector<ModContext*> contexts;
    std::vector<bool> enabled;
    std::vector<Point3> result;
    bool operator==(const StackState&) const = default;
};

StackState Capture(IDerivedObject* derived, INode* node) {
    StackState s;
    s.base = derived->GetObjRef();
    for (int i = 0; i < derived->NumModifiers(); ++i) {
        s.mods.push_back(derived->GetModifier(i));
        s.contexts.push_back(derived->GetModContext(i));
        s.enabled.push_back(s.mods.back()->IsEnabled());
    }
    s.result = PointsOf(node->EvalWorldState(0).obj);
    return s;
}

TEST_F(DerivedObjectTest, StackEditsUndoExactly) {
    IDerivedObject* derived = CreateDerivedObject(NewMeshObject(BoxMesh(Point3(1, 2, 3))));
    INode* node = ip->CreateObjectNode(derived);
    auto* scale = new ScaleModifier(2);
    derived->AddModifier(scale);
    OffsetModifier* offset = new OffsetModifier(kUp, 4);
    EditableMesh* otherBase = NewMeshObject(BoxMesh(Point3(5, 5, 5)));

    const std::vector<std::function<void()>> steps = {
        [&] { derived->AddModifier(offset, nullptr, 1); },
        [&] { scale->DisableMod(); },
        [&] { derived->DeleteModifier(1); },
        [&] { derived->ReferenceObject(otherBase); },
        [&] { scale->EnableMod(); },
    };
    std::vector<StackState> states = {Capture(derived, node)};
    for (const auto& step : steps) {
        theHold.Begin();
        step();
        theHold.Accept(L"Edit Stack");
        states.push_back(Capture(derived, node));
        EXPECT_NE(states.back(), states[states.size() - 2]) << states.size() - 1;
    }
    ASSERT_EQ(theHold.NumUndoEntries(), int(steps.size()));
    for (size_t k = steps.size(); k-- > 0;) {
        ASSERT_TRUE(theHold.Undo());
        EXPECT_EQ(Capture(derived, node), states[k]) << "undo to state " << k;
    }
    for (size_t k = 1; k <= steps.size(); ++k) {
        ASSERT_TRUE(theHold.Redo());
        EXPECT_EQ(Capture(derived, node), states[k]) << "redo to state " << k;
    }

    // Without undo records a deleted modifier goes at once, and the scene owns the rest.
    theHold.ClearUndo();
    const int alive = CountingModifier::alive;
    ASSERT_TRUE(derived->DeleteModifier(0));
    EXPECT_EQ(CountingModifier::alive, alive - 1);
    ip->Reset();
    EXPECT_EQ(CountingModifier::alive, 0);
}

TEST_F(DerivedObjectTest, NestedDerivedObjectsAreSearchedDown) {
    EditableMesh* base = NewMeshObject(BoxMesh(Point3(1, 1, 1)));
    IDerivedObject* inner = CreateDerivedObject(base);
    auto* scale = new ScaleModifier(2);
    inner->AddModifier(scale);
    IDerivedObject* outer = CreateDerivedObject(inner);
    outer->AddModifier(new OffsetModifier(kUp, 1));
    INode* node = ip->CreateObjectNode(outer);
    EXPECT_EQ(outer->FindBaseObject(), base);

    // A change deep down reaches the node through both stacks' caches, and the inner
    // stack finds its node up through the outer one.
    EXPECT_TRUE(
        node->EvalWorldState(0).obj->GetPoint(0).Equals(base->GetPoint(0) * 2 + kUp, 1e-6f));
    scale->SetFactor(3);
    EXPECT_TRUE(
        node->EvalWorldState(0).obj->GetPoint(0).Equals(base->GetPoint(0) * 3 + kUp, 1e-6f));
    EXPECT_EQ(scale->lastNode, node);
    EXPECT_EQ(outer->ReferenceObject(outer), REF_FAIL);  // a stack cannot sit on itself
}

// Points that can be read and written but not copied.
class FixedPoints : public Object {
public:
    int NumPoints() override { return int(points.size()); }
    Point3 GetPoint(int i) override { return points[size_t(i)]; }
    void SetPoint(int i, const Point3& p) override { points[size_t(i)] = p; }
    std::vector<Point3> points{Point3(1, 2, 3), Point3(4, 5, 6)};
};

// Changes nothing of the object; only counts.
class TagModifier : public CountingModifier {
public:
    ChannelMask ChannelsUsed() override { return 0; }
    ChannelMask ChannelsChanged() override { return 0; }
    void ModifyObject(TimeValue, ModContext&, ObjectState*, INode* node) override { Count(node); }
};

TEST_F(DerivedObjectTest, ObjectsThatCannotBeCopiedPassThroughUnchanged) {
    auto* fixed = new FixedPoints;
    IDerivedObject* derived = CreateDerivedObject(fixed);
    auto* tag = new TagModifier;
    auto* scale = new ScaleModifier(2);
    derived->AddModifier(scale);
    derived->AddModifier(tag);
    INode* node = ip->CreateObjectNode(derived);

    EXPECT_EQ(node->EvalWorldState(0).obj, fixed);
    ExpectPointsNear(fixed->points, {Point3(1, 2, 3), Point3(4, 5, 6)});
    EXPECT_EQ(tag->evaluations, 1);
    EXPECT_EQ(scale->evaluations, 0);
}

}  // namespace
}  // namespace host::test

#include "host/classes/MorphModifier.h"
#include "host/object/Animate.h"
#include "host/object/HostClassIds.h"
#include "tests/host/pipeline/PipelineTestSupport.h"

namespace host::test {
namespace {

using MorphModifierTest = PipelineTest;

// A node carrying a box with a morph modifier, and two target shapes of the box.
struct MorphScene {
    MorphScene(Interface* ip, const MNMesh& mesh) : box(mesh) {
        derived = CreateDerivedObject(NewMeshObject(mesh));
        morph = new MorphModifier;
        derived->AddModifier(morph);
        node = ip->CreateObjectNode(derived);
        for (int v = 0; v < mesh.numv(); ++v) {
            grown.push_back(mesh.P(v) * 2);
            raised.push_back(mesh.P(v) + Point3(0, 0, 3));
        }
    }
    std::vector<Point3> Result(TimeValue t) { return PointsOf(node->EvalWorldState(t).obj); }
    // The box moved towards each target by its weight in percent.
    std::vector<Point3> Blend(float toGrown, float toRaised) const {
        std::vector<Point3> points;
        for (int v = 0; v < box.numv(); ++v) {
            const Point3 p = box.P(v);
            points.push_back(p + (grown[size_t(v)] - p) * (toGrown / 100) +
                             (raised[size_t(v)] - p) * (toRaised / 100));
        }
        return points;
    }

    MNMesh box;
    IDerivedObject* derived;
    MorphModifier* morph;
    INode* node;
    std::vector<Point3> grown, raised;
};

TEST_F(MorphModifierTest, KeyedWeightsMoveThePointsByTheWeightedDeltas) {
    MorphScene scene(ip, BoxMesh(Point3(2, 4, 6)));
    MorphModifier* morph = scene.morph;
    ASSERT_TRUE(morph->SetTarget(0, scene.grown));
    ASSERT_TRUE(morph->SetTarget(1, scene.raised));
    ASSERT_TRUE(morph->SetTarget(2, {Point3(1, 1, 1)}));  // another point count: left out
    ASSERT_TRUE(morph->SetWeight(2, 0, 100));
    ASSERT_TRUE(morph->SetWeight(1, 0, 50));

    struct Key {
        TimeValue t;
        float weight;
    };
    const Key keys[] = {{0, 0}, {1600, 100}, {3200, 40}};
    AnimateOn();
    for (const Key& key : keys) morph->SetWeight(0, key.t, key.weight);
    AnimateOff();
    for (const Key& key : keys) {
        SCOPED_TRACE(key.t);
        ExpectPointsNear(scene.Result(key.t), scene.Blend(key.weight, 50), 1e-4f);
    }
    // Between keys the result holds for an instant; past the last key until forever.
    EXPECT_EQ(scene.derived->ObjectValidity(800), Interval(800, 800));
    EXPECT_EQ(scene.derived->ObjectValidity(4000), Interval(3200, TIME_PosInfinity));

    // A weight past the channel's limit acts as the limit: at 150 a lone channel gives
    // its target exactly.
    morph->SetTarget(0, {});
    morph->SetWeight(1, 0, 150);
    ExpectPointsNear(scene.Result(0), scene.raised);
}

TEST_F(MorphModifierTest, AssigningAChannelControllerIsUndoable) {
    MorphScene scene(ip, BoxMesh(Point3(1, 1, 1)));
    MorphModifier* morph = scene.morph;
    morph->SetTarget(0, scene.raised);
    morph->SetWeight(0, 0, 25);
    Control* old = morph->GetWeightController(0);
    auto* full = static_cast<Control*>(CreateInstance(CTRL_FLOAT_CLASS_ID, BEZIER_FLOAT_CLASS_ID));
    float hundred = 100;
    full->SetValue(0, &hundred);

    theHold.Begin();
    ASSERT_TRUE(morph->AssignController(full, 0));
    theHold.Accept(L"Assign Controller");
    ExpectPointsNear(scene.Result(0), scene.raised);

    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(morph->SubAnim(0), old);
    ExpectPointsNear(scene.Result(0), scene.Blend(0, 25));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(morph->SubAnim(0), full);
    ExpectPointsNear(scene.Result(0), scene.raised);

    // Only float controllers, on channels.
    Control* position = NewDefaultPositionController();
    EXPECT_FALSE(morph->AssignController(position, 0));
    EXPECT_FALSE(morph->AssignController(nullptr, 0));
    EXPECT_FALSE(morph->AssignController(full, MorphModifier::kNumChannels));
    EXPECT_EQ(morph->SubAnim(0), full);
    position->DeleteMe();
}

TEST_F(MorphModifierTest, ChannelNamesAndTargetsUndo) {
    MorphScene scene(ip, BoxMesh(Point3(1, 1, 1)));
    MorphModifier* morph = scene.morph;
    // A shape to capture: the box tripled by a stack of its own.
    IDerivedObject* shape = CreateDerivedObject(NewMeshObject(scene.box));
    shape->AddModifier(new ScaleModifier(3));
    INode* shapeNode = ip->CreateObjectNode(shape);
    std::vector<Point3> tripled;
    for (int v = 0; v < scene.box.numv(); ++v) tripled.push_back(scene.box.P(v) * 3);
    morph->SetWeight(4, 0, 100);

    theHold.Begin();
    morph->SetChannelName(3, L"Raise");
    morph->SetTarget(3, scene.raised);
    ASSERT_TRUE(morph->CaptureTarget(4, shapeNode, 0));
    morph->SetChannelName(4, L"Grow");
    theHold.Accept(L"Morph Channels");
    EXPECT_EQ(morph->SubAnimName(4), WStr(L"Grow"));
    ExpectPointsNear(scene.Result(0), tripled);

    ASSERT_TRUE(theHold.Undo());
    EXPECT_EQ(morph->GetChannelName(3), WStr(L"- empty -"));
    EXPECT_FALSE(morph->HasTarget(3) || morph->HasTarget(4));
    ExpectPointsNear(scene.Result(0), PointsOf(scene.derived->FindBaseObject()));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_EQ(morph->GetChannelName(3), WStr(L"Raise"));
    ExpectPointsNear(morph->GetTarget(3), scene.raised);
    ExpectPointsNear(scene.Result(0), tripled);

    // Refused: channels outside, and captures of nothing.
    EXPECT_FALSE(morph->SetChannelName(-1, L"x") ||
                 morph->SetTarget(MorphModifier::kNumChannels, scene.raised) ||
                 morph->CaptureTarget(5, nullptr, 0) ||
                 morph->CaptureTarget(5, ip->CreateObjectNode(nullptr), 0));
    EXPECT_FALSE(morph->HasTarget(5));
}

}  // namespace
}  // namespace host::test

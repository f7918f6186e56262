#include <vector>

#include "tests/host/controls/ControlsTestSupport.h"

namespace host::test {
namespace {

// A node with a link controller under a parent, and two targets; the parent and the
// targets move through time on keys.
class LinkControls : public ControlsTest {
protected:
    void SetUp() override {
        ControlsTest::SetUp();
        MathRandom rnd(29);
        parent_ = ip->CreateObjectNode(nullptr);
        targets_[0] = ip->CreateObjectNode(nullptr);
        targets_[1] = ip->CreateObjectNode(nullptr);
        AnimateOn();
        for (TimeValue t : {0, 40 * kFrame})
            for (INode* n : {parent_, targets_[0], targets_[1]}) n->SetNodeTM(t, RigidTM(rnd));
        AnimateOff();
        node_ = ip->CreateObjectNode(nullptr);
        parent_->AttachChild(node_, false);
        link_ = new LinkControl;
        ASSERT_TRUE(node_->SetTMController(link_));
        node_->SetNodeTM(0, RigidTM(rnd));
    }
    Matrix3 World(TimeValue t) { return node_->GetNodeTM(t); }
    // Whether the node's transform in other's space stays put over [from, to).
    ::testing::AssertionResult Rigid(INode* other, TimeValue from, TimeValue to) {
        auto relative = [&](TimeValue t) {
            return World(t) * Inverse(other ? other->GetNodeTM(t) : Matrix3());
        };
        for (TimeValue t = from; t < to; t += kFrame)
            if (!relative(t).Equals(relative(from), 2e-3f))
                return ::testing::AssertionFailure() << "moved at " << t;
        return ::testing::AssertionSuccess();
    }

    INode* parent_ = nullptr;
    INode* node_ = nullptr;
    INode* targets_[2] = {nullptr, nullptr};
    LinkControl* link_ = nullptr;
    static constexpr TimeValue kFirst = 10 * kFrame, kSecond = 20 * kFrame, kThird = 30 * kFrame;
};

// Adding a link keeps the node's world transform at the link's time. With animate mode
// on the sub-controller is keyed there, so every switch keeps its transform as later
// links come.
TEST_F(LinkControls, EachSwitchKeepsTheTransformAtItsTime) {
    const TimeValue times[3] = {kFirst, kSecond, kThird};
    Matrix3 before[3];
    AnimateOn();
    for (int i = 0; i < 3; ++i) {
        before[i] = World(times[i]);
        ASSERT_TRUE(i < 2 ? link_->AddTarget(targets_[i], times[i]) : link_->AddWorld(times[i]));
        EXPECT_TRUE(MatrixNear(World(times[i]), before[i], 1e-3f)) << "link " << i;
    }
    AnimateOff();
    for (int i = 0; i < 3; ++i) EXPECT_TRUE(MatrixNear(World(times[i]), before[i], 1e-3f));
    EXPECT_EQ(link_->ActiveLink(0), -1);
    EXPECT_EQ(link_->ActiveLink(kSecond - 1), 0);
    EXPECT_EQ(link_->ActiveLink(kSecond), 1);
}

// From a link's time on the node moves rigidly with the link's target (stands still for
// a world link), before the first link with its own parent; its transform holds within
// one link's span only.
TEST_F(LinkControls, NodeFollowsTheActiveLink) {
    link_->AddTarget(targets_[0], kFirst);
    link_->AddTarget(targets_[1], kSecond);
    const Matrix3 atThird = World(kThird);
    link_->AddWorld(kThird);  // unkeyed: keeps the transform without animate mode too
    EXPECT_TRUE(MatrixNear(World(kThird), atThird, 1e-3f));
    EXPECT_TRUE(Rigid(parent_, 0, kFirst));
    EXPECT_TRUE(Rigid(targets_[0], kFirst, kSecond));
    EXPECT_TRUE(Rigid(targets_[1], kSecond, kThird));
    EXPECT_TRUE(Rigid(nullptr, kThird, 40 * kFrame));
    EXPECT_FALSE(Rigid(targets_[0], kFirst, kSecond + kFrame));

    Interval valid = FOREVER;
    Matrix3 tm;
    link_->GetValue(kThird + kFrame, &tm, valid);
    EXPECT_EQ(valid, Interval(kThird, TIME_PosInfinity));
    valid = FOREVER;
    link_->GetValue(kFirst, &tm, valid);
    EXPECT_EQ(valid, Interval(kFirst, kFirst));  // the target moves on keys
}

// Writes land in the active link's space: the node goes where it is put.
TEST_F(LinkControls, WritesActInTheActiveLinksSpace) {
    link_->AddTarget(targets_[0], kFirst);
    MathRandom rnd(31);
    for (TimeValue t : {TimeValue(0), kFirst + 3 * kFrame}) {
        const Matrix3 wanted = RigidTM(rnd);
        node_->SetNodeTM(t, wanted);
        EXPECT_TRUE(MatrixNear(World(t), wanted, 1e-3f));
        const Point3 before = World(t).GetTrans();
        node_->Move(t, Matrix3(), {1, -2, 0.5f});
        EXPECT_TRUE(PointNear(World(t).GetTrans(), before + Point3(1, -2, 0.5f), 1e-3f));
    }
}

// Links to the node itself or below it are refused; a link at a taken time replaces the
// link there; moving a link keeps the list sorted.
TEST_F(LinkControls, LinksStaySortedAndLoopFree) {
    INode* child = ip->CreateObjectNode(nullptr);
    node_->AttachChild(child, false);
    EXPECT_FALSE(link_->AddTarget(node_, kFirst) || link_->AddTarget(child, kFirst) ||
                 link_->AddTarget(nullptr, kFirst));
    EXPECT_EQ(link_->GetNumTargets(), 0);

    link_->AddTarget(targets_[1], kSecond);
    link_->AddTarget(targets_[0], kFirst);
    link_->AddTarget(parent_, kFirst);
    ASSERT_EQ(link_->GetNumTargets(), 2);
    EXPECT_EQ(link_->GetNode(0), parent_);

    EXPECT_FALSE(link_->SetFrame(0, kSecond));
    ASSERT_TRUE(link_->SetFrame(0, kThird));
    EXPECT_EQ(link_->GetNode(0), targets_[1]);
    EXPECT_EQ(link_->GetNode(1), parent_);
    EXPECT_TRUE(link_->DeleteTarget(0));
    EXPECT_FALSE(link_->DeleteTarget(1));
}

// Each link edit is one undo step: undo gives back the links and the node's transforms at
// every frame, redo the later ones; a deleted target's links go with it, and come back.
TEST_F(LinkControls, UndoReturnsLinksAndTransforms) {
    struct State {
        std::vector<INode*> nodes;
        std::vector<TimeValue> times;
        std::vector<Matrix3> tms;
        bool operator==(const State&) const = default;
    };
    auto state = [&] {
        State s;
        for (int i = 0; i < link_->GetNumTargets(); ++i) {
            s.nodes.push_back(link_->GetNode(i));
            s.times.push_back(link_->GetFrame(i));
        }
        for (TimeValue t = 0; t <= 40 * kFrame; t += 5 * kFrame) s.tms.push_back(World(t));
        return s;
    };
    std::vector<State> states{state()};
    auto edit = [&](auto change) {
        Step(change);
        states.push_back(state());
    };
    AnimateOn();
    edit([&] { link_->AddTarget(targets_[0], kFirst); });
    edit([&] { link_->AddTarget(targets_[1], kSecond); });
    AnimateOff();
    edit([&] { link_->AddWorld(kThird); });
    edit([&] { link_->SetFrame(2, kFirst + kFrame); });
    edit([&] { link_->DeleteTarget(1); });
    edit([&] { ip->DeleteNode(targets_[1]); });
    EXPECT_EQ(link_->GetNumTargets(), 1);
    ExpectUndoRedoWalk(states, state);
}

}  // namespace
}  // namespace host::test

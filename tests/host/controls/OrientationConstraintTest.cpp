#include <vector>

#include "tests/host/controls/ControlsTestSupport.h"

namespace host::test {
namespace {

// The angle in radians between two rotations.
float RotationAngle(const Quat& a, const Quat& b) {
    return 2.0f * std::acos(std::min(1.0f, std::fabs(QuatDot(Normalize(a), Normalize(b)))));
}

// A node under a turned, moved and scaled parent, with the constraint as the rotation of
// its PRS, and two target nodes at random transforms.
class OrientationConstraints : public ControlsTest {
protected:
    void SetUp() override {
        ControlsTest::SetUp();
        MathRandom rnd(17);
        parent_ = NodeAt(ScaleMatrix({2, 2, 2}) * RigidTM(rnd));
        node_ = ip->CreateObjectNode(nullptr);
        parent_->AttachChild(node_, false);
        Point3 local(1, 2, 3);
        node_->GetTMController()->GetPositionController()->SetValue(0, &local);
        constraint_ = new OrientationConstraint;
        ASSERT_TRUE(node_->GetTMController()->SetRotationController(constraint_));
        // The scale of a target is not part of its rotation.
        targets_[0] = NodeAt(ScaleMatrix({1, 3, 0.5f}) * RigidTM(rnd));
        targets_[1] = NodeAt(RigidTM(rnd));
    }
    INode* NodeAt(const Matrix3& tm) {
        INode* node = ip->CreateObjectNode(nullptr);
        node->SetNodeTM(0, tm);
        return node;
    }
    Quat TargetRotation(int i, TimeValue t = 0) { return OrthoQuat(targets_[i]->GetNodeTM(t)); }
    Quat NodeRotation(TimeValue t = 0) { return OrthoQuat(node_->GetNodeTM(t)); }
    Quat Midpoint(TimeValue t = 0) {
        Quat a = TargetRotation(0, t), b = TargetRotation(1, t);
        b.MakeClosest(a);
        return Slerp(a, b, 0.5f);
    }

    INode* parent_ = nullptr;
    INode* node_ = nullptr;
    INode* targets_[2] = {nullptr, nullptr};
    OrientationConstraint* constraint_ = nullptr;
};

// Equal weights turn the node's world rotation to the Slerp midpoint of the targets',
// whatever its parent, and its position stays where its parent puts it.
TEST_F(OrientationConstraints, EqualWeightsGiveTheSlerpMidpoint) {
    ASSERT_TRUE(constraint_->AppendTarget(targets_[0]));
    ASSERT_TRUE(constraint_->AppendTarget(targets_[1]));
    EXPECT_TRUE(SameRotation(NodeRotation(), Midpoint(), 1e-4f));
    Quat absolute;
    Interval valid = FOREVER;
    constraint_->GetValue(0, &absolute, valid);
    EXPECT_TRUE(SameRotation(absolute, Midpoint(), 1e-4f));
    EXPECT_TRUE(
        PointNear(node_->GetNodeTM(0).GetTrans(), Point3(1, 2, 3) * parent_->GetNodeTM(0), 1e-3f));
    // The parent's uniform scale stays in the node's transform.
    EXPECT_TRUE(PointNear(RowLengths(node_->GetNodeTM(0)), {2, 2, 2}, 1e-4f));
}

// Only the ratio of the weights counts; the result lies on the arc between the targets,
// nearer the heavier one; a target of weight 0 has no say.
TEST_F(OrientationConstraints, WeightsShareTheRotation) {
    constraint_->AppendTarget(targets_[0], 25.0f);
    constraint_->AppendTarget(targets_[1], 75.0f);
    const Quat shared = NodeRotation();
    const Quat a = TargetRotation(0), b = TargetRotation(1);
    EXPECT_NEAR(RotationAngle(a, shared) + RotationAngle(shared, b), RotationAngle(a, b), 1e-3f);
    EXPECT_LT(RotationAngle(shared, b), RotationAngle(shared, a));
    constraint_->SetTargetWeight(0, 1.0f);
    constraint_->SetTargetWeight(1, 3.0f);
    EXPECT_TRUE(SameRotation(NodeRotation(), shared, 1e-5f));
    constraint_->SetTargetWeight(0, 0.0f);
    EXPECT_TRUE(SameRotation(NodeRotation(), b, 1e-5f));
    // No weight at all: the node keeps its parent's rotation.
    constraint_->SetTargetWeight(1, 0.0f);
    EXPECT_TRUE(SameRotation(NodeRotation(), OrthoQuat(parent_->GetNodeTM(0)), 1e-5f));
}

// Null, repeated and looping targets are refused: the node itself, and a node below it.
TEST_F(OrientationConstraints, RefusesTargetsThatWouldLoop) {
    INode* child = ip->CreateObjectNode(nullptr);
    node_->AttachChild(child, false);
    EXPECT_FALSE(constraint_->AppendTarget(nullptr) || constraint_->AppendTarget(node_) ||
                 constraint_->AppendTarget(child));
    EXPECT_TRUE(constraint_->AppendTarget(parent_));
    EXPECT_FALSE(constraint_->AppendTarget(parent_));
    EXPECT_EQ(constraint_->GetNumTargets(), 1);
    EXPECT_FALSE(constraint_->DeleteTarget(3) || constraint_->SetTargetWeight(-1, 2.0f));
}

// The value holds as long as the targets' transforms do, and follows them through time.
TEST_F(OrientationConstraints, ValidityFollowsTheTargets) {
    constraint_->AppendTarget(targets_[0]);
    constraint_->AppendTarget(targets_[1]);
    Quat q;
    Interval valid = FOREVER;
    constraint_->GetValue(30 * kFrame, &q, valid);
    EXPECT_EQ(valid, FOREVER);

    MathRandom rnd(4);
    AnimateOn();
    targets_[1]->SetNodeTM(0, RigidTM(rnd));
    targets_[1]->SetNodeTM(60 * kFrame, RigidTM(rnd));
    AnimateOff();
    valid = FOREVER;
    constraint_->GetValue(30 * kFrame, &q, valid);
    EXPECT_EQ(valid, Interval(30 * kFrame, 30 * kFrame));
    EXPECT_TRUE(SameRotation(NodeRotation(30 * kFrame), Midpoint(30 * kFrame), 1e-4f));
}

// Each edit is one undo step that gives the earlier targets, weights and rotation back;
// a deleted target node leaves the list, and undo brings the node and the entry back.
TEST_F(OrientationConstraints, UndoReturnsTargetsAndWeights) {
    struct State {
        std::vector<INode*> nodes;
        std::vector<float> weights;
        Matrix3 tm;
        bool operator==(const State&) const = default;
    };
    auto state = [&] {
        State s{{}, {}, node_->GetNodeTM(0)};
        for (int i = 0; i < constraint_->GetNumTargets(); ++i) {
            s.nodes.push_back(constraint_->GetNode(i));
            s.weights.push_back(constraint_->GetTargetWeight(i));
        }
        return s;
    };
    std::vector<State> states{state()};
    auto edit = [&](auto change) {
        Step(change);
        states.push_back(state());
    };
    edit([&] { constraint_->AppendTarget(targets_[0]); });
    edit([&] { constraint_->AppendTarget(targets_[1], 10.0f); });
    edit([&] { constraint_->SetTargetWeight(0, 90.0f); });
    edit([&] { constraint_->AppendTarget(parent_, 30.0f); });
    edit([&] { constraint_->DeleteTarget(2); });
    const Quat target1 = TargetRotation(1);
    edit([&] { ip->DeleteNode(targets_[0]); });
    ASSERT_EQ(constraint_->GetNumTargets(), 1);
    EXPECT_EQ(constraint_->GetTargetWeight(0), 10.0f);
    EXPECT_TRUE(SameRotation(NodeRotation(), target1, 1e-5f));
    ExpectUndoRedoWalk(states, state);
}

}  // namespace
}  // namespace host::test

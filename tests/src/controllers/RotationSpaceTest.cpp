#include <gtest/gtest.h>

#include "host/classes/PointHelper.h"
#include "host/math/MatrixHelpers.h"
#include "tests/src/controllers/ControllersTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

// A node driven by a rotation space under a turned and moved parent, with its own turn
// and position, and a target node turned another way.
class RotationSpaceTest : public ControllerTest {
protected:
    void SetUp() override {
        ControllerTest::SetUp();
        parent = ip->CreateObjectNode(new PointHelper(), L"Parent");
        parent->SetNodeTM(0, RotateZMatrix(0.6f) * TransMatrix(Point3(5, 0, 0)));
        node = ip->CreateObjectNode(new PointHelper(), L"Node");
        parent->AttachChild(node, false);
        space = new RotationSpace();
        ASSERT_TRUE(node->SetTMController(space));
        node->SetNodeTM(0,
                        RotateXMatrix(0.4f) * TransMatrix(Point3(1, 2, 3)) * parent->GetNodeTM(0));
        target = ip->CreateObjectNode(new PointHelper(), L"Target");
        target->SetNodeTM(
            0, RotateYMatrix(1.0f) * RotateXMatrix(-0.3f) * TransMatrix(Point3(0, 7, 0)));
    }
    IParamBlock2* Block() { return space->GetParamBlock(0); }

    INode* parent = nullptr;
    INode* node = nullptr;
    INode* target = nullptr;
    RotationSpace* space = nullptr;
};

TEST_F(RotationSpaceTest, WeightTurnsFromOwnOrientationToTheTargets) {
    const Matrix3 own = node->GetNodeTM(0);
    ASSERT_TRUE(Block()->SetValue(RS_TARGET, 0, target));
    const Matrix3 tm = RotateZMatrix(-0.8f) * TransMatrix(Point3(4, 5, 6));
    Interval valid = FOREVER;

    ASSERT_TRUE(Block()->SetValue(RS_WEIGHT, 0, 0.0f));
    Matrix3 unturned = tm;
    space->Space(0, unturned, valid);
    EXPECT_TRUE(unturned.Equals(tm, 1e-5f));
    EXPECT_TRUE(node->GetNodeTM(0).Equals(own, 1e-5f));

    ASSERT_TRUE(Block()->SetValue(RS_WEIGHT, 0, 1.0f));
    Matrix3 turned = tm;
    space->Space(0, turned, valid);
    EXPECT_TRUE(RotationOf(turned).Equals(RotationOf(target->GetNodeTM(0)), 1e-5f));
    EXPECT_TRUE(turned.GetTrans().Equals(tm.GetTrans(), 1e-5f));
    // The node's own turn acts inside the target's space; its position stays put.
    const Matrix3 world = node->GetNodeTM(0);
    EXPECT_TRUE(
        RotationOf(world).Equals(RotateXMatrix(0.4f) * RotationOf(target->GetNodeTM(0)), 1e-5f));
    EXPECT_TRUE(world.GetTrans().Equals(own.GetTrans(), 1e-4f));
}

// Picking a target with the initial offset kept leaves the node where it is; from then
// on it turns with the target. A target that follows the node itself is refused.
TEST_F(RotationSpaceTest, KeptInitialOffsetHoldsTheNodeWhenATargetIsPicked) {
    ASSERT_TRUE(Block()->SetValue(RS_KEEP_INITIAL_OFFSET, 0, 1));
    const Matrix3 before = node->GetNodeTM(0);
    ASSERT_TRUE(Block()->SetValue(RS_TARGET, 0, target));
    EXPECT_EQ(Block()->GetReferenceTarget(RS_TARGET), target);
    EXPECT_TRUE(node->GetNodeTM(0).Equals(before, 1e-4f));
    target->SetNodeTM(0, RotateZMatrix(0.5f) * target->GetNodeTM(0));
    EXPECT_FALSE(RotationOf(node->GetNodeTM(0)).Equals(RotationOf(before), 1e-3f));

    Block()->SetValue(RS_TARGET, 0, node);
    EXPECT_EQ(Block()->GetReferenceTarget(RS_TARGET), target);
}

// Edits through the space: a move shifts the node by the world offset, a turn about a
// pivot elsewhere carries its position round the pivot.
TEST_F(RotationSpaceTest, EditsMoveTheNodeAsTheToolsMean) {
    ASSERT_TRUE(Block()->SetValue(RS_TARGET, 0, target));
    const Matrix3 before = node->GetNodeTM(0);
    const Point3 delta(1, -2, 0.5f);
    node->Move(0, Matrix3(), delta);
    const Matrix3 moved = node->GetNodeTM(0);
    EXPECT_TRUE(moved.GetTrans().Equals(before.GetTrans() + delta, 1e-4f));
    EXPECT_TRUE(RotationOf(moved).Equals(RotationOf(before), 1e-5f));

    const AngAxis turn(Point3::ZAxis, 0.7f);
    node->Rotate(0, Matrix3(), turn);
    const Point3 expected = VectorTransform(QuatMatrix(Quat(turn)), moved.GetTrans());
    EXPECT_TRUE(node->GetNodeTM(0).GetTrans().Equals(expected, 1e-4f));
}

}  // namespace
}  // namespace zorvanta::test

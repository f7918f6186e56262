#include <functional>

#include "host/object/Animate.h"
#include "tests/host/math/MathTestSupport.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {
namespace {

using NodeTransforms = SceneTest;

struct KeyedScene {
    std::vector<INode*> nodes;
    std::vector<int> parents;  // index into nodes, -1 for the root
    std::vector<NodeKeys> keys;
    std::vector<CountingPRS*> controls;

    Matrix3 World(size_t i, TimeValue t) const {
        const Matrix3 local = keys[i].Local(t);
        return parents[i] < 0 ? local : local * World(size_t(parents[i]), t);
    }
    int Evaluations() const {
        int n = 0;
        for (const CountingPRS* c : controls) n += c->evaluations;
        return n;
    }
    void ResetCounts() {
        for (CountingPRS* c : controls) c->evaluations = 0;
    }
};

const std::vector<TimeValue> kKeyTimes = {0, 960, 2400, 4800};

KeyedScene BuildScene(Interface* ip, size_t count, std::mt19937& rng) {
    KeyedScene scene;
    for (size_t i = 0; i < count; ++i) {
        INode* node = ip->CreateObjectNode(nullptr);
        auto* control = new CountingPRS;
        EXPECT_TRUE(node->SetTMController(control));
        const int parent = i == 0 ? -1 : int(std::uniform_int_distribution<size_t>(0, i)(rng)) - 1;
        if (parent >= 0) scene.nodes[size_t(parent)]->AttachChild(node, false);
        scene.nodes.push_back(node);
        scene.parents.push_back(parent);
        scene.keys.push_back(KeyNode(node, kKeyTimes, rng));
        scene.controls.push_back(control);
    }
    return scene;
}

// Random hierarchies: every world transform is the product of the local transforms
// made from the keys; a second query is answered from the cache.
TEST_F(NodeTransforms, WorldTransformsAreProductsOfKeyedLocals) {
    std::mt19937 rng(5);
    for (size_t count : {1, 2, 7, 40, 200}) {
        KeyedScene scene = BuildScene(ip, count, rng);
        for (TimeValue t : {0, 480, 960, 1700, 4800, 6000}) {
            scene.ResetCounts();
            for (size_t i = 0; i < count; ++i) {
                Interval valid = FOREVER;
                const Matrix3 tm = scene.nodes[i]->GetNodeTM(t, &valid);
                ASSERT_TRUE(MatrixNear(tm, scene.World(i, t), 2e-3f)) << count << " " << i;
                EXPECT_TRUE(valid.InInterval(t));
            }
            EXPECT_EQ(scene.Evaluations(), int(count)) << "each node once";
            for (INode* node : scene.nodes) node->GetNodeTM(t);
            EXPECT_EQ(scene.Evaluations(), int(count)) << "repeats come from the cache";
        }
        ip->Reset();
    }
}

bool InSubtree(const KeyedScene& scene, size_t i, size_t top) {
    for (int n = int(i); n >= 0; n = scene.parents[size_t(n)])
        if (size_t(n) == top) return true;
    return false;
}

// Changing one key re-evaluates the node whose key it is and its descendants, and
// nothing else.
TEST_F(NodeTransforms, AKeyChangeInvalidatesExactlyTheSubtree) {
    std::mt19937 rng(9);
    KeyedScene scene = BuildScene(ip, 60, rng);
    const TimeValue t = 960;
    for (size_t top : {size_t(0), size_t(3), size_t(17), size_t(59)}) {
        for (INode* node : scene.nodes) node->GetNodeTM(t);
        scene.ResetCounts();
        Control* x = scene.nodes[top]->GetTMController()->GetPositionController()->GetXController();
        float v = 3.5f;
        AnimateOn();
        x->SetValue(t, &v);
        AnimateOff();
        scene.keys[top].values[0][1] = v;
        for (size_t i = 0; i < scene.nodes.size(); ++i) {
            const int before = scene.controls[i]->evaluations;
            const Matrix3 tm = scene.nodes[i]->GetNodeTM(t);
            EXPECT_EQ(scene.controls[i]->evaluations - before, InSubtree(scene, i, top) ? 1 : 0)
                << "node " << i << " under " << top;
            ASSERT_TRUE(MatrixNear(tm, scene.World(i, t), 2e-3f));
        }
    }
}

// A controller that reads its own node's transform while being evaluated gets the
// node's last transform instead of recursing.
class SelfReadingControl : public PRS {
public:
    void GetValue(TimeValue t, void* val, Interval& valid, GetSetMethod method) override {
        if (node) seen = node->GetNodeTM(t + 1);
        PRS::GetValue(t, val, valid, method);
    }
    INode* node = nullptr;
    Matrix3 seen;
};

TEST_F(NodeTransforms, AReentrantQueryDoesNotRecurse) {
    INode* node = ip->CreateObjectNode(nullptr);
    auto* control = new SelfReadingControl;
    node->SetTMController(control);
    node->SetNodeTM(0, TransMatrix(Point3(1, 2, 3)));
    node->GetNodeTM(0);
    control->node = node;
    node->InvalidateTreeTM();
    Interval valid = FOREVER;
    EXPECT_TRUE(MatrixNear(node->GetNodeTM(0, &valid), TransMatrix(Point3(1, 2, 3)), 1e-6f));
    EXPECT_TRUE(MatrixNear(control->seen, TransMatrix(Point3(1, 2, 3)), 1e-6f));
}
// The transform tools go through the controller: set, attach with or without keeping
// the transform, move in the reference system's axes (locked axes stay), rotate about
// the world origin, scale about the node, and the object offset, which children don't
// inherit.
TEST_F(NodeTransforms, ToolsAttachAndObjectOffset) {
    INode* parent = ip->CreateObjectNode(nullptr);
    INode* child = ip->CreateObjectNode(nullptr);
    parent->SetNodeTM(
        0, ScaleMatrix(Point3(2, 2, 2)) * RotateZMatrix(0.5f) * TransMatrix(Point3(10, 0, 0)));
    const Matrix3 placed = RotateXMatrix(0.3f) * TransMatrix(Point3(1, 2, 3));
    child->SetNodeTM(0, placed);
    ASSERT_TRUE(parent->AttachChild(child, true));
    EXPECT_TRUE(MatrixNear(child->GetNodeTM(0), placed, 1e-5f));
    EXPECT_FALSE(child->AttachChild(parent, false)) << "a loop is refused";

    ip->SetRefCoordSys(COORDS_PARENT);
    const Matrix3 axes = ip->GetTransformAxis(child, 0);
    EXPECT_NEAR(Length(axes.GetRow(0)), 1.0f, 1e-5f) << "no scale in the axes";
    child->SetTransformLock(INODE_LOCKPOS, 2, true);
    child->Move(0, axes, VectorTransform(axes, Point3(3, 0, 1)));
    const Point3 moved =
        VectorTransform(Inverse(axes), child->GetNodeTM(0).GetTrans() - placed.GetTrans());
    EXPECT_NEAR(moved.x, 3.0f, 1e-4f);
    EXPECT_NEAR(moved.z, 0.0f, 1e-4f) << "the locked axis stays";
    ip->SetRefCoordSys(COORDS_VIEW);

    INode* free = ip->CreateObjectNode(nullptr);
    free->SetNodeTM(0, TransMatrix(Point3(2, 0, 0)));
    free->Rotate(0, Matrix3(), AngAxis(Point3::ZAxis, 0.4f));
    const Matrix3 turn = QuatMatrix(Quat(AngAxis(Point3::ZAxis, 0.4f)));
    EXPECT_TRUE(MatrixNear(free->GetNodeTM(0), TransMatrix(Point3(2, 0, 0)) * turn, 1e-5f));
    free->Scale(0, free->GetNodeTM(0), Point3(2, 1, 1), true);
    EXPECT_NEAR(Length(free->GetNodeTM(0).GetRow(0)), 2.0f, 1e-5f);
    const Matrix3 alone = free->GetNodeTM(0);
    parent->AttachChild(free, false);  // keeps its local transform: it moves
    EXPECT_TRUE(MatrixNear(free->GetNodeTM(0), alone * parent->GetNodeTM(0), 1e-4f));
    const Matrix3 world = free->GetNodeTM(0);
    free->Detach(0, true);
    EXPECT_TRUE(MatrixNear(free->GetNodeTM(0), world, 1e-5f));

    const Matrix3 childWorld = child->GetNodeTM(0);
    parent->SetObjOffsetPos(Point3(1, 0, 0));
    parent->SetObjOffsetRot(Quat(AngAxis(Point3::ZAxis, 0.5f)));
    const Matrix3 offset =
        QuatMatrix(Quat(AngAxis(Point3::ZAxis, 0.5f))) * TransMatrix(Point3(1, 0, 0));
    EXPECT_TRUE(MatrixNear(parent->GetObjectTM(0), offset * parent->GetNodeTM(0), 1e-5f));
    EXPECT_TRUE(MatrixNear(child->GetNodeTM(0), childWorld, 0.0f));
}

}  // namespace
}  // namespace host::test

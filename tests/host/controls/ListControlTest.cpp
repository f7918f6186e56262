#include <vector>

#include "host/object/FPInterface.h"
#include "tests/host/controls/ControlsTestSupport.h"

namespace host::test {
namespace {

// The rotation of Euler XYZ angles (radians) as EulerXYZ defines it: about X, then Y,
// then Z, in row-vector matrices.
Matrix3 EulerMatrix(const Point3& angles) {
    return RotateXMatrix(angles.x) * RotateYMatrix(angles.y) * RotateZMatrix(angles.z);
}

// The default rotation controller holding angles (radians) at every time.
Control* NewEuler(const Point3& angles) {
    Control* euler = NewDefaultRotationController();
    Control* tracks[3] = {euler->GetXController(), euler->GetYController(),
                          euler->GetZController()};
    for (int axis = 0; axis < 3; ++axis) {
        float a = angles[axis];
        tracks[axis]->SetValue(0, &a);
    }
    return euler;
}

// A rotation list on a node's PRS, so that relative reads come from the node.
class RotationLists : public ControlsTest {
protected:
    void SetUp() override {
        ControlsTest::SetUp();
        node_ = ip->CreateObjectNode(nullptr);
        list_ = new RotationList;
        ASSERT_TRUE(node_->GetTMController()->SetRotationController(list_));
    }
    static Quat Read(Control* c) {
        Quat q;
        Interval valid = FOREVER;
        c->GetValue(0, &q, valid);
        return q;
    }
    // The node's world rotation, read through the list's relative read.
    Matrix3 WorldRotation() { return RotationOf(node_->GetNodeTM(0)); }

    INode* node_ = nullptr;
    RotationList* list_ = nullptr;
};

// Entry 1 turns in the frame entry 0 made: in row-vector matrices the list is M1 * M0,
// read relatively through the node and absolutely as a quaternion alike.
TEST_F(RotationLists, EntriesComposeInListOrder) {
    MathRandom rnd(3);
    for (int i = 0; i < 20; ++i) {
        const Point3 a0 = rnd.Vector(-2, 2), a1 = rnd.Vector(-2, 2);
        while (list_->GetCount() > 0) list_->Delete(0);
        ASSERT_EQ(list_->Append(NewEuler(a0)), 0);
        ASSERT_EQ(list_->Append(NewEuler(a1)), 1);
        const Matrix3 expected = EulerMatrix(a1) * EulerMatrix(a0);
        ASSERT_TRUE(MatrixNear(WorldRotation(), expected, 1e-4f));
        ASSERT_TRUE(MatrixNear(QuatMatrix(Read(list_)), expected, 1e-4f));
    }
}

// Weights: a rotation goes that part of the way from the identity, positions scale,
// scale factors are raised to the weight. Writes through a weighted active entry still
// give the list the written value.
TEST_F(RotationLists, WeightsScaleEachEntrysShare) {
    list_->Append(NewEuler({0, 0, 1.2f}));
    list_->Append(NewEuler({0.7f, 0, 0}));
    list_->SetWeight(0, 0.25f);
    const Matrix3 expected = RotateXMatrix(0.7f) * RotateZMatrix(0.3f);
    EXPECT_TRUE(MatrixNear(WorldRotation(), expected, 1e-4f));
    EXPECT_TRUE(MatrixNear(QuatMatrix(Read(list_)), expected, 1e-4f));

    Interval valid = FOREVER;
    auto* positions = new PositionList;
    Point3 p[2] = {{1, 2, 3}, {-4, 0, 2}}, total;
    for (Point3& v : p)
        positions->GetSubCtrl(positions->Append(NewDefaultPositionController()))->SetValue(0, &v);
    positions->SetWeight(1, -1.0f);
    positions->GetValue(0, &total, valid);
    EXPECT_TRUE(PointNear(total, {5, 2, 1}, 1e-5f));
    positions->SetActive(1);
    Point3 wantedPosition(0, 1, 0);
    positions->SetValue(0, &wantedPosition);
    positions->GetValue(0, &total, valid);
    EXPECT_TRUE(PointNear(total, wantedPosition, 1e-5f));
    positions->DeleteMe();

    auto* scales = new ScaleList;
    ScaleValue s(Point3(4, 9, 16)), product;
    scales->GetSubCtrl(scales->Append(NewDefaultScaleController()))->SetValue(0, &s);
    scales->SetWeight(0, 0.5f);
    scales->GetValue(0, &product, valid);
    EXPECT_TRUE(PointNear(product.s, {2, 3, 4}, 1e-4f));
    ScaleValue mirrored(Point3(-4, 9, 16));
    scales->GetSubCtrl(0)->SetValue(0, &mirrored);
    scales->GetValue(0, &product, valid);
    EXPECT_TRUE(MatrixNear(ScaleValueMatrix(product), ScaleMatrix({-2, 3, 4}), 1e-4f))
        << "a weighted mirror stays one";
    scales->GetSubCtrl(0)->SetValue(0, &s);
    ScaleValue wantedScale(Point3(0.5f, 1, 3));
    scales->SetValue(0, &wantedScale);
    scales->GetValue(0, &product, valid);
    EXPECT_TRUE(PointNear(product.s, wantedScale.s, 1e-4f));
    scales->DeleteMe();
}

// Writes reach the active entry only, so that the whole list takes the written value
// (absolute) or turns by the increment after its present value, in parent space
// (relative), whether the active entry is weighted or not.
TEST_F(RotationLists, WritesGoToTheActiveEntry) {
    MathRandom rnd(8);
    for (int i = 0; i < 3; ++i) list_->Append(NewEuler(rnd.Vector(-1, 1)));
    list_->SetActive(1);
    const Quat base = Read(list_);
    for (float weight : {1.0f, 0.6f}) {
        list_->SetWeight(1, weight);
        for (int k = 0; k < 10; ++k) {
            const Quat others[2] = {Read(list_->GetSubCtrl(0)), Read(list_->GetSubCtrl(2))};
            // Near the start, so that a weighted entry's own turn stays below a half turn.
            Quat wanted = base * Quat(AngAxis(Normalize(rnd.Vector(-1, 1)), 0.4f));
            list_->SetValue(0, &wanted);
            ASSERT_TRUE(SameRotation(Read(list_), wanted, 1e-4f));
            EXPECT_TRUE(SameRotation(Read(list_->GetSubCtrl(0)), others[0], 1e-6f));
            EXPECT_TRUE(SameRotation(Read(list_->GetSubCtrl(2)), others[1], 1e-6f));

            const Matrix3 before = WorldRotation();
            AngAxis turn(Normalize(rnd.Vector(-1, 1)), weight == 1.0f ? 2.5f : 0.4f);
            list_->SetValue(0, &turn, 1, CTRL_RELATIVE);
            ASSERT_TRUE(MatrixNear(WorldRotation(), before * QuatMatrix(Quat(turn)), 1e-4f));
        }
    }
}

TEST_F(RotationLists, WritingToAnEmptyListMakesTheFirstEntry) {
    const Quat wanted(AngAxis(Normalize(Point3(1, 2, 3)), 1.0f));
    Quat copy = wanted;
    list_->SetValue(0, &copy);
    ASSERT_EQ(list_->GetCount(), 1);
    EXPECT_TRUE(SameRotation(Read(list_), wanted, 1e-5f));
}

// Assigning to the "Available" slot appends, assigning to an entry replaces its
// controller only. Controllers of another type, and controllers that depend on the list,
// are refused.
TEST_F(RotationLists, AvailableSlotAppendsAndEntriesReplace) {
    ASSERT_TRUE(list_->AssignController(NewEuler({0, 0, 0.5f}), 0));
    list_->SetName(0, L"Twist");
    list_->SetWeight(0, 0.5f);
    ASSERT_TRUE(list_->AssignController(NewEuler({0, 0, 1.0f}), 0));
    EXPECT_EQ(list_->GetCount(), 1);
    EXPECT_EQ(list_->GetName(0), WStr(L"Twist"));
    EXPECT_FLOAT_EQ(list_->GetWeight(0), 0.5f);
    EXPECT_TRUE(MatrixNear(WorldRotation(), RotateZMatrix(0.5f), 1e-5f));

    Control* wrongType = NewDefaultFloatController();
    EXPECT_FALSE(list_->AssignController(wrongType, 1));
    EXPECT_EQ(list_->Append(wrongType), -1);
    wrongType->DeleteThis();
    auto* outer = new RotationList;
    outer->Append(list_);
    EXPECT_EQ(list_->Append(outer), -1);  // outer holds the list already
    EXPECT_EQ(list_->Append(list_), -1);
    outer->DeleteMe();
}

// Deleting an entry keeps the active index on the same entry, or on the one that takes
// a deleted active entry's place.
TEST_F(RotationLists, ActiveIndexFollowsDeletions) {
    const struct {
        int count, active, deleted, expected;
    } cases[] = {{3, 1, 0, 0}, {3, 1, 1, 1}, {3, 2, 2, 1}, {3, 1, 2, 1}, {1, 0, 0, -1}};
    for (const auto& c : cases) {
        while (list_->GetCount() > 0) list_->Delete(0);
        for (int i = 0; i < c.count; ++i) list_->Append(NewEuler({}));
        list_->SetActive(c.active);
        ASSERT_TRUE(list_->Delete(c.deleted));
        EXPECT_EQ(list_->GetActive(), c.expected)
            << c.count << " entries, active " << c.active << ", deleted " << c.deleted;
    }
    EXPECT_FALSE(list_->Delete(5));
}

// The published interface does what the C++ methods do, with its own bound checks.
TEST_F(RotationLists, ListInterfaceDrivesTheList) {
    FPInterface* fpi = list_->GetInterface(LIST_CONTROLLER_INTERFACE);
    ASSERT_NE(fpi, nullptr);
    FPValue result;
    WStr error;
    auto call = [&](const wchar_t* name, std::vector<FPValue> args) {
        return Invoke(fpi, {name, std::move(args), {}}, 0, result, error);
    };
    auto index = [](int i) { return FPValue(TYPE_INDEX, i); };
    auto append = [&](Animatable* c, const wchar_t* name) {
        return call(L"append", {FPValue(TYPE_CONTROL, c), FPValue(TYPE_STRING, WStr(name))});
    };

    Animatable* euler = NewEuler({0.3f, 0, 0});
    ASSERT_EQ(append(euler, L"Base"), FPS_OK);
    EXPECT_EQ(*result.Get<int>(), 1);
    ASSERT_EQ(call(L"Append", {FPValue(TYPE_CONTROL, static_cast<Animatable*>(NewEuler({}))),
                               FPValue(TYPE_STRING, WStr(L"Anim"))}),
              FPS_OK);
    ASSERT_EQ(call(L"count", {}), FPS_OK);
    EXPECT_EQ(*result.Get<int>(), 2);

    ASSERT_EQ(call(L"setActive", {index(1)}), FPS_OK);
    EXPECT_EQ(list_->GetActive(), 1);
    ASSERT_EQ(GetProperty(fpi, L"active", 0, result, error), FPS_OK);
    EXPECT_EQ(*result.Get<int>(), 1);
    ASSERT_EQ(SetProperty(fpi, L"active", 0, index(0), error), FPS_OK);
    EXPECT_EQ(list_->GetActive(), 0);
    ASSERT_EQ(call(L"setWeight", {index(0), FPValue(TYPE_INT, 0)}), FPS_OK);
    EXPECT_EQ(list_->GetWeight(0), 0.0f);
    ASSERT_EQ(call(L"getSubCtrl", {index(0)}), FPS_OK);
    EXPECT_EQ(*result.Get<Animatable*>(), euler);

    EXPECT_EQ(call(L"getName", {index(2)}), FPS_FAIL);
    EXPECT_EQ(append(nullptr, L""), FPS_OK);
    EXPECT_EQ(*result.Get<int>(), 0);
    ASSERT_EQ(call(L"delete", {index(0)}), FPS_OK);
    EXPECT_EQ(list_->GetName(0), WStr(L"Anim"));
}

// A random run of edits, one undo step each: undoing them all gives back every earlier
// state exactly, and redoing them gives back every later one.
TEST_F(RotationLists, UndoAndRedoReturnEveryState) {
    struct ListState {
        std::vector<Control*> entries;
        std::vector<WStr> names;
        std::vector<float> weights;
        int active;
        Matrix3 rotation;
        bool operator==(const ListState&) const = default;
    };
    auto state = [&] {
        ListState s{{}, {}, {}, list_->GetActive(), WorldRotation()};
        for (int i = 0; i < list_->GetCount(); ++i) {
            s.entries.push_back(list_->GetSubCtrl(i));
            s.names.push_back(list_->GetName(i));
            s.weights.push_back(list_->GetWeight(i));
        }
        return s;
    };
    MathRandom rnd(21);
    std::vector<ListState> states{state()};
    for (int step = 0; step < 60; ++step) {
        const int count = list_->GetCount();
        const int pick = count > 0 ? int(rnd.Uniform(0, float(count) - 0.01f)) : 0;
        const int op = count == 0 ? 0 : int(rnd.Uniform(0, 6.99f));
        const int entries = theHold.NumUndoEntries();
        Step([&] {
            if (op == 0) list_->Append(NewEuler(rnd.Vector(-1, 1)), step % 2 ? L"Named" : L"");
            if (op == 1) list_->Delete(pick);
            if (op == 2) list_->SetName(pick, L"Renamed");
            if (op == 3) list_->SetWeight(pick, rnd.Uniform(0, 1));
            if (op == 4) list_->SetActive(pick);
            if (op == 5) list_->AssignController(NewEuler(rnd.Vector(-1, 1)), pick);
            AngAxis turn(Normalize(rnd.Vector(-1, 1)), 0.3f);
            if (op == 6) list_->SetValue(0, &turn, 1, CTRL_RELATIVE);
        });
        // An edit that changed nothing leaves no undo entry.
        if (theHold.NumUndoEntries() > entries) states.push_back(state());
    }
    ASSERT_EQ(theHold.NumUndoEntries(), int(states.size()) - 1);
    ExpectUndoRedoWalk(states, state);
}

}  // namespace
}  // namespace host::test

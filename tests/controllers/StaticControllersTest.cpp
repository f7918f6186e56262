#include <gtest/gtest.h>

#include "host/classes/PointHelper.h"
#include "host/io/ChunkReader.h"
#include "host/io/ChunkWriter.h"
#include "host/io/CloneRemapDir.h"
#include "host/io/SceneFile.h"
#include "host/math/MatrixHelpers.h"
#include "tests/controllers/ControllersTestSupport.h"
#include "tests/host/io/SaveLoadTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

class StaticControllers : public ControllerTest {};

// A value of each type, different from the controller's start.
float Sample(float) {
    return 2.5f;
}
Point3 Sample(Point3) {
    return Point3(1, -2, 3);
}
Quat Sample(Quat) {
    return Normalize(Quat(0.3f, -0.2f, 0.1f, 0.9f));
}
ScaleValue Sample(ScaleValue) {
    return ScaleValue(Point3(2, 0.5f, 3), Normalize(Quat(0.1f, 0.2f, 0.3f, 0.9f)));
}
Matrix3 Sample(Matrix3) {
    Matrix3 m = RotateXMatrix(0.4f) * TransMatrix(Point3(4, 5, 6));
    m.Scale(Point3(2, 2, 1), false);
    return m;
}

template <class T, class Value>
Value Read(T* c, TimeValue t = 0) {
    Value v{};
    Interval valid = FOREVER;
    c->GetValue(t, &v, valid, CTRL_ABSOLUTE);
    return v;
}

// An absolute write; a transform takes its value as the packet of a set.
template <class T, class Value>
void Write(T* c, Value v) {
    c->SetValue(0, &v);
}
void Write(StaticTransform* c, const Matrix3& v) {
    SetXFormPacket set;
    set.tmAxis = v;
    c->SetValue(0, &set);
}

// The chunks a controller saves: id and length of each, in order.
std::vector<std::pair<uint16_t, uint64_t>> Chunks(ReferenceMaker* c) {
    ChunkWriter writer;
    EXPECT_EQ(c->Save(&writer), IO_OK);
    ChunkReader reader(writer.Bytes());
    std::vector<std::pair<uint16_t, uint64_t>> chunks;
    while (reader.OpenChunk() == IO_OK) {
        chunks.emplace_back(reader.CurChunkID(), reader.CurChunkLength());
        reader.CloseChunk();
    }
    return chunks;
}

// The shared behaviour, run for each of the five classes: a value that holds at every
// time without narrowing validity, one restore object per hold, locks, copy, the save
// chunks and their sizes, load and clone.
template <class T, class Value>
void CheckStaticControl(size_t valueBytes) {
    SCOPED_TRACE(testing::Message() << "value of " << valueBytes << " bytes");
    auto* c = new T();
    auto* holder = new T();
    const Value start = Read<T, Value>(c);
    Value v = Sample(Value{});
    Write(c, v);
    for (TimeValue t : {-100000, 0, 4800, 999999}) {
        Interval valid(10, 20);
        Value read{};
        c->GetValue(t, &read, valid, CTRL_ABSOLUTE);
        EXPECT_TRUE(read == v);
        EXPECT_EQ(valid, Interval(10, 20));
    }

    // Two writes in one hold: one restore object, undo to before the first.
    Value before = v, second = start;
    theHold.Begin();
    Write(c, second);
    Write(c, v);
    Write(c, second);
    theHold.Accept(L"Edit");
    EXPECT_FALSE(c->TestAFlag(A_HELD));
    ASSERT_TRUE(theHold.Undo());
    EXPECT_TRUE((Read<T, Value>(c) == before));
    ASSERT_TRUE(theHold.Redo());
    EXPECT_TRUE((Read<T, Value>(c) == second));

    // A locked track ignores writes; Copy takes the value and the lock.
    Write(c, v);
    c->SetLocked(true);
    Write(c, second);
    EXPECT_TRUE((Read<T, Value>(c) == v));
    EXPECT_EQ(GetLockedTrackInterface(c), static_cast<ILockedTrackImp*>(c));
    holder->Copy(c);
    EXPECT_TRUE((Read<T, Value>(holder) == v));
    EXPECT_TRUE(holder->GetLocked());

    using Chunk = std::pair<uint16_t, uint64_t>;
    EXPECT_EQ(Chunks(c), (std::vector<Chunk>{{0, valueBytes}, {1, 1}}));
    T* loaded = host::test::SaveAndLoad(c);
    ASSERT_NE(loaded, nullptr);
    EXPECT_TRUE((Read<T, Value>(loaded) == v));
    EXPECT_TRUE(loaded->GetLocked());
    auto* clone = static_cast<T*>(CloneRefHierarchy(c));
    EXPECT_TRUE((Read<T, Value>(clone) == v));
    EXPECT_TRUE(clone->GetLocked());
    for (T* object : {c, holder, loaded, clone}) object->DeleteMe();
}

TEST_F(StaticControllers, HoldOneValueUndoLockSaveAndClone) {
    CheckStaticControl<StaticFloat, float>(4);
    CheckStaticControl<StaticPosition, Point3>(12);
    CheckStaticControl<StaticRotation, Quat>(16);
    CheckStaticControl<StaticScale, ScaleValue>(28);
    CheckStaticControl<StaticTransform, Matrix3>(52);
}

TEST_F(StaticControllers, StartAtTheirTypesRestValue) {
    StaticFloat f;
    StaticRotation r;
    StaticScale s;
    StaticTransform m;
    EXPECT_EQ((Read<StaticFloat, float>(&f)), 0.0f);
    EXPECT_TRUE((Read<StaticRotation, Quat>(&r)).IsIdentity());
    EXPECT_EQ((Read<StaticScale, ScaleValue>(&s)), ScaleValue(Point3(1, 1, 1)));
    EXPECT_TRUE((Read<StaticTransform, Matrix3>(&m)).IsIdentity());
}

// Relative reads apply the value to what is passed in, as a keyed track of the same type
// would: checked against the matrices built by hand.
TEST_F(StaticControllers, RelativeReadsAndWritesCompose) {
    Interval valid = FOREVER;
    StaticFloat f;
    float fv = 1.5f;
    f.SetValue(0, &fv);
    float sum = 2.0f;
    f.GetValue(0, &sum, valid, CTRL_RELATIVE);
    EXPECT_FLOAT_EQ(sum, 3.5f);
    float more = 1.0f;
    f.SetValue(0, &more, 1, CTRL_RELATIVE);
    EXPECT_FLOAT_EQ(f.GetStaticValue(), 2.5f);

    const Matrix3 parent = RotateZMatrix(0.7f) * TransMatrix(Point3(0, 0, 9));
    StaticPosition p;
    Point3 pv(1, 2, 3);
    p.SetValue(0, &pv);
    Matrix3 tm = parent;
    p.GetValue(0, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(TransMatrix(pv) * parent, 1e-5f));
    p.SetValue(0, &pv, 1, CTRL_RELATIVE);
    EXPECT_EQ(p.GetStaticValue(), Point3(2, 4, 6));

    StaticRotation r;
    AngAxis quarter(Point3(0, 0, 1), 1.5707964f);
    r.SetValue(0, &quarter, 1, CTRL_RELATIVE);
    r.SetValue(0, &quarter, 1, CTRL_RELATIVE);
    tm = parent;
    r.GetValue(0, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(QuatMatrix(Quat(AngAxis(Point3(0, 0, 1), 3.1415927f))) * parent, 1e-5f));

    StaticScale s;
    ScaleValue twice(Point3(2, 3, 4));
    s.SetValue(0, &twice, 1, CTRL_RELATIVE);
    s.SetValue(0, &twice, 1, CTRL_RELATIVE);
    EXPECT_EQ(s.GetStaticValue().s, Point3(4, 9, 16));
    tm = parent;
    s.GetValue(0, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(ScaleMatrix(Point3(4, 9, 16)) * parent, 1e-4f));

    StaticTransform m;
    Matrix3 local = Sample(Matrix3());
    SetXFormPacket set;
    set.tmParent = parent;
    set.tmAxis = local * parent;  // the world transform wanted
    m.SetValue(0, &set);
    tm = parent;
    m.GetValue(0, &tm, valid, CTRL_RELATIVE);
    EXPECT_TRUE(tm.Equals(local * parent, 1e-4f));
}

// Transform edits as the move, rotate and scale tools send them; the node's world
// transform (value * parent) is what the tool means to change.
TEST_F(StaticControllers, TransformTakesToolPackets) {
    const Matrix3 parent = RotateZMatrix(1.5707964f) * TransMatrix(Point3(10, 0, 0));
    StaticTransform m;
    auto world = [&] { return m.GetStaticValue() * parent; };

    SetXFormPacket move;
    move.command = XFORM_MOVE;
    move.tmParent = parent;
    move.tmAxis = Matrix3();  // world axes
    move.p = Point3(0, 0, 5);
    m.SetValue(0, &move);
    EXPECT_TRUE(world().GetTrans().Equals(Point3(10, 0, 5), 1e-4f));

    SetXFormPacket rotate;
    rotate.command = XFORM_ROTATE;
    rotate.tmParent = parent;
    rotate.tmAxis = world();  // about the node's own pivot
    rotate.q = Quat(AngAxis(Point3(0, 0, 1), 0.5f));
    const Matrix3 expected = QuatMatrix(rotate.q) * world();
    m.SetValue(0, &rotate);
    EXPECT_TRUE(world().Equals(expected, 1e-4f));

    SetXFormPacket scale;
    scale.command = XFORM_SCALE;
    scale.tmParent = parent;
    scale.tmAxis = world();
    scale.p = Point3(2, 2, 2);
    const Point3 pivot = world().GetTrans();
    m.SetValue(0, &scale);
    EXPECT_TRUE(world().GetTrans().Equals(pivot, 1e-4f));
    EXPECT_TRUE(RowLengths(world()).Equals(Point3(2, 2, 2), 1e-4f));
}

// Temp values: the blend arithmetic of layer and list code.
TEST_F(StaticControllers, TempValuesAddAndScaleFromTheirZero) {
    StaticRotation r;
    auto* q = static_cast<Quat*>(r.CreateTempValue());
    EXPECT_TRUE(q->IsIdentity());
    Quat turn(AngAxis(Point3(1, 0, 0), 1.0f));
    r.ApplyValue(q, &turn);
    r.MultiplyValue(q, 0.5f);
    EXPECT_TRUE(q->Equals(Quat(AngAxis(Point3(1, 0, 0), 0.5f)), 1e-5f));
    r.DeleteTempValue(q);

    StaticScale s;
    auto* sv = static_cast<ScaleValue*>(s.CreateTempValue());
    EXPECT_EQ(sv->s, Point3(0, 0, 0));
    EXPECT_TRUE(sv->q.IsIdentity());
    *sv = ScaleValue(Point3(3, 1, 5));
    s.MultiplyValue(sv, 0.5f);
    EXPECT_EQ(sv->s, Point3(2, 1, 3));
    s.DeleteTempValue(sv);

    StaticTransform m;
    auto* tm = static_cast<Matrix3*>(m.CreateTempValue());
    Matrix3 far = TransMatrix(Point3(8, 0, 0));
    m.ApplyValue(tm, &far);
    m.MultiplyValue(tm, 0.25f);
    EXPECT_TRUE(tm->GetTrans().Equals(Point3(2, 0, 0), 1e-5f));
    m.DeleteTempValue(tm);
}

TEST_F(StaticControllers, LoadSkipsUnknownChunksAndRefusesShortValues) {
    StaticPosition p;
    ChunkWriter writer;
    writer.WriteChunk(7, uint32_t(99));
    writer.WriteChunk(STATIC_VALUE_CHUNK, Point3(1, 2, 3));
    writer.WriteChunk(STATIC_LOCKED_CHUNK, uint8_t(1));
    StaticPosition loaded(true);
    ChunkReader reader(writer.Bytes());
    EXPECT_EQ(loaded.Load(&reader), IO_OK);
    EXPECT_EQ(loaded.GetStaticValue(), Point3(1, 2, 3));
    EXPECT_TRUE(loaded.GetLocked());

    ChunkWriter shortValue;
    shortValue.WriteChunk(STATIC_VALUE_CHUNK, 1.0f);
    StaticPosition refused(true);
    ChunkReader shortReader(shortValue.Bytes());
    EXPECT_EQ(refused.Load(&shortReader), IO_ERROR);
    EXPECT_EQ(refused.GetStaticValue(), Point3(0, 0, 0));
    host::test::LoadEveryPrefix(&p);
}

// A saved scene with static tracks on a node reads back to the same world transform.
TEST_F(StaticControllers, NodeTracksSurviveASceneFile) {
    auto* transform = new StaticTransform();
    SetXFormPacket set;
    set.tmAxis = Sample(Matrix3());
    transform->SetValue(0, &set);
    INode* node = ip->CreateObjectNode(new PointHelper(), L"Tracked");
    node->SetTMController(transform);
    const Matrix3 world = node->GetNodeTM(0);
    const std::string path = testing::TempDir() + "static_tracks.tnx";
    std::string error;
    ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
    ip->Reset();
    ASSERT_TRUE(LoadSceneFile(path, *ip, error)) << error;
    INode* loaded = ip->GetINodeByName(L"Tracked");
    ASSERT_NE(loaded, nullptr);
    EXPECT_EQ(loaded->GetTMController()->ClassID(), STATIC_TRANSFORM_CLASS_ID);
    EXPECT_TRUE(loaded->GetNodeTM(0).Equals(world, 1e-5f));
}

}  // namespace
}  // namespace zorvanta::test

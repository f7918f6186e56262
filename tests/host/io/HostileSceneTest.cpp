// Scene files damaged on purpose, the way the scene reader's fuzz target damages them:
// each is refused with a message and leaves the scene alone, or loads into a scene that
// evaluates, saves and loads again. The sanitizers watch for the rest (leaks included).
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClasses.h"
#include "host/classes/ListControl.h"
#include "host/classes/OrientationConstraint.h"
#include "host/io/ChunkReader.h"
#include "host/io/SceneChunkIds.h"
#include "host/io/SceneReader.h"
#include "host/io/SceneWriter.h"
#include "host/object/Animate.h"
#include "host/object/HostClassIds.h"
#include "host/object/NodeChunkIds.h"
#include "host/object/ObjectChunkIds.h"
#include "host/object/Object.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/TrackViewNode.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host::test {
namespace {

constexpr size_t kHeaderBytes = sizeof(chunks::kSceneMagic) + sizeof(chunks::kSceneVersion);

// One object of a scene file: its class, and where its reference numbers and its data lie
// in the file's bytes.
struct SavedObject {
    Class_ID cid;
    size_t refs = 0;  // the first slot's number
    size_t data = 0, dataEnd = 0;
};

std::vector<SavedObject> SavedObjects(const std::vector<uint8_t>& bytes) {
    ChunkReader r(std::span<const uint8_t>(bytes).subspan(kHeaderBytes));
    std::vector<Class_ID> classes;
    std::vector<SavedObject> objects;
    const auto at = [&r] { return kHeaderBytes + r.Position(); };
    const auto readObject = [&](uint16_t id) {
        SavedObject& object = objects.back();
        uint32_t index = 0;
        if (id == chunks::OBJECT_CLASS && r.ReadValue(index) == IO_OK)
            object.cid = classes.at(index);
        if (id == chunks::OBJECT_REFS) object.refs = at() + sizeof(uint32_t);
        if (id == chunks::OBJECT_DATA) object.data = at(), object.dataEnd = at() + r.Remaining();
        return IO_OK;
    };
    chunkio::ReadChunks(&r, [&](uint16_t id) {
        uint32_t count = 0, superClass = 0, a = 0, b = 0;
        if (id == chunks::SCENE_CLASSES && r.ReadValue(count) == IO_OK)
            while (count-- > 0 && chunkio::ReadValues(&r, superClass, a, b) == IO_OK)
                classes.emplace_back(a, b);
        if (id != chunks::SCENE_OBJECTS) return IO_OK;
        return chunkio::ReadChunks(&r, [&](uint16_t) {
            objects.emplace_back();
            return chunkio::ReadChunks(&r, readObject);
        });
    });
    EXPECT_FALSE(r.Failed()) << r.Error();
    return objects;
}

// The number (from 1) of the nth object of class cid in the file.
int32_t NumberOf(const std::vector<SavedObject>& objects, Class_ID cid, int nth = 0) {
    for (size_t i = 0; i < objects.size(); ++i)
        if (objects[i].cid == cid && nth-- == 0) return int32_t(i + 1);
    ADD_FAILURE() << "no such object";
    return -1;
}

// Where the header of the first chunk id among those of bytes[from, to) lies, or 0.
size_t ChunkHeader(const std::vector<uint8_t>& bytes, size_t from, size_t to, uint16_t id) {
    ChunkReader r(std::span<const uint8_t>(bytes).subspan(from, to - from));
    size_t header = 0;
    chunkio::ReadChunks(&r, [&](uint16_t chunk) {
        if (chunk == id && header == 0)
            header = from + r.Position() - sizeof(uint16_t) - sizeof(uint64_t);
        return IO_OK;
    });
    return header;
}

// Renames chunk id among those of bytes[from, to) to one that nothing reads, as one byte
// changed by the fuzzer did.
void LoseChunk(std::vector<uint8_t>& bytes, size_t from, size_t to, uint16_t id) {
    const size_t header = ChunkHeader(bytes, from, to, id);
    ASSERT_NE(header, 0u) << "no chunk " << id;
    bytes[header + 1] = 0x7F;
}

// The nth node of the file.
const SavedObject& NodeOf(const std::vector<SavedObject>& objects, int nth) {
    return objects[size_t(NumberOf(objects, Class_ID(BASENODE_CLASS_ID, 0), nth) - 1)];
}

void SetSlot(std::vector<uint8_t>& bytes, const SavedObject& object, int slot, int32_t number) {
    std::memcpy(bytes.data() + object.refs + size_t(slot) * sizeof(int32_t), &number,
                sizeof(number));
}

class HostileScenes : public SceneTest {
protected:
    // Node A and its child B, each class of controller in one place only but the PRS.
    // A: a position list of a TCB Position and a Bezier Position, a TCB Rotation and a
    // TCB Scale. B: the default Position XYZ and Bezier Scale, and an orientation
    // constraint on A. A custom track: a TCB Float. A is the first node of the file, its
    // PRS the first PRS.
    std::vector<uint8_t> Build() {
        INode* a = ip->CreateObjectNode(nullptr, L"A");
        INode* b = ip->CreateObjectNode(nullptr, L"B");
        a->AttachChild(b, false);
        auto make = [](SClass_ID superClass, Class_ID cid) {
            return static_cast<Control*>(CreateInstance(superClass, cid));
        };
        auto* list =
            static_cast<ListControl*>(make(CTRL_POSITION_CLASS_ID, POSITION_LIST_CLASS_ID));
        a->GetTMController()->SetPositionController(list);
        list->Append(make(CTRL_POSITION_CLASS_ID, TCB_POSITION_CLASS_ID));
        list->Append(make(CTRL_POSITION_CLASS_ID, BEZIER_POSITION_CLASS_ID));
        a->GetTMController()->SetRotationController(
            make(CTRL_ROTATION_CLASS_ID, TCB_ROTATION_CLASS_ID));
        a->GetTMController()->SetScaleController(make(CTRL_SCALE_CLASS_ID, TCB_SCALE_CLASS_ID));
        auto* orient = static_cast<OrientationConstraint*>(
            make(CTRL_ROTATION_CLASS_ID, ORIENTATION_CONSTRAINT_CLASS_ID));
        b->GetTMController()->SetRotationController(orient);
        orient->AppendTarget(a);
        ip->GetTrackViewRootNode()->AddController(make(CTRL_FLOAT_CLASS_ID, TCB_FLOAT_CLASS_ID),
                                                  L"Tools", Class_ID(7, 9));
        std::vector<uint8_t> bytes = SceneWriter::Write(*ip);
        ip->Reset();
        return bytes;
    }

public:
    // In the loaded scene: node A and its child B, and their controllers.
    INode* A() { return ip->GetRootNode()->GetChildNode(0); }
    INode* B() { return A()->GetChildNode(0); }
    ListControl* List() {
        return static_cast<ListControl*>(A()->GetTMController()->GetPositionController());
    }

protected:
    static std::vector<uint8_t> SampleBytes() {
        std::ifstream in(ZV_SAMPLE_SCENE, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    // The loaded scene evaluates, and writes bytes that load into the same scene.
    void ExpectSound() {
        std::vector<INode*> nodes{ip->GetRootNode()};
        while (!nodes.empty()) {
            INode* node = nodes.back();
            nodes.pop_back();
            node->GetNodeTM(160);
            if (!node->IsRootNode()) node->EvalWorldState(160);
            for (int i = 0; i < node->NumberOfChildren(); ++i)
                nodes.push_back(node->GetChildNode(i));
        }
        const std::vector<uint8_t> saved = SceneWriter::Write(*ip);
        ip->Reset();
        std::string error;
        ASSERT_TRUE(SceneReader::Read(saved, *ip, error)) << error;
        EXPECT_EQ(SceneWriter::Write(*ip), saved);
    }
};

// A reference that leads back to where it started (an object whose value would depend
// on itself) is refused, and the scene stays as it was.
TEST_F(HostileScenes, ReferenceLoopsAreRefused) {
    const std::vector<uint8_t> good = Build();
    const std::vector<SavedObject> objects = SavedObjects(good);
    const int32_t list = NumberOf(objects, POSITION_LIST_CLASS_ID);
    const int32_t prs = NumberOf(objects, PRS_CLASS_ID);
    const struct {
        int32_t holder;
        int slot;
        int32_t target;
    } loops[] = {{list, 0, list}, {list, 1, prs}};
    ip->CreateObjectNode(nullptr, L"Present");
    const std::vector<uint8_t> present = SceneWriter::Write(*ip);
    for (const auto& loop : loops) {
        std::vector<uint8_t> bytes = good;
        SetSlot(bytes, objects[size_t(loop.holder - 1)], loop.slot, loop.target);
        std::string error;
        EXPECT_FALSE(SceneReader::Read(bytes, *ip, error));
        EXPECT_NE(error.find("refers to itself in a loop"), std::string::npos) << error;
        EXPECT_EQ(SceneWriter::Write(*ip), present);
    }
}

// A slot given an object of a class it does not hold (a position controller where a
// float or a rotation goes, a controller where a node goes) stays empty, and the object
// given keeps only the dependent that holds it.
TEST_F(HostileScenes, AnObjectOfAnotherClassLeavesTheSlotEmpty) {
    const std::vector<uint8_t> good = Build();
    const std::vector<SavedObject> objects = SavedObjects(good);
    const auto number = [&objects](Class_ID cid) { return NumberOf(objects, cid); };
    using Find = std::function<ReferenceTarget*(HostileScenes&)>;
    const Find bScale = [](HostileScenes& t) {
        return t.B()->GetTMController()->GetScaleController();
    };
    const Find bPosition = [](HostileScenes& t) {
        return t.B()->GetTMController()->GetPositionController();
    };
    const struct {
        const char* what;
        int32_t holder;
        int slot;
        int32_t target;
        Find loadedHolder, loadedTarget;
    } cases[] = {
        {"rotation of a PRS", number(PRS_CLASS_ID), 1, number(POSITION_XYZ_CLASS_ID),
         [](HostileScenes& t) { return t.A()->GetTMController(); }, bPosition},
        {"track of a Position XYZ", number(POSITION_XYZ_CLASS_ID), 0, number(TCB_POSITION_CLASS_ID),
         bPosition, [](HostileScenes& t) { return t.List()->GetSubCtrl(0); }},
        {"entry of a position list", number(POSITION_LIST_CLASS_ID), 1,
         number(TCB_ROTATION_CLASS_ID), [](HostileScenes& t) { return t.List(); },
         [](HostileScenes& t) { return t.A()->GetTMController()->GetRotationController(); }},
        {"target of an orientation constraint", number(ORIENTATION_CONSTRAINT_CLASS_ID), 0,
         number(BEZIER_SCALE_CLASS_ID),
         [](HostileScenes& t) { return t.B()->GetTMController()->GetRotationController(); },
         bScale},
        {"transform of a node", number(Class_ID(BASENODE_CLASS_ID, 0)), INode::TM_REF,
         number(BEZIER_SCALE_CLASS_ID), [](HostileScenes& t) { return t.A(); }, bScale},
    };
    for (const auto& c : cases) {
        std::vector<uint8_t> bytes = good;
        SetSlot(bytes, objects[size_t(c.holder - 1)], c.slot, c.target);
        std::string error;
        ASSERT_TRUE(SceneReader::Read(bytes, *ip, error)) << c.what << ": " << error;
        EXPECT_EQ(c.loadedHolder(*this)->GetReference(c.slot), nullptr) << c.what;
        EXPECT_EQ(c.loadedTarget(*this)->NumDependents(), 1) << c.what;
        ExpectSound();
        ip->Reset();
    }
}

// A node whose parent's list of children lost its chunk (found by fuzzing: one byte of
// the chunk id) is put nowhere by the file: it joins the root's children, where it is
// saved and deleted with the scene, instead of living on outside it.
TEST_F(HostileScenes, ANodePutNowhereJoinsTheRoot) {
    std::vector<uint8_t> bytes = Build();
    const SavedObject a = NodeOf(SavedObjects(bytes), 0);
    LoseChunk(bytes, a.data, a.dataEnd, chunks::NODE_CHILDREN);
    std::string error;
    ASSERT_TRUE(SceneReader::Read(bytes, *ip, error)) << error;
    INode* root = ip->GetRootNode();
    ASSERT_EQ(root->NumberOfChildren(), 2);
    EXPECT_EQ(A()->NumberOfChildren(), 0);
    EXPECT_EQ(std::wstring(root->GetChildNode(1)->GetName()), L"B");
    ExpectSound();
}

// A file without the number of its custom tracks holder (found by fuzzing: one byte of
// the chunk id) reads the holder as an object like any other, which nothing refers to: it
// goes with its tracks, and the scene has no custom tracks.
TEST_F(HostileScenes, AnUnclaimedTrackHolderGoesWithItsTracks) {
    std::vector<uint8_t> bytes = Build();
    LoseChunk(bytes, kHeaderBytes, bytes.size(), chunks::SCENE_TRACKS);
    std::string error;
    ASSERT_TRUE(SceneReader::Read(bytes, *ip, error)) << error;
    EXPECT_EQ(ip->GetTrackViewRootNode()->NumItems(), 0);
    ExpectSound();
}

// Keys further apart in time than a TimeValue can count (found by fuzzing: a first key
// at -2147482688 ticks before one at 2400) load, and every keyed controller evaluates
// between, before and after them without overflowing.
TEST_F(HostileScenes, KeysFarApartInTimeEvaluate) {
    const struct {
        SClass_ID superClass;
        Class_ID cid;
    } classes[] = {{CTRL_FLOAT_CLASS_ID, BEZIER_FLOAT_CLASS_ID},
                   {CTRL_FLOAT_CLASS_ID, TCB_FLOAT_CLASS_ID},
                   {CTRL_SCALE_CLASS_ID, BEZIER_SCALE_CLASS_ID},
                   {CTRL_SCALE_CLASS_ID, TCB_SCALE_CLASS_ID}};
    AnimateOn();
    for (const auto& c : classes) {
        auto* track = static_cast<Control*>(CreateInstance(c.superClass, c.cid));
        for (TimeValue t : {0, 1200, 2400}) {
            float f = float(t) / 1200.0f;
            ScaleValue scale(Point3(1 + f, 1, 2 - f));
            track->SetValue(t,
                            c.superClass == CTRL_FLOAT_CLASS_ID ? static_cast<void*>(&f) : &scale);
        }
        ip->GetTrackViewRootNode()->AddController(track, L"Keys", c.cid);
    }
    AnimateOff();
    std::vector<uint8_t> bytes = SceneWriter::Write(*ip);
    ip->Reset();
    for (const SavedObject& object : SavedObjects(bytes)) {
        const size_t keys = ChunkHeader(bytes, object.data, object.dataEnd, chunks::CTRL_KEYS);
        if (keys == 0) continue;
        // The first key's time, after the chunk header and the count.
        const TimeValue far = -2147482688;
        std::memcpy(bytes.data() + keys + sizeof(uint16_t) + sizeof(uint64_t) + sizeof(uint32_t),
                    &far, sizeof(far));
    }
    std::string error;
    ASSERT_TRUE(SceneReader::Read(bytes, *ip, error)) << error;
    TrackViewNode* tracks = ip->GetTrackViewRootNode();
    ASSERT_EQ(tracks->NumItems(), 4);
    for (int i = 0; i < tracks->NumItems(); ++i)
        for (TimeValue t : {TIME_NegInfinity, -1000000000, 0, 600, 2400, TIME_PosInfinity}) {
            float f = 0;
            ScaleValue scale;
            Interval valid = FOREVER;
            auto* track = static_cast<Control*>(tracks->GetTrack(i));
            track->GetValue(t, i < 2 ? static_cast<void*>(&f) : &scale, valid);
            EXPECT_TRUE(std::isfinite(f) && std::isfinite(scale.s.x) && std::isfinite(scale.q.w))
                << i << " at " << t;
        }
    ExpectSound();
}

// The sample scene with its first point helper's parameter block slot naming node 6 (found
// by fuzzing): the slot stays empty, and the node, which the slot never held, is not
// taken for one that its references own (which would delete it at its next message).
TEST_F(HostileScenes, ARefusedNodeStaysInTheScene) {
    std::vector<uint8_t> bytes = SampleBytes();
    const std::vector<SavedObject> objects = SavedObjects(bytes);
    ASSERT_EQ(objects[5].cid, Class_ID(BASENODE_CLASS_ID, 0));
    SetSlot(bytes, objects[size_t(NumberOf(objects, POINT_HELPER_CLASS_ID) - 1)], 0, 6);
    std::string error;
    ASSERT_TRUE(SceneReader::Read(bytes, *ip, error)) << error;
    EXPECT_EQ(A()->GetObjectRef()->GetReference(0), nullptr);
    EXPECT_EQ(A()->NumberOfChildren(), 2);
    ExpectSound();
}

// The sample scene with the handles of Pelvis and Head lost (found by fuzzing: one byte of
// each chunk id): each node gets a handle of its own, so that the scene finds every node
// by its handle and saves the same bytes after a second load.
TEST_F(HostileScenes, NodesWithoutHandlesGetFreeOnes) {
    std::vector<uint8_t> bytes = SampleBytes();
    const std::vector<SavedObject> objects = SavedObjects(bytes);
    for (int nth : {0, 3})  // Pelvis, Head
        LoseChunk(bytes, NodeOf(objects, nth).data, NodeOf(objects, nth).dataEnd,
                  chunks::NODE_HANDLE);
    std::string error;
    ASSERT_TRUE(SceneReader::Read(bytes, *ip, error)) << error;
    std::set<uint32_t> handles;
    for (INode* node :
         {A(), A()->GetChildNode(0), A()->GetChildNode(0)->GetChildNode(0), A()->GetChildNode(1)}) {
        EXPECT_TRUE(handles.insert(node->GetHandle()).second) << node->GetHandle();
        EXPECT_EQ(ip->GetScene().FindByHandle(node->GetHandle()), node);
    }
    ExpectSound();
}

// A shape's interpolation block saved without its data (found by fuzzing) has no
// definition: the shape's slot stays empty and the shape still builds. A block whose
// owner number names nothing still saves, through the class it was read for.
TEST_F(HostileScenes, BlocksWithoutDataOrOwnerLeaveTheSceneSound) {
    ip->CreateObjectNode(static_cast<Object*>(GetTextShapeDesc()->Create(false)), L"T");
    const std::vector<uint8_t> good = SceneWriter::Write(*ip);
    ip->Reset();
    const SavedObject block =
        SavedObjects(good)[size_t(NumberOf(SavedObjects(good), PARAM_BLOCK2_CLASS_ID)) - 1];
    const size_t dataHeader = block.data - sizeof(uint16_t) - sizeof(uint64_t);

    std::vector<uint8_t> noData = good;
    LoseChunk(noData, dataHeader, block.dataEnd, chunks::OBJECT_DATA);
    std::string error;
    ASSERT_TRUE(SceneReader::Read(noData, *ip, error)) << error;
    EXPECT_EQ(ip->GetRootNode()->GetChildNode(0)->GetObjectRef()->GetReference(0), nullptr);
    ExpectSound();
    ip->Reset();

    std::vector<uint8_t> noOwner = good;
    const size_t header = ChunkHeader(noOwner, block.data, block.dataEnd, chunks::PB_HEADER);
    uint64_t length = 0;
    std::memcpy(&length, noOwner.data() + header + sizeof(uint16_t), sizeof(length));
    const int32_t nobody = -1;
    std::memcpy(
        noOwner.data() + header + sizeof(uint16_t) + sizeof(uint64_t) + length - sizeof(nobody),
        &nobody, sizeof(nobody));
    ASSERT_TRUE(SceneReader::Read(noOwner, *ip, error)) << error;
    ExpectSound();
}

}  // namespace
}  // namespace host::test

#include <gtest/gtest.h>

#include "host/classes/EditableMesh.h"
#include "host/classes/HostClassDesc.h"
#include "host/classes/HostClasses.h"
#include "host/object/DerivedObject.h"
#include "host/object/ICustAttribContainer.h"
#include "host/object/INode.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Mtl.h"
#include "host/object/ObjectChunkIO.h"
#include "host/object/ObjectChunkIds.h"
#include "host/object/TrackViewNode.h"
#include "tests/host/io/SaveLoadTestSupport.h"
#include "tests/host/object/TestTarget.h"

namespace host {
namespace {

using test::TestTarget;

constexpr Class_ID kModifierId(0x51A70001, 0x10), kMtlId(0x51A70002, 0x20);

class TestModifier : public Modifier {
public:
    explicit TestModifier(bool = false) {}
    Class_ID ClassID() override { return kModifierId; }
    ChannelMask ChannelsUsed() override { return 0; }
    ChannelMask ChannelsChanged() override { return 0; }
    void ModifyObject(TimeValue, ModContext&, ObjectState*, INode*) override {}
};

class TestMtl : public Mtl {
public:
    explicit TestMtl(bool = false) {}
    Class_ID ClassID() override { return kMtlId; }
};

HostClassDesc<TestModifier> modifierDesc(L"Test Modifier", L"testmod", OSM_CLASS_ID, kModifierId);
HostClassDesc<TestMtl> mtlDesc(L"Test Material", L"testmtl", MATERIAL_CLASS_ID, kMtlId);

enum : ParamID { pFloat, pInt, pBool, pAngle, pPercent, pWorld, pRgba, pColor, pPoint3 };
enum : ParamID { pPoint2 = pPoint3 + 1, pString, pFile, pMatrix, pTime, pIndex, pNode, pTarget };
enum : ParamID { pFloats = pTarget + 1, pNames, pTargets, pScratch, pScratchTargets, pAfter };

// Every type a block holds, tables of values and of references, and transient
// parameters before a reference: whether that reference lands in its own slot on load
// shows that the slots line up.
ParamBlockDesc2 everyType(
    3, L"everything", 0, 0, &modifierDesc,
    {
        {pFloat, L"float", TYPE_FLOAT, P_ANIMATABLE, 0, {.f = 1}},
        {pInt, L"int", TYPE_INT, 0, 0, {}},
        {pBool, L"bool", TYPE_BOOL, 0, 0, {}},
        {pAngle, L"angle", TYPE_ANGLE, 0, 0, {}},
        {pPercent, L"percent", TYPE_PCNT_FRAC, 0, 0, {}},
        {pWorld, L"world", TYPE_WORLD, 0, 0, {}},
        {pRgba, L"rgba", TYPE_RGBA, 0, 0, {}},
        {pColor, L"color", TYPE_COLOR, 0, 0, {}},
        {pPoint3, L"point3", TYPE_POINT3, 0, 0, {}},
        {pPoint2, L"point2", TYPE_POINT2, 0, 0, {}},
        {pString, L"string", TYPE_STRING, 0, 0, {}},
        {pFile, L"file", TYPE_FILENAME, 0, 0, {}},
        {pMatrix, L"matrix", TYPE_MATRIX3, 0, 0, {}},
        {pTime, L"time", TYPE_TIMEVALUE, 0, 0, {}},
        {pIndex, L"index", TYPE_INDEX, 0, 0, {}},
        {pNode, L"node", TYPE_INODE, 0, 0, {}},
        {pTarget, L"target", TYPE_REFTARG, 0, 0, {}},
        {pFloats, L"floats", TableOf(TYPE_FLOAT), P_ANIMATABLE, 0, {.f = 0.5f}, {}, {}, {}, 2},
        {pNames, L"names", TableOf(TYPE_STRING), 0, 0, {}},
        {pTargets, L"targets", TableOf(TYPE_REFTARG), 0, 0, {}, {}, {}, {}, 1},
        {pScratch, L"scratch", TYPE_FLOAT, P_TRANSIENT, 0, {.f = 5}},
        {pScratchTargets, L"scratchTargets", TableOf(TYPE_REFTARG), P_TRANSIENT, 0, {}},
        {pAfter, L"afterScratch", TYPE_REFTARG, 0, 0, {}},
    });

// Fields a type does not use stay as constructed on both sides, so all are compared.
bool Same(const PB2Value& a, const PB2Value& b) {
    return a.f == b.f && a.i == b.i && a.p == b.p && a.p2 == b.p2 && a.m == b.m && a.s == b.s &&
           a.r == b.r;
}

// Loads bytes into an instance of desc's class made for loading, then deletes it;
// answers the reader's error, empty when the load succeeded.
std::string LoadBytes(ClassDesc2* desc, const std::vector<uint8_t>& bytes) {
    auto* obj = static_cast<ReferenceTarget*>(desc->Create(true));
    ChunkReader reader(bytes);
    SetLoading(true);
    const IOResult result = obj->Load(&reader);
    SetLoading(false);
    obj->DeleteMe();
    EXPECT_EQ(result == IO_OK, !reader.Failed()) << reader.Error();
    return reader.Error();
}

// A block of everyType's class (or owner) with one parameter chunk: its header, then
// payload bytes of zeros.
std::vector<uint8_t> BlockBytes(ParamID id, ParamType2 type, uint32_t count, size_t payload,
                                Class_ID owner = kModifierId) {
    ChunkWriter w;
    w.BeginChunk(chunks::PB_HEADER);
    w.WriteValue(BlockID(3));
    w.WriteValue(OSM_CLASS_ID);
    chunkio::WriteClassID(&w, owner);
    w.WriteValue(int32_t(-1));
    w.EndChunk();
    w.BeginChunk(chunks::PB_PARAM);
    w.WriteValue(id);
    w.WriteValue(int32_t(type));
    w.WriteValue(count);
    const std::vector<uint8_t> zeros(payload);
    size_t written = 0;
    w.Write(zeros.data(), zeros.size(), &written);
    w.EndChunk();
    return w.Bytes();
}

std::vector<uint8_t> CountBytes(uint16_t id, uint32_t count) {
    ChunkWriter w;
    w.WriteChunk(id, count);
    return w.Bytes();
}

class ObjectModelSave : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        ClassRegistry::Instance().Register(&modifierDesc);
        ClassRegistry::Instance().Register(&mtlDesc);
    }
    void TearDown() override { EXPECT_TRUE(TestTarget::live.empty()); }
};

TEST_F(ObjectModelSave, ParameterBlockKeepsEveryTypeTablesAndReferenceSlots) {
    auto* pb = new IParamBlock2(&everyType, nullptr);
    Matrix3 m = RotateZMatrix(0.5f);
    m.SetTrans({1, 2, 3});
    ASSERT_TRUE(
        pb->SetValue(pInt, 0, -7) && pb->SetValue(pBool, 0, 1) && pb->SetValue(pAngle, 0, 1.5f) &&
        pb->SetValue(pPercent, 0, 0.25f) && pb->SetValue(pWorld, 0, 12.0f) &&
        pb->SetValue(pRgba, 0, Point3(1, 0.5f, 0)) && pb->SetValue(pColor, 0, Point3(0, 0, 1)) &&
        pb->SetValue(pPoint3, 0, Point3(-1, 2, 3)) && pb->SetValue(pPoint2, 0, Point2(4, 5)) &&
        pb->SetValue(pString, 0, L"Bip\u00e9d \U0001F600") &&
        pb->SetValue(pFile, 0, L"rigs/arm.rig") && pb->SetValue(pMatrix, 0, m) &&
        pb->SetValue(pTime, 0, 4800) && pb->SetValue(pIndex, 0, 2) &&
        pb->SetValue(pNode, 0, new INode) && pb->SetValue(pTarget, 0, new TestTarget));
    ASSERT_TRUE(pb->SetCount(pFloats, 4) && pb->SetValue(pFloats, 0, 9.0f, 3) &&
                pb->SetCount(pNames, 2) && pb->SetValue(pNames, 0, L"left", 1) &&
                pb->SetCount(pTargets, 3) && pb->SetValue(pTargets, 0, new TestTarget, 2) &&
                pb->SetController(pFloat, 0, NewDefaultFloatController()) &&
                pb->SetController(pFloats, 1, NewDefaultFloatController()));
    ASSERT_TRUE(pb->SetValue(pScratch, 0, 7.0f) && pb->SetCount(pScratchTargets, 2) &&
                pb->SetValue(pScratchTargets, 0, new TestTarget, 1) &&
                pb->SetValue(pAfter, 0, new TestTarget));

    IParamBlock2* copy = test::SaveAndLoad(pb);
    ASSERT_NE(copy, nullptr);
    for (int index = 0; index < pb->NumParams(); ++index) {
        const ParamID id = pb->IndexToID(index);
        ASSERT_EQ(copy->Count(id), pb->Count(id)) << id;
        if (id == pScratch) continue;  // transient: its default, below
        for (int tab = 0; tab < pb->Count(id); ++tab) {
            PB2Value a, b;
            Interval valid = FOREVER;
            pb->GetValue(id, 0, a, valid, tab);
            copy->GetValue(id, 0, b, valid, tab);
            EXPECT_TRUE(Same(a, b)) << "parameter " << id << " element " << tab;
        }
    }
    EXPECT_EQ(copy->GetFloat(pScratch), 5.0f);
    ASSERT_EQ(copy->NumRefs(), pb->NumRefs());
    EXPECT_EQ(copy->GetController(pFloats, 1), pb->GetController(pFloats, 1));
    EXPECT_EQ(copy->GetReferenceTarget(pAfter), pb->GetReferenceTarget(pAfter));

    test::LoadEveryPrefix(pb);
    copy->DeleteMe();
    pb->DeleteMe();
}

TEST_F(ObjectModelSave, DamagedFilesFailWithTheReadersMessage) {
    ClassDesc2* block = GetParamBlock2Desc();
    const struct {
        ClassDesc2* desc;
        std::vector<uint8_t> bytes;
        const char* message;
    } cases[] = {
        {block, BlockBytes(pInt, TYPE_FLOAT, 1, 4), "saved as type 0 but defined as type 1"},
        {block, BlockBytes(pFloats, TableOf(TYPE_FLOAT), 1u << 30, 4), "count of 1073741824"},
        {block, BlockBytes(pInt, TYPE_INT, 2, 8), "is not a table but has 2 values"},
        {block, BlockBytes(pInt, TYPE_INT, 1, 4, Class_ID(9, 9)), "defines parameter block 3"},
        {block, CountBytes(chunks::PB_PARAM, 0), "before its block's header"},
        {block, {}, "has no header"},
        {GetCustAttribContainerDesc(), CountBytes(chunks::CA_SLOTS, 1u << 30), "count of"},
        {GetDerivedObjectDesc(), CountBytes(chunks::DERIVOB_MODIFIERS, 1u << 30), "count of"},
        {GetTrackViewNodeDesc(), CountBytes(chunks::TVNODE_ITEMS, 1u << 30), "count of"},
    };
    for (const auto& c : cases) {
        const std::string error = LoadBytes(c.desc, c.bytes);
        EXPECT_NE(error.find(c.message), std::string::npos) << c.message << ": " << error;
    }
    // A parameter the definition does not know is skipped.
    EXPECT_EQ(LoadBytes(block, BlockBytes(99, TYPE_INT, 1, 4)), "");
}

TEST_F(ObjectModelSave, ContainersAndStacksMakeTheSlotsTheirReferencesFill) {
    auto* owner = new TestTarget;
    owner->AllocCustAttribContainer();
    ICustAttribContainer* attribs = owner->GetCustAttribContainer();
    for (int i = 0; i < 3; ++i) attribs->AppendCustAttrib(new CustAttrib);
    attribs->GetCustAttrib(1)->DeleteMe();  // its slot stays, empty

    auto* tracks = new TrackViewNode;
    tracks->AddController(new TestTarget, L"Spine \u00e9", Class_ID(1, 2));
    tracks->AddController(new TestTarget, L"", Class_ID(0xFFFFFFFF, 7));

    auto* derived = new DerivedObject;
    derived->ReferenceObject(new EditableMesh);
    ASSERT_TRUE(
        derived->AddModifier(new TestModifier,
                             new ModContext(RotateZMatrix(1.0f), Box3({-1, -2, -3}, {1, 2, 3}))) &&
        derived->AddModifier(new TestModifier, nullptr, 1) &&
        derived->AddModifier(new TestModifier, new ModContext(TransMatrix({5, 0, 0}), {})));

    ICustAttribContainer* attribsCopy = test::SaveAndLoad(attribs);
    TrackViewNode* tracksCopy = test::SaveAndLoad(tracks);
    DerivedObject* derivedCopy = test::SaveAndLoad(derived);
    ASSERT_TRUE(attribsCopy && tracksCopy && derivedCopy);
    ASSERT_EQ(attribsCopy->GetNumCustAttribs(), 3);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(attribsCopy->GetCustAttrib(i), attribs->GetCustAttrib(i));
    ASSERT_EQ(tracksCopy->NumItems(), 2);
    for (int i = 0; i < 2; ++i)
        EXPECT_TRUE(tracksCopy->GetName(i) == tracks->GetName(i) &&
                    tracksCopy->GetClassID(i) == tracks->GetClassID(i) &&
                    tracksCopy->GetTrack(i) == tracks->GetTrack(i));
    ASSERT_EQ(derivedCopy->NumModifiers(), 3);
    EXPECT_EQ(derivedCopy->GetObjRef(), derived->GetObjRef());
    for (int i = 0; i < 3; ++i) {
        const ModContext *a = derived->GetModContext(i), *b = derivedCopy->GetModContext(i);
        EXPECT_TRUE(a->tm == b->tm && a->box.pmin == b->box.pmin && a->box.pmax == b->box.pmax);
        EXPECT_EQ(derivedCopy->GetModifier(i), derived->GetModifier(i));
    }

    test::LoadEveryPrefix(attribs);
    test::LoadEveryPrefix(tracks);
    test::LoadEveryPrefix(derived);
    for (ReferenceTarget* t : std::initializer_list<ReferenceTarget*>{
             attribsCopy, tracks, tracksCopy, derived, derivedCopy, owner})
        t->DeleteMe();
    delete tracks;  // a tree's node: losing its references does not end it
}

TEST_F(ObjectModelSave, ModifierSwitchAndMaterialNameComeBack) {
    auto* mod = new TestModifier;
    mod->DisableMod();
    auto* mtl = new TestMtl;
    mtl->SetName(L"Skin \u00fc");
    TestModifier* modCopy = test::SaveAndLoad(mod);
    TestMtl* mtlCopy = test::SaveAndLoad(mtl);
    ASSERT_TRUE(modCopy && mtlCopy);
    EXPECT_FALSE(modCopy->IsEnabled());
    EXPECT_EQ(mtlCopy->GetName(), WStr(L"Skin \u00fc"));
    test::LoadEveryPrefix(mod);
    test::LoadEveryPrefix(mtl);
    for (ReferenceTarget* t : std::initializer_list<ReferenceTarget*>{mod, modCopy, mtl, mtlCopy})
        t->DeleteMe();
}

}  // namespace
}  // namespace host

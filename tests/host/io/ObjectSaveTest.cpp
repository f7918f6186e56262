#include <gtest/gtest.h>

#include <array>
#include <span>
#include <string>

#include "host/classes/BezierShape.h"
#include "host/classes/BoneObject.h"
#include "host/classes/ChunkIO.h"
#include "host/classes/EditableMesh.h"
#include "host/classes/HostChunkIds.h"
#include "host/classes/HostClasses.h"
#include "host/classes/ICurveCtl.h"
#include "host/classes/LayerManager.h"
#include "host/classes/MorphModifier.h"
#include "host/classes/PointHelper.h"
#include "host/classes/PolyObject.h"
#include "host/object/ShapeObject.h"
#include "tests/host/io/SaveLoadTestSupport.h"

namespace host::test {
namespace {

class ObjectSave : public ::testing::Test {
protected:
    void SetUp() override { RegisterHostClasses(); }
};

// The reader's error once load has read what writer holds; empty when the load worked.
template <class Load>
std::string LoadFailure(const ChunkWriter& writer, Load load) {
    ChunkReader reader(writer.Bytes());
    const IOResult result = load(&reader);
    EXPECT_EQ(result == IO_OK, !reader.Failed());
    return reader.Error();
}

// Loads every cut-short prefix of what value saves into a new T; the sanitizers watch.
template <class T>
void LoadEveryPrefixOf(const T& value) {
    ChunkWriter writer;
    value.Save(&writer);
    for (size_t n = 0; n < writer.Bytes().size(); ++n) {
        T loaded;
        ChunkReader reader(std::span(writer.Bytes().data(), n));
        loaded.Load(&reader);
    }
}

TEST_F(ObjectSave, BlockObjectsMadeForLoadingWaitForTheSavedBlock) {
    for (ClassDesc2* desc : {GetPointHelperDesc(), GetBoneObjectDesc()}) {
        auto* loading = static_cast<Object*>(desc->Create(true));
        EXPECT_EQ(loading->GetReference(0), nullptr) << "a block made for loading leaks";
        loading->DeleteMe();
    }
}

TEST_F(ObjectSave, MeshObjectsKeepVerticesFacesAndFlags) {
    MNMesh mesh;
    for (int v = 0; v < 6; ++v) mesh.NewVert(Point3(float(v), float(v * v), -1.5f * float(v)));
    mesh.NewFace({0, 1, 2, 3});
    mesh.NewFace({3, 4, 5}, MNMesh::MN_USER | MNMesh::MN_SEL);
    mesh.NewFace({5, 0, 2}, MNMesh::MN_USER << 3);
    for (MeshObject* original :
         {static_cast<MeshObject*>(new EditableMesh), static_cast<MeshObject*>(new PolyObject)}) {
        original->GetMesh() = mesh;
        auto* copy = SaveAndLoad(original);
        ASSERT_NE(copy, nullptr);
        EXPECT_TRUE(copy->GetMesh() == mesh);
        LoadEveryPrefix(original);
        copy->DeleteMe();
        original->DeleteMe();
    }
}

TEST_F(ObjectSave, AFaceOnVerticesTheMeshLacksFailsTheLoad) {
    for (const std::vector<int>& face : {std::vector{0, 1, 3}, {0, -1, 2}, {0, 1}}) {
        ChunkWriter writer;
        writer.BeginChunk(chunks::MESHOBJ_MESH);
        writer.BeginChunk(chunks::MESH_VERTS);
        WriteTable(&writer, std::vector<Point3>(3));
        writer.EndChunk();
        writer.BeginChunk(chunks::MESH_FACES);
        WriteValues(&writer, uint32_t(1), uint32_t(0));  // one face, its flags
        WriteTable(&writer, face);
        writer.EndChunk();
        writer.EndChunk();
        auto* mesh = new EditableMesh(true);
        const std::string error = LoadFailure(writer, [&](ILoad* r) { return mesh->Load(r); });
        EXPECT_NE(error.find("face 0"), std::string::npos) << error;
        EXPECT_EQ(mesh->GetMesh().numv(), 0);
        mesh->DeleteMe();
    }
}

TEST_F(ObjectSave, ShapesKeepSplinesSettingsAndSelections) {
    BezierShape original, loaded;
    Spline3D* open = original.NewSpline();
    for (int k = 0; k < 4; ++k)  // every knot type, both line types
        open->AddKnot(SplineKnot(k, k % 2, {float(k), float(k % 3), 1}, {-1, 2, 0}, {3, 1, 4}));
    open->ComputeBezPoints();
    Spline3D* closed = original.NewSpline();
    closed->AddKnot(SplineKnot(KTYPE_BEZIER, LTYPE_CURVE, {0, 0, 0}, {-1, -1, 0}, {1, 2, 0}));
    closed->AddKnot(SplineKnot(KTYPE_BEZIER_CORNER, LTYPE_CURVE, {4, 0, 0}, {5, 3, 0}, {3, -2, 1}));
    closed->SetClosed();
    original.NewSpline();
    original.steps = 3;
    original.optimize = false;
    original.UpdateSels();
    original.VertSel(0)->Set(4);
    original.SegSel(1)->Set(1);
    original.PolySel().Set(2);

    ChunkWriter writer;
    original.Save(&writer);
    ASSERT_EQ(LoadFailure(writer, [&](ILoad* r) { return loaded.Load(r); }), "");
    EXPECT_TRUE(loaded.steps == 3 && !loaded.optimize && loaded.PolySel() == original.PolySel());
    ASSERT_EQ(loaded.SplineCount(), 3);
    for (int i = 0; i < 3; ++i) {
        const Spline3D *a = original.GetSpline(i), *b = loaded.GetSpline(i);
        ASSERT_EQ(b->KnotCount(), a->KnotCount());
        EXPECT_EQ(b->Closed(), a->Closed());
        for (int k = 0; k < a->KnotCount(); ++k) EXPECT_TRUE(b->GetKnot(k) == a->GetKnot(k));
        for (float u = 0; u <= 1; u += 0.05f) EXPECT_EQ(b->InterpCurve3D(u), a->InterpCurve3D(u));
        EXPECT_TRUE(*loaded.VertSel(i) == *original.VertSel(i));
        EXPECT_TRUE(*loaded.SegSel(i) == *original.SegSel(i));
    }
    LoadEveryPrefixOf(original);

    // A shape object keeps its render switches, each on its own.
    for (const auto& [renderable, asMesh] : {std::pair{true, false}, std::pair{false, true}}) {
        auto* text = static_cast<ShapeObject*>(GetTextShapeDesc()->Create(false));
        text->SetRenderable(renderable);
        text->SetDispRenderMesh(asMesh);
        auto* copy = SaveAndLoad(text);
        ASSERT_NE(copy, nullptr);
        EXPECT_EQ(copy->GetRenderable(), renderable);
        EXPECT_EQ(copy->GetDispRenderMesh(), asMesh);
        text->DeleteMe();
        copy->DeleteMe();
    }
}

TEST_F(ObjectSave, MorphChannelsKeepNamesTargetsAndWeights) {
    auto* original = new MorphModifier;
    ASSERT_TRUE(original->SetChannelName(0, WStr(L"Smile")) &&
                original->SetChannelName(57, WStr(L"Brow \u00e9")) &&
                original->SetTarget(0, {{1, 2, 3}, {4, 5, 6}}) &&
                original->SetTarget(99, {{7, 8, 9}}) && original->SetWeight(57, 0, 40));
    original->DisableMod();
    auto* copy = SaveAndLoad(original);
    ASSERT_NE(copy, nullptr);
    EXPECT_FALSE(copy->IsEnabled());
    for (int ch = 0; ch < MorphModifier::kNumChannels; ++ch) {
        EXPECT_TRUE(copy->GetChannelName(ch) == original->GetChannelName(ch)) << ch;
        EXPECT_EQ(copy->GetTarget(ch), original->GetTarget(ch)) << ch;
    }
    EXPECT_EQ(copy->GetWeight(57, 0), 40.0f);
    LoadEveryPrefix(original);

    ChunkWriter bad;  // a channel past the last
    bad.BeginChunk(chunks::MORPH_CHANNEL);
    WriteValues(&bad, int32_t(MorphModifier::kNumChannels), uint32_t(0), uint32_t(0));
    bad.EndChunk();
    EXPECT_NE(LoadFailure(bad, [&](ILoad* r) { return copy->Load(r); }), "");
    copy->DeleteMe();
    original->DeleteMe();
}

TEST_F(ObjectSave, CurveControlsKeepRangesCurvesAndPoints) {
    auto* original = new ICurveCtl;
    original->SetNumCurves(3);
    original->SetXRange(-2, 5);
    original->SetYRange(0.5f, 3);
    ICurve* curve = original->GetControlCurve(1);
    curve->Insert({{0, 1}, {}, {0.4f, 0.8f}, CURVEP_BEZIER});
    curve->Insert({{2, -1}, {-0.5f, 0.2f}, {0.3f, 0}, CURVEP_BEZIER});
    curve->Insert({{3, 0}, {}, {}, CURVEP_CORNER | 0x100});
    auto* copy = SaveAndLoad(original);
    ASSERT_NE(copy, nullptr);
    const auto ranges = [](ICurveCtl* ctl) {
        std::array<float, 4> r;
        ctl->GetXRange(r[0], r[1]);
        ctl->GetYRange(r[2], r[3]);
        return r;
    };
    EXPECT_EQ(ranges(copy), ranges(original));
    ASSERT_EQ(copy->GetNumCurves(), 3);
    for (int c = 0; c < 3; ++c) {
        ICurve *a = original->GetControlCurve(c), *b = copy->GetControlCurve(c);
        ASSERT_EQ(b->GetNumPts(), a->GetNumPts());
        for (int i = 0; i < a->GetNumPts(); ++i)
            EXPECT_TRUE(b->GetPoint(0, i) == a->GetPoint(0, i));
        for (float x = -1; x <= 4; x += 0.125f) EXPECT_EQ(b->GetValue(0, x), a->GetValue(0, x));
    }
    LoadEveryPrefix(original);
    original->SetNumCurves(0);
    ICurveCtl* none = SaveAndLoad(original);
    EXPECT_EQ(none->GetNumCurves(), 0) << "a loaded control has the saved curves only";
    for (ICurveCtl* ctl : {copy, none, original}) ctl->DeleteMe();
}

TEST_F(ObjectSave, LayerTreesLoadWholeOrNotAtAll) {
    LayerManager original, loaded;
    for (const wchar_t* name : {L"Rig", L"Bones", L"Face", L"Late"})
        original.CreateLayer(WStr(name));
    // Parents: none, the default layer, a layer before, a layer after.
    ASSERT_TRUE(original.GetLayer(2)->SetParentLayer(original.GetLayer(1)) &&
                original.GetLayer(3)->SetParentLayer(original.GetLayer(4)) &&
                original.GetLayer(4)->SetParentLayer(original.GetLayer(0)));
    ChunkWriter writer;
    original.Save(&writer);
    ASSERT_EQ(LoadFailure(writer, [&](ILoad* r) { return loaded.Load(r); }), "");
    ASSERT_EQ(loaded.GetLayerCount(), 5);
    for (int i = 0; i < 5; ++i) {
        ILayer *a = original.GetLayer(i), *b = loaded.GetLayer(i);
        EXPECT_TRUE(b->GetName() == a->GetName());
        const ILayer* parent = a->GetParentLayer();
        EXPECT_EQ(b->GetParentLayer(), parent ? loaded.GetLayer(parent->GetName()) : nullptr);
    }
    LoadEveryPrefixOf(original);

    // A repeated name (the default layer's too), a parent that is no layer, a loop.
    const std::vector<std::pair<const wchar_t*, int32_t>> badTrees[] = {
        {{L"A", -1}, {L"A", -1}}, {{L"0", -1}}, {{L"A", 2}}, {{L"A", 2}, {L"B", 1}}};
    for (const auto& tree : badTrees) {
        ChunkWriter bad;
        for (const auto& [name, parent] : tree) {
            bad.BeginChunk(chunks::LAYERS_LAYER);
            bad.BeginChunk(chunks::LAYER_NAME);
            bad.WriteWString(WStr(name));
            bad.EndChunk();
            bad.WriteChunk(chunks::LAYER_PARENT, parent);
            bad.EndChunk();
        }
        EXPECT_NE(LoadFailure(bad, [&](ILoad* r) { return loaded.Load(r); }), "");
        EXPECT_EQ(loaded.GetLayerCount(), 5) << "a failed load keeps the layers";
    }
}

}  // namespace
}  // namespace host::test

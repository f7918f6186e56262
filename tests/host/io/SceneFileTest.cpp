#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>

#include "host/classes/BezierFloat.h"
#include "host/io/SceneFile.h"
#include "host/io/SceneReader.h"
#include "host/io/SceneWriter.h"
#include "tests/host/io/EveryClassScene.h"
#include "tests/host/io/SampleScene.h"
#include "tests/host/scene/SceneTestSupport.h"

namespace host {
namespace {

namespace fs = std::filesystem;

class SceneFiles : public test::SceneTest {
protected:
    // Keyed nodes in a random hierarchy, with properties set, a custom track, a
    // selection, and a time setting of their own.
    void Build(int count, uint32_t seed) {
        std::mt19937 rng(seed);
        std::vector<INode*> nodes;
        ILayer* outer = ip->GetLayerManager()->CreateLayer(WStr(L"Outer"));
        ILayer* inner = ip->GetLayerManager()->CreateLayer(WStr(L"Inner"));
        inner->SetParentLayer(outer);
        for (int i = 0; i < count; ++i) {
            INode* node = ip->CreateObjectNode(nullptr);
            if (i > 0 && rng() % 4 != 0) nodes[rng() % nodes.size()]->AttachChild(node, false);
            test::KeyNode(node, {0, 800, 1600, 4000}, rng);
            node->SetWireColor(RGB(rng() % 256, 20, 30));
            node->Hide(rng() % 2 == 0);
            node->SetTransformLock(1, int(rng() % 3), true);
            node->SetObjOffsetPos(Point3(1, 2, float(i)));
            if (ILayer* layer = i % 3 == 1 ? inner : i % 3 == 2 ? outer : nullptr)
                layer->AddToLayer(node);
            nodes.push_back(node);
        }
        ip->GetTrackViewRootNode()->AddController(new BezierFloat, L"Tools", Class_ID(7, 9));
        ip->GetScene().Select({nodes.back(), nodes.front()});
        ip->SetFrameRate(25);
        ip->SetAnimRange(Interval(-480, 9600));
        ip->SetTime(384, false);
    }

    using TransformMap = std::map<std::wstring, std::vector<Matrix3>>;
    // The first node and sample time whose transforms differ, or "" when none do.
    static std::string FirstDifference(const TransformMap& a, const TransformMap& b) {
        if (a.size() != b.size()) return "the node counts differ";
        for (const auto& [name, tms] : a) {
            const auto it = b.find(name);
            if (it == b.end()) return WStr(name.c_str()).ToUtf8() + " is missing";
            for (size_t k = 0; k < tms.size(); ++k)
                if (!(tms[k] == it->second[k]))
                    return WStr(name.c_str()).ToUtf8() + " at sample " + std::to_string(k);
        }
        return "";
    }

    // Saves the scene, loads it in place of itself, and expects the same bytes from the
    // loaded scene and the same transforms at every sample.
    void ExpectRoundTrip() {
        const auto before = Transforms();
        const std::vector<uint8_t> saved = SceneWriter::Write(*ip);
        ip->Reset();
        std::string error;
        ASSERT_TRUE(SceneReader::Read(saved, *ip, error)) << error;
        EXPECT_EQ(SceneWriter::Write(*ip), saved);
        EXPECT_EQ(FirstDifference(Transforms(), before), "");
    }

    // The layer of every node and the parent of every layer, by name.
    std::map<std::wstring, std::wstring> Layers() {
        std::map<std::wstring, std::wstring> all;
        ILayerManager* layers = ip->GetLayerManager();
        for (INode* node : Nodes())
            all[node->GetName()] = layers->GetNodeLayer(node)->GetName().data();
        for (int i = 0; i < layers->GetLayerCount(); ++i)
            if (ILayer* parent = layers->GetLayer(i)->GetParentLayer())
                all[std::wstring(L"layer ") + layers->GetLayer(i)->GetName().data()] =
                    parent->GetName().data();
        return all;
    }

    // Every node below the root.
    std::vector<INode*> Nodes() {
        std::vector<INode*> nodes, stack{ip->GetRootNode()};
        while (!stack.empty()) {
            INode* node = stack.back();
            stack.pop_back();
            for (int i = 0; i < node->NumberOfChildren(); ++i)
                stack.push_back(node->GetChildNode(i));
            if (!node->IsRootNode()) nodes.push_back(node);
        }
        return nodes;
    }

    // Every node's world transform at 50 times, by name.
    TransformMap Transforms() {
        TransformMap all;
        for (INode* node : Nodes())
            for (int k = 0; k < 50; ++k)
                all[node->GetName()].push_back(node->GetNodeTM(k * 97 - 300));
        return all;
    }

    fs::path dir_ = fs::temp_directory_path() / ("zv-scene-" + std::to_string(::getpid()));
    void SetUp() override {
        SceneTest::SetUp();
        fs::create_directories(dir_);
    }
    void TearDown() override {
        fs::remove_all(dir_);
        SceneTest::TearDown();
    }
};

// Save, load and save again gives the same bytes, and the loaded scene moves as the
// saved one did and has its layers.
TEST_F(SceneFiles, RoundTripKeepsBytesAndTransforms) {
    for (uint32_t seed : {1u, 2u, 3u}) {
        Build(12, seed);
        const auto layers = Layers();
        ASSERT_NO_FATAL_FAILURE(ExpectRoundTrip());
        EXPECT_EQ(Layers(), layers) << seed;
        EXPECT_EQ(ip->GetFrameRate(), 25);
        EXPECT_EQ(ip->GetAnimRange(), Interval(-480, 9600));
        EXPECT_EQ(ip->GetTime(), 384);
        ASSERT_EQ(ip->GetScene().Selection().size(), 2u);
        EXPECT_EQ(ip->GetTrackViewRootNode()->FindItem(L"Tools", Class_ID(7, 9)), 0);
        ip->Reset();
    }
}

// The same for scenes that use every class the host has, in random arrangements.
TEST_F(SceneFiles, EveryClassRoundTrips) {
    for (uint32_t seed : {11u, 12u, 13u}) {
        test::EveryClassScene(*ip, seed).Build();
        ASSERT_NO_FATAL_FAILURE(ExpectRoundTrip()) << seed;
        ip->Reset();
    }
}

// A damaged file is refused with a message naming the file; the scene stays as it was.
TEST_F(SceneFiles, DamagedFilesLeaveTheSceneAlone) {
    Build(4, 5);
    const std::string path = (dir_ / "a.tnx").string();
    std::string error;
    ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
    const std::vector<uint8_t> good = SceneWriter::Write(*ip);
    ip->Reset();
    Build(2, 6);
    const auto present = Transforms();
    const std::vector<uint8_t> presentBytes = SceneWriter::Write(*ip);
    for (size_t n : {size_t(0), size_t(5), size_t(12), good.size() / 3, good.size() - 1}) {
        std::ofstream(path, std::ios::binary | std::ios::trunc)
            .write(reinterpret_cast<const char*>(good.data()), std::streamsize(n));
        EXPECT_FALSE(LoadSceneFile(path, *ip, error)) << n;
        EXPECT_EQ(error.rfind(path + ": ", 0), 0u) << error;
        EXPECT_EQ(SceneWriter::Write(*ip), presentBytes) << n;
    }
    EXPECT_EQ(FirstDifference(Transforms(), present), "");
    EXPECT_FALSE(LoadSceneFile((dir_ / "none.tnx").string(), *ip, error));
    EXPECT_NE(error.find("cannot be opened"), std::string::npos) << error;
}

// A class the program does not know is named in the message.
TEST_F(SceneFiles, UnknownClassesAreNamed) {
    Build(1, 7);
    std::vector<uint8_t> bytes = SceneWriter::Write(*ip);
    // The bezier float's class id (0x2007, 0) in the class directory becomes unknown.
    const uint32_t known[2] = {0x2007, 0};
    const auto at = std::search(bytes.begin(), bytes.end(), reinterpret_cast<const uint8_t*>(known),
                                reinterpret_cast<const uint8_t*>(known) + sizeof(known));
    ASSERT_NE(at, bytes.end());
    *at = 0x77;
    std::string error;
    EXPECT_FALSE(SceneReader::Read(bytes, *ip, error));
    EXPECT_NE(error.find("class id (0x2077, 0x0)"), std::string::npos) << error;
}

// A save that cannot finish leaves what was there and no temporary file.
TEST_F(SceneFiles, FailedSaveKeepsTheOldFile) {
    Build(2, 8);
    const fs::path target = dir_ / "taken";
    fs::create_directories(target / "inside");
    std::string error;
    EXPECT_FALSE(SaveSceneFile(target.string(), *ip, error));
    EXPECT_EQ(error.rfind(target.string() + ": ", 0), 0u) << error;
    EXPECT_TRUE(fs::exists(target / "inside"));
    EXPECT_EQ(std::distance(fs::directory_iterator(dir_), fs::directory_iterator()), 1);

    // An object that cannot save itself fails the save, and the old file stays whole.
    struct Unsaveable : BezierFloat {
        IOResult Save(ISave*) override { return IO_ERROR; }
    };
    const std::string path = (dir_ / "kept.tnx").string();
    ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
    const auto kept = fs::file_size(path);
    ip->GetTrackViewRootNode()->AddController(new Unsaveable, L"Bad", Class_ID(1, 1));
    EXPECT_FALSE(SaveSceneFile(path, *ip, error));
    EXPECT_NE(error.find("could not save itself"), std::string::npos) << error;
    EXPECT_EQ(fs::file_size(path), kept);
}

// The checked-in sample, written by an earlier build, still loads into the scene it was
// written from.
TEST_F(SceneFiles, TheSampleSceneStillLoads) {
    test::BuildSampleScene(*ip);
    const auto built = Transforms();
    const auto layers = Layers();
    const size_t selected = ip->GetScene().Selection().size();
    ip->Reset();
    std::string error;
    ASSERT_TRUE(LoadSceneFile(ZV_SAMPLE_SCENE, *ip, error)) << error;
    EXPECT_EQ(FirstDifference(Transforms(), built), "");
    EXPECT_EQ(Layers(), layers);
    EXPECT_EQ(ip->GetScene().Selection().size(), selected);
    EXPECT_EQ(ip->GetTrackViewRootNode()->FindItem(L"Tools", Class_ID(0x51, 0x52)), 0);
}

}  // namespace
}  // namespace host

#include <filesystem>
#include <functional>
#include <string>

#include <gtest/gtest.h>

#include "host/io/CloneRemapDir.h"
#include "host/io/SceneFile.h"
#include "tests/src/rig/RigObjectTestSupport.h"

namespace zorvanta::test {
namespace {

using namespace host;

using RigPersistence = RigObjectTest;

RigSystem* RigOf(Interface* ip, const wchar_t* name) {
    INode* node = ip->GetINodeByName(name);
    return node ? dynamic_cast<RigSystem*>(node->GetObjectRef()) : nullptr;
}

// A rig with moved points, extras of every kind and a changed structure.
RigSystem* MakeEditedRig(RigSystem* rig) {
    rig->Block()->SetValue(RIG_FINGERS, 0, 4);
    rig->AddExtra(L"tail", {}, kSideCenter, 3, 5, true);
    rig->AddExtra(L"ear", L"tail_2", kSideBoth, 2);
    rig->SetPointPos(L"ear", Point3(3, 4, 5), kSideLeft, 1);
    rig->SetPointPos(L"upper_arm", Point3(-7, 8, 9), kSideRight);
    rig->WriteSelectedComponent(kExtraComponentBase + 1);
    return rig;
}

// A saved and reloaded scene, and a clone, hold the same points and extras; after the
// load, the next edit keeps the moved points.
TEST_F(RigPersistence, SaveLoadAndCloneKeepPointsAndExtras) {
    RigSystem* rig = MakeEditedRig(MakeRig(L"Hero"));
    const std::vector<RigPoint> points = rig->points;
    const std::vector<RigExtra> extras = rig->extras;

    auto* clone = dynamic_cast<RigSystem*>(CloneRefHierarchy(rig));
    ASSERT_NE(clone, nullptr);
    EXPECT_EQ(clone->points, points);
    EXPECT_EQ(clone->extras, extras);
    EXPECT_NE(clone->Block(), rig->Block());
    EXPECT_EQ(clone->Block()->GetInt(RIG_FINGERS), 4);
    clone->DeleteMe();

    const std::string path = (std::filesystem::path(testing::TempDir()) / "rig.zvs").string();
    std::string error;
    ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
    ip->Reset();
    ASSERT_TRUE(LoadSceneFile(path, *ip, error)) << error;
    std::filesystem::remove(path);
    RigSystem* read = RigOf(ip, L"Hero");
    ASSERT_NE(read, nullptr);
    EXPECT_EQ(read->points, points);
    EXPECT_EQ(read->extras, extras);
    EXPECT_EQ(read->selectedComponent, kExtraComponentBase + 1);
    EXPECT_EQ(read->LastParams().values, GuideParams::Read(read->Block()).values);

    read->Block()->SetValue(RIG_TOES, 0, 2);
    EXPECT_EQ(read->GetPointPos(L"ear", kSideLeft, 1), Point3(3, 4, 5));
    EXPECT_EQ(read->GetPointPos(L"upper_arm", kSideRight), Point3(-7, 8, 9));
}

// A file whose points link outside the list, or whose extra has a side or count out of
// range, is refused with a message, and the scene stays as it was.
TEST_F(RigPersistence, MalformedPointsAndExtrasAreRefused) {
    const struct {
        std::function<void(RigSystem*)> corrupt;
        const char* message;
    } cases[] = {
        {[](RigSystem* rig) { rig->points[1].parent = 99; }, "links to a point"},
        {[](RigSystem* rig) { rig->points[0].mirror = -2; }, "links to a point"},
        {[](RigSystem* rig) { rig->extras[0].side = 9; }, "out of range"},
        {[](RigSystem* rig) { rig->extras[1].numControls = 0; }, "out of range"},
    };
    const std::string path = (std::filesystem::path(testing::TempDir()) / "bad_rig.zvs").string();
    for (const auto& c : cases) {
        SCOPED_TRACE(c.message);
        ip->Reset();
        c.corrupt(MakeEditedRig(MakeRig(L"Hero")));
        std::string error;
        ASSERT_TRUE(SaveSceneFile(path, *ip, error)) << error;
        ip->Reset();
        MakeRig(L"Before");
        EXPECT_FALSE(LoadSceneFile(path, *ip, error));
        EXPECT_NE(error.find(c.message), std::string::npos) << error;
        EXPECT_NE(RigOf(ip, L"Before"), nullptr);
        EXPECT_EQ(RigOf(ip, L"Hero"), nullptr);
    }
    std::filesystem::remove(path);
}

}  // namespace
}  // namespace zorvanta::test

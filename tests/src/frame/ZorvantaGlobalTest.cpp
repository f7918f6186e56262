#include <gtest/gtest.h>

#include <unistd.h>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "frame/Settings.h"
#include "frame/ZorvantaInterface.h"
#include "host/classes/HostClasses.h"
#include "host/core/IniSettings.h"
#include "host/object/Interface.h"
#include "host/object/ScriptedDialogService.h"
#include "host/script/ExecuteScript.h"

namespace zorvanta::test {
namespace {

using namespace host;
namespace fs = std::filesystem;

// The plug-in's global and settings as scripts and the toolkit reach them, with the
// settings file in a folder of the test's own.
class ZorvantaGlobal : public ::testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        folder_ = fs::temp_directory_path() / ("zv_frame_settings_" + std::to_string(getpid()));
        fs::create_directories(folder_);
        SetTarnixIniFile((folder_ / "Tarnix.ini").string());
        GetCOREInterface()->SetDialogService(&dialogs_);
    }
    void TearDown() override {
        GetCOREInterface()->SetDialogService(nullptr);
        SetTarnixIniFile("");
        fs::remove_all(folder_);
        ZorvantaInterface::Get().finders = {};
        ZorvantaInterface::Get().uiPanelTransforming = false;
    }
    FPValue Run(const wchar_t* text) {
        FPValue result;
        EXPECT_TRUE(ExecuteTarnixScriptScript(text, true, &result)) << WStr(text).ToUtf8();
        return result;
    }
    std::string SettingsFile() const {
        std::ostringstream text;
        text << std::ifstream(folder_ / "Tarnix.ini").rdbuf();
        return text.str();
    }

    fs::path folder_;
    ScriptedDialogService dialogs_;
};

TEST_F(ZorvantaGlobal, SettingsKeepPathsAndNumbersInTheirSection) {
    WStr text = L"unchanged";
    int number = 7;
    EXPECT_FALSE(GetStringSetting(L"LastRigFile", text));
    EXPECT_FALSE(GetIntSetting(L"ImportStartFrame", number));
    EXPECT_EQ(text, WStr(L"unchanged"));
    EXPECT_EQ(number, 7);

    const wchar_t* path = L"C:\\Rigs\\hero\\new folder\\hero.rig";
    ASSERT_TRUE(SetStringSetting(L"LastRigFile", path));
    ASSERT_TRUE(SetIntSetting(L"ImportStartFrame", -12));
    ASSERT_TRUE(GetStringSetting(L"LastRigFile", text));
    EXPECT_EQ(text, WStr(path));
    ASSERT_TRUE(GetIntSetting(L"ImportStartFrame", number));
    EXPECT_EQ(number, -12);
    EXPECT_NE(SettingsFile().find("[Zorvanta]"), std::string::npos) << SettingsFile();

    // A value the script's verbatim string cannot hold fails and writes nothing.
    EXPECT_FALSE(SetStringSetting(L"Quoted", L"say \"hi\""));
    EXPECT_FALSE(GetStringSetting(L"Quoted", text));
}

TEST_F(ZorvantaGlobal, ScriptsReadWhatTheSubsystemsProvide) {
    EXPECT_EQ(*Run(L"Zorvanta.uiPanelTransforming").Get<int>(), 0);
    EXPECT_EQ(Run(L"Zorvanta.activeUIPanel == undefined and Zorvanta.GetUIPanelHolder() == "
                  L"undefined")
                  .Get<int>()[0],
              1);
    ZorvantaInterface::Get().uiPanelTransforming = true;
    static INode* panel = nullptr;
    panel = GetCOREInterface()->CreateObjectNode(nullptr);
    panel->SetName(L"Panel");
    ZorvantaInterface::Get().finders.activeUIPanel = [] { return panel; };
    EXPECT_EQ(*Run(L"Zorvanta.uiPanelTransforming").Get<int>(), 1);
    EXPECT_EQ(*Run(L"Zorvanta.activeUIPanel.name").Get<WStr>(), WStr(L"Panel"));
    FPValue failed;
    EXPECT_FALSE(ExecuteTarnixScriptScript(L"Zorvanta.uiPanelTransforming = false", true, &failed));

    Run(L"Zorvanta.About()");
    ASSERT_EQ(dialogs_.Requests().size(), 1u);
    EXPECT_EQ(dialogs_.Requests()[0].title, WStr(L"About Zorvanta"));
    GetCOREInterface()->Reset();
}

}  // namespace
}  // namespace zorvanta::test

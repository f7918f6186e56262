#include <gtest/gtest.h>

#include <unistd.h>
#include <filesystem>

#include "host/classes/HostClasses.h"
#include "host/core/IniSettings.h"
#include "host/object/Hold.h"
#include "host/object/Interface.h"
#include "host/object/ScriptedDialogService.h"
#include "host/script/ExecuteScript.h"

namespace host::script {
namespace {

namespace fs = std::filesystem;

class ServicesTest : public testing::Test {
protected:
    void SetUp() override {
        RegisterHostClasses();
        ip->Reset();
        folder = fs::temp_directory_path() / ("zv_script_services_" + std::to_string(getpid()));
        fs::create_directories(folder);
        SetTarnixIniFile((folder / "Tarnix.ini").string());
        ip->SetDialogService(&dialogs);
    }
    void TearDown() override {
        ip->SetDialogService(nullptr);
        SetTarnixIniFile("");
        fs::remove_all(folder);
        ip->Reset();
    }
    // The value of the last expression as a string.
    WStr RunForString(const wchar_t* text) {
        FPValue result;
        EXPECT_TRUE(ExecuteTarnixScriptScript(text, true, &result)) << WStr(text).ToUtf8();
        const WStr* s = result.Get<WStr>();
        return s ? *s : WStr(L"<no string>");
    }

    Interface* ip = GetCOREInterface();
    ScriptedDialogService dialogs;
    fs::path folder;
};

// The settings texts the toolkit sends, word for word, checked against the file itself.
TEST_F(ServicesTest, SettingsTextsWriteAndReadTheSettingsFile) {
    ASSERT_TRUE(ExecuteTarnixScriptScript(
        L"SetINISetting (getTarnixIniFile()) \"Zorvanta\" \"ImportStartFrame\" \"12\""));
    ASSERT_TRUE(ExecuteTarnixScriptScript(
        L"SetINISetting (getTarnixIniFile()) \"Zorvanta\" \"LastClip\" @\"C:\\anim\\walk.clp\""));
    EXPECT_EQ(GetINISetting(getTarnixIniFile(), L"Zorvanta", L"ImportStartFrame"), WStr(L"12"));
    EXPECT_EQ(GetINISetting(getTarnixIniFile(), L"Zorvanta", L"LastClip"),
              WStr(L"C:\\anim\\walk.clp"));
    EXPECT_EQ(RunForString(L"GetINISetting (getTarnixIniFile()) \"Zorvanta\" \"ImportStartFrame\""),
              WStr(L"12"));
    EXPECT_EQ(RunForString(L"GetINISetting (getTarnixIniFile()) \"Zorvanta\" \"Missing\""), WStr());
    EXPECT_EQ(RunForString(L"getTarnixIniFile()"), WStr((folder / "Tarnix.ini").wstring()));
}

TEST_F(ServicesTest, NoOtherFileCanBeReadOrWritten) {
    const fs::path other = folder / "other.ini";
    const std::wstring text = L"try (SetINISetting @\"" + other.wstring() +
                              L"\" \"S\" \"k\" \"v\") catch (getCurrentException())";
    EXPECT_EQ(
        RunForString(text.c_str()),
        WStr(L"SetINISetting: only the host's settings files can be used, not " + other.wstring()));
    EXPECT_FALSE(fs::exists(other));
}

// A failing panel action shows its error in a message box titled "UI Action", and what
// the action did before the error is taken back.
TEST_F(ServicesTest, FailingActionShowsItsErrorAndChangesNothing) {
    ASSERT_TRUE(ExecuteTarnixScriptScript(L"Point name:\"Head\""));
    theHold.ClearUndo();
    const wchar_t* text =
        L"try(\nundo \"UI Action\" on(\n"
        L"head=$Head\n"
        L"head.position = [0, 0, 5]\nnotAFunction head"
        L"\n)\n)catch(messagebox (getCurrentException()) title:\"UI Action\")";
    ASSERT_TRUE(ExecuteTarnixScriptScript(text, false, nullptr));
    ASSERT_EQ(dialogs.Requests().size(), 1u);
    EXPECT_EQ(dialogs.Requests()[0].kind, ScriptedDialogService::RequestKind::MESSAGE_BOX);
    EXPECT_EQ(dialogs.Requests()[0].title, WStr(L"UI Action"));
    EXPECT_EQ(dialogs.Requests()[0].text, WStr(L"Call needs function or class, got: undefined"));
    FPValue z;
    ASSERT_TRUE(ExecuteTarnixScriptScript(L"$Head.position.z", false, &z));
    EXPECT_EQ(*z.Get<float>(), 0.0f);
    EXPECT_EQ(theHold.NumUndoEntries(), 0);
}

}  // namespace
}  // namespace host::script

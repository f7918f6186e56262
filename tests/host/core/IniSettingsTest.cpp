#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <climits>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <vector>

#include "host/core/IniSettings.h"

namespace host {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void WriteFile(const fs::path& path, const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
}

// Runs check as a user without privileges, so that file modes hold: a root process
// (which ignores them) runs it in a child that gives up root first. True when check
// returned true.
bool Unprivileged(const std::function<bool()>& check) {
    if (::geteuid() != 0) return check();
    const pid_t child = ::fork();
    if (child == 0) {
        const uid_t nobody = 65534;
        _exit(::setgid(nobody) == 0 && ::setuid(nobody) == 0 && check() ? 0 : 1);
    }
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class IniSettings : public ::testing::Test {
protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "zv-settings-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        root = pattern;
        ::chmod(root.c_str(), 0755);  // a child without root must reach inside
        SetConfigFolder((root / "config").string());
    }
    void TearDown() override {
        SetConfigFolder("");
        SetTarnixIniFile("");
        fs::remove_all(root);
    }

    fs::path IniPath() const { return fs::path(getTarnixIniFile().ToUtf8()); }

    fs::path root;
};

TEST_F(IniSettings, ValuesRoundTripThroughANewFileInANewFolder) {
    EXPECT_EQ(IniPath(), root / "config" / "Tarnix.ini");
    const WStr file = getTarnixIniFile();
    EXPECT_EQ(GetINISetting(file, L"Zorvanta", L"ImportFilterIndex"), WStr());
    ASSERT_TRUE(SetINISetting(file, L"Zorvanta", L"ImportFilterIndex", L"2"));
    ASSERT_TRUE(SetINISetting(file, L"Zorvanta", L"LastRig", L"C:\\rigs\\caf\u00e9.rig"));
    ASSERT_TRUE(SetINISetting(file, L"Zorvanta", L"ImportFilterIndex", L"3"));
    EXPECT_EQ(GetINISetting(file, L"zorvanta", L"importfilterindex"), WStr(L"3"));
    EXPECT_EQ(GetINISetting(file, L"Zorvanta", L"LastRig"), WStr(L"C:\\rigs\\caf\u00e9.rig"));
    EXPECT_EQ(ReadFile(IniPath()),
              "[Zorvanta]\nImportFilterIndex=3\nLastRig=C:\\rigs\\caf\xC3\xA9.rig\n");
    EXPECT_FALSE(SetINISetting(file, L"Zorvanta", L"Bad=Key", L"1"));
    EXPECT_FALSE(SetINISetting(L"", L"Zorvanta", L"Key", L"1"));
}

TEST_F(IniSettings, TheFileFollowsTheOverridesAndTheEnvironment) {
    SetTarnixIniFile((root / "elsewhere.ini").string());
    EXPECT_EQ(IniPath(), root / "elsewhere.ini");
    SetTarnixIniFile("");
    SetConfigFolder("");
    const char* savedConfigHome = std::getenv("XDG_CONFIG_HOME");
    const std::string saved = savedConfigHome ? savedConfigHome : "";
    ::setenv("XDG_CONFIG_HOME", root.c_str(), 1);
    EXPECT_EQ(IniPath(), root / "zorvanta" / "Tarnix.ini");
    ::setenv("XDG_CONFIG_HOME", "relative/is/ignored", 1);
    const char* home = std::getenv("HOME");
    EXPECT_EQ(IniPath(), fs::path(home ? home : "") / ".config" / "zorvanta" / "Tarnix.ini");
    if (savedConfigHome)
        ::setenv("XDG_CONFIG_HOME", saved.c_str(), 1);
    else
        ::unsetenv("XDG_CONFIG_HOME");
}

TEST_F(IniSettings, AFailedWriteKeepsTheOldFile) {
    const fs::path folder = root / "config";
    fs::create_directories(folder);
    const std::string old = "; mine\r\n[Zorvanta]\r\nKey=old\r\n";
    WriteFile(IniPath(), old);
    const WStr file = getTarnixIniFile();
    auto refused = [&](const char* readBack) {
        return Unprivileged([&] {
            return !SetINISetting(file, L"Zorvanta", L"Key", L"new") &&
                   GetINISetting(file, L"Zorvanta", L"Key") == WStr::FromUtf8(readBack);
        });
    };

    // A folder that cannot be written to.
    ::chmod(IniPath().c_str(), 0644);
    ::chmod(folder.c_str(), 0555);
    EXPECT_TRUE(refused("old"));
    EXPECT_EQ(ReadFile(IniPath()), old);
    EXPECT_EQ(fs::directory_iterator(folder)->path(), IniPath());  // no temporary file left

    // A file that cannot be read is not replaced by one holding only the new key.
    ::chmod(folder.c_str(), 0777);
    ::chmod(IniPath().c_str(), 0);
    EXPECT_TRUE(refused(""));
    ::chmod(folder.c_str(), 0755);
    EXPECT_EQ(ReadFile(IniPath()), old);
}

TEST_F(IniSettings, PrivateProfileCalls) {
    const std::string path = (root / "PlugCfg.ini").string();
    WriteFile(path,
              "[UIPanelManager]\nUIPanelManager_PosX=-40\nUIPanelManager_PosY= 12px\n"
              "UIPanelManager_SizeX=wide\nHuge=99999999999\nSmall=-99999999999\n"
              "[Keep]\nA=1\n");
    const std::wstring wide = WStr::FromUtf8(path).str();
    const wchar_t* file = wide.c_str();
    struct IntCase {
        const wchar_t* key;
        int expected;
    };
    const std::vector<IntCase> ints = {
        {L"UIPanelManager_PosX", -40}, {L"UIPanelManager_PosY", 12}, {L"UIPanelManager_SizeX", 77},
        {L"UIPanelManager_SizeY", 77}, {L"Huge", INT_MAX},           {L"Small", INT_MIN},
    };
    for (const IntCase& c : ints)
        EXPECT_EQ(Util::GetPrivateProfileInt(L"UIPanelManager", c.key, 77, file), c.expected)
            << WStr(c.key).ToUtf8();
    EXPECT_EQ(Util::GetPrivateProfileString(L"UIPanelManager", L"UIPanelManager_SizeX", L"d", file),
              WStr(L"wide"));
    EXPECT_EQ(Util::GetPrivateProfileString(L"UIPanelManager", L"None", L"d", file), WStr(L"d"));
    EXPECT_EQ(Util::GetPrivateProfileString(L"UIPanelManager", L"None", nullptr, file), WStr());

    EXPECT_TRUE(
        Util::WritePrivateProfileString(L"UIPanelManager", L"UIPanelManager_SizeX", L"640", file));
    EXPECT_EQ(Util::GetPrivateProfileInt(L"UIPanelManager", L"UIPanelManager_SizeX", 0, file), 640);
    EXPECT_TRUE(Util::WritePrivateProfileString(L"UIPanelManager", L"Huge", nullptr, file));
    EXPECT_EQ(Util::GetPrivateProfileInt(L"UIPanelManager", L"Huge", 5, file), 5);
    EXPECT_TRUE(Util::WritePrivateProfileString(L"UIPanelManager", nullptr, nullptr, file));
    EXPECT_EQ(ReadFile(path), "[Keep]\nA=1\n");
    EXPECT_FALSE(Util::WritePrivateProfileString(nullptr, L"A", L"2", file));
    // Removing from a file that is not there leaves it not there.
    const std::wstring absent = WStr::FromUtf8((root / "absent.ini").string()).str();
    EXPECT_TRUE(Util::WritePrivateProfileString(L"Keep", L"A", nullptr, absent.c_str()));
    EXPECT_FALSE(fs::exists(root / "absent.ini"));
}

}  // namespace
}  // namespace host

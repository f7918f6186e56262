#include "host/core/IniSettings.h"

#include <algorithm>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>

#include "host/core/IniFile.h"
#include "host/core/SettingsNames.h"

namespace host {

namespace {

std::string& ConfigFolderOverride() {
    static std::string folder;
    return folder;
}

std::string& TarnixIniOverride() {
    static std::string path;
    return path;
}

std::string Utf8(const wchar_t* text) {
    return text ? WStr(text).ToUtf8() : std::string();
}

std::optional<std::string> ReadValue(const std::string& file, const std::string& section,
                                     const std::string& key) {
    IniFile ini;
    if (ini.Load(file) != IniFile::LoadStatus::LOADED) return std::nullopt;
    return ini.Get(section, key);
}

// Loads the file, lets change edit it, and writes it back when change made a difference.
// A file that exists but cannot be read is never replaced: that would lose its contents.
bool EditFile(const std::string& file, const std::function<bool(IniFile&)>& change) {
    IniFile ini;
    if (file.empty() || ini.Load(file) == IniFile::LoadStatus::UNREADABLE) return false;
    const std::string before = ini.Text();
    if (!change(ini)) return false;
    if (ini.Text() == before) return true;
    std::error_code ignored;
    const std::filesystem::path folder = std::filesystem::path(file).parent_path();
    if (!folder.empty()) std::filesystem::create_directories(folder, ignored);
    return ini.Save(file).Ok();
}

}  // namespace

std::string ConfigFolder() {
    if (!ConfigFolderOverride().empty()) return ConfigFolderOverride();
    const char* configHome = std::getenv(kConfigHomeVariable);
    if (configHome && configHome[0] == '/')
        return (std::filesystem::path(configHome) / kHostConfigFolder).string();
    const char* home = std::getenv(kHomeVariable);
    return (std::filesystem::path(home ? home : "") / kHomeConfigFolder / kHostConfigFolder)
        .string();
}

void SetConfigFolder(std::string folder) {
    ConfigFolderOverride() = std::move(folder);
}

void SetTarnixIniFile(std::string path) {
    TarnixIniOverride() = std::move(path);
}

WStr getTarnixIniFile() {
    if (!TarnixIniOverride().empty()) return WStr::FromUtf8(TarnixIniOverride());
    return WStr::FromUtf8((std::filesystem::path(ConfigFolder()) / kTarnixIniName).string());
}

WStr GetPlugCfgIniFile() {
    return WStr::FromUtf8((std::filesystem::path(ConfigFolder()) / kPlugCfgIniName).string());
}

WStr GetINISetting(const WStr& file, const WStr& section, const WStr& key) {
    return WStr::FromUtf8(
        ReadValue(file.ToUtf8(), section.ToUtf8(), key.ToUtf8()).value_or(std::string()));
}

bool SetINISetting(const WStr& file, const WStr& section, const WStr& key, const WStr& value) {
    return EditFile(file.ToUtf8(), [&](IniFile& ini) {
        return ini.Set(section.ToUtf8(), key.ToUtf8(), value.ToUtf8());
    });
}

namespace Util {

int GetPrivateProfileInt(const wchar_t* section, const wchar_t* key, int defaultValue,
                         const wchar_t* file) {
    const std::optional<std::string> value = ReadValue(Utf8(file), Utf8(section), Utf8(key));
    if (!value) return defaultValue;
    const char* start = value->c_str();
    char* end = nullptr;
    const long number = std::strtol(start, &end, 10);
    if (end == start) return defaultValue;
    return int(std::clamp<long>(number, INT_MIN, INT_MAX));
}

WStr GetPrivateProfileString(const wchar_t* section, const wchar_t* key,
                             const wchar_t* defaultValue, const wchar_t* file) {
    const std::optional<std::string> value = ReadValue(Utf8(file), Utf8(section), Utf8(key));
    return value ? WStr::FromUtf8(*value) : WStr(defaultValue);
}

bool WritePrivateProfileString(const wchar_t* section, const wchar_t* key, const wchar_t* value,
                               const wchar_t* file) {
    if (!section) return false;
    return EditFile(Utf8(file), [&](IniFile& ini) {
        if (key && value) return ini.Set(Utf8(section), Utf8(key), Utf8(value));
        if (key)
            ini.RemoveKey(Utf8(section), Utf8(key));
        else
            ini.RemoveSection(Utf8(section));
        return true;
    });
}

}  // namespace Util

}  // namespace host

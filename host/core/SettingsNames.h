#pragma once

namespace host {

// Where the host keeps its settings, and the sections the toolkit writes there.

// The environment variables that place the user's configuration folder; the first is
// used when it holds an absolute path, else the second with kHomeConfigFolder under it.
inline constexpr const char* kConfigHomeVariable = "XDG_CONFIG_HOME";
inline constexpr const char* kHomeVariable = "HOME";
inline constexpr const char* kHomeConfigFolder = ".config";
// The host's own folder inside the configuration folder.
inline constexpr const char* kHostConfigFolder = "zorvanta";

// The host's settings file, which scripts reach through getTarnixIniFile().
inline constexpr const char* kTarnixIniName = "Tarnix.ini";
// The file plug-ins keep their window geometry and the like in.
inline constexpr const char* kPlugCfgIniName = "PlugCfg.ini";

// Sections: the toolkit's settings in Tarnix.ini, the panel manager's window in the
// plug-in file.
inline constexpr const wchar_t* kZorvantaSection = L"Zorvanta";
inline constexpr const wchar_t* kUIPanelManagerSection = L"UIPanelManager";

}  // namespace host

#pragma once

#include <string>
#include <vector>

#include "host/core/WStr.h"

namespace host {

class ClassDesc2;

// A library of classes, mapped from a shared object: its exports as the scene model
// calls them. A library stays mapped until the process ends, as the host never unloads
// one while it runs.
struct Plugin {
    std::string path;
    WStr description;
    unsigned long version = 0;
    std::vector<ClassDesc2*> classes;
};

// The host release and interface number a library must be built for: the top 24 bits
// of its LibVersion.
inline constexpr unsigned long PLUGIN_API_VERSION = 0x55f037;

// Loads the library at path: checks its exports and version, asks it for its class
// descriptors, registers each with the class directory and calls LibInitialize. False
// with error saying which file and what is wrong, and nothing registered, when the file
// cannot be mapped, an export is missing, the version differs or LibInitialize fails. A
// library loaded already is not loaded again (true).
bool LoadPlugin(const std::string& path, std::string& error);
// Loads every "*.so" file of dir, in name order; errors collects one line per file
// that fails. A missing folder holds no libraries. The number of libraries loaded.
int LoadPluginFolder(const std::string& dir, std::vector<std::string>& errors);
// The folders searched at start-up: those of the environment variable
// ZORVANTA_PLUGIN_PATH (separated by ':') when it is set, otherwise the folder
// "plugins" beside the running executable.
std::vector<std::string> PluginFolders();
// The libraries loaded so far, in load order.
const std::vector<Plugin>& LoadedPlugins();

}  // namespace host

#include "host/object/PluginLoader.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "host/object/ClassRegistry.h"

namespace host {

namespace {

using LibDescriptionFn = const wchar_t* (*)();
using LibNumberClassesFn = int (*)();
using LibClassDescFn = ClassDesc2* (*)(unsigned int);
using LibVersionFn = unsigned long (*)();
using LibInitializeFn = int (*)();

std::vector<Plugin>& Loaded() {
    static std::vector<Plugin> plugins;
    return plugins;
}

// The library's exports; false with the name of the first one missing.
struct Exports {
    LibDescriptionFn description = nullptr;
    LibNumberClassesFn numberClasses = nullptr;
    LibClassDescFn classDesc = nullptr;
    LibVersionFn version = nullptr;
    LibInitializeFn initialize = nullptr;

    bool Find(void* handle, std::string& missing) {
        return Bind(handle, "LibDescription", description, missing) &&
               Bind(handle, "LibNumberClasses", numberClasses, missing) &&
               Bind(handle, "LibClassDesc", classDesc, missing) &&
               Bind(handle, "LibVersion", version, missing) &&
               Bind(handle, "LibInitialize", initialize, missing);
    }

private:
    template <class Fn>
    static bool Bind(void* handle, const char* name, Fn& fn, std::string& missing) {
        fn = reinterpret_cast<Fn>(dlsym(handle, name));
        if (!fn) missing = name;
        return fn != nullptr;
    }
};

// Registers the descriptors; on a refused one, takes back those registered before it.
bool RegisterClasses(const std::vector<ClassDesc2*>& classes, std::string& error) {
    ClassRegistry& registry = ClassRegistry::Instance();
    for (size_t i = 0; i < classes.size(); ++i) {
        if (registry.Register(classes[i])) continue;
        for (size_t j = 0; j < i; ++j) registry.Unregister(classes[j]);
        error = "class " + std::to_string(i) + " has a (superclass, class id) pair that is taken";
        return false;
    }
    return true;
}

}  // namespace

bool LoadPlugin(const std::string& path, std::string& error) {
    const std::string canonical = std::filesystem::weakly_canonical(path).string();
    auto& loaded = Loaded();
    if (std::any_of(loaded.begin(), loaded.end(),
                    [&](const Plugin& p) { return p.path == canonical; }))
        return true;
    void* handle = dlopen(canonical.c_str(), RTLD_NOW | RTLD_GLOBAL);
    if (!handle) {
        const char* why = dlerror();
        error = path + ": cannot load the library: " + (why ? why : "unknown error");
        return false;
    }
    // From here on the library stays mapped: static objects of it may be registered
    // anywhere, so it is never closed.
    Exports exports;
    std::string missing;
    if (!exports.Find(handle, missing)) {
        error = path + ": not a class library: the export " + missing + " is missing";
        return false;
    }
    Plugin plugin{canonical, WStr(exports.description()), exports.version(), {}};
    if ((plugin.version >> 8) != PLUGIN_API_VERSION) {
        error = path + ": built for another host version";
        return false;
    }
    const int count = exports.numberClasses();
    for (int i = 0; i < count; ++i)
        if (ClassDesc2* desc = exports.classDesc(unsigned(i))) plugin.classes.push_back(desc);
    std::string why;
    if (!RegisterClasses(plugin.classes, why)) {
        error = path + ": " + why;
        return false;
    }
    if (!exports.initialize()) {
        for (ClassDesc2* desc : plugin.classes) ClassRegistry::Instance().Unregister(desc);
        error = path + ": the library's initialisation failed";
        return false;
    }
    loaded.push_back(std::move(plugin));
    return true;
}

int LoadPluginFolder(const std::string& dir, std::vector<std::string>& errors) {
    std::error_code ec;
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(dir, ec))
        if (entry.path().extension() == ".so") files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    int count = 0;
    for (const auto& file : files) {
        std::string error;
        if (LoadPlugin(file.string(), error))
            ++count;
        else
            errors.push_back(error);
    }
    return count;
}

std::vector<std::string> PluginFolders() {
    std::vector<std::string> folders;
    if (const char* list = std::getenv("ZORVANTA_PLUGIN_PATH")) {
        std::string rest = list;
        for (size_t colon; (colon = rest.find(':')) != std::string::npos; rest.erase(0, colon + 1))
            if (colon > 0) folders.push_back(rest.substr(0, colon));
        if (!rest.empty()) folders.push_back(rest);
        return folders;
    }
    std::error_code ec;
    const auto exe = std::filesystem::read_symlink("/proc/self/exe", ec);
    if (!ec) folders.push_back((exe.parent_path() / "plugins").string());
    return folders;
}

const std::vector<Plugin>& LoadedPlugins() {
    return Loaded();
}

}  // namespace host

// The zorvanta command-line tool: argument parsing and wiring only.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "apps/zorvanta/InfoCommand.h"
#include "apps/zorvanta/RenderCommand.h"
#include "apps/zorvanta/RigCommand.h"
#include "apps/zorvanta/ScriptCommand.h"
#include "host/classes/HostClasses.h"
#include "host/object/Interface.h"
#include "host/object/PluginLoader.h"

namespace {

constexpr const char* kUsage =
    "Usage: zorvanta [--help] [--version]\n"
    "       zorvanta info <scene>\n"
    "       zorvanta render <scene> [--frame N] [--view front|side|top|persp]\n"
    "                       [--size WxH] [--grid] --out <png>\n"
    "       zorvanta run <script.trx> [--scene in.tnx] [--save out.tnx]\n"
    "       zorvanta rig --type TYPE [--set name=value ...] [--build] --out <scene>\n"
    "                    [--render <png>]\n"
    "       zorvanta repl\n"
    "\n"
    "Zorvanta, a character rigging and animation toolkit.\n"
    "\n"
    "Commands:\n"
    "  info <scene>   print the scene's node tree: objects, controllers, key counts\n"
    "  render <scene> draw the scene's wireframe at a frame (the scene's time unless\n"
    "                 given), framed on what is visible, 640x480 from the front unless\n"
    "                 asked, with the home grid on --grid, into a PNG file\n"
    "  run <script>   run a TarnixScript file, on the scene given with --scene (an\n"
    "                 empty one otherwise), and save the scene after it with --save\n"
    "  rig            make a rig object of a type (Biped, Quadruped, Hands, ... by its\n"
    "                 script name, any case), set its parameters by their script\n"
    "                 names (numbers, true/false, text, colours as r,g,b), build the\n"
    "                 rig with --build, save the scene, and draw it with --render\n"
    "  repl           a script listener: reads expressions from the input, prints\n"
    "                 their output and values, and keeps its variables\n"
    "\n"
    "Options:\n"
    "  -h, --help     show this text and exit\n"
    "  --version      print the version and exit\n";

int Usage(std::FILE* out, int code) {
    std::fputs(kUsage, out);
    return code;
}

// Starts the host with the plug-ins of its plug-in folders; a library that fails to
// load is named on stderr and the tool goes on without it.
void StartWithPlugins() {
    std::vector<std::string> errors;
    host::StartHostWithPlugins(host::PluginFolders(), errors);
    for (const std::string& error : errors)
        std::fprintf(stderr, "zorvanta: warning: %s\n", error.c_str());
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return Usage(stderr, 2);
    // Nobody answers dialogs here: they take their default answers and print their text.
    host::GetCOREInterface()->SetQuietMode(true);
    const char* arg = argv[1];
    if (std::strcmp(arg, "--help") == 0 || std::strcmp(arg, "-h") == 0) return Usage(stdout, 0);
    if (std::strcmp(arg, "--version") == 0) {
        std::printf("zorvanta %s\n", ZV_VERSION);
        return 0;
    }
    StartWithPlugins();
    if (std::strcmp(arg, "info") == 0) {
        if (argc != 3) {
            std::fputs("zorvanta: info takes one scene file (try --help)\n", stderr);
            return 2;
        }
        return zorvanta::cli::RunInfo(argv[2], stdout, stderr);
    }
    if (std::strcmp(arg, "render") == 0) {
        zorvanta::cli::RenderOptions options;
        std::string error;
        if (!zorvanta::cli::ParseRenderArgs(std::vector<std::string>(argv + 2, argv + argc),
                                            options, error)) {
            std::fprintf(stderr, "zorvanta: %s (try --help)\n", error.c_str());
            return 2;
        }
        return zorvanta::cli::RunRender(options, stderr);
    }
    if (std::strcmp(arg, "run") == 0) {
        zorvanta::cli::RunOptions options;
        std::string error;
        if (!zorvanta::cli::ParseRunArgs(std::vector<std::string>(argv + 2, argv + argc), options,
                                         error)) {
            std::fprintf(stderr, "zorvanta: %s (try --help)\n", error.c_str());
            return 2;
        }
        return zorvanta::cli::RunScript(options, stdout, stderr);
    }
    if (std::strcmp(arg, "rig") == 0) {
        zorvanta::cli::RigOptions options;
        std::string error;
        if (!zorvanta::cli::ParseRigArgs(std::vector<std::string>(argv + 2, argv + argc), options,
                                         error)) {
            std::fprintf(stderr, "zorvanta: %s (try --help)\n", error.c_str());
            return 2;
        }
        return zorvanta::cli::RunRig(options, stderr);
    }
    if (std::strcmp(arg, "repl") == 0) {
        if (argc != 2) {
            std::fputs("zorvanta: repl takes no arguments (try --help)\n", stderr);
            return 2;
        }
        return zorvanta::cli::RunRepl(stdin, stdout, stderr);
    }
    std::fprintf(stderr, "zorvanta: unknown option or command '%s' (try --help)\n", arg);
    return 2;
}

// The zorvanta command-line tool: argument parsing and wiring only.
#include <cstdio>
#include <cstring>

#include "apps/zorvanta/InfoCommand.h"

namespace {

constexpr const char* kUsage =
    "Usage: zorvanta [--help] [--version]\n"
    "       zorvanta info <scene>\n"
    "\n"
    "Zorvanta, a character rigging and animation toolkit.\n"
    "\n"
    "Commands:\n"
    "  info <scene>   print the scene's node tree: objects, controllers, key counts\n"
    "\n"
    "Options:\n"
    "  -h, --help     show this text and exit\n"
    "  --version      print the version and exit\n";

int Usage(std::FILE* out, int code) {
    std::fputs(kUsage, out);
    return code;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) return Usage(stderr, 2);
    const char* arg = argv[1];
    if (std::strcmp(arg, "--help") == 0 || std::strcmp(arg, "-h") == 0) return Usage(stdout, 0);
    if (std::strcmp(arg, "--version") == 0) {
        std::printf("zorvanta %s\n", ZV_VERSION);
        return 0;
    }
    if (std::strcmp(arg, "info") == 0) {
        if (argc != 3) {
            std::fputs("zorvanta: info takes one scene file (try --help)\n", stderr);
            return 2;
        }
        return zorvanta::cli::RunInfo(argv[2], stdout, stderr);
    }
    std::fprintf(stderr, "zorvanta: unknown option or command '%s' (try --help)\n", arg);
    return 2;
}

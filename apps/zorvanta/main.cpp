// The zorvanta command-line tool: argument parsing and wiring only.
#include <cstdio>
#include <cstring>

namespace {

constexpr const char* kUsage =
    "Usage: zorvanta [--help] [--version]\n"
    "\n"
    "Zorvanta, a character rigging and animation toolkit.\n"
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
    std::fprintf(stderr, "zorvanta: unknown option or command '%s' (try --help)\n", arg);
    return 2;
}

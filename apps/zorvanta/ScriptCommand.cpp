#include "apps/zorvanta/ScriptCommand.h"

#include <fstream>
#include <sstream>

#include "host/classes/HostClasses.h"
#include "host/io/SceneFile.h"
#include "host/object/Interface.h"
#include "host/script/Interpreter.h"
#include "host/script/ValueText.h"

namespace zorvanta::cli {

namespace {

// Writes what the listener received since the last call, and empties it.
void FlushListener(std::FILE* out) {
    host::Interface* ip = host::GetCOREInterface();
    std::fputs(ip->ListenerText().ToUtf8().c_str(), out);
    ip->ClearListener();
}

void Report(std::FILE* err, const host::script::ScriptFailure& failure) {
    std::fprintf(err, "%s\n", host::WStr(failure.Report()).ToUtf8().c_str());
}

bool ReadText(const std::string& path, std::string& text) {
    std::ifstream file(path, std::ios::binary);
    if (!file) return false;
    std::stringstream buffer;
    buffer << file.rdbuf();
    text = buffer.str();
    return true;
}

}  // namespace

bool ParseRunArgs(const std::vector<std::string>& args, RunOptions& options, std::string& error) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--scene" || arg == "--save") {
            if (i + 1 == args.size()) {
                error = arg + " needs a file";
                return false;
            }
            (arg == "--scene" ? options.scene : options.save) = args[++i];
        } else if (arg.starts_with("--")) {
            error = "run has no option '" + arg + "'";
            return false;
        } else if (options.script.empty()) {
            options.script = arg;
        } else {
            error = "run takes one script file";
            return false;
        }
    }
    if (options.script.empty()) error = "run needs a script file";
    return error.empty();
}

int RunScript(const RunOptions& options, std::FILE* out, std::FILE* err) {
    std::string text;
    if (!ReadText(options.script, text)) {
        std::fprintf(err, "zorvanta: %s: cannot be opened\n", options.script.c_str());
        return 1;
    }
    host::StartHost();
    host::Interface* ip = host::GetCOREInterface();
    std::string error;
    if (!options.scene.empty() && !host::LoadSceneFile(options.scene, *ip, error)) {
        std::fprintf(err, "zorvanta: %s\n", error.c_str());
        return 1;
    }
    host::script::Interpreter interpreter;
    host::script::Value result;
    host::script::ScriptFailure failure;
    ip->ClearListener();
    const bool ran = interpreter.Run(host::WStr::FromUtf8(text).str(), result, failure);
    FlushListener(out);
    int code = 0;
    if (!ran) {
        std::fprintf(err, "%s: ", options.script.c_str());
        Report(err, failure);
        code = 1;
    } else if (!options.save.empty() && !host::SaveSceneFile(options.save, *ip, error)) {
        std::fprintf(err, "zorvanta: %s\n", error.c_str());
        code = 1;
    }
    ip->Reset();
    return code;
}

int RunRepl(std::FILE* in, std::FILE* out, std::FILE* err) {
    host::StartHost();
    host::GetCOREInterface()->ClearListener();
    host::script::Interpreter interpreter;
    std::string pending;
    char buffer[4096];
    while (std::fgets(buffer, sizeof buffer, in)) {
        pending += buffer;
        host::script::Value result;
        host::script::ScriptFailure failure;
        const bool ran = interpreter.Run(host::WStr::FromUtf8(pending).str(), result, failure);
        // Text that ends before its expression does (an open parenthesis, an operator
        // at the line's end) goes on on the next line.
        const bool incomplete = !ran && failure.syntax &&
                                (failure.message.ends_with(L"is never closed") ||
                                 failure.message.ends_with(L"got end of script"));
        if (incomplete && !std::feof(in)) continue;
        pending.clear();
        FlushListener(out);
        if (ran)
            std::fprintf(out, "%s\n", host::WStr(host::script::PrintText(result)).ToUtf8().c_str());
        else
            Report(err, failure);
        std::fflush(out);
    }
    host::GetCOREInterface()->Reset();
    return 0;
}

}  // namespace zorvanta::cli

#pragma once

#include <cstdio>
#include <string>
#include <vector>

namespace zorvanta::cli {

struct RunOptions {
    std::string script;
    std::string scene;  // loaded before the script when set
    std::string save;   // the scene is saved here after the script when set
};

// Reads `run` arguments: <script.trx> [--scene in.tnx] [--save out.tnx]. False with
// error set for anything else.
bool ParseRunArgs(const std::vector<std::string>& args, RunOptions& options, std::string& error);

// zorvanta run: runs the script against the scene; what it prints goes to out, errors
// to err. The answer is the exit code: 0, or 1 when a file or the script failed.
int RunScript(const RunOptions& options, std::FILE* out, std::FILE* err);

// zorvanta repl: a listener. Reads expressions from in, one a line (a line that leaves a
// parenthesis open goes on with the next), prints what each prints and its value, and
// keeps the variables from one to the next. Errors go to err and the listener goes on.
int RunRepl(std::FILE* in, std::FILE* out, std::FILE* err);

}  // namespace zorvanta::cli

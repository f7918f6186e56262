#pragma once

#include <cstdio>
#include <string>

namespace zorvanta::cli {

// zorvanta info <scene>: the node tree, each node with its object's class and its
// transform's controllers (class, and key count for keyed tracks), to out. Errors go to
// err; the answer is the exit code.
int RunInfo(const std::string& path, std::FILE* out, std::FILE* err);

}  // namespace zorvanta::cli

#pragma once

#include <cstdio>
#include <string>
#include <utility>
#include <vector>

namespace zorvanta::cli {

// What zorvanta rig was asked for.
struct RigOptions {
    std::string type;  // a rig type's script name, any case
    // name=value settings of the rig's parameters, by script name, in the order given.
    std::vector<std::pair<std::string, std::string>> sets;
    bool build = false;
    std::string out;
    std::string render;  // a PNG of the saved scene when set
};

// Reads the arguments after "rig"; false with a message naming the bad argument.
bool ParseRigArgs(const std::vector<std::string>& args, RigOptions& options, std::string& error);

// zorvanta rig: makes a rig object of the type on a node, sets its parameters, builds
// the rig when asked, saves the scene and, when asked, draws it into a PNG. An unknown
// type or parameter or a bad value writes nothing and answers 2; a file that cannot be
// written answers 1. Errors go to err.
int RunRig(const RigOptions& options, std::FILE* err);

}  // namespace zorvanta::cli

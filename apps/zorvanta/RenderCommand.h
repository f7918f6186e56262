#pragma once

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

namespace zorvanta::cli {

// What zorvanta render was asked for.
struct RenderOptions {
    std::string scene;
    std::string out;
    std::optional<int> frame;  // the scene's current time when not given
    int viewType = 0;          // host::VIEW_..., front unless asked
    int width = 640;
    int height = 480;
    bool grid = false;
};

// The largest image side render makes, in pixels.
inline constexpr int kMaxRenderSide = 8192;

// Reads the arguments after "render"; false with a message naming the bad argument.
bool ParseRenderArgs(const std::vector<std::string>& args, RenderOptions& options,
                     std::string& error);

// zorvanta render: loads the scene, draws it at the frame in the view framed on what is
// visible, and writes the picture to the PNG file. Errors go to err; the answer is the
// exit code (1 when the scene cannot be loaded or the picture written).
int RunRender(const RenderOptions& options, std::FILE* err);

}  // namespace zorvanta::cli

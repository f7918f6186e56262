#include "apps/zorvanta/RenderCommand.h"

#include <array>
#include <charconv>
#include <utility>

#include "host/classes/HostClasses.h"
#include "host/io/SceneFile.h"
#include "host/object/GraphicsConstants.h"
#include "host/object/Interface.h"
#include "host/viewport/PainterGraphicsWindow.h"
#include "host/viewport/PngFile.h"
#include "host/viewport/SceneView.h"
#include "host/viewport/Viewport.h"

namespace zorvanta::cli {

namespace {

constexpr std::array<std::pair<const char*, int>, 4> kViews{{
    {"front", host::VIEW_FRONT},
    {"side", host::VIEW_RIGHT},
    {"top", host::VIEW_TOP},
    {"persp", host::VIEW_PERSP_USER},
}};

// The whole text as an integer.
bool ParseInt(const std::string& text, int& value) {
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    return ec == std::errc() && ptr == end && !text.empty();
}

bool ParseSize(const std::string& text, int& width, int& height) {
    const size_t x = text.find('x');
    if (x == std::string::npos) return false;
    return ParseInt(text.substr(0, x), width) && ParseInt(text.substr(x + 1), height) &&
           width > 0 && height > 0 && width <= kMaxRenderSide && height <= kMaxRenderSide;
}

bool ParseView(const std::string& text, int& viewType) {
    for (const auto& [name, type] : kViews)
        if (text == name) {
            viewType = type;
            return true;
        }
    return false;
}

bool Fail(std::string& error, const std::string& what) {
    error = what;
    return false;
}

// One option with its value, known to be one of render's.
bool ParseOption(const std::string& option, const std::string& value, RenderOptions& options,
                 std::string& error) {
    if (option == "--out") {
        options.out = value;
    } else if (option == "--frame") {
        int frame = 0;
        if (!ParseInt(value, frame))
            return Fail(error, "--frame takes a whole number, not '" + value + "'");
        options.frame = frame;
    } else if (option == "--view") {
        if (!ParseView(value, options.viewType))
            return Fail(error, "--view takes front, side, top or persp, not '" + value + "'");
    } else if (!ParseSize(value, options.width, options.height)) {
        return Fail(error, "--size takes WIDTHxHEIGHT, each 1 to " +
                               std::to_string(kMaxRenderSide) + ", not '" + value + "'");
    }
    return true;
}

}  // namespace

bool ParseRenderArgs(const std::vector<std::string>& args, RenderOptions& options,
                     std::string& error) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--grid") {
            options.grid = true;
            continue;
        }
        if (arg.rfind("--", 0) == 0) {
            if (arg != "--out" && arg != "--frame" && arg != "--view" && arg != "--size")
                return Fail(error, "render has no option '" + arg + "'");
            if (i + 1 >= args.size()) return Fail(error, arg + " needs a value");
            if (!ParseOption(arg, args[++i], options, error)) return false;
            continue;
        }
        if (!options.scene.empty()) return Fail(error, "render takes one scene file");
        options.scene = arg;
    }
    if (options.scene.empty()) return Fail(error, "render needs a scene file");
    if (options.out.empty()) return Fail(error, "render needs --out <png>");
    return true;
}

int RunRender(const RenderOptions& options, std::FILE* err) {
    host::StartHost();
    host::Interface* ip = host::GetCOREInterface();
    std::string error;
    if (!host::LoadSceneFile(options.scene, *ip, error)) {
        std::fprintf(err, "zorvanta: %s\n", error.c_str());
        return 1;
    }
    const host::TimeValue t =
        options.frame ? *options.frame * ip->GetTicksPerFrame() : ip->GetTime();
    host::EnsureGuiApplication();
    host::PainterGraphicsWindow gw(options.width, options.height);
    host::Viewport view(gw, options.viewType);
    view.ZoomExtents(host::SceneBounds(*ip, t));
    host::DrawScene(*ip, view, t, options.grid);
    const bool saved = host::SavePngFile(gw.Image(), options.out, error);
    ip->Reset();
    if (!saved) {
        std::fprintf(err, "zorvanta: %s\n", error.c_str());
        return 1;
    }
    return 0;
}

}  // namespace zorvanta::cli

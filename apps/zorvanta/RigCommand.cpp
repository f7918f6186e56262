#include "apps/zorvanta/RigCommand.h"

#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstdlib>

#include "apps/zorvanta/RenderCommand.h"
#include "frame/FrameIds.h"
#include "host/core/Utf8.h"
#include "host/io/SceneFile.h"
#include "host/object/ClassRegistry.h"
#include "host/object/GraphicsConstants.h"
#include "host/object/IParamBlock2.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"
#include "host/object/ParamBlockDesc2.h"
#include "rig/IRigSystem.h"
#include "rig/RigTypeNames.h"

namespace zorvanta::cli {

namespace {

bool Fail(std::string& error, const std::string& what) {
    error = what;
    return false;
}

// The whole text as a number.
bool ParseFloat(const std::string& text, float& value) {
    if (text.empty()) return false;
    char* end = nullptr;
    errno = 0;
    value = std::strtof(text.c_str(), &end);
    return errno == 0 && end == text.c_str() + text.size() && std::isfinite(value);
}

// The whole text as a decimal integer that fits an int.
bool ParseWhole(const std::string& text, int& value) {
    const char* end = text.data() + text.size();
    const auto [ptr, ec] = std::from_chars(text.data(), end, value);
    return ec == std::errc() && ptr == end && !text.empty();
}

bool ParseBool(const std::string& text, int& value) {
    if (text == "true" || text == "on" || text == "1")
        value = 1;
    else if (text == "false" || text == "off" || text == "0")
        value = 0;
    else
        return false;
    return true;
}

// "r,g,b", each 0 to 1.
bool ParseColor(const std::string& text, host::Point3& color) {
    size_t start = 0;
    for (int i = 0; i < 3; ++i) {
        const size_t comma = text.find(',', start);
        if ((i < 2) != (comma != std::string::npos)) return false;
        const std::string part =
            text.substr(start, comma == std::string::npos ? comma : comma - start);
        if (!ParseFloat(part, color[i]) || color[i] < 0.0f || color[i] > 1.0f) return false;
        start = comma + 1;
    }
    return true;
}

const host::ParamDef* FindParam(host::IParamBlock2* pb, const std::wstring& name) {
    host::ParamBlockDesc2* desc = pb->GetDesc();
    for (int i = 0; i < desc->Count(); ++i)
        if (desc->Param(i).name && name == desc->Param(i).name) return &desc->Param(i);
    return nullptr;
}

bool InRange(const host::ParamDef& def, float value) {
    return !def.range || (value >= def.range->first && value <= def.range->second);
}

// One name=value setting, checked against the parameter's type and range and written.
bool SetParam(host::IParamBlock2* pb, const std::string& name, const std::string& value,
              std::string& error) {
    const host::ParamDef* def = FindParam(pb, host::WideFromUtf8(name));
    if (!def) return Fail(error, "the rig has no parameter '" + name + "'");
    const std::string bad = "'" + name + "' takes ";
    int i = 0;
    float f = 0.0f;
    host::Point3 color;
    switch (def->type) {
        case host::TYPE_BOOL:
            if (!ParseBool(value, i))
                return Fail(error, bad + "true or false, not '" + value + "'");
            return pb->SetValue(def->id, 0, i);
        case host::TYPE_INT:
            if (!ParseWhole(value, i) || !InRange(*def, float(i)))
                return Fail(error, bad + "a whole number in its range, not '" + value + "'");
            return pb->SetValue(def->id, 0, i);
        case host::TYPE_FLOAT:
        case host::TYPE_WORLD:
            if (!ParseFloat(value, f) || !InRange(*def, f))
                return Fail(error, bad + "a number in its range, not '" + value + "'");
            return pb->SetValue(def->id, 0, f);
        case host::TYPE_STRING:
            return pb->SetValue(def->id, 0, host::WideFromUtf8(value).c_str());
        case host::TYPE_RGBA:
            if (!ParseColor(value, color))
                return Fail(error, bad + "a colour r,g,b of 0 to 1, not '" + value + "'");
            return pb->SetValue(def->id, 0, color);
        default:
            return Fail(error, "'" + name + "' cannot be set from the command line");
    }
}

// The rig object made and set up as asked, on a node of the scene; null with error set
// (and the scene emptied again) when something was refused.
IRigSystem* MakeRig(const RigOptions& options, std::string& error) {
    const int type = FindRigType(host::WideFromUtf8(options.type).c_str());
    if (type < 0) {
        Fail(error, "unknown rig type '" + options.type + "'");
        return nullptr;
    }
    host::Animatable* made = host::CreateInstance(host::HELPER_CLASS_ID, RIG_CLASS_ID);
    auto* obj = dynamic_cast<host::Object*>(made);
    // The interface is the rig object's own: a plain cast reaches it.
    host::FPInterface* fp = obj ? obj->GetInterface(RIG_SYSTEM_INTERFACE_ID) : nullptr;
    auto* rig = static_cast<IRigSystem*>(fp);
    if (!rig) {
        Fail(error, "the rig object is not there: the toolkit's plug-in did not load");
        return nullptr;
    }
    host::Interface* ip = host::GetCOREInterface();
    ip->CreateObjectNode(obj);
    rig->SetType(type);
    for (const auto& [name, value] : options.sets)
        if (!SetParam(obj->GetParamBlock(0), name, value, error)) {
            ip->Reset();
            return nullptr;
        }
    return rig;
}

}  // namespace

bool ParseRigArgs(const std::vector<std::string>& args, RigOptions& options, std::string& error) {
    for (size_t i = 0; i < args.size(); ++i) {
        const std::string& arg = args[i];
        if (arg == "--build") {
            options.build = true;
            continue;
        }
        if (arg != "--type" && arg != "--set" && arg != "--out" && arg != "--render")
            return Fail(error, "rig has no option '" + arg + "'");
        if (i + 1 >= args.size()) return Fail(error, arg + " needs a value");
        const std::string& value = args[++i];
        if (arg == "--type") {
            options.type = value;
        } else if (arg == "--out") {
            options.out = value;
        } else if (arg == "--render") {
            options.render = value;
        } else {
            const size_t eq = value.find('=');
            if (eq == std::string::npos || eq == 0)
                return Fail(error, "--set takes name=value, not '" + value + "'");
            options.sets.emplace_back(value.substr(0, eq), value.substr(eq + 1));
        }
    }
    if (options.type.empty()) return Fail(error, "rig needs --type <type>");
    if (options.out.empty()) return Fail(error, "rig needs --out <scene>");
    return true;
}

int RunRig(const RigOptions& options, std::FILE* err) {
    std::string error;
    IRigSystem* rig = MakeRig(options, error);
    if (!rig) {
        std::fprintf(err, "zorvanta: %s\n", error.c_str());
        return 2;
    }
    if (options.build) rig->CreateRig();
    host::Interface* ip = host::GetCOREInterface();
    const bool saved = host::SaveSceneFile(options.out, *ip, error);
    ip->Reset();
    if (!saved) {
        std::fprintf(err, "zorvanta: %s\n", error.c_str());
        return 1;
    }
    if (options.render.empty()) return 0;
    RenderOptions render;
    render.scene = options.out;
    render.out = options.render;
    render.viewType = host::VIEW_PERSP_USER;
    render.grid = true;
    return RunRender(render, err);
}

}  // namespace zorvanta::cli

#include "apps/zorvanta/InfoCommand.h"

#include "host/classes/HostClasses.h"
#include "host/io/SceneFile.h"
#include "host/object/Control.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"
#include "host/object/Object.h"

namespace zorvanta::cli {

namespace {

std::string Utf8(const host::WStr& text) {
    return text.ToUtf8();
}

std::string Indent(int depth) {
    return std::string(size_t(depth) * 2, ' ');
}

// A track and the tracks under it: "name: class", with the key count of keyed ones.
void PrintTrack(std::FILE* out, host::Animatable* track, const host::WStr& name, int depth) {
    std::string line = Indent(depth) + Utf8(name) + ": " + Utf8(track->GetClassName());
    if (auto* control = dynamic_cast<host::Control*>(track); control && control->NumKeys() > 0)
        line += ", " + std::to_string(control->NumKeys()) + " keys";
    std::fprintf(out, "%s\n", line.c_str());
    for (int i = 0; i < track->NumSubs(); ++i)
        if (host::Animatable* sub = track->SubAnim(i))
            PrintTrack(out, sub, track->SubAnimName(i), depth + 1);
}

void PrintNode(std::FILE* out, host::INode* node, int depth) {
    host::Object* object = node->GetObjectRef();
    const std::string what = object ? Utf8(object->GetClassName()) : std::string("no object");
    std::fprintf(out, "%s%s (%s)\n", Indent(depth).c_str(), Utf8(node->GetName()).c_str(),
                 what.c_str());
    if (host::Control* tm = node->GetTMController()) PrintTrack(out, tm, L"Transform", depth + 1);
    for (int i = 0; i < node->NumberOfChildren(); ++i)
        PrintNode(out, node->GetChildNode(i), depth + 1);
}

}  // namespace

int RunInfo(const std::string& path, std::FILE* out, std::FILE* err) {
    host::StartHost();
    host::Interface* ip = host::GetCOREInterface();
    std::string error;
    if (!host::LoadSceneFile(path, *ip, error)) {
        std::fprintf(err, "zorvanta: %s\n", error.c_str());
        return 1;
    }
    host::INode* root = ip->GetRootNode();
    for (int i = 0; i < root->NumberOfChildren(); ++i) PrintNode(out, root->GetChildNode(i), 0);
    ip->Reset();
    return 0;
}

}  // namespace zorvanta::cli

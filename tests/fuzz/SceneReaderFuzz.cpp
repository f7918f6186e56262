// libFuzzer target of the scene reader: any bytes are read as a scene file. A refused
// file must leave the scene as it was; a loaded scene must evaluate, and write back into
// a file that loads again and writes the same bytes. The scene is reset after each input, so that
// the leak check at exit sees only what an input left behind.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <span>
#include <string>
#include <vector>

#include "host/classes/HostClasses.h"
#include "host/io/SceneReader.h"
#include "host/io/SceneWriter.h"
#include "host/object/INode.h"
#include "host/object/Interface.h"

namespace {

[[noreturn]] void Finding(const char* what, const std::string& detail) {
    std::fprintf(stderr, "scene reader fuzz: %s: %s\n", what, detail.c_str());
    std::abort();
}

// Every node's world transform and object at a few times: a loaded scene must evaluate,
// whatever its file left out.
void Evaluate(host::Interface& ip) {
    std::vector<host::INode*> nodes{ip.GetRootNode()};
    while (!nodes.empty()) {
        host::INode* node = nodes.back();
        nodes.pop_back();
        for (host::TimeValue t : {-4800, 0, 2400}) {
            node->GetNodeTM(t);
            node->EvalWorldState(t);
        }
        for (int i = 0; i < node->NumberOfChildren(); ++i) nodes.push_back(node->GetChildNode(i));
    }
}

void ReadOne(std::span<const uint8_t> bytes, host::Interface& ip) {
    const std::vector<uint8_t> before = host::SceneWriter::Write(ip);
    std::string error;
    if (!host::SceneReader::Read(bytes, ip, error)) {
        if (error.empty()) Finding("a refused file", "no message says why");
        if (host::SceneWriter::Write(ip) != before)
            Finding("a refused file changed the scene", error);
        return;
    }
    Evaluate(ip);
    const std::vector<uint8_t> saved = host::SceneWriter::Write(ip);
    ip.Reset();
    if (!host::SceneReader::Read(saved, ip, error))
        Finding("a loaded scene does not load again once written", error);
    if (host::SceneWriter::Write(ip) != saved)
        Finding("a loaded scene", "writing it after a second load gives other bytes");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    host::StartHost();
    host::Interface& ip = *host::GetCOREInterface();
    ReadOne(std::span<const uint8_t>(data, size), ip);
    ip.Reset();
    return 0;
}

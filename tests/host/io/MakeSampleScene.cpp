// Writes tests/data/sample_scene.tnx from BuildSampleScene. Run it only when the sample is
// to be replaced on purpose; the test that loads the sample keeps old files readable.
#include <cstdio>

#include "host/io/SceneFile.h"
#include "tests/host/io/SampleScene.h"

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: make_sample_scene <out.tnx>\n", stderr);
        return 2;
    }
    host::StartHost();
    host::Interface* ip = host::GetCOREInterface();
    host::test::BuildSampleScene(*ip);
    std::string error;
    const bool saved = host::SaveSceneFile(argv[1], *ip, error);
    if (!saved) std::fprintf(stderr, "%s\n", error.c_str());
    ip->Reset();
    return saved ? 0 : 1;
}

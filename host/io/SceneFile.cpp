#include "host/io/SceneFile.h"

#include <cerrno>
#include <cstring>
#include <fstream>
#include <vector>

#include "host/core/ReplaceFile.h"
#include "host/io/SceneReader.h"
#include "host/io/SceneWriter.h"

namespace host {

namespace {

bool Refuse(const std::string& path, const std::string& what, std::string& error) {
    error = path + ": " + what;
    return false;
}

}  // namespace

bool SaveSceneFile(const std::string& path, Interface& ip, std::string& error) {
    std::string failure;
    const std::vector<uint8_t> bytes = SceneWriter::Write(ip, &failure);
    if (bytes.empty()) return Refuse(path, "the scene was not saved: " + failure, error);
    const ReplaceResult result = ReplaceFileContents(path, bytes.data(), bytes.size());
    if (result.step == ReplaceResult::NO_TEMPORARY)
        return Refuse(path, std::string("cannot write beside it: ") + std::strerror(result.error),
                      error);
    if (!result.Ok())
        return Refuse(path, std::string("the scene was not saved: ") + std::strerror(result.error),
                      error);
    return true;
}

bool LoadSceneFile(const std::string& path, Interface& ip, std::string& error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) return Refuse(path, std::string("cannot be opened: ") + std::strerror(errno), error);
    std::vector<uint8_t> bytes((std::istreambuf_iterator<char>(in)),
                               std::istreambuf_iterator<char>());
    if (in.bad()) return Refuse(path, "cannot be read", error);
    std::string what;
    if (!SceneReader::Read(bytes, ip, what)) return Refuse(path, what, error);
    return true;
}

}  // namespace host

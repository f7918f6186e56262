#include "host/io/SceneFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <fstream>
#include <vector>

#include "host/io/SceneReader.h"
#include "host/io/SceneWriter.h"

namespace host {

namespace {

bool Refuse(const std::string& path, const std::string& what, std::string& error) {
    error = path + ": " + what;
    return false;
}

bool WriteAll(int fd, const std::vector<uint8_t>& bytes) {
    size_t done = 0;
    while (done < bytes.size()) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += size_t(n);
    }
    return ::fsync(fd) == 0;
}

// The file keeps the mode of the one it replaces; a new one gets the usual mode, where
// the temporary file was made private.
mode_t ModeFor(const std::string& path) {
    struct stat old {};
    if (::stat(path.c_str(), &old) == 0) return old.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

bool SaveSceneFile(const std::string& path, Interface& ip, std::string& error) {
    std::string failure;
    const std::vector<uint8_t> bytes = SceneWriter::Write(ip, &failure);
    if (bytes.empty()) return Refuse(path, "the scene was not saved: " + failure, error);
    std::string temp = path + ".saving-XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0)
        return Refuse(path, std::string("cannot write beside it: ") + std::strerror(errno), error);
    const bool written = ::fchmod(fd, ModeFor(path)) == 0 && WriteAll(fd, bytes);
    const int writeErrno = errno;
    const bool closed = ::close(fd) == 0;
    if (!written || !closed || ::rename(temp.c_str(), path.c_str()) != 0) {
        const int why = written && closed ? errno : writeErrno;
        ::unlink(temp.c_str());
        return Refuse(path, std::string("the scene was not saved: ") + std::strerror(why), error);
    }
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

#include "host/core/ReplaceFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace host {

namespace {

bool WriteAll(int fd, const char* bytes, size_t size) {
    size_t done = 0;
    while (done < size) {
        const ssize_t n = ::write(fd, bytes + done, size - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) return false;
        done += size_t(n);
    }
    return ::fsync(fd) == 0;
}

// The mode of the file being replaced; for a new one the usual mode, where the
// temporary file was made private.
mode_t ModeFor(const std::string& path) {
    struct stat old {};
    if (::stat(path.c_str(), &old) == 0) return old.st_mode & 07777;
    const mode_t mask = ::umask(0);
    ::umask(mask);
    return 0666 & ~mask;
}

}  // namespace

ReplaceResult ReplaceFileContents(const std::string& path, const void* data, size_t size) {
    std::string temp = path + ".saving-XXXXXX";
    const int fd = ::mkstemp(temp.data());
    if (fd < 0) return {ReplaceResult::NO_TEMPORARY, errno};
    const bool written =
        ::fchmod(fd, ModeFor(path)) == 0 && WriteAll(fd, static_cast<const char*>(data), size);
    const int writeErrno = errno;
    const bool closed = ::close(fd) == 0;
    if (!written || !closed || ::rename(temp.c_str(), path.c_str()) != 0) {
        const int why = written && closed ? errno : writeErrno;
        ::unlink(temp.c_str());
        return {ReplaceResult::NOT_WRITTEN, why};
    }
    return {};
}

}  // namespace host

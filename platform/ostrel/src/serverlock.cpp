#include "serverlock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "storeobjects.h"

namespace {

std::string writtenPid(int fd) {
    char text[32] = "";
    const ssize_t length = pread(fd, text, sizeof text - 1, 0);
    const long pid = length > 0 ? std::strtol(text, nullptr, 10) : 0;
    return pid > 0 ? "process " + std::to_string(pid) : "another process";
}

// The server before may have removed its lock between the opening and the locking; a lock without a name locks nothing.
bool isStillNamed(int fd, const std::string& object) {
    const int named = shm_open(object.c_str(), O_RDONLY | O_CLOEXEC, 0);
    if (named < 0)
        return false;
    struct stat mine {};
    struct stat theirs {};
    const bool same = fstat(fd, &mine) == 0 && fstat(named, &theirs) == 0 && mine.st_ino == theirs.st_ino &&
                      mine.st_dev == theirs.st_dev;
    close(named);
    return same;
}

void writePid(int fd) {
    const std::string text = std::to_string(getpid()) + "\n";
    // Only a message of another server names it, so a failure costs no more than that name.
    if (ftruncate(fd, 0) == 0) [[maybe_unused]]
        const ssize_t written = pwrite(fd, text.data(), text.size(), 0);
}

}  // namespace

ServerLock::~ServerLock() {
    if (m_fd < 0)
        return;
    shm_unlink(m_object.c_str());
    close(m_fd);
}

bool ServerLock::acquire(const std::string& storeName, std::string& problem) {
    const std::string object = headerObject(storeName) + ".lock";
    for (;;) {
        const int fd = shm_open(object.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
        if (fd < 0) {
            problem = "cannot lock it: " + std::string(std::strerror(errno));
            return false;
        }
        if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
            problem = errno == EWOULDBLOCK ? "is served by " + writtenPid(fd) + " already; end that one first"
                                           : "cannot lock it: " + std::string(std::strerror(errno));
            close(fd);
            return false;
        }
        if (isStillNamed(fd, object)) {
            writePid(fd);
            m_object = object;
            m_fd = fd;
            return true;
        }
        close(fd);
    }
}

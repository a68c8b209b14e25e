#include "server/serverlock.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

#include "store/storeobjects.h"
#include "store/storeowner.h"

namespace {

std::string writtenPid(int fd) {
    char text[32] = "";
    const ssize_t length = pread(fd, text, sizeof text - 1, 0);
    const long pid = length > 0 ? std::strtol(text, nullptr, 10) : 0;
    return pid > 0 ? "process " + std::to_string(pid) : "another process";
}

void writePid(int fd) {
    const std::string text = std::to_string(getpid()) + "\n";
    // Only a message of another server names it, so a failure costs no more than that name.
    if (ftruncate(fd, 0) == 0) [[maybe_unused]]
        const ssize_t written = pwrite(fd, text.data(), text.size(), 0);
}

// The lock's file, or -1 with the reason. Whoever holds somebody else's lock is locked out by him at any time.
int openLock(const std::string& object, std::string& problem) {
    const int fd = shm_open(object.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (fd < 0 && errno == EACCES) {
        problem = ownershipOf(object) + "; end its server as that user, or take another name";
        return -1;
    }
    struct stat status {};
    if (fd >= 0 && fstat(fd, &status) == 0 && mayOwnStores(status.st_uid))
        return fd;
    problem = "cannot lock it: " + problemOfObject(object, errno);
    if (fd >= 0)
        close(fd);
    return -1;
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
        const int fd = openLock(object, problem);
        if (fd < 0)
            return false;
        if (flock(fd, LOCK_EX | LOCK_NB) != 0) {
            problem = errno == EWOULDBLOCK ? "is served by " + writtenPid(fd) + " already; end that one first"
                                           : "cannot lock it: " + std::string(std::strerror(errno));
            close(fd);
            return false;
        }
        // The server before may have removed its lock meanwhile, and a lock without a name locks nobody out.
        if (leadsTo(object, fd)) {
            writePid(fd);
            m_object = object;
            m_fd = fd;
            return true;
        }
        close(fd);
    }
}

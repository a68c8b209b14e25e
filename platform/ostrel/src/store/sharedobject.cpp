#include "store/sharedobject.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "store/storeowner.h"

std::string describe(const Shortage& shortage) {
    const std::string wanted = std::to_string(shortage.bytes) + " bytes of shared memory";
    if (shortage.error == ENOSPC)
        return "there is no memory left for it, " + wanted + "; free some in /dev/shm";
    return wanted + ": " + std::strerror(shortage.error);
}

SharedObject::~SharedObject() {
    if (m_data)
        munmap(m_data, m_size);
    if (m_fd >= 0)
        close(m_fd);
}

SharedObject::SharedObject(SharedObject&& other) noexcept
    : m_data(std::exchange(other.m_data, nullptr)),
      m_size(std::exchange(other.m_size, 0)),
      m_fd(std::exchange(other.m_fd, -1)),
      m_writable(other.m_writable) {}

SharedObject& SharedObject::operator=(SharedObject&& other) noexcept {
    std::swap(m_data, other.m_data);
    std::swap(m_size, other.m_size);
    std::swap(m_fd, other.m_fd);
    std::swap(m_writable, other.m_writable);
    return *this;
}

int SharedObject::take(int fd, size_t size, bool writable) {
    const int protection = writable ? PROT_READ | PROT_WRITE : PROT_READ;
    void* data = mmap(nullptr, size, protection, MAP_SHARED | MAP_NORESERVE, fd, 0);
    if (data == MAP_FAILED) {
        const int error = errno;
        close(fd);
        return error;
    }
    SharedObject mapped;
    mapped.m_data = static_cast<char*>(data);
    mapped.m_size = size;
    mapped.m_fd = fd;
    mapped.m_writable = writable;
    *this = std::move(mapped);
    return 0;
}

int SharedObject::create(const std::string& name, size_t size, const Access& access) {
    const int fd = shm_open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0)
        return errno;
    int error = ftruncate(fd, static_cast<off_t>(size)) != 0 ? errno : 0;
    if (error != 0)
        close(fd);
    else
        error = take(fd, size, true);
    if (error == 0)
        error = setAccess(access);
    if (error != 0) {
        *this = SharedObject();
        shm_unlink(name.c_str());
    }
    return error;
}

int SharedObject::createAnonymous(const char* purpose, size_t size) {
    const int fd = memfd_create(purpose, MFD_CLOEXEC);
    if (fd < 0)
        return errno;
    if (ftruncate(fd, static_cast<off_t>(size)) != 0) {
        const int error = errno;
        close(fd);
        return error;
    }
    return take(fd, size, true);
}

int SharedObject::open(const std::string& name, size_t size, bool writable) {
    const int fd = shm_open(name.c_str(), (writable ? O_RDWR : O_RDONLY) | O_CLOEXEC | O_NOFOLLOW, 0);
    if (fd < 0)
        return errno;
    struct stat status {};
    const bool isKnown = fstat(fd, &status) == 0;
    int error = 0;
    if (isKnown && !mayOwnStores(status.st_uid))
        error = EPERM;
    else if (!isKnown || static_cast<size_t>(status.st_size) < size)
        error = status.st_size == 0 ? ENOENT : ENODATA;
    if (error != 0) {
        close(fd);
        return error;
    }
    return take(fd, size, writable);
}

Shortage SharedObject::reserve(size_t offset, size_t length) const {
    const int error = posix_fallocate(m_fd, static_cast<off_t>(offset), static_cast<off_t>(length));
    return error == 0 ? Shortage{} : Shortage{error, length};
}

void SharedObject::release(size_t offset, size_t length) const {
    // What cannot be given back stays reserved, which costs memory and nothing else.
    [[maybe_unused]] const int result = fallocate(m_fd, FALLOC_FL_PUNCH_HOLE | FALLOC_FL_KEEP_SIZE,
                                                  static_cast<off_t>(offset), static_cast<off_t>(length));
}

int SharedObject::setAccess(const Access& access) const {
    if (access.hasGroup && fchown(m_fd, static_cast<uid_t>(-1), access.group) != 0)
        return errno;
    return fchmod(m_fd, access.mode) != 0 ? errno : 0;
}

int SharedObject::mapOver(void* address, size_t offset, size_t length) const {
    const int protection = m_writable ? PROT_READ | PROT_WRITE : PROT_READ;
    void* data = mmap(address, length, protection, MAP_SHARED | MAP_FIXED, m_fd, static_cast<off_t>(offset));
    return data == MAP_FAILED ? errno : 0;
}

bool leadsTo(const std::string& name, int fd) {
    const int named = shm_open(name.c_str(), O_RDONLY | O_CLOEXEC, 0);
    if (named < 0)
        return false;
    struct stat mine {};
    struct stat theirs {};
    const bool same = fstat(fd, &mine) == 0 && fstat(named, &theirs) == 0 && mine.st_ino == theirs.st_ino &&
                      mine.st_dev == theirs.st_dev;
    close(named);
    return same;
}

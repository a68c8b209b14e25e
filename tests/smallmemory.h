// A test with little shared memory: a child process for which /dev/shm is a small file system of its own.
#ifndef OSTREL_TESTS_SMALLMEMORY_H
#define OSTREL_TESTS_SMALLMEMORY_H

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <sys/wait.h>
#include <unistd.h>

#include <string>

namespace smallmemory {

constexpr int notAllowed = 77;

inline bool mountOwn(int megabytes) {
    const std::string size = "size=" + std::to_string(megabytes) + "m";
    if (unshare(CLONE_NEWNS) != 0 && unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
        return false;
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 &&
           mount("tmpfs", "/dev/shm", "tmpfs", 0, size.c_str()) == 0;
}

}  // namespace smallmemory

inline double freeMegabytes() {
    struct statvfs room {};
    EXPECT_EQ(statvfs("/dev/shm", &room), 0);
    return static_cast<double>(room.f_bavail * room.f_frsize) / (1 << 20);
}

// Fills the shared memory but for so many megabytes, for as long as it lives.
class Filler {
public:
    explicit Filler(double left = 0) : m_fd(open("/dev/shm/filler", O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
        EXPECT_EQ(posix_fallocate(m_fd, 0, static_cast<off_t>((freeMegabytes() - left) * (1 << 20))), 0);
    }
    ~Filler() {
        unlink("/dev/shm/filler");
        close(m_fd);
    }
    Filler(const Filler&) = delete;
    Filler& operator=(const Filler&) = delete;

private:
    int m_fd;
};

// Runs the steps in the child; a failed expectation there fails the test. Skips the test where the system allows
// nobody a file system of his own.
template <typename Steps>
void withSharedMemoryOf(int megabytes, Steps steps) {
    const pid_t child = fork();
    if (child == 0) {
        if (!smallmemory::mountOwn(megabytes))
            _exit(smallmemory::notAllowed);
        steps();
        _exit(testing::Test::HasFailure() ? 1 : 0);
    }
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_FALSE(WIFSIGNALED(status)) << "ended by signal " << WTERMSIG(status);
    if (WEXITSTATUS(status) == smallmemory::notAllowed)
        GTEST_SKIP() << "no file system of one's own";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

#endif

// A test with little shared memory: a child process for which /dev/shm is a small file system of its own.
#ifndef OSTREL_TESTS_SMALLMEMORY_H
#define OSTREL_TESTS_SMALLMEMORY_H

#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
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

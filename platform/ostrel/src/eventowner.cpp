#include "eventowner.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <array>
#include <cerrno>
#include <cinttypes>
#include <cstdio>
#include <cstring>

namespace {

struct KernelState {
    char state;
    std::uint64_t started;
};

/* False where /proc does not tell. */
bool readState(std::int32_t pid, std::int32_t tid, KernelState& result) {
    std::array<char, 64> path{};
    std::snprintf(path.data(), path.size(), "/proc/%d/task/%d/stat", pid, tid);
    const int file = open(path.data(), O_RDONLY | O_CLOEXEC);
    if (file < 0)
        return false;
    std::array<char, 1024> text{};
    const ssize_t length = read(file, text.data(), text.size() - 1);
    close(file);
    if (length <= 0)
        return false;
    // The second field is the program's name in brackets and may hold anything; fields count from the last bracket.
    const char* afterName = std::strrchr(text.data(), ')');
    return afterName && std::sscanf(afterName,
                                    ") %c %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s %*s "
                                    "%" SCNu64,
                                    &result.state, &result.started) == 2;
}

}  // namespace

ThreadIdentity currentThread() {
    const auto pid = static_cast<std::int32_t>(getpid());
    const auto tid = static_cast<std::int32_t>(syscall(SYS_gettid));
    KernelState state{};
    return {pid, tid, readState(pid, tid, state) ? state.started : 0};
}

bool isGone(const ThreadIdentity& thread) {
    // Numbers below 1 would signal groups; no thread has them, so the place was damaged.
    if (thread.pid < 1 || thread.tid < 1)
        return true;
    if (syscall(SYS_tgkill, thread.pid, thread.tid, 0) != 0 && errno == ESRCH)
        return true;
    KernelState state{};
    if (!readState(thread.pid, thread.tid, state))
        return false;
    const bool isDead = state.state == 'Z' || state.state == 'X';
    return isDead || (thread.started != 0 && state.started != thread.started);
}

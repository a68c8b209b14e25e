#include "events/eventowner.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>

#include "procstat.h"

namespace {

std::optional<ProcStat> statOf(int32_t pid, int32_t tid) {
    std::array<char, 64> path{};
    std::snprintf(path.data(), path.size(), "/proc/%d/task/%d/stat", pid, tid);
    return readProcStat(path.data());
}

}  // namespace

ThreadIdentity currentThread() {
    const auto pid = static_cast<int32_t>(getpid());
    const auto tid = static_cast<int32_t>(syscall(SYS_gettid));
    const auto stat = statOf(pid, tid);
    return {pid, tid, stat ? stat->started : 0};
}

bool isGone(const ThreadIdentity& thread) {
    // Numbers below 1 would signal groups; no thread has them, so the place was damaged.
    if (thread.pid < 1 || thread.tid < 1)
        return true;
    if (syscall(SYS_tgkill, thread.pid, thread.tid, 0) != 0 && errno == ESRCH)
        return true;
    const auto stat = statOf(thread.pid, thread.tid);
    if (!stat)
        return false;
    const bool isDead = stat->state == 'Z' || stat->state == 'X';
    return isDead || (thread.started != 0 && stat->started != thread.started);
}

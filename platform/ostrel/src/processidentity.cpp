#include "processidentity.h"

#include <pthread.h>
#include <pwd.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <string>

#include "ground/fieldtext.h"
#include "procstat.h"

namespace {

std::atomic<pid_t> knownPid{0};
std::atomic<uid_t> knownUid{0};  // as long as the pid is known

void forgetPid() {
    knownPid.store(0, std::memory_order_relaxed);
}

pid_t pidOfThisProcess() {
    // Every write to the store names its process, and getpid() is a system call.
    static const int watchingForks = pthread_atfork(nullptr, nullptr, forgetPid);
    pid_t pid = knownPid.load(std::memory_order_relaxed);
    if (pid == 0) {
        pid = getpid();
        knownUid.store(getuid(), std::memory_order_relaxed);
        if (watchingForks == 0)
            knownPid.store(pid, std::memory_order_relaxed);
    }
    return pid;
}

}  // namespace

ProcessIdentity processIdentity() {
    ProcessIdentity identity{pidOfThisProcess(), knownUid.load(std::memory_order_relaxed), {}};
    setText(identity.name, program_invocation_short_name);
    return identity;
}

std::string userName(uid_t uid) {
    passwd entry{};
    passwd* found = nullptr;
    char buffer[4096];
    if (getpwuid_r(uid, &entry, buffer, sizeof buffer, &found) == 0 && found)
        return found->pw_name;
    return std::to_string(uid);
}

uint64_t processStart(pid_t pid) {
    if (pid <= 0)
        return 0;
    const auto stat = readProcStat(("/proc/" + std::to_string(pid) + "/stat").c_str());
    return stat ? stat->started : 0;
}

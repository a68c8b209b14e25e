#include "processidentity.h"

#include <pthread.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <string>

namespace {

std::atomic<pid_t> knownPid{0};

void forgetPid() {
    knownPid.store(0, std::memory_order_relaxed);
}

pid_t pidOfThisProcess() {
    // Every write to the store names its process, and getpid() is a system call.
    static const int watchingForks = pthread_atfork(nullptr, nullptr, forgetPid);
    pid_t pid = knownPid.load(std::memory_order_relaxed);
    if (pid == 0) {
        pid = getpid();
        if (watchingForks == 0)
            knownPid.store(pid, std::memory_order_relaxed);
    }
    return pid;
}

}  // namespace

ProcessIdentity processIdentity() {
    ProcessIdentity identity{pidOfThisProcess(), {}};
    const char* name = program_invocation_short_name;
    std::memcpy(identity.name, name, strnlen(name, sizeof identity.name - 1));
    return identity;
}

uint64_t processStart(pid_t pid) {
    if (pid <= 0)
        return 0;
    std::ifstream file("/proc/" + std::to_string(pid) + "/stat");
    const std::string text((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    // The program's name stands in brackets and may itself hold blanks and brackets: field 3 follows the last one.
    size_t at = text.rfind(')');
    for (int field = 2; field < 22 && at != std::string::npos; ++field)
        at = text.find(' ', at + 1);
    return at == std::string::npos ? 0 : std::strtoull(text.c_str() + at + 1, nullptr, 10);
}

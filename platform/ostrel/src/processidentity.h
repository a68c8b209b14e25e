// Who this process is, for log lines and the book-keeping of writes.
#ifndef OSTREL_PROCESSIDENTITY_H
#define OSTREL_PROCESSIDENTITY_H

#include <sys/types.h>

#include <cstdint>
#include <string>

struct ProcessIdentity {
    pid_t pid;
    uid_t uid;
    char name[24];  // the program's, filled up with zeros
};

// Without a system call each time; right in a forked child too.
ProcessIdentity processIdentity();

// The name of a user, or the digits of `uid` where the system knows none.
std::string userName(uid_t uid);

// When the process started, in the system's ticks (field 22 of /proc/PID/stat); 0 where there is no such process.
uint64_t processStart(pid_t pid);

#endif

// What the kernel tells of a process or a thread in its file "stat".
#ifndef OSTREL_PROCSTAT_H
#define OSTREL_PROCSTAT_H

#include <cstdint>
#include <optional>
#include <string>

struct ProcStat {
    char state;        // 'Z' and 'X' are dead
    uint64_t started;  // in the system's ticks
};

// Nothing where /proc does not tell, for instance because there is no such process.
std::optional<ProcStat> readProcStat(const char* path);

// The name of a process's program, as the kernel keeps it; "?" where there is no such process.
std::string programName(int pid);

#endif

// The file into which the server of a store puts what its clients wrote: a line for each write, tab-separated.
#ifndef OSTREL_SERVER_WRITEFILE_H
#define OSTREL_SERVER_WRITEFILE_H

#include <map>
#include <string>

#include "store/writelog.h"

class WriteFile {
public:
    // Appends what came since the last time. False, with the reason, where the file cannot be written; the writes then
    // stay for the next time.
    bool drain(WriteMemory& memory, const std::string& path, std::string& problem);

private:
    struct Batch {
        std::string lines;
        uint64_t upTo;
    };

    Batch take(const WriteMemory& memory, uint64_t from, uint64_t to);
    bool isGivenUp(uint64_t number, uint64_t taken);
    std::string lineOf(uint64_t number, const WriteNote& note);

    std::map<uid_t, std::string> m_users;
    // Since when it is waited for unfinished writes up to that number.
    uint64_t m_waitedFor = 0;
    int64_t m_waitingSince = 0;
};

#endif

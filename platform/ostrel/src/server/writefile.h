// The file into which the server of a store puts what its clients wrote: a line for each write, tab-separated.
#ifndef OSTREL_SERVER_WRITEFILE_H
#define OSTREL_SERVER_WRITEFILE_H

#include <map>
#include <string>

#include "server/linefile.h"
#include "server/ringreader.h"
#include "store/writelog.h"

class WriteFile {
public:
    // Has what came since the last time appended. Without a wait, whatever the disk does.
    void drain(WriteRing& ring);

    // The ring of the next generation of the store has taken over what stood in the former one's.
    void follow(const WriteRing& former, const WriteRing& next) { m_reader.follow(former, next); }

    LineFile& file() { return m_file; }

private:
    std::string lineOf(uint64_t number, const WriteNote& note);

    LineFile m_file{"write"};
    RingReader<WriteRing> m_reader;
    std::map<uid_t, std::string> m_users;
};

#endif

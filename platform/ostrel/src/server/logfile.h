// The cell's log file: what the programs of the store had to say, in the order in which they said it.
#ifndef OSTREL_SERVER_LOGFILE_H
#define OSTREL_SERVER_LOGFILE_H

#include "server/linefile.h"
#include "server/ringreader.h"
#include "store/writelayout.h"

class LogFile {
public:
    // Has what came since the last time appended. Without a wait, whatever the disk does.
    void drain(LogRing& ring);

    // The ring of the next generation of the store has taken over what stood in the former one's.
    void follow(const LogRing& former, const LogRing& next) { m_reader.follow(former, next); }

    LineFile& file() { return m_file; }

private:
    LineFile m_file{"line"};
    RingReader<LogRing> m_reader;
};

#endif

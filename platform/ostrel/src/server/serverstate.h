// What a server of a store has in hand.
#ifndef OSTREL_SERVER_SERVERSTATE_H
#define OSTREL_SERVER_SERVERSTATE_H

#include <ostrel/server.h>

#include <memory>
#include <string>
#include <vector>

#include "events/eventmemory.h"
#include "server/logfile.h"
#include "server/servednames.h"
#include "server/servedrecords.h"
#include "server/serverlock.h"
#include "server/writefile.h"
#include "store/attachment.h"

struct ostrel_server {
    std::string name;  // empty for a private store
    Access access;
    std::string cellFile;
    std::unique_ptr<ServerLock> lock;
    bool adopted = false;

    // What is served, or what is being filled to be served: the next generation from make_room to commit.
    Attachment* store = nullptr;
    std::unique_ptr<ServedRecords> records;
    std::unique_ptr<ServedNames> names;
    std::vector<SM_AREA_ID> begun;  // areas under reconfiguration, -1 for all

    // While the next generation is being filled.
    Attachment* previous = nullptr;  // which clients use until then
    std::unique_ptr<ServedRecords> previousRecords;
    std::unique_ptr<ServedNames> previousNames;
    std::unique_ptr<Attachment> next;  // owns `store` until clients may have it

    std::vector<Attachment*> former;  // generations whose clients may not have moved yet
    std::unique_ptr<TimerService> timers;
    int64_t lastReclaim = 0;
    WriteFile writeFile;
    LogFile logFile;
};

#endif

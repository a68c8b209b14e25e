// The lock that keeps a store to one server. The system releases it when the process ends, however that happens.
#ifndef OSTREL_SERVER_SERVERLOCK_H
#define OSTREL_SERVER_SERVERLOCK_H

#include <string>

#include "store/sharedobject.h"

class ServerLock {
public:
    ServerLock() = default;
    ~ServerLock();
    ServerLock(const ServerLock&) = delete;
    ServerLock& operator=(const ServerLock&) = delete;

    // False: `problem` says why, for instance which process has it.
    bool acquire(const std::string& storeName, std::string& problem);

private:
    std::string m_object;
    int m_fd = -1;
};

#endif

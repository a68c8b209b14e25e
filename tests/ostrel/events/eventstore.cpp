#include "eventstore.h"

#include <ostrel/events.h>
#include <ostrel/log.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdarg>
#include <cstdio>
#include <vector>

#include "events/eventlock.h"
#include "events/eventmemory.h"
#include "events/eventsinuse.h"

namespace {

// The number of the store in use, from 1; 0 for none.
std::atomic<int>& inUse() {
    static std::atomic<int>& number = shared<std::atomic<int>>();
    return number;
}

std::vector<EventLayout*> layouts;  // by number - 1

}  // namespace

std::vector<std::string>& loggedLines() {
    static std::vector<std::string> lines;
    return lines;
}

void log_error(const char*, int, int, int, const char* format, ...) {
    char line[512];
    va_list arguments;
    va_start(arguments, format);
    vsnprintf(line, sizeof line, format, arguments);
    va_end(arguments);
    loggedLines().emplace_back(line);
}

EventsInUse eventsInUse() {
    const int number = inUse();
    if (number == 0)
        return {};
    return {layouts[static_cast<size_t>(number) - 1], static_cast<uint64_t>(number)};
}

void* sharedMemory(size_t size) {
    void* memory = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return memory == MAP_FAILED ? nullptr : memory;
}

EventStore::EventStore() : m_layout(static_cast<EventLayout*>(sharedMemory(eventMemorySize()))) {
    layouts.push_back(m_layout);
    m_number = static_cast<int>(layouts.size());
    formatEventMemory(m_layout);
}

EventStore::~EventStore() {
    constexpr int moreThanAnyTestMakes = 5000;
    for (int eid = 1; eid < moreThanAnyTestMakes; ++eid)
        event_detach(eid);
    useNone();
}

void EventStore::takePlaces(unsigned count) {
    for (unsigned place = threadCapacity - count; place < threadCapacity; ++place) {
        m_layout->threads[place].owner = {getpid(), getpid(), 0};
        m_layout->threads[place].used = 1;
    }
}

bool EventStore::isAsleep(int place) {
    const EventLock lock(*m_layout);
    return lock.held() && m_layout->threads[place].used == 1 && m_layout->threads[place].sleeping == 1;
}

void EventStore::use() {
    inUse() = m_number;
}

void EventStore::useNone() {
    inUse() = 0;
}

Child::Child(const std::function<int()>& function) : m_pid(fork()) {
    if (m_pid != 0)
        return;
    prctl(PR_SET_PDEATHSIG, SIGKILL);  // Also where the test itself is killed.
    _exit(function());
}

Child::~Child() {
    kill();
}

void Child::signal(int number) const {
    ::kill(m_pid, number);
}

void Child::kill() {
    if (m_pid <= 0)
        return;
    signal(SIGKILL);
    result();
}

int Child::result() {
    int status = 0;
    const pid_t ended = waitpid(m_pid, &status, 0);
    m_pid = -1;
    return ended > 0 && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

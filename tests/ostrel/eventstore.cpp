#include "eventstore.h"

#include <ostrel/events.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "eventmemory.h"
#include "eventsinuse.h"

namespace {

/* The number of the store in use, from 1; 0 for none. */
std::atomic<int>& inUse() {
    static std::atomic<int>& number = shared<std::atomic<int>>();
    return number;
}

std::vector<EventLayout*> layouts; /* by number - 1 */

std::uint64_t infoOf(const char* name, std::uint64_t (*field)(const ostrel_event_info_t&)) {
    ostrel_event_info_t info{};
    for (int index = 0; ostrel_event_info(index, &info) == 0; ++index) {
        if (std::string(info.name) == name)
            return field(info);
    }
    return 0;
}

}  // namespace

EventsInUse eventsInUse() {
    const int number = inUse();
    if (number == 0)
        return {};
    return {layouts[static_cast<std::size_t>(number) - 1], static_cast<std::uint64_t>(number)};
}

void* sharedMemory(std::size_t size) {
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

bool comes(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

Received receive(std::size_t size) {
    Received received;
    received.payload.assign(size, '?');
    for (int second = 0; second < 10; ++second) {
        if (event_wait(received.payload.data(), size, &received.eid) == 0)
            return received;
    }
    return {};
}

std::vector<std::string> receiveUntil(const std::string& last) {
    std::vector<std::string> texts;
    do {
        const Received received = receive();
        if (received.eid == 0)
            break;
        texts.emplace_back(received.payload.c_str());
    } while (texts.back() != last);
    return texts;
}

int eventId(const char* name) {
    int eid = 0;
    ostrel_event_create(name, &eid);
    return eid;
}

short int raise(const char* name, const std::string& payload) {
    std::string nameCopy = name;
    std::string payloadCopy = payload;
    return event_set_name(nameCopy.data(), payload.empty() ? nullptr : payloadCopy.data(), payload.size());
}

int attached(const char* name) {
    return static_cast<int>(
        infoOf(name, [](const ostrel_event_info_t& info) { return static_cast<std::uint64_t>(info.attached); }));
}

std::uint64_t dropped(const char* name) {
    return infoOf(name, [](const ostrel_event_info_t& info) -> std::uint64_t { return info.dropped; });
}

std::uint64_t raised(const char* name) {
    return infoOf(name, [](const ostrel_event_info_t& info) -> std::uint64_t { return info.raised; });
}

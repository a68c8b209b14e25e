/*
 * A stand-in for the store: event memory that the tests can make, damage, replace and take away.
 */
#ifndef OSTREL_TEST_EVENTSTORE_H
#define OSTREL_TEST_EVENTSTORE_H

#include <sys/types.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "eventlayout.h"

/* Shared by the test with the child processes that it makes later. */
class EventStore {
public:
    EventStore();
    /* Detaches the calling thread from everything and leaves no store in use. */
    ~EventStore();
    EventStore(const EventStore&) = delete;
    EventStore& operator=(const EventStore&) = delete;

    EventLayout& layout() { return *m_layout; }

    /* Makes it the store in use, of all the processes of the test. */
    void use();
    static void useNone();

private:
    EventLayout* m_layout; /* stays mapped, as it does in the library */
    int m_number;
};

/* A child process that runs a function and ends with its result. Killed when it goes out of scope. */
class Child {
public:
    explicit Child(const std::function<int()>& function);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    pid_t pid() const { return m_pid; }
    void signal(int number) const;
    void kill();
    /* The result of the function; -1 where the child died of a signal. */
    int result();

private:
    pid_t m_pid;
};

/* Memory that the test shares with the children that it makes later, zeroed. */
void* sharedMemory(std::size_t size);

template <class T>
T& shared() {
    return *static_cast<T*>(sharedMemory(sizeof(T)));
}

/* Waits for a condition, ten seconds at most; whether it came. */
bool comes(const std::function<bool()>& condition);

/* What event_wait() gave. */
struct Received {
    int eid = 0;
    std::string payload;
};

/* The next event within ten seconds, with the first `size` bytes of its payload; eid 0 where none came. */
Received receive(std::size_t size = payloadCapacity);

/* Payloads of everything that waits, as texts up to their first zero. */
std::vector<std::string> receiveUntil(const std::string& last);

/* Short forms that take literals. */
int eventId(const char* name);
short int raise(const char* name, const std::string& payload = {});
int attached(const char* name);
std::uint64_t dropped(const char* name);
std::uint64_t raised(const char* name);

#endif

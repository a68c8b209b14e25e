// A stand-in for the store: event memory that the tests can make, damage, replace and take away.
#ifndef OSTREL_TESTS_OSTREL_EVENTS_EVENTSTORE_H
#define OSTREL_TESTS_OSTREL_EVENTS_EVENTSTORE_H

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

#include "events/eventlayout.h"

// Shared by the test with the child processes that it makes later.
class EventStore {
public:
    EventStore();
    // Detaches the calling thread from everything and leaves no store in use.
    ~EventStore();
    EventStore(const EventStore&) = delete;
    EventStore& operator=(const EventStore&) = delete;

    EventLayout& layout() { return *m_layout; }

    // Gives the last places of the table to the process of the test, so that so many fewer threads have room.
    void takePlaces(unsigned count);

    // Whether the owner of that place has found nothing and sleeps.
    bool isAsleep(int place);

    // Makes it the store in use, of all the processes of the test.
    void use();
    static void useNone();

private:
    EventLayout* m_layout;  // stays mapped, as it does in the library
    int m_number;
};

// A child process that runs a function and ends with its result. Killed when it goes out of scope.
class Child {
public:
    explicit Child(const std::function<int()>& function);
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    pid_t pid() const { return m_pid; }
    void signal(int number) const;
    void kill();
    // The result of the function; -1 where the child died of a signal.
    int result();

private:
    pid_t m_pid;
};

// What the library would have written into the log of the process.
std::vector<std::string>& loggedLines();

// Memory that the test shares with the children that it makes later, zeroed.
void* sharedMemory(size_t size);

template <class T>
T& shared() {
    return *static_cast<T*>(sharedMemory(sizeof(T)));
}

#endif

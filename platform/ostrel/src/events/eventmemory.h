// The event memory of a store, as the server that keeps the store sees it.
#ifndef OSTREL_EVENTS_EVENTMEMORY_H
#define OSTREL_EVENTS_EVENTMEMORY_H

#include <cstddef>
#include <memory>

// Bytes that the events of one store need. Most of them are never touched: keep them sparse.
size_t eventMemorySize();

// Bytes at its beginning that every process uses: whoever makes the store takes their memory first.
size_t eventMemoryHead();

// Makes zeroed memory of that size ready. Called once, by the server that makes the store, before clients see it.
void formatEventMemory(void* memory);

// Raises an event in that memory, whatever store the process itself uses: a server that replaces a store tells the
// clients of the old one. The results are those of event_set_name(). Formatting made the event "config".
short int raiseEventIn(void* memory, const char* name, const void* data, size_t size);

// Makes the events and timers of the one memory in the other one too.
void takeOverEvents(void* from, void* to);

// Detaches the threads of processes that died, gives their places free. For the server's periodic look; a server that
// adopts a store calls it at once too.
void reclaimDeadThreads(void* memory);

// Raises the timer events found in the memory, from a thread of its own, as long as it lives. Timers that clients make
// later are found within 20 ms. The memory stays mapped until the destructor has returned.
class TimerService {
public:
    explicit TimerService(void* memory);
    ~TimerService();
    TimerService(const TimerService&) = delete;
    TimerService& operator=(const TimerService&) = delete;

private:
    class Loop;
    std::unique_ptr<Loop> m_loop;
};

#endif

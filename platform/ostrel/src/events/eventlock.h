// The lock of the event memory, and sleeping on words in it.
#ifndef OSTREL_EVENTS_EVENTLOCK_H
#define OSTREL_EVENTS_EVENTLOCK_H

#include <time.h>

#include "events/eventlayout.h"
#include "ground/monotonic.h"

timespec toTimespec(int64_t nanoseconds);

// Sleeps while `word` is `seen`, to the time `deadline` at most. May return early: the caller looks again.
void sleepOnWord(FutexWord& word, uint32_t seen, int64_t deadline);

// Wakes whoever sleeps on `word`, in all processes.
void wakeWord(FutexWord& word);

// Whether the memory was formatted by this version of the library, and nothing wrote over its lock.
bool isUsable(const EventLayout& memory);

// Holds the lock as long as it lives. It is not held when the memory is damaged, or when its owner, though alive, kept
// it to the deadline (a stopped process): an operator's program does not hang on another one's debugger. Without a
// deadline it waits for a second; once that has passed in vain, no longer than a moment until somebody gets the lock
// again, so that a cell that raises many events stands still once and not with each of them.
class EventLock {
public:
    explicit EventLock(EventLayout& memory);
    EventLock(EventLayout& memory, int64_t deadline);
    ~EventLock();
    EventLock(const EventLock&) = delete;
    EventLock& operator=(const EventLock&) = delete;

    bool held() const { return m_held; }

private:
    EventLayout& m_memory;
    bool m_held;
};

#endif

#include <algorithm>
#include <atomic>
#include <thread>
#include <vector>

#include "events/eventlock.h"
#include "events/eventmemory.h"
#include "events/eventtable.h"
#include "ground/quietthread.h"

namespace {

struct Timer {
    int event;
    int64_t period;
    int64_t due;
};

// The due time after `now` in step with the others: what was missed is left out, and the pace is kept.
int64_t dueAfter(const Timer& timer, int64_t now) {
    const int64_t periods = (now - timer.due) / timer.period + 1;
    return timer.due + periods * timer.period;
}

}  // namespace

class TimerService::Loop {
public:
    explicit Loop(EventLayout& memory);
    ~Loop();
    Loop(const Loop&) = delete;
    Loop& operator=(const Loop&) = delete;

private:
    void run();
    // Raises what is due. Returns the time of the next one.
    int64_t look();
    void findNewTimers(int64_t now);
    void raiseDueTimers(int64_t now, ThreadSet& toWake);

    EventLayout& m_memory;
    unsigned m_eventsSeen = 0;
    std::vector<Timer> m_timers;
    std::atomic<bool> m_isEnding = false;
    std::thread m_thread;
};

TimerService::Loop::Loop(EventLayout& memory) : m_memory(memory) {
    m_timers.reserve(eventCapacity);
    m_thread = startQuietThread([this] { run(); });
}

TimerService::Loop::~Loop() {
    m_isEnding = true;
    m_memory.timerChanges.fetch_add(1);
    wakeWord(m_memory.timerChanges);
    m_thread.join();
}

void TimerService::Loop::run() {
    while (!m_isEnding) {
        // Read before looking: a timer that is made after the look changes it, and the sleep ends at once.
        const uint32_t changes = m_memory.timerChanges.load();
        const int64_t next = look();
        if (!m_isEnding)
            sleepOnWord(m_memory.timerChanges, changes, next);
    }
}

int64_t TimerService::Loop::look() {
    ThreadSet toWake{};
    {
        const EventLock lock(m_memory);
        const int64_t now = monotonicNow();
        if (!lock.held())
            return now + nanosecondsPerSecond;
        findNewTimers(now);
        raiseDueTimers(now, toWake);
    }
    wakeThreads(m_memory, toWake);
    // The second at most makes up for the wake-up of a client that was killed before it came to it.
    int64_t next = monotonicNow() + nanosecondsPerSecond;
    for (const Timer& timer : m_timers)
        next = std::min(next, timer.due);
    return next;
}

void TimerService::Loop::findNewTimers(int64_t now) {
    for (; m_eventsSeen < eventCount(m_memory); ++m_eventsSeen) {
        const int64_t period = periodOf(m_memory.events[m_eventsSeen]) * nanosecondsPerMs;
        if (period > 0)
            m_timers.push_back({static_cast<int>(m_eventsSeen), period, now + period});
    }
}

void TimerService::Loop::raiseDueTimers(int64_t now, ThreadSet& toWake) {
    for (Timer& timer : m_timers) {
        if (timer.due > now)
            continue;
        putMessage(m_memory, timer.event, nullptr, 0, toWake);
        timer.due = dueAfter(timer, now);
    }
}

TimerService::TimerService(void* memory) : m_loop(std::make_unique<Loop>(*static_cast<EventLayout*>(memory))) {}

TimerService::~TimerService() = default;

#include "events/eventlock.h"

#include <linux/futex.h>
#include <sys/syscall.h>
#include <unistd.h>

#ifdef __SANITIZE_THREAD__
#include <sanitizer/tsan_interface.h>
#endif
#include <cerrno>
#include <climits>

timespec toTimespec(int64_t nanoseconds) {
    return {nanoseconds / nanosecondsPerSecond, nanoseconds % nanosecondsPerSecond};
}

void sleepOnWord(FutexWord& word, uint32_t seen, int64_t deadline) {
    const timespec until = toTimespec(deadline);
    // FUTEX_WAIT_BITSET is the one that takes an absolute time: a signal in between does not make the sleep longer.
    syscall(SYS_futex, &word, FUTEX_WAIT_BITSET, seen, &until, nullptr, FUTEX_BITSET_MATCH_ANY);
}

void wakeWord(FutexWord& word) {
    syscall(SYS_futex, &word, FUTEX_WAKE, INT_MAX, nullptr, nullptr, 0);
}

bool isUsable(const EventLayout& memory) {
    return memory.magic == eventMagic && memory.version == eventLayoutVersion &&
           memory.layoutSize == sizeof(EventLayout) && memory.guard == eventGuard;
}

// The dead owner may have raised events without waking the threads that sleep for them.
static void wakeAll(EventLayout& memory) {
    for (ThreadPlace& place : memory.threads) {
        if (place.used == 1) {
            place.sleeping = 0;
            place.wakeups.fetch_add(1, std::memory_order_relaxed);  // Read under the lock, or compared by the kernel.
            wakeWord(place.wakeups);
        }
    }
}

#ifdef __SANITIZE_THREAD__
// ThreadSanitizer sees unlocking, but does not know this way of locking.
static int lockUntil(pthread_mutex_t& mutex, const timespec& deadline) {
    __tsan_mutex_pre_lock(&mutex, __tsan_mutex_try_lock);
    const int result = pthread_mutex_clocklock(&mutex, CLOCK_MONOTONIC, &deadline);
    const bool isHeld = result == 0 || result == EOWNERDEAD;
    __tsan_mutex_post_lock(&mutex, __tsan_mutex_try_lock | (isHeld ? 0U : __tsan_mutex_try_lock_failed), 0);
    return result;
}
#else
static int lockUntil(pthread_mutex_t& mutex, const timespec& deadline) {
    return pthread_mutex_clocklock(&mutex, CLOCK_MONOTONIC, &deadline);
}
#endif

// Whether this process has found that the owner of the lock does not give it back.
static std::atomic<bool> ownerStands = false;

static int64_t patience() {
    constexpr int64_t moment = 2 * nanosecondsPerMs;
    return ownerStands.load(std::memory_order_relaxed) ? moment : nanosecondsPerSecond;
}

EventLock::EventLock(EventLayout& memory) : EventLock(memory, monotonicNow() + patience()) {
    if (!m_held)
        ownerStands.store(true, std::memory_order_relaxed);
}

EventLock::EventLock(EventLayout& memory, int64_t deadline) : m_memory(memory), m_held(false) {
    if (!isUsable(memory))
        return;
    const int result = lockUntil(memory.lock, toTimespec(deadline));
    if (result == EOWNERDEAD) {
        pthread_mutex_consistent(&memory.lock);
        wakeAll(memory);
    }
    m_held = result == 0 || result == EOWNERDEAD;
    if (m_held && ownerStands.load(std::memory_order_relaxed))
        ownerStands.store(false, std::memory_order_relaxed);
}

EventLock::~EventLock() {
    if (m_held)
        pthread_mutex_unlock(&m_memory.lock);
}

// The event memory of a store: what lies where, and what every process that maps it may rely on.
//
// Who writes, who reads. Every process of the store reads and writes all of it, under the robust mutex `lock`, with
// three exceptions. The head (magic to layoutSize, guard) is written once, before the store can be found. A thread's
// `wakeups` and the `timerChanges` of the memory are futex words: atomic, since they are slept on without the lock.
// Nothing else is read without the lock.
//
// What holds at every instruction, since a process may be killed at any of them while it has the lock:
// - Events 0 to eventCount - 1 are whole. They are never removed, so an index stays good as long as the memory.
// - The messages raised - 256 to raised - 1 of an event are whole (as far as that many were raised). A new one is
// written to the one slot that lies outside of them, and then `raised` takes it in.
// - A thread is attached to an event when its bit stands in `attached`; the subscription is filled before. A place in
// `threads` belongs to someone when `used` is 1; the identity is filled before, and the bits go before it is freed.
// So whoever gets the lock from a dead owner has nothing to repair. A kill can cost a count in `dropped`, and a
// wake-up: the new owner of the lock wakes all, and a sleeper looks again by itself after a second.
//
// There are no pointers in it. What is read from it is brought into range before it is used as an index or a size:
// a process that writes astray can spoil the events, not kill the others.
//
// A queue per attachment needs no memory of its own: an event keeps its last 256 messages, an attachment the number of
// the next one to read. With a depth of d it sees the last d messages at most; what lies further back was dropped.
#ifndef OSTREL_EVENTS_EVENTLAYOUT_H
#define OSTREL_EVENTS_EVENTLAYOUT_H

#include <pthread.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <type_traits>

constexpr unsigned eventCapacity = 2000;
constexpr unsigned threadCapacity = 4096;
constexpr unsigned payloadCapacity = 256;
constexpr unsigned deepestQueue = 256;
constexpr unsigned messageSlots = deepestQueue + 1;
static_assert(messageSlots > deepestQueue, "a new message is written to a slot outside of every queue");
constexpr size_t eventNameSize = 32;
constexpr int shortestPeriodMs = 10;
constexpr int longestPeriodMs = 3'600'000;

constexpr uint64_t eventMagic = 0x73746e65'76456c6fULL;
constexpr uint64_t eventGuard = 0x64726175'672d7665ULL;
constexpr uint32_t eventLayoutVersion = 2;

using FutexWord = std::atomic<uint32_t>;
static_assert(sizeof(FutexWord) == 4 && FutexWord::is_always_lock_free);

// Filled up with zeros, so that names are equal when their bytes are.
using EventName = std::array<char, eventNameSize>;

// One bit per place in the table of threads, in words that are walked over quickly where few are set.
using ThreadSet = std::array<uint64_t, threadCapacity / 64>;

// A thread as the kernel knows it; the start time tells it from a later one with the same numbers.
struct ThreadIdentity {
    int32_t pid;
    int32_t tid;
    uint64_t started;  // clock ticks since the machine started, 0 where the kernel does not tell

    bool operator==(const ThreadIdentity&) const = default;
};

struct ThreadPlace {
    ThreadIdentity owner;
    uint32_t used;      // 1: the place belongs to `owner`
    uint32_t sleeping;  // 1: the owner is about to sleep or sleeps; who raises clears it and wakes
    FutexWord wakeups;
    uint32_t reserved[9];
};
static_assert(sizeof(ThreadPlace) == 64);
static_assert(offsetof(ThreadPlace, used) == 16 && offsetof(ThreadPlace, wakeups) == 24);

struct EventPlace {
    EventName name;
    int32_t periodMs;   // 0: plain event
    uint16_t hasHeads;  // 1: the memory of its heads is taken
    uint16_t hasBodies;
    uint64_t raised;   // messages so far; the number of the next one
    uint64_t dropped;  // by all attachments, those that are gone included
    uint64_t reserved;
};
static_assert(sizeof(EventPlace) == 64);
static_assert(offsetof(EventPlace, raised) == 40 && offsetof(EventPlace, dropped) == 48);

struct Subscription {
    uint64_t next;  // number of the message to read next
    uint32_t depth;
    uint32_t reserved;
};
static_assert(sizeof(Subscription) == 16);

struct MessageHead {
    uint64_t order;  // over all events of the store
    uint32_t size;
    uint32_t reserved;
};
static_assert(sizeof(MessageHead) == 16);

struct MessageBody {
    unsigned char bytes[payloadCapacity];
};

struct EventLayout {
    uint64_t magic;
    uint32_t version;
    uint32_t layoutSize;
    pthread_mutex_t lock;
    uint64_t guard;  // with `magic` before the lock: no lock is taken where a neighbour was overrun
    uint32_t eventCount;
    FutexWord timerChanges;  // goes up with each new timer
    uint64_t order;          // given to the last message
    alignas(64) ThreadPlace threads[threadCapacity];
    EventPlace events[eventCapacity];
    ThreadSet attached[eventCapacity];
    // The server takes the memory of all that stands before, when it makes the store. Of what follows the memory is
    // taken as it is needed, before the first byte is written: a store whose memory is full refuses, and kills nobody.
    Subscription subscriptions[eventCapacity][threadCapacity];
    MessageHead heads[eventCapacity][messageSlots];
    MessageBody bodies[eventCapacity][messageSlots];
};
static_assert(std::is_standard_layout_v<EventLayout>);
static_assert(offsetof(EventLayout, lock) == 16);
static_assert(offsetof(EventLayout, threads) == 128 || sizeof(pthread_mutex_t) != 40);

// Makes what was written before part of the memory's state: a kill before leaves the old state, a kill after the new.
template <class T>
void publish(T& field, T value) {
    // Release: the kernel orders a killed thread's stores before the next owner's look, the compiler must do it too.
    std::atomic_ref<T>(field).store(value, std::memory_order_release);
}

#endif

#include "events/eventtable.h"

#include <ostrel/events.h>

#include <algorithm>
#include <bit>
#include <cstring>

#include "events/eventlock.h"
#include "events/eventowner.h"
#include "events/eventpages.h"
#include "events/eventroom.h"

namespace {

uint64_t bitOf(int place) {
    return uint64_t{1} << (static_cast<unsigned>(place) % 64);
}

template <class Set>
auto& wordOf(Set& set, int place) {
    return set[static_cast<unsigned>(place) / 64];
}

template <class Function>
void forEachPlace(const ThreadSet& set, Function function) {
    for (unsigned word = 0; word < set.size(); ++word) {
        for (uint64_t bits = set[word]; bits != 0; bits &= bits - 1)
            function(static_cast<int>(word * 64) + std::countr_zero(bits));
    }
}

// Who misses a phase of a reconfiguration takes it for one that never began or never ended, so nothing of them is
// dropped that can be kept, whatever was asked for.
unsigned depthFor(const EventPlace& event, unsigned asked) {
    return event.name == configEventName ? deepestQueue : std::clamp(asked, 1U, deepestQueue);
}

unsigned depthOf(const Subscription& subscription) {
    return std::clamp(subscription.depth, 1U, deepestQueue);
}

// Messages that the attachment has not read and can no longer read.
uint64_t overflowOf(const EventPlace& event, const Subscription& subscription) {
    const uint64_t waiting = event.raised - subscription.next;
    const unsigned depth = depthOf(subscription);
    return waiting > depth ? waiting - depth : 0;
}

void settleOverflow(EventPlace& event, Subscription& subscription) {
    const uint64_t overflow = overflowOf(event, subscription);
    if (overflow == 0)
        return;
    publish(subscription.next, subscription.next + overflow);
    event.dropped += overflow;
}

// Each event's messages get their memory once and for all.
bool takeHeads(EventLayout& memory, int event) {
    uint16_t& isTaken = memory.events[event].hasHeads;
    if (isTaken == 0 && takePages(memory.heads[event], sizeof memory.heads[event]))
        publish(isTaken, uint16_t{1});
    return isTaken != 0;
}

bool takeBodies(EventLayout& memory, int event) {
    uint16_t& isTaken = memory.events[event].hasBodies;
    if (isTaken == 0 && takePages(memory.bodies[event], sizeof memory.bodies[event]))
        publish(isTaken, uint16_t{1});
    return isTaken != 0;
}

}  // namespace

std::optional<EventName> toEventName(const char* name) {
    const size_t length = name ? strnlen(name, eventNameSize) : 0;
    if (length == 0 || length == eventNameSize)
        return std::nullopt;
    EventName result{};
    std::memcpy(result.data(), name, length);
    return result;
}

bool isPayload(const void* data, size_t size) {
    return size <= payloadCapacity && (data || size == 0);
}

unsigned eventCount(const EventLayout& memory) {
    return std::min(memory.eventCount, eventCapacity);
}

int periodOf(const EventPlace& event) {
    const bool isTimer = event.periodMs >= shortestPeriodMs && event.periodMs <= longestPeriodMs;
    return isTimer ? event.periodMs : 0;
}

int findEvent(const EventLayout& memory, const EventName& name) {
    for (unsigned event = 0; event < eventCount(memory); ++event) {
        if (memory.events[event].name == name)
            return static_cast<int>(event);
    }
    return -1;
}

int findTimer(const EventLayout& memory, int periodMs) {
    for (unsigned event = 0; event < eventCount(memory); ++event) {
        if (periodMs > 0 && periodOf(memory.events[event]) == periodMs)
            return static_cast<int>(event);
    }
    return -1;
}

int addEvent(EventLayout& memory, const EventName& name, int periodMs) {
    const unsigned index = eventCount(memory);
    if (index == eventCapacity)
        return -1;
    EventPlace& event = memory.events[index];
    event = {};
    memory.attached[index] = {};
    event.name = name;
    event.periodMs = periodMs;
    // Before the event counts: whoever sees the number and waits for the lock then finds the timer.
    if (periodMs > 0)
        memory.timerChanges.fetch_add(1, std::memory_order_relaxed);
    publish(memory.eventCount, index + 1);
    if (periodMs > 0)
        wakeWord(memory.timerChanges);
    return static_cast<int>(index);
}

int claimPlace(EventLayout& memory, const ThreadIdentity& thread) {
    const auto isFree = [](const ThreadPlace& candidate) { return candidate.used != 1; };
    ThreadPlace* const found = std::ranges::find_if(memory.threads, isFree);
    if (found == std::end(memory.threads))
        return -1;
    found->owner = thread;
    found->sleeping = 0;
    publish(found->used, 1U);
    return static_cast<int>(found - memory.threads);
}

bool ownsPlace(const EventLayout& memory, int place, const ThreadIdentity& thread) {
    return memory.threads[place].used == 1 && memory.threads[place].owner == thread;
}

void releasePlace(EventLayout& memory, int place) {
    for (unsigned event = 0; event < eventCount(memory); ++event) {
        if (isSubscribed(memory, static_cast<int>(event), place))
            unsubscribe(memory, static_cast<int>(event), place);
    }
    publish(memory.threads[place].used, 0U);
}

bool releaseDeadPlaces(EventLayout& memory) {
    std::array<ThreadIdentity, threadCapacity> owners{};
    std::array<bool, threadCapacity> isSuspect{};
    {
        const EventLock lock(memory);
        if (!lock.held())
            return false;
        for (unsigned place = 0; place < threadCapacity; ++place) {
            owners[place] = memory.threads[place].owner;
            isSuspect[place] = memory.threads[place].used == 1;
        }
    }
    // Asking the kernel takes long; nobody waits for the lock meanwhile.
    for (unsigned place = 0; place < threadCapacity; ++place)
        isSuspect[place] = isSuspect[place] && isGone(owners[place]);
    if (std::ranges::none_of(isSuspect, [](bool suspect) { return suspect; }))
        return false;

    const EventLock lock(memory);
    if (!lock.held())
        return false;
    bool wasReleased = false;
    for (unsigned place = 0; place < threadCapacity; ++place) {
        if (isSuspect[place] && ownsPlace(memory, static_cast<int>(place), owners[place])) {
            releasePlace(memory, static_cast<int>(place));
            wasReleased = true;
        }
    }
    return wasReleased;
}

bool subscribe(EventLayout& memory, int event, int place, unsigned depth) {
    Subscription& subscription = memory.subscriptions[event][place];
    if (!takePages(&subscription, sizeof subscription) || !takeHeads(memory, event))
        return false;
    subscription.next = memory.events[event].raised;
    subscription.depth = depthFor(memory.events[event], depth);
    uint64_t& word = wordOf(memory.attached[event], place);
    publish(word, word | bitOf(place));
    return true;
}

void unsubscribe(EventLayout& memory, int event, int place) {
    settleOverflow(memory.events[event], memory.subscriptions[event][place]);
    uint64_t& word = wordOf(memory.attached[event], place);
    publish(word, word & ~bitOf(place));
}

bool isSubscribed(const EventLayout& memory, int event, int place) {
    return (wordOf(memory.attached[event], place) & bitOf(place)) != 0;
}

bool oldestMessage(EventLayout& memory, int event, int place, Message& message) {
    Subscription& subscription = memory.subscriptions[event][place];
    settleOverflow(memory.events[event], subscription);
    if (subscription.next == memory.events[event].raised)
        return false;
    const size_t slot = subscription.next % messageSlots;
    const MessageHead& head = memory.heads[event][slot];
    message = {memory.bodies[event][slot].bytes, std::min(head.size, payloadCapacity), head.order};
    return true;
}

void takeMessage(EventLayout& memory, int event, int place) {
    Subscription& subscription = memory.subscriptions[event][place];
    publish(subscription.next, subscription.next + 1);
}

uint64_t droppedBy(const EventLayout& memory, int event) {
    const EventPlace& place = memory.events[event];
    uint64_t dropped = place.dropped;
    forEachPlace(memory.attached[event],
                 [&](int thread) { dropped += overflowOf(place, memory.subscriptions[event][thread]); });
    return dropped;
}

int attachedTo(const EventLayout& memory, int event) {
    int count = 0;
    forEachPlace(memory.attached[event], [&](int) { ++count; });
    return count;
}

bool putMessage(EventLayout& memory, int event, const void* data, size_t size, ThreadSet& toWake) {
    if (!takeHeads(memory, event) || (size > 0 && !takeBodies(memory, event)))
        return false;
    EventPlace& place = memory.events[event];
    const size_t slot = place.raised % messageSlots;
    publish(memory.order, memory.order + 1);
    memory.heads[event][slot] = {memory.order, static_cast<uint32_t>(size), 0};
    if (size > 0)
        std::memcpy(memory.bodies[event][slot].bytes, data, size);
    publish(place.raised, place.raised + 1);

    forEachPlace(memory.attached[event], [&](int thread) {
        ThreadPlace& sleeper = memory.threads[thread];
        if (sleeper.sleeping == 0)
            return;
        sleeper.sleeping = 0;
        // Relaxed: the sleeper reads it under the lock, or the kernel compares it.
        sleeper.wakeups.fetch_add(1, std::memory_order_relaxed);
        wordOf(toWake, thread) |= bitOf(thread);
    });
    return true;
}

static short int raiseLocked(EventLayout& memory, const EventName& name, const void* data, size_t size,
                             ThreadSet& toWake) {
    const EventLock lock(memory);
    if (!lock.held())
        return OSTREL_EVENT_NO_STORE;
    const int event = findEvent(memory, name);
    if (event < 0)
        return OSTREL_EVENT_UNKNOWN;
    return putMessage(memory, event, data, size, toWake) ? 0 : OSTREL_EVENT_FULL;
}

short int raiseEvent(EventLayout& memory, const EventName& name, const void* data, size_t size) {
    ThreadSet toWake{};
    const short int status = raiseLocked(memory, name, data, size, toWake);
    // Without the lock, which the threads that wake up want at once.
    if (status == 0)
        wakeThreads(memory, toWake);
    else if (status == OSTREL_EVENT_FULL)
        tellNoMemoryFor(memory, name);
    return status;
}

void wakeThreads(EventLayout& memory, const ThreadSet& threads) {
    forEachPlace(threads, [&](int thread) { wakeWord(memory.threads[thread].wakeups); });
}

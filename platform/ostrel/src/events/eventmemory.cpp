#include "events/eventmemory.h"

#include <ostrel/events.h>

#include <vector>

#include "events/eventlock.h"
#include "events/eventtable.h"

size_t eventMemorySize() {
    return sizeof(EventLayout);
}

size_t eventMemoryHead() {
    return offsetof(EventLayout, subscriptions);
}

void formatEventMemory(void* memory) {
    EventLayout& layout = *static_cast<EventLayout*>(memory);
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_setpshared(&attributes, PTHREAD_PROCESS_SHARED);
    pthread_mutexattr_setrobust(&attributes, PTHREAD_MUTEX_ROBUST);
    pthread_mutex_init(&layout.lock, &attributes);
    pthread_mutexattr_destroy(&attributes);
    layout.version = eventLayoutVersion;
    layout.layoutSize = sizeof(EventLayout);
    layout.guard = eventGuard;
    addEvent(layout, configEventName, 0);
    publish(layout.magic, eventMagic);
}

short int raiseEventIn(void* memory, const char* name, const void* data, size_t size) {
    const auto eventName = toEventName(name);
    if (!eventName || !isPayload(data, size))
        return OSTREL_EVENT_INVALID;
    return raiseEvent(*static_cast<EventLayout*>(memory), *eventName, data, size);
}

void reclaimDeadThreads(void* memory) {
    releaseDeadPlaces(*static_cast<EventLayout*>(memory));
}

void takeOverEvents(void* from, void* to) {
    std::vector<EventPlace> events;
    const EventLayout& former = *static_cast<EventLayout*>(from);
    if (const EventLock lock(*static_cast<EventLayout*>(from)); lock.held())
        events.assign(former.events, former.events + eventCount(former));
    EventLayout& next = *static_cast<EventLayout*>(to);
    const EventLock lock(next);
    for (const EventPlace& event : events)
        if (lock.held() && findEvent(next, event.name) < 0)
            addEvent(next, event.name, periodOf(event));
}

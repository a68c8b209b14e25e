#include <ostrel/events.h>

#include <cstring>
#include <new>

#include "events/eventlock.h"
#include "events/eventregistry.h"
#include "events/eventroom.h"
#include "events/eventsinuse.h"
#include "events/eventtable.h"
#include "events/eventthread.h"

namespace {

// Runs an operation for a C caller: no exception gets out.
template <class Operation>
short int answer(Operation operation) noexcept {
    try {
        return operation();
    } catch (const std::bad_alloc&) {
        return OSTREL_EVENT_FULL;
    }
}

// Runs an operation on the memory in use, with its lock.
template <class Operation>
short int answerLocked(Operation operation) noexcept {
    return answer([&]() -> short int {
        EventLayout* memory = eventsInUse().memory;
        if (!memory)
            return OSTREL_EVENT_NO_STORE;
        const EventLock lock(*memory);
        return lock.held() ? operation(*memory) : static_cast<short int>(OSTREL_EVENT_NO_STORE);
    });
}

short int raise(const EventName& name, const void* data, size_t size) {
    EventLayout* memory = eventsInUse().memory;
    return memory ? raiseEvent(*memory, name, data, size) : static_cast<short int>(OSTREL_EVENT_NO_STORE);
}

short int createTimer(EventLayout& memory, const EventName& name, int periodMs, int& eid) {
    if (findEvent(memory, name) >= 0) {
        const int id = idOfEvent(name);
        if (!ThreadEvents::ofThisThread().isAttachedTo(id))
            return OSTREL_EVENT_EXISTS;
        eid = id;
        return OSTREL_EVENT_ATTACHED;
    }
    eid = idOfEvent(name);
    if (addEvent(memory, name, periodMs) >= 0)
        return 0;
    ThreadEvents::ofThisThread().wish(name, periodMs);
    return OSTREL_EVENT_FULL;
}

// Without the lock.
void tellIfFull(short int status, const EventName& name) {
    EventLayout* memory = status == OSTREL_EVENT_FULL ? eventsInUse().memory : nullptr;
    if (memory)
        tellNoRoomForEvent(*memory, name);
}

}  // namespace

short int find_ms_timer(int interval_ms, char* name, int* eid) {
    if (!name || !eid)
        return OSTREL_EVENT_INVALID;
    return answerLocked([&](EventLayout& memory) -> short int {
        const int event = findTimer(memory, interval_ms);
        if (event < 0)
            return OSTREL_EVENT_UNKNOWN;
        EventName found = memory.events[event].name;
        found.back() = '\0';
        *eid = idOfEvent(found);
        std::memcpy(name, found.data(), found.size());
        return 0;
    });
}

short int event_create_timer(char* name, unsigned short, unsigned short, unsigned short, unsigned char, void* interval,
                             int* eid) {
    const auto eventName = toEventName(name);
    if (!eventName || !interval || !eid)
        return OSTREL_EVENT_INVALID;
    int periodMs = 0;
    std::memcpy(&periodMs, interval, sizeof periodMs);
    if (periodMs < shortestPeriodMs || periodMs > longestPeriodMs)
        return OSTREL_EVENT_INVALID;
    const short int status =
        answerLocked([&](EventLayout& memory) { return createTimer(memory, *eventName, periodMs, *eid); });
    tellIfFull(status, *eventName);
    return status;
}

short int ostrel_event_create(const char* name, int* eid) {
    const auto eventName = toEventName(name);
    if (!eventName)
        return OSTREL_EVENT_INVALID;
    const short int status = answerLocked([&](EventLayout& memory) -> short int {
        const int id = idOfEvent(*eventName);
        if (findEvent(memory, *eventName) < 0 && addEvent(memory, *eventName, 0) < 0)
            return OSTREL_EVENT_FULL;
        if (eid)
            *eid = id;
        return 0;
    });
    tellIfFull(status, *eventName);
    return status;
}

short int event_attach(const char* name, unsigned short max_queued, int* eid) {
    const auto eventName = toEventName(name);
    if (!eventName || !eid)
        return OSTREL_EVENT_INVALID;
    return answer([&] { return ThreadEvents::ofThisThread().attach(*eventName, max_queued, *eid); });
}

short int event_detach(int eid) {
    return answer([&] { return ThreadEvents::ofThisThread().detach(eid); });
}

short int event_wait(void* buffer, size_t size, int* eid) {
    if (!eid || (!buffer && size > 0))
        return OSTREL_EVENT_INVALID;
    return answer([&] { return ThreadEvents::ofThisThread().wait(buffer, size, *eid); });
}

short int event_set(int eid, void* data, size_t size) {
    if (!isPayload(data, size))
        return OSTREL_EVENT_INVALID;
    const auto name = nameOfEvent(eid);
    if (!name)
        return eventsInUse().memory ? OSTREL_EVENT_UNKNOWN : OSTREL_EVENT_NO_STORE;
    return raise(*name, data, size);
}

short int event_set_name(char* name, void* data, size_t size) {
    const auto eventName = toEventName(name);
    if (!eventName || !isPayload(data, size))
        return OSTREL_EVENT_INVALID;
    return raise(*eventName, data, size);
}

short int event_get_id(char* name, int* eid) {
    const auto eventName = toEventName(name);
    if (!eventName || !eid)
        return OSTREL_EVENT_INVALID;
    return answerLocked([&](EventLayout& memory) -> short int {
        if (findEvent(memory, *eventName) < 0)
            return OSTREL_EVENT_UNKNOWN;
        *eid = idOfEvent(*eventName);
        return 0;
    });
}

short int ostrel_event_room(ostrel_event_room_t* room) {
    if (!room)
        return OSTREL_EVENT_INVALID;
    return answerLocked([&](EventLayout& memory) -> short int {
        *room = roomTaken(memory);
        return 0;
    });
}

short int ostrel_event_info(int index, ostrel_event_info_t* info) {
    if (!info)
        return OSTREL_EVENT_INVALID;
    return answerLocked([&](EventLayout& memory) -> short int {
        if (index < 0 || static_cast<unsigned>(index) >= eventCount(memory))
            return OSTREL_EVENT_UNKNOWN;
        const EventPlace& event = memory.events[index];
        std::memcpy(info->name, event.name.data(), sizeof info->name);
        info->name[sizeof info->name - 1] = '\0';
        info->period_ms = periodOf(event);
        info->attached = attachedTo(memory, index);
        info->raised = event.raised;
        info->dropped = droppedBy(memory, index);
        return 0;
    });
}

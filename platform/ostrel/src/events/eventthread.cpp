#include "events/eventthread.h"

#include <ostrel/events.h>
#include <ostrel/records.h>

#include <algorithm>
#include <cstring>

#include "events/eventlock.h"
#include "events/eventowner.h"
#include "events/eventregistry.h"
#include "events/eventroom.h"
#include "events/eventsinuse.h"
#include "events/eventtable.h"

namespace {

constexpr int64_t quietTime = nanosecondsPerSecond;
constexpr int64_t stepWithoutStore = 50 * nanosecondsPerMs;

// The first bytes of what came, and zeros behind.
void fill(void* buffer, size_t size, const void* bytes, size_t count) {
    if (size == 0)
        return;
    const size_t copied = std::min(size, count);
    std::memcpy(buffer, bytes, copied);
    std::memset(static_cast<char*>(buffer) + copied, 0, size - copied);
}

void sleepOneStep(int64_t deadline) {
    const timespec until = toTimespec(std::min(deadline, monotonicNow() + stepWithoutStore));
    clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr);
}

}  // namespace

ThreadEvents& ThreadEvents::ofThisThread() {
    thread_local ThreadEvents events;
    if (events.m_forks != forkCount()) {
        events.m_attached.clear();
        events.m_memory = nullptr;
        events.m_announcement = Announcement::none;
        events.m_forks = forkCount();
    }
    return events;
}

ThreadEvents::ThreadEvents() : m_forks(forkCount()) {}

ThreadEvents::~ThreadEvents() {
    if (m_forks == forkCount())
        leave();
}

short int ThreadEvents::attach(const EventName& name, unsigned depth, int& id) {
    const auto waitsForRoom = [&](const Attached& attached) { return attached.name == name && attached.event < 0; };
    const bool hadNoRoom = std::ranges::any_of(m_attached, waitsForRoom);
    short int status = moveToStoreInUse();
    EventLayout* memory = eventsInUse().memory;
    if (status == 0) {
        status = attachInPlace(name, depth, id);
        if (status == OSTREL_EVENT_FULL)
            tellNoMemoryFor(*m_memory, name);
        else if (status == OSTREL_EVENT_ATTACHED && hadNoRoom)
            status = 0;
    } else if (status == OSTREL_EVENT_FULL && memory) {
        status = remember(*memory, name, depth, id);
        if (status == OSTREL_EVENT_FULL)
            tellNoRoomForThread(*memory);
    }
    if (m_attached.empty())
        leave();
    return status;
}

short int ThreadEvents::attachInPlace(const EventName& name, unsigned depth, int& id) {
    const EventLock lock(*m_memory);
    if (!lock.held())
        return OSTREL_EVENT_NO_STORE;
    const int event = findEvent(*m_memory, name);
    if (event < 0)
        return OSTREL_EVENT_UNKNOWN;
    id = idOfEvent(name);
    Attached& attached = entryOf(id, name, periodOf(m_memory->events[event]), depth);
    if (attached.event >= 0)
        return OSTREL_EVENT_ATTACHED;
    attachAgain();
    return attached.event >= 0 ? 0 : OSTREL_EVENT_FULL;
}

short int ThreadEvents::remember(EventLayout& memory, const EventName& name, unsigned depth, int& id) {
    const EventLock lock(memory);
    if (!lock.held())
        return OSTREL_EVENT_NO_STORE;
    const int event = findEvent(memory, name);
    if (event < 0)
        return OSTREL_EVENT_UNKNOWN;
    id = idOfEvent(name);
    entryOf(id, name, periodOf(memory.events[event]), depth);
    return OSTREL_EVENT_FULL;
}

void ThreadEvents::wish(const EventName& name, int periodMs) {
    entryOf(idOfEvent(name), name, periodMs, 1);
}

ThreadEvents::Attached& ThreadEvents::entryOf(int id, const EventName& name, int periodMs, unsigned depth) {
    const auto known = std::ranges::find(m_attached, id, &Attached::id);
    return known != m_attached.end() ? *known : m_attached.emplace_back(Attached{id, name, periodMs, depth, -1});
}

short int ThreadEvents::detach(int id) {
    const auto found = std::ranges::find(m_attached, id, &Attached::id);
    if (found == m_attached.end())
        return eventsInUse().memory ? OSTREL_EVENT_UNKNOWN : OSTREL_EVENT_NO_STORE;
    if (m_memory && found->event >= 0) {
        const EventLock lock(*m_memory);
        if (lock.held() && ownsPlace(*m_memory, m_place, m_identity))
            unsubscribe(*m_memory, found->event, m_place);
    }
    if (found->name == configEventName)
        m_announcement = Announcement::none;
    m_attached.erase(found);
    if (m_attached.empty())
        leave();
    return 0;
}

bool ThreadEvents::isAttachedTo(int id) const {
    return std::ranges::find(m_attached, id, &Attached::id) != m_attached.end();
}

short int ThreadEvents::wait(void* buffer, size_t size, int& id) {
    const int64_t deadline = monotonicNow() + quietTime;
    for (;;) {
        if (!m_attached.empty() && monotonicNow() >= m_nextTry)
            moveToStoreInUse();
        if (takeAnnouncement(buffer, size, id))
            return 0;
        if (m_memory && takeOrSleep(buffer, size, id, deadline))
            return 0;
        if (monotonicNow() >= deadline)
            return OSTREL_EVENT_QUIET;
        if (!m_memory)
            sleepOneStep(deadline);
    }
}

bool ThreadEvents::takeOrSleep(void* buffer, size_t size, int& id, int64_t deadline) {
    ThreadPlace& place = m_memory->threads[m_place];
    uint32_t seen = 0;
    {
        const EventLock lock(*m_memory, deadline);
        if (!lock.held()) {
            sleepOneStep(deadline);
            return false;
        }
        if (!ownsPlace(*m_memory, m_place, m_identity)) {
            m_memory = nullptr;
            return false;
        }
        attachAgain();
        if (takeOldest(buffer, size, id)) {
            place.sleeping = 0;
            return true;
        }
        place.sleeping = 1;
        seen = place.wakeups.load(std::memory_order_relaxed);  // It changes under the lock only.
    }
    sleepOnWord(place.wakeups, seen, deadline);
    return false;
}

bool ThreadEvents::takeOldest(void* buffer, size_t size, int& id) {
    Message oldest{};
    const Attached* from = nullptr;
    for (const Attached& attached : m_attached) {
        Message message{};
        if (attached.event < 0 || !oldestMessage(*m_memory, attached.event, m_place, message))
            continue;
        if (!from || message.order < oldest.order) {
            oldest = message;
            from = &attached;
        }
    }
    if (!from)
        return false;
    fill(buffer, size, oldest.bytes, oldest.size);
    takeMessage(*m_memory, from->event, m_place);
    id = from->id;
    return true;
}

bool ThreadEvents::takeAnnouncement(void* buffer, size_t size, int& id) {
    if (m_announcement == Announcement::none)
        return false;
    const bool isStart = m_announcement == Announcement::start;
    GLOBAL_CONFIG_EVENT event{};
    event.new_state = isStart ? 1 : 0;
    event.pid = m_identity.pid;
    event.memcode = static_cast<SM_AREA_ID>(-1);
    fill(buffer, size, &event, sizeof event);
    id = idOfEvent(configEventName);
    m_announcement = isStart ? Announcement::end : Announcement::none;
    return true;
}

short int ThreadEvents::moveToStoreInUse() {
    const EventsInUse inUse = eventsInUse();
    if (!inUse.memory)
        return OSTREL_EVENT_NO_STORE;
    if (inUse.memory == m_memory && inUse.instance == m_instance)
        return 0;
    leave();
    return enter(*inUse.memory, inUse.instance);
}

short int ThreadEvents::enter(EventLayout& memory, uint64_t instance) {
    m_instance = instance;
    m_identity = currentThread();
    const short int status = claim(memory);
    if (status != OSTREL_EVENT_FULL)
        return status;
    m_nextTry = monotonicNow() + quietTime;
    return releaseDeadPlaces(memory) ? claim(memory) : status;
}

short int ThreadEvents::claim(EventLayout& memory) {
    const EventLock lock(memory);
    if (!lock.held())
        return OSTREL_EVENT_NO_STORE;
    const int place = claimPlace(memory, m_identity);
    if (place < 0)
        return OSTREL_EVENT_FULL;
    m_memory = &memory;
    m_place = place;
    for (Attached& attached : m_attached)
        attached.event = -1;
    attachAgain();
    const bool hasConfig = isAttachedTo(idOfEvent(configEventName));
    m_announcement = hasConfig ? Announcement::start : Announcement::none;
    return 0;
}

void ThreadEvents::leave() {
    if (!m_memory)
        return;
    const EventLock lock(*m_memory);
    if (lock.held() && ownsPlace(*m_memory, m_place, m_identity))
        releasePlace(*m_memory, m_place);
    m_memory = nullptr;
}

void ThreadEvents::attachAgain() {
    for (Attached& attached : m_attached) {
        if (attached.event >= 0)
            continue;
        attached.event = findEvent(*m_memory, attached.name);
        if (attached.event < 0)
            attached.event = addEvent(*m_memory, attached.name, attached.periodMs);
        if (attached.event >= 0 && !subscribe(*m_memory, attached.event, m_place, attached.depth))
            attached.event = -1;
    }
}

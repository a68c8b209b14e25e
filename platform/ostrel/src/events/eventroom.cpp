#include "events/eventroom.h"

#include <ostrel/log.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include "events/eventlock.h"
#include "events/eventtable.h"
#include "procstat.h"

namespace {

// The memory of which it was told last; another store may run out of room too.
using Told = std::atomic<const EventLayout*>;

bool isFirst(Told& told, const EventLayout& memory) {
    return told.exchange(&memory) != &memory;
}

template <class... Arguments>
void tell(const char* format, Arguments... arguments) {
    log_error("events", 0, 1, OSTREL_EVENT_FULL, format, arguments...);
}

// "1200 by ostrel-display[77], 900 by ostrel-display[81]": who has the most places.
std::string greatestOwners(const EventLayout& memory) {
    std::map<int, int> placesOf;
    for (const ThreadPlace& place : memory.threads)
        if (place.used == 1)
            ++placesOf[place.owner.pid];
    std::vector<std::pair<int, int>> owners(placesOf.begin(), placesOf.end());
    std::ranges::sort(owners, std::greater(), &std::pair<int, int>::second);
    constexpr size_t most = 3;
    owners.resize(std::min(owners.size(), most));
    std::string text;
    for (const auto& [pid, places] : owners)
        text += (text.empty() ? "" : ", ") + std::to_string(places) + " by " + programName(pid) + "[" +
                std::to_string(pid) + "]";
    return text;
}

std::string textOf(const EventName& name) {
    return {name.data(), strnlen(name.data(), name.size())};
}

}  // namespace

ostrel_event_room_t roomTaken(const EventLayout& memory) {
    ostrel_event_room_t room{};
    room.threads = static_cast<int>(
        std::ranges::count_if(memory.threads, [](const ThreadPlace& place) { return place.used == 1; }));
    room.most_threads = threadCapacity;
    room.events = static_cast<int>(eventCount(memory));
    room.most_events = eventCapacity;
    return room;
}

void tellNoRoomForThread(EventLayout& memory) {
    static Told told;
    if (!isFirst(told, memory))
        return;
    std::string owners;
    if (const EventLock lock(memory); lock.held())
        owners = greatestOwners(memory);
    tell("no place for another thread that waits for events: all %u are taken, %s; it goes on trying", threadCapacity,
         owners.c_str());
}

void tellNoRoomForEvent(EventLayout& memory, const EventName& name) {
    static Told told;
    if (!isFirst(told, memory))
        return;
    int timers = 0;
    if (const EventLock lock(memory); lock.held())
        for (unsigned event = 0; event < eventCount(memory); ++event)
            timers += periodOf(memory.events[event]) > 0;
    tell("no room for the event %s: all %u exist, %d of them timers", textOf(name).c_str(), eventCapacity, timers);
}

void tellNoMemoryFor(const EventLayout& memory, const EventName& name) {
    static Told told;
    if (isFirst(told, memory))
        tell("no memory for the event %s, which may need %zu bytes; free some in /dev/shm", textOf(name).c_str(),
             sizeof(EventLayout::heads[0]) + sizeof(EventLayout::bodies[0]) + sizeof(EventLayout::subscriptions[0]));
}

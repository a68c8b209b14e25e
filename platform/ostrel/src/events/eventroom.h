// The room of the event memory: how much of it is taken, and telling those for whom there is none.
#ifndef OSTREL_EVENTS_EVENTROOM_H
#define OSTREL_EVENTS_EVENTROOM_H

#include <ostrel/events.h>

#include "events/eventlayout.h"

// With the memory's lock held.
ostrel_event_room_t roomTaken(const EventLayout& memory);

// Each of these writes one line into the log for a memory, however often the room is missing: who runs into it does so
// again and again. They take the memory's lock.
void tellNoRoomForThread(EventLayout& memory);
void tellNoRoomForEvent(EventLayout& memory, const EventName& name);
void tellNoMemoryFor(const EventLayout& memory, const EventName& name);

#endif

// Which store's events the process uses at present.
#ifndef OSTREL_EVENTS_EVENTSINUSE_H
#define OSTREL_EVENTS_EVENTSINUSE_H

#include <cstdint>

struct EventLayout;

struct EventsInUse {
    EventLayout* memory;  // null without a store that can be written; else mapped to the end of the process
    uint64_t instance;    // another number for each store
};

// Looks for a store where there was none, and for the one that has taken its place. Cheap.
EventsInUse eventsInUse();

#endif

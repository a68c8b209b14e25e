// The event ids of this process: one per name, the same to its end, whatever store there is.
#ifndef OSTREL_EVENTS_EVENTREGISTRY_H
#define OSTREL_EVENTS_EVENTREGISTRY_H

#include <optional>

#include "events/eventlayout.h"

// The id of a name, positive; a new one for a name that is new. Any thread may call these.
int idOfEvent(const EventName& name);

// The name that goes with an id; nothing for an id that was never given.
std::optional<EventName> nameOfEvent(int id);

// How many forks lie between the first process and this one: what a thread holds in the store stays the parent's.
int forkCount();

#endif

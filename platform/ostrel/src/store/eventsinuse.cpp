#include "events/eventsinuse.h"

#include "events/eventlayout.h"
#include "store/attachment.h"

EventsInUse eventsInUse() {
    const Attachment* store = attachment();
    return store ? EventsInUse{static_cast<EventLayout*>(store->eventMemory()), store->instance()} : EventsInUse{};
}

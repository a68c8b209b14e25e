#include "events/eventsinuse.h"

#include "store/attachment.h"
#include "events/eventlayout.h"

EventsInUse eventsInUse() {
    const Attachment* store = attachment();
    return store ? EventsInUse{static_cast<EventLayout*>(store->eventMemory()), store->instance()} : EventsInUse{};
}

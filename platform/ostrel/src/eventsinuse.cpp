#include "eventsinuse.h"

#include "attachment.h"
#include "eventlayout.h"

EventsInUse eventsInUse() {
    const Attachment* store = attachment();
    return store ? EventsInUse{static_cast<EventLayout*>(store->eventMemory()), store->instance()} : EventsInUse{};
}

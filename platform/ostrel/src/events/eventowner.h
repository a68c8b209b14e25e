// Who owns a place in the event memory, and whether he still lives.
#ifndef OSTREL_EVENTS_EVENTOWNER_H
#define OSTREL_EVENTS_EVENTOWNER_H

#include "events/eventlayout.h"

ThreadIdentity currentThread();

// Whether that thread has ended. What cannot be found out counts as alive. Processes share one pid namespace.
bool isGone(const ThreadIdentity& thread);

#endif

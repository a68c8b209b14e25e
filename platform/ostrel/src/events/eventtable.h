// What can be done with the events of one store: on the memory that all its processes share.
//
// The functions are called with the memory's lock held, except where they say that they take it. Indexes that they take
// are in range; what they read from the memory they bring into range themselves.
#ifndef OSTREL_EVENTS_EVENTTABLE_H
#define OSTREL_EVENTS_EVENTTABLE_H

#include <optional>

#include "events/eventlayout.h"

// What a caller passes as a name; nothing for null, for an empty name and for one that is too long.
std::optional<EventName> toEventName(const char* name);

// Of what callers pass as a payload: not too long, and there when it is not empty.
bool isPayload(const void* data, size_t size);

// The event by which a store announces its reconfigurations.
constexpr EventName configEventName{"config"};

unsigned eventCount(const EventLayout& memory);
int periodOf(const EventPlace& event);

// Index of the event of that name, or -1.
int findEvent(const EventLayout& memory, const EventName& name);

// Index of the first timer of that period, or -1.
int findTimer(const EventLayout& memory, int periodMs);

// Index of a new event, or -1 where there is no room. Tells the timers' thread.
int addEvent(EventLayout& memory, const EventName& name, int periodMs);

// A place for a thread that has none, or -1.
int claimPlace(EventLayout& memory, const ThreadIdentity& thread);
bool ownsPlace(const EventLayout& memory, int place, const ThreadIdentity& thread);

// Detaches the owner of the place from everything and frees it.
void releasePlace(EventLayout& memory, int place);

// Takes the lock. Frees the places of threads that have ended; whether there was one.
bool releaseDeadPlaces(EventLayout& memory);

// `depth` is brought into range; "config" has the greatest one always. What was raised before is not seen. False where
// the store's memory is full.
bool subscribe(EventLayout& memory, int event, int place, unsigned depth);
void unsubscribe(EventLayout& memory, int event, int place);
bool isSubscribed(const EventLayout& memory, int event, int place);

struct Message {
    const unsigned char* bytes;
    size_t size;
    uint64_t order;
};

// The oldest message that waits for that attachment; false where none does. What overflowed its queue is counted.
bool oldestMessage(EventLayout& memory, int event, int place, Message& message);

// Takes the oldest message out of the queue.
void takeMessage(EventLayout& memory, int event, int place);

// Messages dropped so far, what will be counted when the queues are read next included.
uint64_t droppedBy(const EventLayout& memory, int event);
int attachedTo(const EventLayout& memory, int event);

// Puts a message in, `size` up to payloadCapacity, and adds the threads that are to be woken, best without the lock, to
// `toWake`. False where the store's memory is full: then nothing was raised.
bool putMessage(EventLayout& memory, int event, const void* data, size_t size, ThreadSet& toWake);

// Takes the lock, puts the message in and wakes the threads. The results are those of event_set_name(). Who runs out of
// memory hears of it in the log, once.
short int raiseEvent(EventLayout& memory, const EventName& name, const void* data, size_t size);

// Without the lock. Waking a thread needlessly does no harm.
void wakeThreads(EventLayout& memory, const ThreadSet& threads);

#endif

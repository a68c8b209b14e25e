// Named events and periodic timers of the store.
//
// An event has a name of at most 31 characters and carries a payload of at most 256 bytes. A thread attaches to the
// events that it wants; each attachment has its own queue. A timer is an event that the store's server raises
// periodically; a period that was missed is not made up for. Event ids are positive, belong to this process and stay
// the same for a name to the end of the process, also when another store takes the old one's place.
//
// Every store has the event "config", by which it announces its reconfigurations. When another store takes the place of
// the one in use, a waiting thread is attached to its events there by name, within a second. One that is attached to
// "config" then receives the announcement of a reconfiguration of all areas, its start and its end.
#ifndef OSTREL_EVENTS_H
#define OSTREL_EVENTS_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

// Results that callers tell apart.
#define OSTREL_EVENT_QUIET (-253)     // event_wait: nothing came within a second
#define OSTREL_EVENT_EXISTS (-256)    // event_create_timer: there is an event of that name
#define OSTREL_EVENT_ATTACHED (-261)  // the calling thread is attached to it already
#define OSTREL_EVENT_NO_STORE (-250)  // no store, or its events cannot be used
#define OSTREL_EVENT_UNKNOWN (-251)   // no such event; event_detach: not attached to it
#define OSTREL_EVENT_FULL (-252)      // 2000 events exist, 4096 threads are attached, or the store's memory is full
#define OSTREL_EVENT_INVALID (-254)   // a name, a payload or a period that cannot be; null where a place is needed

// Looks for a timer of that period. 0: there is one, `name` (32 bytes) and *eid are filled; else *eid stays as it was.
short int find_ms_timer(int interval_ms, char* name, int* eid);

// Makes a timer event. *(int*)interval is its period in milliseconds, from 10 to 3600000. The numbers between name and
// interval are passed as 10, 0, 1 and 0 and change nothing: each attachment has a queue of the depth that it asks for.
// 0, or OSTREL_EVENT_ATTACHED: *eid is its id. The calling thread is not attached by this, but for OSTREL_EVENT_FULL:
// then *eid is the id that the timer will have, and the thread waits for it as event_attach() says.
short int event_create_timer(char* name, unsigned short depth, unsigned short reserved0, unsigned short reserved1,
                             unsigned char reserved2, void* interval, int* eid);

// Makes a plain event. 0: made, or there already; *eid (may be null) is its id.
short int ostrel_event_create(const char* name, int* eid);

// Attaches the calling thread to an event, with a queue of `max_queued` (1 to 256; what is outside is taken as the
// nearer end; "config" has one of 256 always, so that both phases of a reconfiguration come). A full queue drops its
// oldest entry. 0, or OSTREL_EVENT_ATTACHED: *eid is the id. A thread that ends is detached from all.
// OSTREL_EVENT_FULL: there is no room, which the log tells once, with what takes it. *eid is the id all the same:
// event_wait() tries to attach the thread once a second from then on, until event_detach().
short int event_attach(const char* name, unsigned short max_queued, int* eid);

// Detaches the calling thread. What waits in its queue is lost.
short int event_detach(int eid);

// Blocks the calling thread until an event comes that it is attached to: 0, *eid is the event and `buffer` holds the
// first `size` bytes of the payload, filled up with zeros. OSTREL_EVENT_QUIET after a second without one, also with
// no store, so that the caller can look up.
short int event_wait(void* buffer, size_t size, int* eid);

// Raises an event, with `size` bytes of payload (null and 0 for none). It waits for nobody to receive it.
short int event_set(int eid, void* data, size_t size);
short int event_set_name(char* name, void* data, size_t size);

// The id of an existing event.
short int event_get_id(char* name, int* eid);

// How much of the room for events is taken.
typedef struct ostrel_event_room_t {
    int threads;  // that are attached
    int most_threads;
    int events;
    int most_events;
} ostrel_event_room_t;

// 0: *room is filled.
short int ostrel_event_room(ostrel_event_room_t* room);

// One event as ostrel_event_info() tells it.
typedef struct ostrel_event_info_t {
    char name[32];
    int period_ms;              // 0 for a plain event
    int attached;               // threads
    unsigned long long raised;  // times
    unsigned long long dropped;
} ostrel_event_info_t;

// The event at position `index` (from 0). 0, or non-zero beyond the last one. Positions may shift between calls.
short int ostrel_event_info(int index, ostrel_event_info_t* info);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif

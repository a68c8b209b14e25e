// The events of one thread: what it is attached to, in which store, and waiting for them.
#ifndef OSTREL_EVENTS_EVENTTHREAD_H
#define OSTREL_EVENTS_EVENTTHREAD_H

#include <vector>

#include "events/eventlayout.h"

// Each thread has its own, which no other thread touches. What it is attached to is remembered here by name: when
// another store takes the old one's place, the thread attaches to the same events there. A thread that had attached to
// "config" is then told of a reconfiguration of everything, begun and ended, since all that it linked lies elsewhere.
class ThreadEvents {
public:
    // Of the calling thread. In a child process it starts empty: the place in the store is the parent's.
    static ThreadEvents& ofThisThread();

    ThreadEvents();
    ~ThreadEvents();
    ThreadEvents(const ThreadEvents&) = delete;
    ThreadEvents& operator=(const ThreadEvents&) = delete;

    // As the operations of events.h.
    short int attach(const EventName& name, unsigned depth, int& id);
    short int detach(int id);
    short int wait(void* buffer, size_t size, int& id);

    // Attaches to an event for which there is no room yet, when there is some; a timer is made then. Takes no lock.
    void wish(const EventName& name, int periodMs);

    bool isAttachedTo(int id) const;

private:
    struct Attached {
        int id;
        EventName name;
        int periodMs;
        unsigned depth;
        int event;  // in the memory; -1 while there is no room for the event or for the attachment
    };

    // The announcement that the thread gives itself next.
    enum class Announcement { none, start, end };

    // Gets a place in the store in use and attaches there again: 0, OSTREL_EVENT_NO_STORE or OSTREL_EVENT_FULL.
    short int moveToStoreInUse();
    short int enter(EventLayout& memory, uint64_t instance);
    short int claim(EventLayout& memory);
    void leave();

    // Attaches to what is remembered and not attached to. With the lock held.
    void attachAgain();

    // As attach(), for a thread that has its place in that memory, and for one that has none.
    short int attachInPlace(const EventName& name, unsigned depth, int& id);
    short int remember(EventLayout& memory, const EventName& name, unsigned depth, int& id);

    // What is remembered of an event that the thread wants, a new one where it did not until now.
    Attached& entryOf(int id, const EventName& name, int periodMs, unsigned depth);
    bool takeAnnouncement(void* buffer, size_t size, int& id);
    bool takeOldest(void* buffer, size_t size, int& id);

    // Takes a message; without one the thread sleeps, to the deadline at most, and takes none.
    bool takeOrSleep(void* buffer, size_t size, int& id, int64_t deadline);

    std::vector<Attached> m_attached;
    EventLayout* m_memory = nullptr;  // null: the thread has no place in a store
    uint64_t m_instance = 0;
    int m_place = -1;
    int64_t m_nextTry = 0;  // at a place in a store that was full
    ThreadIdentity m_identity{};
    Announcement m_announcement = Announcement::none;
    int m_forks;
};

#endif

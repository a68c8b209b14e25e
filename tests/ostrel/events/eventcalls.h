// The calls of events.h in the forms in which the tests like to make them. All of them use the store in use.
#ifndef OSTREL_TESTS_OSTREL_EVENTS_EVENTCALLS_H
#define OSTREL_TESTS_OSTREL_EVENTS_EVENTCALLS_H

#include <ostrel/events.h>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Waits for a condition, ten seconds at most; whether it came.
bool comes(const std::function<bool()>& condition);

// What event_wait() gave.
struct Received {
    int eid = 0;
    std::string payload;
};

// The next event within ten seconds, with the first `size` bytes of its payload; eid 0 where none came.
Received receive(size_t size = 256);

// Payloads of everything that waits, as texts up to their first zero.
std::vector<std::string> receiveUntil(const std::string& last);

// That many times this event comes, and nothing else.
bool ticks(int eid, int count);

// Short forms that take literals; attaching is with a depth of 256 where none is given.
short int attach(const char* name, unsigned short depth = 256);
short int createTimer(const char* name, int periodMs, int& eid);
int eventId(const char* name);
short int raise(const char* name, const std::string& payload = {});
int attached(const char* name);
uint64_t dropped(const char* name);
uint64_t raised(const char* name);

#endif

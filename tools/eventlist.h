// The events of the store, as they are at one moment.
#ifndef OSTREL_TOOLS_EVENTLIST_H
#define OSTREL_TOOLS_EVENTLIST_H

#include <ostrel/events.h>

#include <string>
#include <vector>

#include "fieldtext.h"

// Whoever may only read the store cannot use its events, nor even see them.
inline bool mayUseEvents() {
    ostrel_event_info_t info{};
    return ostrel_event_info(0, &info) != OSTREL_EVENT_NO_STORE;
}

inline std::vector<ostrel_event_info_t> eventList() {
    std::vector<ostrel_event_info_t> events;
    ostrel_event_info_t info{};
    for (int i = 0; ostrel_event_info(i, &info) == 0; ++i)
        events.push_back(info);
    return events;
}

inline std::vector<std::string> eventNames() {
    std::vector<std::string> names;
    for (const auto& event : eventList())
        names.push_back(fieldText(event.name));
    return names;
}

#endif

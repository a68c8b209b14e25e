// The functions of the event service.
#include <ostrel/events.h>

#include <algorithm>
#include <cstring>

#include "scripted/calls.h"

using namespace scripted;

short int find_ms_timer(int interval_ms, char* name, int* eid) {
    called("find_ms_timer", interval_ms);
    short code = 0;
    if (answered("find_ms_timer", &code))
        return code;
    QString found;
    if (!platform().events().findTimer(interval_ms, &found, eid))
        return OSTREL_EVENT_UNKNOWN;
    qstrncpy(name, found.toLatin1().constData(), 32);
    return 0;
}

short int event_create_timer(char* name, unsigned short depth, unsigned short reserved0, unsigned short reserved1,
                             unsigned char reserved2, void* interval, int* eid) {
    called("event_create_timer", name, depth, reserved0, reserved1, int{reserved2}, *static_cast<int*>(interval));
    short code = 0;
    if (answered("event_create_timer", &code))
        return code;
    *eid = platform().events().create(QString::fromLatin1(name));
    return 0;
}

short int event_attach(const char* name, unsigned short max_queued, int* eid) {
    called("event_attach", name, max_queued);
    short code = 0;
    // A thread that is attached already gets the event all the same.
    if (answered("event_attach", &code) && code != 0 && code != OSTREL_EVENT_ATTACHED)
        return code;
    *eid = platform().events().attach(QString::fromLatin1(name));
    return code;
}

short int event_detach(int eid) {
    called("event_detach", eid);
    platform().events().detach(eid);
    return 0;
}

short int event_wait(void* buffer, size_t size, int* eid) {
    called("event_wait", size);
    QByteArray payload;
    const short code = platform().events().wait(&payload, eid);
    if (code == 0) {
        std::memset(buffer, 0, size);
        std::memcpy(buffer, payload.constData(), std::min(size, static_cast<size_t>(payload.size())));
    }
    return code;
}

short int event_set(int eid, void* data, size_t size) {
    called("event_set", eid, data ? "data" : "null", size);
    short code = 0;
    answered("event_set", &code);
    return code;
}

short int event_set_name(char* name, void* data, size_t size) {
    called("event_set_name", name, data ? "data" : "null", size);
    short code = 0;
    answered("event_set_name", &code);
    return code;
}

short int event_get_id(char* name, int* eid) {
    called("event_get_id", name);
    short code = 0;
    if (answered("event_get_id", &code))
        return code;
    const int found = platform().events().idOf(QString::fromLatin1(name));
    if (found < 0)
        return OSTREL_EVENT_UNKNOWN;
    *eid = found;
    return 0;
}

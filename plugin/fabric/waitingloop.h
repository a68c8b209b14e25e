// The loop of a thread that waits for a platform event.
#ifndef OSTREL_FABRIC_WAITINGLOOP_H
#define OSTREL_FABRIC_WAITINGLOOP_H

#include <ostrel/events.h>

#include <QThread>
#include <atomic>
#include <cstddef>

#include "hostlink/hostflags.h"

// What the loop reads and writes of its thread.
struct WaitingThread {
    const std::atomic<bool>& ends;  // looked at before each wait
    short& status;                  // takes the result of each wait
    char* buffer;                   // takes the payload of each event
    size_t bufferSize;
    const int& eventId;  // of the event to pass on; others are dropped
};

// Passes events on with deliver() until the thread is to end; nothing reaches a form that is being designed. The fifth
// failure of a run gives fifthFailure() and a pause, which keeps a broken event service from taking the processor; the
// seventh gives report(status), unless the wait was merely quiet, and starts another run.
template <class Deliver, class FifthFailure, class Report>
void waitForEvents(const WaitingThread& thread, Deliver deliver, FifthFailure fifthFailure, Report report) {
    int failures = 0;
    while (!thread.ends) {
        int id = -1;
        thread.status = event_wait(thread.buffer, thread.bufferSize, &id);
        if (thread.status == 0) {
            if (id == thread.eventId && !formIsBeingDesigned())
                deliver();
            failures = 0;
        } else if (failures <= 5) {
            if (++failures == 5) {
                fifthFailure();
                QThread::msleep(100);
            }
        } else {
            if (thread.status != OSTREL_EVENT_QUIET)
                report(thread.status);
            failures = 0;
        }
    }
}

#endif

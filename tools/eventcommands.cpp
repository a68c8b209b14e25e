#include <ostrel/events.h>

#include <chrono>
#include <cstdio>

#include "commands.h"
#include "eventlist.h"
#include "failure.h"
#include "interrupt.h"
#include "json.h"
#include "suggestion.h"

namespace {

constexpr size_t payloadRoom = 256;

void mustExist(std::string name) {
    int id = 0;
    if (!mayUseEvents())
        throw Failure(name + ": you may read this store but not use its events");
    if (event_get_id(name.data(), &id) != 0)
        throw Failure(name + ": no such event" + didYouMean(name, eventNames(), "; 'ostrel status' lists all"));
}

void printEvent(const std::string& name, const std::string& payload, bool json) {
    if (json)
        std::puts(Json(Json::Object{{"event", name}, {"payload", payload}}).text().c_str());
    else
        std::puts(printable(payload.empty() ? name : name + " " + payload).c_str());
    std::fflush(stdout);
}

}  // namespace

int eventRaiseCommand(const std::string& name, const std::string& payload, bool json) {
    mustExist(name);
    if (payload.size() > payloadRoom) {
        throw Failure(name + ": the payload has " + std::to_string(payload.size()) +
                      " bytes; an event carries at most " + std::to_string(payloadRoom));
    }
    std::string event = name, bytes = payload;
    const short result = event_set_name(event.data(), bytes.empty() ? nullptr : bytes.data(), bytes.size());
    if (result != 0)
        throw Failure(name + ": cannot be raised, code " + std::to_string(result));
    printEvent(name, payload, json);
    return 0;
}

int eventWaitCommand(const EventWaitRequest& request, bool json) {
    mustExist(request.name);
    const Interrupt interrupt;
    int id = 0;
    const short attached = event_attach(request.name.c_str(), 256, &id);
    if (attached != 0)
        throw Failure(request.name + ": cannot be waited for, code " + std::to_string(attached));
    const auto start = std::chrono::steady_clock::now();
    for (int seen = 0; request.count == 0 || seen < request.count;) {
        char buffer[payloadRoom] = "";
        int came = 0;
        const short result = event_wait(buffer, sizeof buffer, &came);
        if (result == 0 && came == id) {
            printEvent(request.name, fieldText(buffer), json);
            ++seen;
        } else if (result != 0 && result != OSTREL_EVENT_QUIET) {
            throw Failure(request.name + ": cannot be waited for any more, code " + std::to_string(result));
        }
        if (interrupt.hasCome())
            break;
        const auto waited = std::chrono::steady_clock::now() - start;
        if (result != 0 && request.timeoutSeconds != 0 && waited >= std::chrono::seconds(request.timeoutSeconds))
            throw Failure(request.name + ": did not come within " + std::to_string(request.timeoutSeconds) + " s");
    }
    event_detach(id);
    return 0;
}

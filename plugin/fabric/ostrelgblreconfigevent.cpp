#include "fabric/ostrelgblreconfigevent.h"

#include <ostrel/events.h>
#include <ostrel/log.h>

#include <cstring>

#include "core/glostrelbase.h"
#include "core/ostrelbase.h"
#include "fabric/ostrelvariabledatainput.h"
#include "fabric/waitingloop.h"
#include "hostlink/hostflags.h"

namespace {

constexpr int allAreas = -1;
constexpr unsigned int startState = 1;
constexpr unsigned int endState = 0;

// Where the log says that this failure happened: the same in every release, so that filters of the log go on working.
constexpr const char* logFile = "ostrelgblreconfigevent.cpp";
constexpr int logLine = 66;

}  // namespace

OstrelGblConfigEvent::OstrelGblConfigEvent(SM_AREA_ID memcode, QObject* parent)
    : OstrelEvent("config", sizeof(GLOBAL_CONFIG_EVENT), 1, parent),
      mem_handles{},
      Config_going_on{},
      Some_config(0),
      Shmem_link_needed(0),
      mem_code(memcode) {
    report(memcode);
}

// The thread reads what the GUI thread sets here.
void OstrelGblConfigEvent::report(SM_AREA_ID memcode) {
    for (int area = 0; area < MAX_NUM_SHRD_MEM; ++area)
        if (memcode == allAreas || memcode == area)
            std::atomic_ref<short int>(mem_handles[area]).store(1);
}

bool OstrelGblConfigEvent::reports(int memcode) const {
    if (memcode == allAreas)
        return true;
    if (memcode < 0 || memcode >= MAX_NUM_SHRD_MEM)
        return false;
    return std::atomic_ref<short int>(mem_handles[memcode]).load() == 1;
}

void OstrelGblConfigEvent::subscribe(QObject* plugin) {
    connect(this, SIGNAL(gblConfigEvent(short, short)), plugin, SLOT(globalConfigEvent(short, short)));
    plugins->append(plugin);
}

void OstrelGblConfigEvent::addCallGRC(OstrelBase* plugin, SM_AREA_ID memcode) {
    addCallGRC(static_cast<QWidget*>(plugin), memcode);
}

void OstrelGblConfigEvent::addCallGRC(QWidget* plugin, SM_AREA_ID memcode) {
    if (!plugin)
        return;
    report(memcode);
    report(ALIAS_MEM);
    subscribe(plugin);
}

void OstrelGblConfigEvent::addCallGRC(GLOstrelBase* plugin, SM_AREA_ID memcode) {
    if (!plugin)
        return;
    report(memcode);
    subscribe(plugin);
}

void OstrelGblConfigEvent::addCallGRC(OstrelVariableDataInput* plugin, SM_AREA_ID memcode) {
    if (!plugin)
        return;
    report(memcode);
    report(ALIAS_MEM);
    if (!hasPlugin(plugin))
        subscribe(plugin);
}

void OstrelGblConfigEvent::execute() {
    while (!isRunning() || !storeIsReady())
        msleep(100);
    attachToEvent();
    const auto passOnPayload = [this] {
        GLOBAL_CONFIG_EVENT event;
        std::memcpy(&event, eventBuffer, sizeof(event));
        passOn(event);
    };
    waitForEvents(
        {closeShop, status, eventBuffer, eventBufferSize, eventId}, passOnPayload, [] {},
        [](int code) {
            log_error(logFile, logLine, 1, static_cast<short>(code), "received %i while waiting for event", code);
        });
}

void OstrelGblConfigEvent::passOn(const GLOBAL_CONFIG_EVENT& event) {
    const auto area = static_cast<short>(event.memcode);
    if (event.new_state == startState && reports(area))
        Q_EMIT gblConfigEvent(1, area);
    else if (event.new_state == endState)
        Q_EMIT gblConfigEvent(0, area);
}

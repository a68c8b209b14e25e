#include <cmath>
#include <cstdio>

#include "commands.h"
#include "eventlist.h"
#include "json.h"

namespace {

Json eventJson(const ostrel_event_info_t& event) {
    return Json::Object{{"name", fieldText(event.name)},
                        {"period_ms", event.period_ms},
                        {"attached", event.attached},
                        {"raised", event.raised},
                        {"dropped", event.dropped}};
}

// The instance is a text: it has more digits than a number in JSON keeps.
Json::Object storeJson(const ostrel_store_status& store) {
    return {{"store", fieldText(store.name)},
            {"alive", store.alive != 0},
            {"server_pid", store.server_pid},
            {"cell_file", fieldText(store.cell_file)},
            {"heartbeat_age_s", std::round(store.heartbeat_age_s * 1000) / 1000},
            {"instance", std::to_string(store.instance)},
            {"generation", store.generation},
            {"variables", store.variables}};
}

}  // namespace

int statusCommand(const ostrel_store_status& store, bool json) {
    Json::Object status = storeJson(store);
    const auto events = eventList();
    if (json) {
        Json::Array list;
        for (const auto& event : events)
            list.push_back(eventJson(event));
        status.emplace_back("events", list);
        std::puts(Json(status).text().c_str());
        return store.alive != 0 ? 0 : 1;
    }
    for (const auto& [name, value] : status)
        std::printf("%-16s %s\n", name.c_str(), printable(value.plainText()).c_str());
    std::printf("%-16s %zu\n", "events", events.size());
    for (const auto& event : events) {
        const std::string period = event.period_ms > 0 ? ", every " + std::to_string(event.period_ms) + " ms" : "";
        std::printf("  %s: raised %llu, attached %d, dropped %llu%s\n", printable(fieldText(event.name)).c_str(),
                    event.raised, event.attached, event.dropped, period.c_str());
    }
    return store.alive != 0 ? 0 : 1;
}

#include <ostrel/store.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "catalogue.h"
#include "commands.h"
#include "eventlist.h"
#include "json.h"
#include "storeaccess.h"

namespace {

Json eventJson(const ostrel_event_info_t& event) {
    return Json::Object{{"name", fieldText(event.name)},
                        {"period_ms", event.period_ms},
                        {"attached", event.attached},
                        {"raised", event.raised},
                        {"dropped", event.dropped}};
}

Json eventRoomJson() {
    ostrel_event_room_t room{};
    if (ostrel_event_room(&room) != 0)
        return {};
    return Json::Object{{"threads", room.threads},
                        {"most_threads", room.most_threads},
                        {"events", room.events},
                        {"most_events", room.most_events}};
}

struct Area {
    const ostrel_section* section;
    int variables;
    int room;
};

bool isInUse(const Area& area) {
    return area.variables > 0;
}

std::vector<Area> areas() {
    std::vector<Area> list;
    int count = 0;
    const ostrel_section* sections = ostrel_sections(&count);
    for (const ostrel_section* section = sections; section != sections + count; ++section)
        list.push_back({section, variablesIn(*section), ostrel_section_capacity(section->area, section->kind)});
    return list;
}

Json areaJson(const Area& area) {
    return Json::Object{
        {"area", static_cast<int>(area.section->area)}, {"section", area.section->name}, {"title", area.section->title},
        {"kind", kindName(area.section->kind)},         {"variables", area.variables},   {"room", area.room}};
}

// People look for what is there; machines get the empty ones too.
void printAreas() {
    const std::vector<Area> list = areas();
    std::printf("%-16s %td\n", "areas in use", std::count_if(list.begin(), list.end(), isInUse));
    for (const Area& area : list)
        if (isInUse(area))
            std::printf("  %s: %d of %d\n", area.section->title, area.variables, area.room);
}

void printEvents(const std::vector<ostrel_event_info_t>& events) {
    ostrel_event_room_t room{};
    if (!mayUseEvents() || ostrel_event_room(&room) != 0) {
        std::printf("%-16s not for this user, who may read the store only\n", "events");
        return;
    }
    std::printf("%-16s %d of %d\n", "event threads", room.threads, room.most_threads);
    std::printf("%-16s %d of %d\n", "events", room.events, room.most_events);
    for (const auto& event : events) {
        const std::string period = event.period_ms > 0 ? ", every " + std::to_string(event.period_ms) + " ms" : "";
        std::printf("  %s: raised %llu, attached %d, dropped %llu%s\n", printable(fieldText(event.name)).c_str(),
                    event.raised, event.attached, event.dropped, period.c_str());
    }
}

const char* stateText(const ostrel_store_status& store) {
    switch (serverState(store)) {
        case ServerState::Alive:
            return "alive";
        case ServerState::Stopped:
            return "stopped";
        default:
            return "dead";
    }
}

// The instance is a text: it has more digits than a number in JSON keeps.
Json::Object storeJson(const ostrel_store_status& store) {
    return {{"store", fieldText(store.name)},
            {"alive", store.alive != 0},
            {"server_pid", store.server_pid},
            {"cell_file", fieldText(store.cell_file)},
            {"state", stateText(store)},
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
        Json::Array areaList, eventList;
        for (const Area& area : areas())
            areaList.push_back(areaJson(area));
        for (const auto& event : events)
            eventList.push_back(eventJson(event));
        status.emplace_back("areas", areaList);
        status.emplace_back("events", mayUseEvents() ? Json(eventList) : Json());
        status.emplace_back("event_room", eventRoomJson());
        std::puts(Json(status).text().c_str());
        return serverState(store) == ServerState::Alive ? 0 : 1;
    }
    for (const auto& [name, value] : status)
        std::printf("%-16s %s\n", name.c_str(), printable(value.plainText()).c_str());
    printAreas();
    printEvents(events);
    return serverState(store) == ServerState::Alive ? 0 : 1;
}

#include "eventcalls.h"

#include <chrono>
#include <thread>

static uint64_t infoOf(const char* name, uint64_t (*field)(const ostrel_event_info_t&)) {
    ostrel_event_info_t info{};
    for (int index = 0; ostrel_event_info(index, &info) == 0; ++index) {
        if (std::string(info.name) == name)
            return field(info);
    }
    return 0;
}

bool comes(const std::function<bool()>& condition) {
    const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > limit)
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

Received receive(size_t size) {
    Received received;
    received.payload.assign(size, '?');
    for (int second = 0; second < 10; ++second) {
        if (event_wait(received.payload.data(), size, &received.eid) == 0)
            return received;
    }
    return {};
}

std::vector<std::string> receiveUntil(const std::string& last) {
    std::vector<std::string> texts;
    do {
        const Received received = receive();
        if (received.eid == 0)
            break;
        texts.emplace_back(received.payload.c_str());
    } while (texts.back() != last);
    return texts;
}

bool ticks(int eid, int count) {
    for (; count > 0; --count) {
        if (receive(0).eid != eid)
            return false;
    }
    return true;
}

short int attach(const char* name, unsigned short depth) {
    int eid = 0;
    return event_attach(name, depth, &eid);
}

short int createTimer(const char* name, int periodMs, int& eid) {
    std::string nameCopy = name;
    return event_create_timer(nameCopy.data(), 10, 0, 1, 0, &periodMs, &eid);
}

int eventId(const char* name) {
    int eid = 0;
    ostrel_event_create(name, &eid);
    return eid;
}

short int raise(const char* name, const std::string& payload) {
    std::string nameCopy = name;
    std::string payloadCopy = payload;
    return event_set_name(nameCopy.data(), payload.empty() ? nullptr : payloadCopy.data(), payload.size());
}

int attached(const char* name) {
    return static_cast<int>(
        infoOf(name, [](const ostrel_event_info_t& info) { return static_cast<uint64_t>(info.attached); }));
}

uint64_t dropped(const char* name) {
    return infoOf(name, [](const ostrel_event_info_t& info) -> uint64_t { return info.dropped; });
}

uint64_t raised(const char* name) {
    return infoOf(name, [](const ostrel_event_info_t& info) -> uint64_t { return info.raised; });
}

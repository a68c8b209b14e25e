#include <cerrno>
#include <chrono>
#include <cstdio>
#include <map>
#include <optional>

#include "catalogue.h"
#include "commands.h"
#include "failure.h"
#include "fieldtext.h"
#include "interrupt.h"
#include "reading.h"
#include "storeaccess.h"

namespace {

struct Sample {
    std::string name;
    std::optional<Reading> reading;  // none while the store has no such variable

    std::string shown() const {
        if (!reading)
            return "-";
        return printable(reading->units.empty() ? reading->text : reading->text + " " + reading->units);
    }
};

std::string timeText(bool json) {
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto ms = std::chrono::duration_cast<std::chrono::milliseconds>(now).count();
    const std::time_t seconds = ms / 1000;
    std::tm parts{};
    char text[32], result[48];
    json ? gmtime_r(&seconds, &parts) : localtime_r(&seconds, &parts);
    std::strftime(text, sizeof text, json ? "%Y-%m-%dT%H:%M:%S" : "%H:%M:%S", &parts);
    std::snprintf(result, sizeof result, json ? "%s.%03dZ" : "%s.%03d", text, static_cast<int>(ms % 1000));
    return result;
}

// Looks the name up anew each time: a reconfiguration may have moved or removed the variable, or changed its units.
Sample sample(const std::string& name, const std::string& units) {
    const auto variable = lookUpVariable(name);
    if (!variable || variable->isWhole())
        return {name, std::nullopt};
    try {
        return {name, read(*variable, units)};
    } catch (const Failure&) {
        return {name, std::nullopt};
    }
}

void print(const Sample& sample, bool json) {
    if (!json) {
        std::printf("%s %s %s\n", timeText(json).c_str(), printable(sample.name).c_str(), sample.shown().c_str());
        return;
    }
    Json::Object line{{"time", timeText(json)}, {"name", sample.name}};
    line.emplace_back("value", sample.reading ? sample.reading->value : Json());
    line.emplace_back("text", sample.shown());
    line.emplace_back("units", sample.reading ? sample.reading->units : std::string());
    std::puts(Json(line).text().c_str());
}

// Every member or element of what was asked for, all of them known and convertible at the start.
std::vector<std::string> watchedNames(const WatchRequest& request) {
    std::vector<std::string> names;
    for (const std::string& name : request.names) {
        for (const std::string& meant : namesMeant(name)) {
            for (const Variable& part : parts(findVariable(meant))) {
                read(part, request.units);
                names.push_back(part.name);
            }
        }
    }
    return names;
}

class Watch {
public:
    // Where the values stand still already the opening of the store has told it.
    Watch(const WatchRequest& request, bool json) : m_request(request), m_names(watchedNames(request)), m_json(json) {
        ostrel_store_status status{};
        ostrel_store_get_status(&status);
        m_stands = serverState(status) != ServerState::Alive;
    }

    // Samples all names once; false when nothing had to be printed.
    bool round() {
        tellStandstill();
        bool printed = false;
        for (const std::string& name : m_names) {
            const Sample now = sample(name, m_request.units);
            const auto [last, isFirst] = m_shown.try_emplace(name, now.shown());
            if (m_request.changesOnly && !isFirst && last->second == now.shown())
                continue;
            last->second = now.shown();
            print(now, m_json);
            printed = true;
        }
        std::fflush(stdout);
        return printed;
    }

private:
    // Once, when the values begin to stand still: the same line again and again says nothing of it.
    void tellStandstill() {
        ostrel_store_status status{};
        ostrel_store_get_status(&status);
        const bool stands = status.found != 0 && serverState(status) != ServerState::Alive;
        if (stands && !m_stands)
            complain(standstill(status));
        m_stands = stands;
    }

    const WatchRequest& m_request;
    std::vector<std::string> m_names;
    std::map<std::string, std::string> m_shown;
    bool m_json;
    bool m_stands = false;
};

}  // namespace

int watchCommand(const WatchRequest& request, bool json) {
    Watch watch(request, json);
    const Interrupt interrupt;
    auto next = std::chrono::steady_clock::now();
    for (int rounds = 0; request.count == 0 || rounds < request.count;) {
        if (watch.round())
            ++rounds;
        if (std::ferror(stdout) && errno == EPIPE)
            break;
        if (std::ferror(stdout))
            throw Failure("standard output: cannot be written any more");
        if (request.count != 0 && rounds == request.count)
            break;
        // A machine that was held up goes on from now: rounds that were missed are not made up for.
        next = std::max(next + std::chrono::milliseconds(request.rateMs), std::chrono::steady_clock::now());
        if (interrupt.comesBefore(next))
            break;
    }
    return 0;
}

#include <fnmatch.h>
#include <ostrel/store.h>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "commands.h"
#include "failure.h"
#include "fieldtext.h"
#include "json.h"
#include "variable.h"

namespace {

std::vector<ostrel_write> writesTo(const std::string& pattern) {
    std::vector<ostrel_write> writes;
    ostrel_write write{};
    for (uint64_t after = 0; ostrel_next_write(after, &write) == 0; after = write.number)
        if (pattern.empty() || fnmatch(pattern.c_str(), fieldText(write.variable).c_str(), FNM_CASEFOLD) == 0)
            writes.push_back(write);
    return writes;
}

std::string timeText(const timespec& time) {
    tm local{};
    localtime_r(&time.tv_sec, &local);
    char day[40] = "";
    strftime(day, sizeof day, "%Y-%m-%d %H:%M:%S", &local);
    char text[64] = "";
    std::snprintf(text, sizeof text, "%s.%03ld", day, std::clamp(time.tv_nsec, 0L, 999999999L) / 1000000);
    return text;
}

std::string refusalText(short refusal) {
    switch (refusal) {
        case OSTREL_STORED:
            return "";
        case OSTREL_NO_VALUE:
            return "refused: no value that it can hold";
        case OSTREL_NOT_WRITABLE:
            return "refused: the cell lets nobody write it";
        case OSTREL_OUTSIDE:
            return "refused: outside the limits for writing";
        default:
            return "refused with code " + std::to_string(refusal);
    }
}

// A text in quotes, so that an empty one can be seen.
std::string valueText(const ostrel_write& write, const std::string& value) {
    const bool isText = write.kind == STRING_TYPE || write.kind == STRING_ARRAY_TYPE;
    return isText ? "'" + printable(value) + "'" : value;
}

void printWrite(const ostrel_write& write) {
    const std::string refusal = refusalText(write.refusal);
    std::printf("%s  %s  %s -> %s  %s  %s[%d]%s%s\n", timeText(write.time).c_str(),
                printable(fieldText(write.variable)).c_str(), valueText(write, fieldText(write.old_value)).c_str(),
                valueText(write, fieldText(write.new_value)).c_str(), printable(fieldText(write.user)).c_str(),
                printable(fieldText(write.program)).c_str(), write.pid, refusal.empty() ? "" : "  ", refusal.c_str());
}

Json writeJson(const ostrel_write& write) {
    return Json::Object{
        {"number", write.number},
        {"time", static_cast<double>(write.time.tv_sec) + 1e-9 * static_cast<double>(write.time.tv_nsec)},
        {"variable", fieldText(write.variable)},
        {"kind", kindName(write.kind)},
        {"old", fieldText(write.old_value)},
        {"new", fieldText(write.new_value)},
        {"user", fieldText(write.user)},
        {"uid", write.uid},
        {"program", fieldText(write.program)},
        {"pid", write.pid},
        {"stored", write.refusal == OSTREL_STORED},
        {"refusal", refusalText(write.refusal)}};
}

}  // namespace

int writesCommand(const std::string& pattern, bool json) {
    const std::vector<ostrel_write> writes = writesTo(pattern);
    if (json) {
        Json::Array list;
        for (const ostrel_write& write : writes)
            list.push_back(writeJson(write));
        std::puts(Json(std::move(list)).text().c_str());
    }
    if (writes.empty() && !pattern.empty())
        throw Failure(pattern + ": nobody has written to a variable with a name like this; 'ostrel writes' shows all");
    if (!json)
        for (const ostrel_write& write : writes)
            printWrite(write);
    return 0;
}

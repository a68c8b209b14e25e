#include <ostrel/log.h>
#include <ostrel/server.h>

#include <cerrno>
#include <cstring>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "ground/fieldtext.h"
#include "ground/monotonic.h"
#include "server/generation.h"
#include "server/reservation.h"
#include "server/serverstate.h"
#include "store/currentstore.h"

namespace {

constexpr auto allAreas = static_cast<SM_AREA_ID>(-1);
constexpr int64_t reclaimEvery = nanosecondsPerSecond;

void tell(char* message, size_t size, const std::string& culprit, const std::string& problem) {
    setMessage(message, size, culprit + ": " + problem);
}

bool isUnderReconfiguration(const ostrel_server& server, SM_AREA_ID area) {
    for (const SM_AREA_ID begun : server.begun)
        if (begun == allAreas || begun == area)
            return true;
    return false;
}

// The section that a name shall be put into; -1 with the reason where that cannot be.
int sectionFor(const ostrel_server& server, SM_AREA_ID area, int kind, const std::string& label, std::string& problem) {
    const int section = sectionNumber(area, kind);
    if (section < 0)
        problem = "area " + std::to_string(area) + " has no section for kind " + std::to_string(kind);
    else if (!isUnderReconfiguration(server, area))
        problem = "its area is not under reconfiguration; begin that first";
    else
        problem = problemOfName(label, hasMembers(kind));
    if (problem.empty() && server.names->isTaken(label))
        problem = nameStandsAlready;
    return problem.empty() ? section : -1;
}

char* putRecord(ostrel_server& server, SM_AREA_ID area, int kind, const std::string& label, bool& isNew,
                std::string& problem) {
    const int section = sectionFor(server, area, kind, label, problem);
    char* record = section < 0 ? nullptr : server.records->take(section, label, isNew, problem);
    if (record && kind != ALIAS_TYPE)
        server.names->add(label, section, server.records->indexOf(section, record));
    return record;
}

// 0, or 1 with the reason where the last try to write the file failed.
int tellOf(const LineFile& file, const std::string& path, char* message, size_t message_size) {
    const std::string problem = file.problem();
    if (!problem.empty())
        tell(message, message_size, path, "cannot be written: " + problem);
    return problem.empty() ? 0 : 1;
}

void retireDangling(ostrel_server& server) {
    for (const std::string& alias : server.names->dropDangling()) {
        server.records->book(sectionNumber(ALIAS_MEM, ALIAS_TYPE)).drop(alias);
        log_error(__FILE__, __LINE__, 1, 0, "alias %s: stands for no variable; it is left out", alias.c_str());
    }
}

void fillAliasRecords(const ostrel_server& server) {
    const int section = sectionNumber(ALIAS_MEM, ALIAS_TYPE);
    for (const auto& [name, alias] : server.names->aliases()) {
        auto* record = reinterpret_cast<ALIAS_VARIABLE*>(server.store->record(section, alias.index));
        const auto meaning = server.names->resolve(alias.target);
        if (!record || !meaning)
            continue;
        setText(record->var.label, alias.target);
        SHARED_MEMORY mem{};
        mem.code = static_cast<SM_AREA_ID>(meaning->area);
        mem.index = static_cast<short>(meaning->index);
        mem.vari_type = static_cast<SM_VARI_TYPE>(meaning->kind);
        mem.offset = meaning->member;
        record->var.mem = mem;
        record->primary = alias.primary;
    }
}

}  // namespace

ostrel_server* ostrel_server_open(const ostrel_server_options* options, char* message, size_t message_size) {
    const std::string name = options && options->name ? options->name : "";
    const bool isPrivate = options && !options->name;
    auto server = std::make_unique<ostrel_server>();
    std::string problem;
    if (!isPrivate)
        problem = problemOfStoreName(name);
    server->name = name;
    if (problem.empty() && !isPrivate) {
        server->lock = std::make_unique<ServerLock>();
        server->lock->acquire(name, problem);
    }
    if (problem.empty())
        openStore(*server, *options, problem);
    if (!problem.empty()) {
        tell(message, message_size, isPrivate ? "private store" : "store " + name, problem);
        return nullptr;
    }
    server->store->takeServersThread();
    return server.release();
}

void ostrel_server_close(ostrel_server* server) {
    if (!server)
        return;
    closeStore(*server);
    delete server;
}

void ostrel_server_leave(ostrel_server* server) {
    if (!server)
        return;
    leaveStore(*server);
    delete server;
}

int ostrel_server_adopted(const ostrel_server* server) {
    return server && server->adopted;
}

void ostrel_server_beat(ostrel_server* server) {
    if (!server)
        return;
    const int64_t now = monotonicNow();
    server->store->takeServersThread();
    server->store->header()->heartbeat.store(now, std::memory_order_release);
    Attachment& seen = storeOfClients(*server);
    seen.header()->heartbeat.store(now, std::memory_order_release);
    if (now - server->lastReclaim < reclaimEvery)
        return;
    server->lastReclaim = now;
    reclaimDeadThreads(seen.eventMemory());
}

int ostrel_server_make_room(ostrel_server* server, const ostrel_server_room* rooms, int count, char* message,
                            size_t message_size) {
    if (!server || count < 0 || (!rooms && count > 0))
        return -1;
    std::string problem;
    const auto capacities = capacitiesFor(*server->store, {rooms, static_cast<size_t>(count)}, problem);
    bool isMade = false;
    if (capacities && !fits(*server->store, *capacities)) {
        if (!server->begun.empty() || server->previous)
            problem = "is being reconfigured; it can grow before begin and after commit";
        else
            isMade = startNextGeneration(*server, *capacities, problem);
    }
    if (!problem.empty()) {
        tell(message, message_size, server->name.empty() ? "private store" : "store " + server->name, problem);
        return -1;
    }
    return isMade;
}

int ostrel_server_reserve(ostrel_server* server, const ostrel_server_variable* variables, int count, char* message,
                          size_t message_size) {
    if (!server || count < 0 || (!variables && count > 0))
        return 1;
    std::string culprit;
    std::string problem;
    if (reserveVariables(*server, {variables, static_cast<size_t>(count)}, culprit, problem))
        return 0;
    if (server->previous)
        abandonNextGeneration(*server);
    tell(message, message_size, culprit, problem);
    return 1;
}

void ostrel_server_begin(ostrel_server* server, SM_AREA_ID area) {
    if (!server || isUnderReconfiguration(*server, area))
        return;
    server->store->takeServersThread();
    announce(storeOfClients(*server), area, true);
    server->begun.push_back(area);
    server->names->forget(area);
    for (int section = 0; section < storeSections; ++section)
        if (area == allAreas || ostrel_sections(nullptr)[section].area == area)
            server->records->book(section).begin();
}

void* ostrel_server_put(ostrel_server* server, SM_AREA_ID area, SM_VARI_TYPE kind, const char* label, int* created,
                        char* message, size_t message_size) {
    if (!server || !label)
        return nullptr;
    std::string problem;
    bool isNew = false;
    char* record = nullptr;
    if (isArray(kind) || kind == ALIAS_TYPE)
        problem = "arrays and aliases are put by functions of their own";
    else
        record = putRecord(*server, area, kind, label, isNew, problem);
    if (!record)
        tell(message, message_size, label, problem);
    else if (created)
        *created = isNew;
    return record;
}

void* ostrel_server_put_array(ostrel_server* server, SM_VARI_TYPE kind, const char* label, int dimensions,
                              const unsigned short* sizes, void** elements, int* created, char* message,
                              size_t message_size) {
    if (!server || !label || !sizes || !elements)
        return nullptr;
    std::string problem;
    const ArrayShape shape = givenShape(dimensions, sizes);
    const int section = arraySectionNumber(kind);
    bool isNew = false;
    char* record = nullptr;
    char* first = nullptr;
    if (section < 0)
        problem = "kind " + std::to_string(kind) + " is no array";
    else if (shape.elementCount() == 0)
        problem = noSuchShape;
    else
        record = putRecord(*server, ostrel_sections(nullptr)[section].area, kind, label, isNew, problem);
    if (record)
        first =
            server->records->shapeElements(section, server->records->indexOf(section, record), shape, isNew, problem);
    if (!first) {
        tell(message, message_size, label, problem);
        return nullptr;
    }
    *elements = first;
    if (created)
        *created = isNew;
    return record;
}

ALIAS_VARIABLE* ostrel_server_put_alias(ostrel_server* server, const char* alias, const char* target, int primary,
                                        char* message, size_t message_size) {
    if (!server || !alias || !target)
        return nullptr;
    std::string problem;
    bool isNew = false;
    char* record = nullptr;
    if (strnlen(target, nameBytes) >= nameBytes)
        problem = targetIsTooLong;
    else
        record = putRecord(*server, ALIAS_MEM, ALIAS_TYPE, alias, isNew, problem);
    if (!record) {
        tell(message, message_size, alias, problem);
        return nullptr;
    }
    const int index = server->records->indexOf(sectionNumber(ALIAS_MEM, ALIAS_TYPE), record);
    server->names->addAlias(alias, {target, primary != 0, index});
    return reinterpret_cast<ALIAS_VARIABLE*>(record);
}

void ostrel_server_set_limits(ostrel_server* server, const char* label, const double* limits, const short int* exists,
                              const short int* display) {
    if (!server || !label || !limits || !exists || !display)
        return;
    Limits given;
    std::memcpy(given.values.data(), limits, sizeof given.values);
    std::memcpy(given.exists.data(), exists, sizeof given.exists);
    std::memcpy(given.display.data(), display, sizeof given.display);
    server->names->setLimits(label, given);
    if (server->begun.empty() && !changeLimits(server->store->objects(), label, given))
        server->names->publish();
}

int ostrel_server_set_write_rule(ostrel_server* server, const char* label, const ostrel_write_rule* rule) {
    const auto meaning = server && label && rule ? server->names->find(label) : std::nullopt;
    if (!meaning)
        return 1;
    server->records->setRule(sectionNumber(meaning->area, meaning->kind), meaning->index, *rule);
    return 0;
}

int ostrel_server_drain_writes(ostrel_server* server, const char* file, size_t most_bytes, char* message,
                               size_t message_size) {
    if (!server || !file)
        return 1;
    server->writeFile.file().setPlace(file, most_bytes);
    for (Attachment* store : server->former)
        server->writeFile.drain(store->writes()->writes);
    server->writeFile.drain(storeOfClients(*server).writes()->writes);
    return tellOf(server->writeFile.file(), file, message, message_size);
}

int ostrel_server_drain_log(ostrel_server* server, const char* file, size_t most_bytes, char* message,
                            size_t message_size) {
    if (!server || !file)
        return 1;
    server->logFile.file().setPlace(file, most_bytes);
    for (Attachment* store : server->former)
        server->logFile.drain(store->writes()->log);
    server->logFile.drain(storeOfClients(*server).writes()->log);
    return tellOf(server->logFile.file(), file, message, message_size);
}

int ostrel_server_flush(ostrel_server* server, int milliseconds) {
    if (!server)
        return 1;
    const std::chrono::milliseconds limit(milliseconds);
    const bool writes = server->writeFile.file().flush(limit);
    return server->logFile.file().flush(limit) && writes ? 0 : 1;
}

void ostrel_server_commit(ostrel_server* server) {
    if (!server || server->begun.empty())
        return;
    server->store->takeServersThread();
    retireDangling(*server);
    fillAliasRecords(*server);
    if (const Shortage shortage = server->names->publish())
        log_error(__FILE__, __LINE__, 1, static_cast<short>(shortage.error),
                  "store %s: the names cannot be made known: %s", server->name.c_str(), describe(shortage).c_str());
    server->records->commit();
    countReconfiguration(*server->store);
    const std::vector<SM_AREA_ID> begun = std::exchange(server->begun, {});
    if (server->previous)
        finishNextGeneration(*server);
    else
        for (const SM_AREA_ID area : begun)
            announce(*server->store, area, false);
}

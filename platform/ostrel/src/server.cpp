#include <ostrel/server.h>

#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include <ostrel/log.h>

#include "currentstore.h"
#include "eventmemory.h"
#include "processidentity.h"
#include "servednames.h"
#include "servedrecords.h"
#include "serverlock.h"

struct ostrel_server {
    std::string name;
    std::unique_ptr<ServerLock> lock;
    Attachment* store = nullptr;
    bool adopted = false;
    std::unique_ptr<ServedRecords> records;
    std::unique_ptr<ServedNames> names;
    std::vector<SM_AREA_ID> begun;  // areas under reconfiguration, -1 for all
    int64_t lastReclaim = 0;
    std::unique_ptr<TimerService> timers;
};

namespace {

constexpr auto kAllAreas = static_cast<SM_AREA_ID>(-1);
constexpr int64_t kReclaimEvery = 1000000000;

template <size_t size>
void putText(char (&field)[size], const char* text) {
    std::memset(field, 0, size);
    if (text)
        std::memcpy(field, text, strnlen(text, size - 1));
}

void tell(char* message, size_t size, const std::string& culprit, const std::string& problem) {
    if (message && size > 0)
        snprintf(message, size, "%s: %s", culprit.c_str(), problem.c_str());
}

int64_t monotonicNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return now.tv_sec * 1000000000 + now.tv_nsec;
}

uint64_t randomNumber() {
    std::random_device device;
    return (uint64_t{device()} << 32 | device()) | 1;
}

RECONFIG_DATA* counters(const Attachment& store) {
    return reinterpret_cast<RECONFIG_DATA*>(store.objects().header.data() + kReconfigOffset);
}

Access accessOf(const ostrel_server_options& options) {
    return {options.mode == 0 ? mode_t{0600} : static_cast<mode_t>(options.mode), options.group_given == 1,
            options.group};
}

void fillHeader(const StoreObjects& objects, const std::string& name, uint32_t generation) {
    StoreHeader& header = *objects.storeHeader();
    header.layoutVersion = kLayoutVersion;
    header.instance = randomNumber();
    header.generation = generation;
    putText(header.name, name.c_str());
    header.eventBytes = eventMemorySize();
    header.sectionCount = kSections;
    // Clients that poll the counter must see another one in the store that follows an earlier one of its name.
    reinterpret_cast<RECONFIG_DATA*>(objects.header.data() + kReconfigOffset)->generic_reconfig_count =
        static_cast<int>(header.instance >> 34);
}

bool makeStore(ostrel_server& server, const Access& access, uint32_t generation, std::string& problem) {
    StoreObjects objects;
    if (!createStoreObjects(objects, server.name, access, problem))
        return false;
    fillHeader(objects, server.name, generation);
    formatEventMemory(objects.events.data());
    auto store = std::make_unique<Attachment>(std::move(objects), server.name);
    auto records = std::make_unique<ServedRecords>(*store);
    int error = records->prepare();
    if (error == 0)
        error = publishNames(store->objects(), {}, {});
    if (error != 0) {
        problem = "cannot take its memory: " + std::string(std::strerror(error));
        unlinkStoreObjects(server.name);
        return false;
    }
    store->header()->magic = kMagic;
    server.store = useAttachment(std::move(store));
    return true;
}

void adoptNames(ostrel_server& server) {
    const auto limits = namesWithLimits(server.store->objects());
    const int aliases = sectionNumber(ALIAS_MEM, ALIAS_TYPE);
    for (int section = 0; section < kSections; ++section) {
        const SlotBook& book = server.records->book(section);
        for (const int index : book.standing()) {
            if (section != aliases) {
                server.names->add(book.label(index), section, index);
                continue;
            }
            const auto* record = reinterpret_cast<const ALIAS_VARIABLE*>(server.store->record(section, index));
            const std::string target(record->var.label, strnlen(record->var.label, kNameBytes - 1));
            server.names->addAlias(book.label(index), {target, record->primary != 0, index});
        }
    }
    for (const auto& [name, ofName] : limits)
        server.names->setLimits(name, ofName);
}

void setAccessOfAll(const StoreObjects& objects, const Access& access) {
    for (const SharedObject* object : {&objects.header, &objects.elements, &objects.events, &objects.blocks})
        object->setAccess(access);
    for (const SharedObject& area : objects.areas)
        if (area.data())
            area.setAccess(access);
}

// Takes over what a dead server left, or clears away what cannot be taken over.
bool adoptOrMake(ostrel_server& server, const Access& access, std::string& problem) {
    StoreObjects objects;
    std::string damage;
    const StoreLook look = openStoreObjects(objects, server.name, damage);
    if (look == StoreLook::kUsable && !objects.header.isWritable()) {
        problem = "may not be written by this user; its memory belongs to another one";
        return false;
    }
    if (look == StoreLook::kUsable) {
        setAccessOfAll(objects, access);
        server.store = useAttachment(std::make_unique<Attachment>(std::move(objects), server.name));
        server.adopted = true;
        return true;
    }
    if (look == StoreLook::kDamaged)
        log_error(__FILE__, __LINE__, 1, 0, "store %s: %s; a new one takes its place", server.name.c_str(),
                  damage.c_str());
    const bool wasStore = objects.header.data() && objects.storeHeader()->magic == kMagic;
    const uint32_t generation = wasStore ? objects.storeHeader()->generation + 1 : 1;
    markSuperseded(server.name);
    return makeStore(server, access, generation, problem);
}

void startServing(ostrel_server& server, const ostrel_server_options& options) {
    StoreHeader& header = *server.store->header();
    server.store->setServer(getpid());
    putText(header.cellFile, options.cell_file);
    // Clients have working folders of their own.
    std::error_code error;
    const auto logFile = std::filesystem::absolute(options.log_file ? options.log_file : "", error);
    putText(header.logFile, options.log_file && !error ? logFile.c_str() : nullptr);
    header.heartbeat.store(monotonicNow(), std::memory_order_release);
    header.serverStart.store(processStart(getpid()), std::memory_order_release);
    header.serverPid.store(getpid(), std::memory_order_release);
    if (!server.records)
        server.records = std::make_unique<ServedRecords>(*server.store);
    server.names = std::make_unique<ServedNames>(*server.store);
    if (server.adopted) {
        server.records->adopt();
        adoptNames(server);
        server.names->publish();
        reclaimDeadThreads(server.store->eventMemory());
    }
    header.state.store(kLive, std::memory_order_release);
    server.timers = std::make_unique<TimerService>(server.store->eventMemory());
}

void announce(const ostrel_server& server, SM_AREA_ID area, bool starts) {
    GLOBAL_CONFIG_EVENT event{};
    event.new_state = starts;
    event.pid = getpid();
    putText(event.taskname, "ostrel-cell");
    event.memcode = area;
    raiseEventIn(server.store->eventMemory(), "config", &event, sizeof event);
}

bool isUnderReconfiguration(const ostrel_server& server, SM_AREA_ID area) {
    for (const SM_AREA_ID begun : server.begun)
        if (begun == kAllAreas || begun == area)
            return true;
    return false;
}

bool isIdentifier(std::string_view text) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    if (text.empty() || !isLetter(text.front()))
        return false;
    for (const char c : text)
        if (!isLetter(c) && !(c >= '0' && c <= '9'))
            return false;
    return true;
}

std::string problemOfName(std::string_view name, bool endsInPoint) {
    if (name.size() >= kNameBytes)
        return "is too long for a name; it may have 79 characters";
    if (endsInPoint && !name.ends_with('.'))
        return "is no name of a variable with members; it must end in a point";
    if (endsInPoint)
        name.remove_suffix(1);
    if (!isIdentifier(name))
        return "is no name; use letters, digits and underscores, with no digit at the start";
    return "";
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
        problem = "stands already; a name can be given once";
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

void countReconfiguration(const ostrel_server& server) {
    // Clients poll these words; each goes up in one step.
    RECONFIG_DATA* data = counters(*server.store);
    int* words[] = {&data->go_count,
                    &data->generic_reconfig_count,
                    &data->int_reconfig_count,
                    &data->real_reconfig_count,
                    &data->logical_reconfig_count,
                    &data->string_reconfig_count};
    for (int* word : words)
        __atomic_fetch_add(word, 1, __ATOMIC_RELEASE);
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
        putText(record->var.label, alias.target.c_str());
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
    if (!options || (!isPrivate && !isStoreName(name)))
        problem = "is no name for a store; use letters, digits, points, hyphens and underscores";
    server->name = name;
    if (problem.empty() && !isPrivate) {
        server->lock = std::make_unique<ServerLock>();
        server->lock->acquire(name, problem);
    }
    if (problem.empty()) {
        const Access access = accessOf(*options);
        isPrivate ? makeStore(*server, access, 1, problem) : adoptOrMake(*server, access, problem);
    }
    if (!problem.empty()) {
        tell(message, message_size, isPrivate ? "private store" : "store " + name, problem);
        return nullptr;
    }
    startServing(*server, *options);
    return server.release();
}

void ostrel_server_close(ostrel_server* server) {
    if (!server)
        return;
    server->timers.reset();
    StoreHeader& header = *server->store->header();
    header.state.store(kEnded, std::memory_order_release);
    header.serverPid.store(0, std::memory_order_release);
    if (!server->name.empty())
        unlinkStoreObjects(server->name);
    delete server;
}

int ostrel_server_adopted(const ostrel_server* server) {
    return server && server->adopted;
}

void ostrel_server_beat(ostrel_server* server) {
    if (!server)
        return;
    const int64_t now = monotonicNow();
    server->store->header()->heartbeat.store(now, std::memory_order_release);
    if (now - server->lastReclaim < kReclaimEvery)
        return;
    server->lastReclaim = now;
    reclaimDeadThreads(server->store->eventMemory());
}

void ostrel_server_begin(ostrel_server* server, SM_AREA_ID area) {
    if (!server || isUnderReconfiguration(*server, area))
        return;
    announce(*server, area, true);
    server->begun.push_back(area);
    server->names->forget(area);
    for (int section = 0; section < kSections; ++section)
        if (area == kAllAreas || ostrel_sections(nullptr)[section].area == area)
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
    ArrayShape shape;
    shape.dimensions = dimensions;
    for (int i = 0; i < dimensions && i < kMaxDimensions; ++i)
        shape.sizes[static_cast<size_t>(i)] = sizes[i];
    const int section = arraySectionNumber(kind);
    bool isNew = false;
    char* record = nullptr;
    char* first = nullptr;
    if (section < 0)
        problem = "kind " + std::to_string(kind) + " is no array";
    else if (shape.elementCount() == 0)
        problem = "has no size that an array can have; use 1 to 3 dimensions of 1 to 2500";
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
    if (strnlen(target, kNameBytes) >= kNameBytes)
        problem = "its target is too long for a name; it may have 79 characters";
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

void ostrel_server_commit(ostrel_server* server) {
    if (!server || server->begun.empty())
        return;
    retireDangling(*server);
    fillAliasRecords(*server);
    if (const int error = server->names->publish())
        log_error(__FILE__, __LINE__, 1, error, "store %s: the names cannot be made known: %s", server->name.c_str(),
                  std::strerror(error));
    server->records->commit();
    countReconfiguration(*server);
    const std::vector<SM_AREA_ID> begun = std::exchange(server->begun, {});
    for (const SM_AREA_ID area : begun)
        announce(*server, area, false);
}

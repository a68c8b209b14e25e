#include "server/generation.h"

#include <ostrel/log.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <random>
#include <system_error>
#include <utility>

#include "ground/fieldtext.h"
#include "ground/monotonic.h"
#include "processidentity.h"
#include "rawnumber.h"
#include "store/currentstore.h"

namespace {

constexpr auto allAreas = static_cast<SM_AREA_ID>(-1);

uint64_t randomNumber() {
    std::random_device device;
    return (uint64_t{device()} << 32 | device()) | 1;
}

RECONFIG_DATA* countersIn(const SharedObject& header) {
    return reinterpret_cast<RECONFIG_DATA*>(header.data() + reconfigOffset);
}

void countUp(RECONFIG_DATA* data) {
    // Clients poll these words; each goes up in one step.
    int* words[] = {&data->go_count,
                    &data->generic_reconfig_count,
                    &data->int_reconfig_count,
                    &data->real_reconfig_count,
                    &data->logical_reconfig_count,
                    &data->string_reconfig_count};
    for (int* word : words)
        __atomic_fetch_add(word, 1, __ATOMIC_RELEASE);
}

void announceIn(void* events, SM_AREA_ID area, bool starts) {
    GLOBAL_CONFIG_EVENT event{};
    event.new_state = starts;
    event.pid = getpid();
    setText(event.taskname, "ostrel-cell");
    event.memcode = area;
    raiseEventIn(events, "config", &event, sizeof event);
}

void fillHeader(const StoreObjects& objects, const std::string& name, uint32_t generation) {
    StoreHeader& header = *objects.storeHeader();
    header.layoutVersion = storeLayoutVersion;
    header.instance = randomNumber();
    header.generation = generation;
    setText(header.name, name);
    header.eventBytes = eventMemorySize();
    header.sectionCount = storeSections;
    // Clients that poll the counter must see another one in the store that follows an earlier one of its name.
    countersIn(objects.header)->generic_reconfig_count = static_cast<int>(header.instance >> 34);
}

// An empty store whose objects have that name, in state Making; null, with the reason, where there is no memory.
std::unique_ptr<Attachment> makeStore(const ostrel_server& server, const std::string& objectsName, uint32_t generation,
                                      const Capacities& capacities, std::string& problem) {
    StoreObjects objects;
    if (!createStoreObjects(objects, objectsName, capacities, server.access, problem))
        return nullptr;
    Shortage shortage = objects.events.reserve(0, eventMemoryHead());
    if (!shortage) {
        fillHeader(objects, server.name, generation);
        formatEventMemory(objects.events.data());
    }
    auto store = std::make_unique<Attachment>(std::move(objects), server.name);
    if (!shortage)
        shortage = ServedRecords(*store).prepare();
    if (!shortage)
        shortage = publishNames(store->objects(), {}, {});
    if (shortage) {
        problem = describe(shortage);
        if (!objectsName.empty())
            unlinkStoreObjects(objectsName);
        return nullptr;
    }
    store->header()->magic = storeMagic;
    return store;
}

void adoptNames(ostrel_server& server) {
    const auto limits = namesWithLimits(server.store->objects());
    const int aliases = sectionNumber(ALIAS_MEM, ALIAS_TYPE);
    for (int section = 0; section < storeSections; ++section) {
        const SlotBook& book = server.records->book(section);
        for (const int index : book.standing()) {
            if (section != aliases) {
                server.names->add(book.label(index), section, index);
                continue;
            }
            const auto* record = reinterpret_cast<const ALIAS_VARIABLE*>(server.store->record(section, index));
            const std::string target = fieldText(record->var.label);
            server.names->addAlias(book.label(index), {target, record->primary != 0, index});
        }
    }
    for (const auto& [name, ofName] : limits)
        server.names->setLimits(name, ofName);
}

void setAccessOfAll(const StoreObjects& objects, const Access& access) {
    for (const SharedObject* object :
         {&objects.header, &objects.elements, &objects.events, &objects.blocks, &objects.writes})
        object->setAccess(access);
    for (const SharedObject& area : objects.areas)
        if (area.data())
            area.setAccess(access);
}

// A store of any version that cannot be adopted, as far as its clients can still be told.
struct GivenUpStore {
    SharedObject header;
    SharedObject events;
    uint32_t generation = 0;

    explicit GivenUpStore(const std::string& name) {
        if (header.open(headerObject(name), reconfigOffset + sizeof(RECONFIG_DATA), true) != 0)
            return;
        auto* fields = reinterpret_cast<StoreHeader*>(header.data());
        if (fields->magic != storeMagic)
            return;
        generation = fields->generation;
        events.open(headerObject(name) + "-events", eventMemorySize(), true);
        fields->state.store(Superseded, std::memory_order_release);
        if (events.data())
            announceIn(events.data(), allAreas, true);
    }

    void tellOfSuccessor() const {
        if (generation == 0)
            return;
        countUp(countersIn(header));
        if (events.data())
            announceIn(events.data(), allAreas, false);
    }
};

void makeInPlace(ostrel_server& server, std::string& problem) {
    const GivenUpStore old(server.name);
    auto store = makeStore(server, server.name, old.generation + 1, defaultCapacities(), problem);
    if (!store)
        return;
    server.store = useAttachment(std::move(store));
    old.tellOfSuccessor();
}

// Takes over what a dead server left, or clears away what cannot be taken over.
void adoptOrMake(ostrel_server& server, std::string& problem) {
    StoreObjects objects;
    std::string damage;
    const StoreLook look = openStoreObjects(objects, server.name, damage);
    if (look == StoreLook::Usable && !objects.header.isWritable()) {
        problem = "may not be written by this user; its memory belongs to another one";
        return;
    }
    if (look == StoreLook::Forbidden) {
        problem = damage;
        return;
    }
    if (look == StoreLook::Usable) {
        setAccessOfAll(objects, server.access);
        server.store = useAttachment(std::make_unique<Attachment>(std::move(objects), server.name));
        server.adopted = true;
        return;
    }
    if (look == StoreLook::Damaged)
        log_error(__FILE__, __LINE__, 1, 0, "store %s: %s; a new one takes its place", server.name.c_str(),
                  damage.c_str());
    makeInPlace(server, problem);
}

// Shows this process as the server of the store that it has in hand.
void signHeader(const ostrel_server& server) {
    StoreHeader& header = *server.store->header();
    setText(header.cellFile, server.cellFile);
    header.heartbeat.store(monotonicNow(), std::memory_order_release);
    header.serverStart.store(processStart(getpid()), std::memory_order_release);
    header.serverPid.store(getpid(), std::memory_order_release);
}

void startServing(ostrel_server& server) {
    signHeader(server);
    server.records = std::make_unique<ServedRecords>(*server.store);
    server.names = std::make_unique<ServedNames>(*server.store);
    if (server.adopted) {
        server.records->adopt();
        adoptNames(server);
        server.names->publish();
        reclaimDeadThreads(server.store->eventMemory());
    }
    server.store->header()->state.store(Live, std::memory_order_release);
    server.timers = std::make_unique<TimerService>(server.store->eventMemory());
}

void end(StoreHeader& header) {
    header.state.store(Ended, std::memory_order_release);
    header.serverPid.store(0, std::memory_order_release);
}

// What clients wrote until now goes into the next generation, so that it gets into the file even by another server.
void carryWrites(WriteMemory& from, WriteMemory& to) {
    to.writes.take(from.writes);
    to.log.take(from.log);
}

}  // namespace

void openStore(ostrel_server& server, const ostrel_server_options& options, std::string& problem) {
    server.access = {options.mode == 0 ? mode_t{0600} : static_cast<mode_t>(options.mode), options.group_given == 1,
                     options.group};
    server.cellFile = options.cell_file ? options.cell_file : "";
    if (!server.name.empty())
        adoptOrMake(server, problem);
    else if (auto store = makeStore(server, "", 1, defaultCapacities(), problem))
        server.store = useAttachment(std::move(store));
    if (problem.empty())
        startServing(server);
}

void closeStore(ostrel_server& server) {
    server.timers.reset();
    end(*storeOfClients(server).header());
    if (server.next) {
        end(*server.store->header());
        // Records of it were given out and stay good.
        useAttachment(std::move(server.next));
    }
    if (!server.name.empty()) {
        unlinkStoreObjects(server.name);
        unlinkStoreObjects(nextGenerationName(server.name));
    }
}

void leaveStore(ostrel_server& server) {
    server.timers.reset();
    if (server.next)
        abandonNextGeneration(server);
    server.store->header()->serverPid.store(0, std::memory_order_release);
}

Attachment& storeOfClients(const ostrel_server& server) {
    return server.previous ? *server.previous : *server.store;
}

std::optional<Capacities> capacitiesFor(const Attachment& store, std::span<const ostrel_server_room> rooms,
                                        std::string& problem) {
    Capacities capacities{};
    for (int i = 0; i < storeSections; ++i)
        capacities[static_cast<size_t>(i)] = static_cast<uint32_t>(store.capacity(i));
    for (const ostrel_server_room& room : rooms) {
        const int area = rawNumber(&room.area);
        const int kind = rawNumber(&room.kind);
        const int section = sectionNumber(area, kind);
        if (section < 0) {
            problem = "area " + std::to_string(area) + " has no section for kind " + std::to_string(kind);
            return std::nullopt;
        }
        uint32_t& capacity = capacities[static_cast<size_t>(section)];
        const auto needed = static_cast<uint32_t>(std::max(room.variables, 0));
        const uint32_t most = std::max(static_cast<uint32_t>(ostrel_sections(nullptr)[section].largest), capacity);
        if (needed > most) {
            problem = "the section " + std::string(ostrel_sections(nullptr)[section].name) + " has room for " +
                      std::to_string(most) + " variables at most; " + std::to_string(needed) + " were asked for";
            return std::nullopt;
        }
        // A configuration that has grown once will do so again.
        if (needed > capacity)
            capacity = std::min(most, needed + needed / 4);
    }
    return capacities;
}

bool fits(const Attachment& store, const Capacities& capacities) {
    for (int i = 0; i < storeSections; ++i)
        if (capacities[static_cast<size_t>(i)] > static_cast<uint32_t>(store.capacity(i)))
            return false;
    return true;
}

bool startNextGeneration(ostrel_server& server, const Capacities& capacities, std::string& problem) {
    const std::string name = server.name.empty() ? "" : nextGenerationName(server.name);
    server.next = makeStore(server, name, server.store->header()->generation + 1, capacities, problem);
    if (!server.next)
        return false;
    server.previous = std::exchange(server.store, server.next.get());
    signHeader(server);
    takeOverEvents(server.previous->eventMemory(), server.store->eventMemory());
    server.previousRecords =
        std::exchange(server.records, std::make_unique<ServedRecords>(*server.store, server.records.get()));
    server.previousNames = std::exchange(server.names, std::make_unique<ServedNames>(*server.store));
    server.store->takeServersThread();
    return true;
}

void abandonNextGeneration(ostrel_server& server) {
    server.records = std::move(server.previousRecords);
    server.names = std::move(server.previousNames);
    server.store = std::exchange(server.previous, nullptr);
    server.next.reset();
    if (!server.name.empty())
        unlinkStoreObjects(nextGenerationName(server.name));
}

void finishNextGeneration(ostrel_server& server) {
    Attachment& old = *std::exchange(server.previous, nullptr);
    server.records->forgetFormer();
    server.previousRecords.reset();
    server.previousNames.reset();
    carryWrites(*old.writes(), *server.store->writes());
    server.writeFile.follow(old.writes()->writes, server.store->writes()->writes);
    server.logFile.follow(old.writes()->log, server.store->writes()->log);
    server.store->header()->state.store(Live, std::memory_order_release);
    old.header()->state.store(Superseded, std::memory_order_release);
    const int error = server.name.empty() ? 0 : replaceStoreObjects(server.name);
    if (error != 0)
        log_error(__FILE__, __LINE__, 1, error, "store %s: its next generation cannot be made known: %s",
                  server.name.c_str(), std::strerror(error));
    useAttachment(std::move(server.next));
    server.timers = std::make_unique<TimerService>(server.store->eventMemory());
    server.former.push_back(&old);
    countReconfiguration(old);
    announce(old, allAreas, false);
}

void announce(const Attachment& store, SM_AREA_ID area, bool starts) {
    announceIn(store.eventMemory(), area, starts);
}

void countReconfiguration(const Attachment& store) {
    countUp(countersIn(store.objects().header));
}

#include "store/storeobjects.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <numeric>
#include <string_view>

#include "events/eventmemory.h"
#include "store/storeowner.h"
#include "store/writelayout.h"

namespace {

constexpr size_t blocksBytes = privateBlockCount * privateBlockBytes;
constexpr std::array<std::string_view, 4> partSuffixes = {"-elements", "-events", "-blocks", "-writes"};
constexpr std::string_view nextGeneration = ".next";
constexpr std::string_view lock = ".lock";

std::string objectName(const std::string& store, std::string_view suffix) {
    return headerObject(store) + std::string(suffix);
}

std::string areaSuffix(size_t area) {
    return "-area" + std::to_string(area);
}

// Calls visit() with what the name of each object of a store ends in, the header's first.
template <typename Visit>
void forEachPart(Visit visit) {
    visit(std::string());
    for (size_t area = 0; area < MAX_NUM_SHRD_MEM; ++area)
        visit(areaSuffix(area));
    for (const std::string_view suffix : partSuffixes)
        visit(std::string(suffix));
}

// Bytes of each area: to the end of its last section, 0 for an area that the store has not.
std::array<size_t, MAX_NUM_SHRD_MEM> areaSizes(const Capacities& capacities) {
    std::array<size_t, MAX_NUM_SHRD_MEM> sizes{};
    sizes[SYS_ATTR_MEM] = partBytes;
    for (size_t i = 0; i < capacities.size(); ++i) {
        const ostrel_section& section = ostrel_sections(nullptr)[i];
        const size_t end = section.start + size_t{capacities[i]} * section.record_size;
        size_t& size = sizes[static_cast<size_t>(section.area)];
        size = std::max(size, wholeParts(end));
    }
    return sizes;
}

size_t writesBytes(const Capacities& capacities) {
    const size_t slots = std::accumulate(capacities.begin(), capacities.end(), size_t{0});
    return wholeParts(sizeof(WriteMemory) + slots * sizeof(WriteRule));
}

// One part of a store, to be made or opened in the same way as the others.
struct ObjectPart {
    SharedObject* object;
    std::string suffix;
    size_t size;
};

std::array<ObjectPart, MAX_NUM_SHRD_MEM + partSuffixes.size()> partsBesideHeader(StoreObjects& objects,
                                                                                 const Capacities& capacities) {
    std::array<ObjectPart, MAX_NUM_SHRD_MEM + partSuffixes.size()> parts;
    const auto sizes = areaSizes(capacities);
    for (size_t area = 0; area < sizes.size(); ++area)
        parts[area] = {&objects.areas[area], areaSuffix(area), sizes[area]};
    parts[MAX_NUM_SHRD_MEM] = {&objects.elements, "-elements", elementBytes};
    parts[MAX_NUM_SHRD_MEM + 1] = {&objects.events, "-events", eventMemorySize()};
    parts[MAX_NUM_SHRD_MEM + 2] = {&objects.blocks, "-blocks", blocksBytes};
    parts[MAX_NUM_SHRD_MEM + 3] = {&objects.writes, "-writes", writesBytes(capacities)};
    return parts;
}

int createObject(SharedObject& object, const std::string& store, std::string_view suffix, size_t size,
                 const Access& access) {
    if (size == 0)
        return 0;
    if (store.empty())
        return object.createAnonymous("ostrel", size);
    return object.create(objectName(store, suffix), size, access);
}

void fillRooms(SectionRoom* rooms, const Capacities& capacities) {
    const ostrel_section* sections = ostrel_sections(nullptr);
    for (int i = 0; i < storeSections; ++i) {
        rooms[i].area = static_cast<uint16_t>(sections[i].area);
        rooms[i].kind = static_cast<uint16_t>(sections[i].kind);
        rooms[i].capacity = capacities[static_cast<size_t>(i)];
        rooms[i].recordSize = static_cast<uint32_t>(sections[i].record_size);
        rooms[i].start = sections[i].start;
    }
}

// The capacities that the header tells, each word read once; false where it has other sections than this program.
bool readCapacities(const StoreHeader& header, Capacities& capacities) {
    for (size_t i = 0; i < capacities.size(); ++i) {
        const ostrel_section& section = ostrel_sections(nullptr)[i];
        const SectionRoom& room = header.sections[i];
        capacities[i] = room.capacity;
        if (room.area != section.area || room.kind != section.kind || room.start != section.start ||
            room.recordSize != section.record_size || capacities[i] == 0 || capacities[i] > INT16_MAX)
            return false;
    }
    return header.sectionCount == storeSections;
}

StoreLook lookAtHeader(const SharedObject& object, Capacities& capacities, std::string& problem) {
    const auto* header = reinterpret_cast<const StoreHeader*>(object.data());
    if (header->magic == 0)
        return StoreLook::Absent;
    if (header->magic != storeMagic) {
        problem = "is no store";
        return StoreLook::Damaged;
    }
    if (header->layoutVersion != storeLayoutVersion) {
        problem = "has layout version " + std::to_string(header->layoutVersion) + ", this program knows " +
                  std::to_string(storeLayoutVersion);
        return StoreLook::Damaged;
    }
    if (header->state.load(std::memory_order_acquire) != Live)
        return StoreLook::Absent;
    if (!readCapacities(*header, capacities) || header->eventBytes != eventMemorySize()) {
        problem = "has another layout of its areas";
        return StoreLook::Damaged;
    }
    return StoreLook::Usable;
}

StoreLook openHeader(SharedObject& header, const std::string& name, Capacities& capacities, std::string& problem) {
    int error = header.open(headerObject(name), headerObjectBytes, true);
    if (error == EACCES)
        error = header.open(headerObject(name), headerObjectBytes, false);
    if (error == ENOENT)
        return StoreLook::Absent;
    if (error == EACCES) {
        problem = "exists, but this user may not read it: " + ownershipOf(headerObject(name)) +
                  "; mode and group in its cell file decide who may";
        return StoreLook::Forbidden;
    }
    if (error == EPERM || error == ELOOP) {
        problem = problemOfObject(headerObject(name), error);
        return StoreLook::Forbidden;
    }
    if (error != 0) {
        problem = error == ENODATA ? "is cut short" : std::strerror(error);
        return StoreLook::Damaged;
    }
    return lookAtHeader(header, capacities, problem);
}

}  // namespace

std::string problemOfStoreName(const std::string& name) {
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
               c == '.';
    };
    if (name.empty() || name.size() >= sizeof(StoreHeader::name) || !std::all_of(name.begin(), name.end(), isAllowed))
        return "is no name for a store; use 1 to 63 letters, digits, points, hyphens and underscores";
    const auto endsName = [&](std::string_view suffix) { return name.ends_with(suffix); };
    if (name.find("-area") != std::string::npos || endsName(nextGeneration) || endsName(lock) ||
        std::any_of(partSuffixes.begin(), partSuffixes.end(), endsName))
        return "is no name for a store; it could be taken for a part of another one, choose another ending";
    return "";
}

std::string headerObject(const std::string& name) {
    return "/ostrel-" + name;
}

Capacities defaultCapacities() {
    Capacities capacities{};
    for (size_t i = 0; i < capacities.size(); ++i)
        capacities[i] = static_cast<uint32_t>(ostrel_sections(nullptr)[i].capacity);
    return capacities;
}

bool createStoreObjects(StoreObjects& objects, const std::string& name, const Capacities& capacities,
                        const Access& access, std::string& problem) {
    if (!name.empty())
        unlinkStoreObjects(name);
    const auto create = [&](SharedObject& object, std::string_view suffix, size_t size) {
        const int error = problem.empty() ? createObject(object, name, suffix, size, access) : 0;
        if (error != 0)
            problem = "cannot make its shared memory: " + problemOfObject(objectName(name, suffix), error);
    };
    for (const ObjectPart& part : partsBesideHeader(objects, capacities))
        create(*part.object, part.suffix, part.size);
    create(objects.header, "", headerObjectBytes);
    if (const Shortage shortage = problem.empty() ? objects.header.reserve(0, indexOffset) : Shortage{})
        problem = describe(shortage);
    if (!problem.empty()) {
        if (!name.empty())
            unlinkStoreObjects(name);
        return false;
    }
    fillRooms(objects.storeHeader()->sections, capacities);
    return true;
}

StoreLook openStoreObjects(StoreObjects& objects, const std::string& name, std::string& problem) {
    Capacities capacities{};
    const StoreLook look = openHeader(objects.header, name, capacities, problem);
    if (look != StoreLook::Usable)
        return look;
    const bool writable = objects.header.isWritable();
    for (const ObjectPart& part : partsBesideHeader(objects, capacities)) {
        const int error = part.size == 0 ? 0 : part.object->open(objectName(name, part.suffix), part.size, writable);
        if (error != 0)
            problem =
                "its part " + part.suffix.substr(1) + ": " + problemOfObject(objectName(name, part.suffix), error);
    }
    // A store that ends says so before it removes the first part: what was opened while it lives belongs together.
    if (objects.storeHeader()->state.load(std::memory_order_acquire) != Live)
        return StoreLook::Absent;
    return problem.empty() ? StoreLook::Usable : StoreLook::Damaged;
}

void unlinkStoreObjects(const std::string& name) {
    forEachPart([&](const std::string& suffix) { shm_unlink(objectName(name, suffix).c_str()); });
}

std::string nextGenerationName(const std::string& name) {
    return name + std::string(nextGeneration);
}

int replaceStoreObjects(const std::string& name) {
    // POSIX can remove and open a shared memory object but not rename it; here they are files of this folder.
    const std::string next = nextGenerationName(name);
    int error = 0;
    shm_unlink(headerObject(name).c_str());
    const auto move = [&](const std::string& suffix) {
        if (std::rename((objectFolder + objectName(next, suffix)).c_str(),
                        (objectFolder + objectName(name, suffix)).c_str()) != 0 &&
            errno != ENOENT)
            error = errno;
    };
    // The header comes last: a store can be found when all of it is there.
    forEachPart([&](const std::string& suffix) {
        if (!suffix.empty())
            move(suffix);
    });
    move("");
    return error;
}

#include "storeobjects.h"

#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <string_view>

#include "eventmemory.h"

namespace {

constexpr size_t kBlocksBytes = kPrivateBlocks * kPrivateBlockBytes;
constexpr std::array<std::string_view, 4> kPartSuffixes = {"-elements", "-events", "-blocks", ".lock"};

std::string objectName(const std::string& store, std::string_view suffix) {
    return headerObject(store) + std::string(suffix);
}

std::string areaSuffix(size_t area) {
    return "-area" + std::to_string(area);
}

// Bytes of each area: to the end of its last section, 0 for an area that the store has not.
std::array<size_t, MAX_NUM_SHRD_MEM> areaSizes(const SectionRoom* rooms) {
    std::array<size_t, MAX_NUM_SHRD_MEM> sizes{};
    sizes[SYS_ATTR_MEM] = kPart;
    for (int i = 0; i < kSections; ++i) {
        const size_t end = rooms[i].start + size_t{rooms[i].capacity} * rooms[i].recordSize;
        sizes[rooms[i].area] = std::max(sizes[rooms[i].area], wholeParts(end));
    }
    return sizes;
}

// One part of a store, to be made or opened in the same way as the others.
struct ObjectPart {
    SharedObject* object;
    std::string suffix;
    size_t size;
};

std::array<ObjectPart, MAX_NUM_SHRD_MEM + 3> partsBesideHeader(StoreObjects& objects, const SectionRoom* rooms) {
    std::array<ObjectPart, MAX_NUM_SHRD_MEM + 3> parts;
    const auto sizes = areaSizes(rooms);
    for (size_t area = 0; area < sizes.size(); ++area)
        parts[area] = {&objects.areas[area], areaSuffix(area), sizes[area]};
    parts[MAX_NUM_SHRD_MEM] = {&objects.elements, "-elements", kElementBytes};
    parts[MAX_NUM_SHRD_MEM + 1] = {&objects.events, "-events", eventMemorySize()};
    parts[MAX_NUM_SHRD_MEM + 2] = {&objects.blocks, "-blocks", kBlocksBytes};
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

void fillRooms(SectionRoom* rooms) {
    const ostrel_section* sections = ostrel_sections(nullptr);
    for (int i = 0; i < kSections; ++i) {
        rooms[i].area = static_cast<uint16_t>(sections[i].area);
        rooms[i].kind = static_cast<uint16_t>(sections[i].kind);
        rooms[i].capacity = static_cast<uint32_t>(sections[i].capacity);
        rooms[i].recordSize = static_cast<uint32_t>(sections[i].record_size);
        rooms[i].start = sections[i].start;
    }
}

bool roomsFit(const SectionRoom* rooms) {
    const ostrel_section* sections = ostrel_sections(nullptr);
    for (int i = 0; i < kSections; ++i) {
        const SectionRoom& room = rooms[i];
        if (room.area != sections[i].area || room.kind != sections[i].kind || room.start != sections[i].start ||
            room.recordSize != sections[i].record_size || room.capacity == 0 || room.capacity > INT16_MAX)
            return false;
    }
    return true;
}

StoreLook lookAtHeader(const SharedObject& object, std::string& problem) {
    const auto* header = reinterpret_cast<const StoreHeader*>(object.data());
    if (header->magic == 0)
        return StoreLook::kAbsent;
    if (header->magic != kMagic) {
        problem = "is no store";
        return StoreLook::kDamaged;
    }
    if (header->layoutVersion != kLayoutVersion) {
        problem = "has layout version " + std::to_string(header->layoutVersion) + ", this program knows " +
                  std::to_string(kLayoutVersion);
        return StoreLook::kDamaged;
    }
    if (header->state.load(std::memory_order_acquire) != kLive)
        return StoreLook::kAbsent;
    if (header->sectionCount != kSections || !roomsFit(header->sections) || header->eventBytes != eventMemorySize()) {
        problem = "has another layout of its areas";
        return StoreLook::kDamaged;
    }
    return StoreLook::kUsable;
}

StoreLook openHeader(SharedObject& header, const std::string& name, std::string& problem) {
    int error = header.open(headerObject(name), kHeaderObjectBytes, true);
    if (error == EACCES)
        error = header.open(headerObject(name), kHeaderObjectBytes, false);
    if (error == ENOENT)
        return StoreLook::kAbsent;
    if (error != 0) {
        problem = error == ENODATA ? "is cut short" : std::strerror(error);
        return StoreLook::kDamaged;
    }
    return lookAtHeader(header, problem);
}

}  // namespace

bool isStoreName(const std::string& name) {
    const auto isAllowed = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '-' ||
               c == '.';
    };
    return !name.empty() && name.size() < sizeof(StoreHeader::name) &&
           std::all_of(name.begin(), name.end(), isAllowed) && name.find("-area") == std::string::npos &&
           std::none_of(kPartSuffixes.begin(), kPartSuffixes.end(),
                        [&](std::string_view suffix) { return name.ends_with(suffix); });
}

std::string headerObject(const std::string& name) {
    return "/ostrel-" + name;
}

bool createStoreObjects(StoreObjects& objects, const std::string& name, const Access& access, std::string& problem) {
    if (!name.empty())
        unlinkStoreObjects(name);
    SectionRoom rooms[kSections] = {};
    fillRooms(rooms);
    int error = 0;
    for (const ObjectPart& part : partsBesideHeader(objects, rooms))
        if (error == 0)
            error = createObject(*part.object, name, part.suffix, part.size, access);
    if (error == 0)
        error = createObject(objects.header, name, "", kHeaderObjectBytes, access);
    if (error == 0)
        error = objects.header.reserve(0, kIndexOffset);
    if (error != 0) {
        problem = "cannot make its shared memory: " + std::string(std::strerror(error));
        if (!name.empty())
            unlinkStoreObjects(name);
        return false;
    }
    fillRooms(objects.storeHeader()->sections);
    return true;
}

StoreLook openStoreObjects(StoreObjects& objects, const std::string& name, std::string& problem) {
    const StoreLook look = openHeader(objects.header, name, problem);
    if (look != StoreLook::kUsable)
        return look;
    const bool writable = objects.header.isWritable();
    for (const ObjectPart& part : partsBesideHeader(objects, objects.storeHeader()->sections)) {
        const int error = part.size == 0 ? 0 : part.object->open(objectName(name, part.suffix), part.size, writable);
        if (error != 0)
            problem = "its part " + part.suffix.substr(1) + ": " + std::strerror(error);
    }
    // A store that ends says so before it removes the first part: what was opened while it lives belongs together.
    if (objects.storeHeader()->state.load(std::memory_order_acquire) != kLive)
        return StoreLook::kAbsent;
    return problem.empty() ? StoreLook::kUsable : StoreLook::kDamaged;
}

void unlinkStoreObjects(const std::string& name) {
    shm_unlink(headerObject(name).c_str());
    for (size_t area = 0; area < MAX_NUM_SHRD_MEM; ++area)
        shm_unlink(objectName(name, areaSuffix(area)).c_str());
    for (const std::string_view suffix : {"-elements", "-events", "-blocks"})
        shm_unlink(objectName(name, suffix).c_str());
}

void markSuperseded(const std::string& name) {
    SharedObject header;
    constexpr size_t fixedPart = offsetof(StoreHeader, name);
    if (header.open(headerObject(name), fixedPart, true) != 0)
        return;
    auto* fields = reinterpret_cast<StoreHeader*>(header.data());
    if (fields->magic == kMagic)
        fields->state.store(kSuperseded, std::memory_order_release);
}

#include "store/nameindex.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>

namespace {

constexpr uint64_t entryMask = (uint64_t{1} << 24) - 1;

uint64_t load(const uint64_t& word) {
    return __atomic_load_n(&word, __ATOMIC_ACQUIRE);
}

void store(uint64_t& word, uint64_t value) {
    __atomic_store_n(&word, value, __ATOMIC_RELEASE);
}

uint64_t hashOf(const uint64_t* words, size_t count) {
    uint64_t hash = 0x9e3779b97f4a7c15;
    for (size_t i = 0; i < count; ++i) {
        hash = (hash ^ words[i]) * 0xff51afd7ed558ccd;
        hash ^= hash >> 32;
    }
    return hash;
}

uint64_t tagOf(uint64_t hash) {
    return hash & ~entryMask;
}

bool hasName(const NameEntry& entry, const NameKey& key) {
    for (size_t i = 0; i < key.count; ++i)
        if (load(entry.name[i]) != key.words[i])
            return false;
    return true;
}

NameMeaning meaningOf(const NameEntry& entry) {
    return std::bit_cast<NameMeaning>(std::array<uint64_t, 2>{load(entry.meaning[0]), load(entry.meaning[1])});
}

size_t maskOf(const IndexTable& table) {
    return load(table.mask) & (indexSlots - 1);
}

size_t entriesOf(const IndexTable& table) {
    return std::min<size_t>(load(table.entryCount), indexEntries);
}

size_t slotsFor(size_t names) {
    return std::bit_ceil(std::max<size_t>(64, names * 2));
}

void writeEntry(NameEntry& entry, const NameKey& key, const NameMeaning& meaning) {
    const auto words = std::bit_cast<std::array<uint64_t, 2>>(meaning);
    store(entry.meaning[0], words[0]);
    store(entry.meaning[1], words[1]);
    for (size_t i = 0; i < nameWords; ++i)
        store(entry.name[i], i < key.count ? key.words[i] : 0);
}

void linkEntry(IndexTable& table, size_t mask, const NameKey& key, size_t number) {
    size_t slot = key.hash & mask;
    while (table.slots[slot] != 0)
        slot = (slot + 1) & mask;
    store(table.slots[slot], tagOf(key.hash) | (number + 1));
}

void writeLimits(LimitEntry& entry, const Limits& limits) {
    std::array<uint64_t, 2> display{};
    uint64_t exists = 0;
    for (size_t i = 0; i < limits.values.size(); ++i) {
        store(entry.values[i], std::bit_cast<uint64_t>(limits.values[i]));
        display[i / 4] |= uint64_t{static_cast<uint16_t>(limits.display[i])} << (i % 4 * 16);
        exists |= uint64_t{limits.exists[i] != 0} << i;
    }
    store(entry.display[0], display[0]);
    store(entry.display[1], display[1]);
    store(entry.exists, exists);
}

void fillTable(IndexTable& table, const std::vector<NewName>& names, const std::vector<Limits>& limits) {
    const size_t mask = slotsFor(names.size()) - 1;
    for (size_t i = 0; i <= mask; ++i)
        store(table.slots[i], 0);
    store(table.mask, mask);
    size_t nameCount = 0;
    for (size_t i = 0; i < names.size(); ++i) {
        nameCount += (names[i].meaning.flags & (isName | isAlias)) != 0;
        const NameKey key(names[i].name);
        writeEntry(table.entries[i], key, names[i].meaning);
        linkEntry(table, mask, key, i);
    }
    for (size_t i = 0; i < limits.size(); ++i)
        writeLimits(table.limits[i], limits[i]);
    store(table.entryCount, names.size());
    store(table.nameCount, nameCount);
    store(table.limitCount, limits.size());
}

// The pages that a table with so many names and limits will touch.
Shortage reserveTable(const StoreObjects& objects, const IndexTable& table, size_t names, size_t limits) {
    const auto offsetOf = [&](const void* address) {
        return static_cast<size_t>(static_cast<const char*>(address) - objects.header.data());
    };
    Shortage shortage = objects.header.reserve(offsetOf(&table), offsetof(IndexTable, slots) + slotsFor(names) * 8);
    if (!shortage)
        shortage = objects.header.reserve(offsetOf(table.entries), (names + 1) * sizeof(NameEntry));
    if (!shortage)
        shortage = objects.header.reserve(offsetOf(table.limits), (limits + 1) * sizeof(LimitEntry));
    return shortage;
}

}  // namespace

NameKey::NameKey(std::string_view name) : count(0), hash(0) {
    if (name.empty() || name.size() >= nameBytes)
        return;
    count = name.size() / 8 + 1;
    words[count - 1] = 0;
    std::memcpy(words.data(), name.data(), name.size());
    hash = hashOf(words.data(), count);
}

std::optional<NameMeaning> findName(const IndexTable& table, const NameKey& key) {
    if (key.count == 0)
        return std::nullopt;
    const size_t mask = maskOf(table);
    size_t slot = key.hash & mask;
    for (size_t probes = 0; probes <= mask; ++probes, slot = (slot + 1) & mask) {
        const uint64_t word = load(table.slots[slot]);
        if (word == 0)
            return std::nullopt;
        const size_t number = (word & entryMask) - 1;
        if (tagOf(word) == tagOf(key.hash) && number < indexEntries && hasName(table.entries[number], key))
            return meaningOf(table.entries[number]);
    }
    return std::nullopt;
}

std::optional<Limits> readLimits(const IndexTable& table, uint32_t number) {
    if (number == 0 || number > indexLimits)
        return std::nullopt;
    const LimitEntry& entry = table.limits[number - 1];
    const uint64_t exists = load(entry.exists);
    Limits limits;
    for (size_t i = 0; i < limits.values.size(); ++i) {
        limits.values[i] = std::bit_cast<double>(load(entry.values[i]));
        limits.exists[i] = (exists >> i) & 1;
        limits.display[i] = static_cast<short>(load(entry.display[i / 4]) >> (i % 4 * 16));
    }
    return limits;
}

Shortage reserveNames(const StoreObjects& objects, size_t names, size_t limits) {
    const uint64_t next = objects.storeHeader()->indexVersion.load(std::memory_order_relaxed) + 1;
    return reserveTable(objects, *objects.indexTable(next), std::min(names, indexEntries - 1),
                        std::min(limits, indexLimits - 1));
}

Shortage publishNames(const StoreObjects& objects, const std::vector<NewName>& names,
                      const std::vector<Limits>& limits) {
    auto& version = objects.storeHeader()->indexVersion;
    const uint64_t next = version.load(std::memory_order_relaxed) + 1;
    IndexTable& table = *objects.indexTable(next);
    if (names.size() >= indexEntries || limits.size() >= indexLimits)
        return {ENOSPC, sizeof(IndexTable)};
    if (const Shortage shortage = reserveTable(objects, table, names.size(), limits.size()))
        return shortage;
    fillTable(table, names, limits);
    version.store(next, std::memory_order_release);
    return {};
}

bool changeLimits(const StoreObjects& objects, std::string_view name, const Limits& limits) {
    IndexTable& table = *objects.indexTable(objects.storeHeader()->indexVersion.load(std::memory_order_relaxed));
    const auto meaning = findName(table, NameKey(name));
    if (!meaning || meaning->limits == 0 || meaning->limits > indexLimits)
        return false;
    writeLimits(table.limits[meaning->limits - 1], limits);
    return true;
}

size_t knownNames(const StoreObjects& objects) {
    return lookInIndex(objects,
                       [](const IndexTable& table) { return std::min<size_t>(load(table.nameCount), indexEntries); });
}

std::vector<std::pair<std::string, Limits>> namesWithLimits(const StoreObjects& objects) {
    return lookInIndex(objects, [](const IndexTable& table) {
        std::vector<std::pair<std::string, Limits>> result;
        for (size_t i = 0; i < entriesOf(table); ++i) {
            const NameMeaning meaning = meaningOf(table.entries[i]);
            const auto limits = readLimits(table, meaning.limits);
            if (limits && (meaning.flags & isAlias) == 0) {
                const char* name = reinterpret_cast<const char*>(table.entries[i].name);
                result.emplace_back(std::string(name, strnlen(name, nameBytes - 1)), *limits);
            }
        }
        return result;
    });
}

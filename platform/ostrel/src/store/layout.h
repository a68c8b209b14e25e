// The bytes of a store's header object. docs/store-layout.md is the page to this file: change both, and the version.
//
// The server alone writes here, except for the words that say otherwise. Clients check what they read before they use
// it as an index, a length or an offset.
#ifndef OSTREL_STORE_LAYOUT_H
#define OSTREL_STORE_LAYOUT_H

#include <atomic>
#include <cstddef>
#include <cstdint>

#include "store/sections.h"

inline constexpr uint64_t storeMagic = 0x314c455254534f00;  // "\0OSTREL1" in memory order
inline constexpr uint32_t storeLayoutVersion = 3;

// What a client may expect of a store.
enum StoreState : uint32_t {
    Making = 0,     // not ready yet
    Live = 1,       // served, or waiting for a server to adopt it
    Ended = 2,      // ended cleanly; the memory keeps the last values
    Superseded = 3  // a store with another layout has its name now
};

inline constexpr size_t nameBytes = 80;  // of a variable, with the terminating zero
inline constexpr size_t nameWords = nameBytes / 8;
inline constexpr size_t indexSlots = size_t{1} << 19;  // a power of two, more than twice the entries
inline constexpr size_t indexEntries = 200000;
inline constexpr size_t indexLimits = 40000;
inline constexpr size_t arraysPerKind = 256;
inline constexpr size_t privateBlockCount = 64;
inline constexpr size_t privateBlockBytes = size_t{1} << 20;
inline constexpr size_t elementAlignment = 64;
inline constexpr size_t elementBytes = size_t{4} << 30;
inline constexpr size_t partBytes = 65536;  // parts of an object start at multiples of every page size

// Room for one section.
struct SectionRoom {
    uint16_t area;
    uint16_t kind;
    uint32_t capacity;
    std::atomic<uint32_t> used;  // slots that were ever taken; those behind them have never been touched
    uint32_t recordSize;
    uint64_t start;
};
static_assert(sizeof(SectionRoom) == 24);

struct StoreHeader {
    // These keep their places in every version, so that a server can tell an older store that it is superseded.
    uint64_t magic;
    uint32_t layoutVersion;
    std::atomic<uint32_t> state;
    uint64_t instance;
    uint32_t generation;
    std::atomic<int32_t> serverPid;
    std::atomic<uint64_t> serverStart;  // field 22 of /proc/PID/stat, so that a pid given anew is not taken for it
    std::atomic<int64_t> heartbeat;     // CLOCK_MONOTONIC, nanoseconds
    uint64_t reserved0[2];

    char name[64];
    char cellFile[256];
    char reserved2[256];
    uint64_t eventBytes;
    std::atomic<uint64_t> elementsUsed;  // bytes of the element object given to arrays
    std::atomic<uint64_t> indexVersion;  // its lowest bit selects the index table that holds
    uint32_t sectionCount;
    uint32_t reserved1;
    SectionRoom sections[storeSections];

    // Where the elements of array i of the kinds 15 to 18 lie: offset / 64 in the upper 32 bits, their number in the
    // lower ones, in one word so that no reader sees half a change.
    std::atomic<uint64_t> arrayBlocks[4][arraysPerKind];

    // Hashes of the names of private blocks in the order of their blocks; a client claims the first zero with its own.
    std::atomic<uint64_t> privateBlocks[privateBlockCount];
};
static_assert(std::atomic<uint64_t>::is_always_lock_free && std::atomic<uint32_t>::is_always_lock_free);
static_assert(offsetof(StoreHeader, state) == 12 && offsetof(StoreHeader, instance) == 16);
static_assert(offsetof(StoreHeader, serverPid) == 28 && offsetof(StoreHeader, name) == 64);
static_assert(offsetof(StoreHeader, eventBytes) == 640 && offsetof(StoreHeader, sections) == 672);
static_assert(sizeof(StoreHeader) <= partBytes);

// What a name stands for.
struct NameMeaning {
    uint8_t area = 0;
    uint8_t kind = 0;
    uint16_t index = 0;
    uint8_t member = 0;
    uint8_t flags = 0;
    uint16_t alias = 0;    // of an alias its own record, else that of the name's primary alias; index + 1, 0 for none
    uint32_t element = 0;  // selected element of an array, index + 1; 0 for none
    uint32_t limits = 0;   // its entry among the limits, index + 1; 0 for none
};
static_assert(sizeof(NameMeaning) == 16);

inline constexpr uint8_t isName = 1;    // a variable's own name
inline constexpr uint8_t isAlias = 2;   // another name; neither bit: known only as target of an alias or for its limits
inline constexpr uint8_t isMember = 4;  // stands for one member, not for the variable with all of them

struct NameEntry {
    uint64_t meaning[2];
    uint64_t name[nameWords];  // filled up with zeros
};
static_assert(sizeof(NameEntry) == 96);

struct LimitEntry {
    uint64_t values[7];   // doubles
    uint64_t display[2];  // colours, 16 bits each
    uint64_t exists;      // a bit each
};
static_assert(sizeof(LimitEntry) == 80);

// A slot holds the upper 40 bits of the hash and the number of an entry + 1 in the lower 24; 0 where it is free.
struct IndexTable {
    uint64_t mask;  // slots in use - 1
    uint64_t entryCount;
    uint64_t nameCount;  // entries that are names or aliases
    uint64_t limitCount;
    uint64_t reserved[4];
    uint64_t slots[indexSlots];
    NameEntry entries[indexEntries];
    LimitEntry limits[indexLimits];
};
static_assert(indexEntries < (1u << 24) && indexEntries * 2 < indexSlots);

constexpr size_t wholeParts(size_t bytes) {
    return (bytes + partBytes - 1) / partBytes * partBytes;
}

inline constexpr size_t reconfigOffset = partBytes;
inline constexpr size_t indexOffset = 2 * partBytes;
inline constexpr size_t indexBytes = wholeParts(sizeof(IndexTable));
inline constexpr size_t headerObjectBytes = indexOffset + 2 * indexBytes;

#endif

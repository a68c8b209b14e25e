// The bytes of a store's object "writes": who wrote what, what programs have to say to the log, and what clients may
// write. docs/store-layout.md is the page to this file.
#ifndef OSTREL_STORE_WRITELAYOUT_H
#define OSTREL_STORE_WRITELAYOUT_H

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "store/layout.h"
#include "store/sharedring.h"

inline constexpr size_t writeEntries = 4096;
inline constexpr size_t writtenBytes = 80;  // of a value, as much as a string variable holds

// What is kept of one write. Zero where it has no meaning.
struct WriteNote {
    int64_t seconds;
    int64_t nanoseconds;
    int32_t pid;
    uint32_t uid;
    char program[24];
    char label[nameBytes];
    uint16_t kind;
    uint16_t refusal;
    uint32_t element;  // of an array, its number + 1
    uint16_t dimensions;
    uint16_t sizes[3];
    char oldValue[writtenBytes];  // a double, or text
    char newValue[writtenBytes];
};
static_assert(sizeof(WriteNote) == 304 && offsetof(WriteNote, oldValue) == 144);

using WriteRing = SharedRing<sizeof(WriteNote) / 8, writeEntries>;
static_assert(sizeof(WriteRing) == 64 + writeEntries * 320);

// A line for the log, whole, without its line feed.
struct LogLine {
    uint32_t length;
    char text[1004];
};
using LogRing = SharedRing<sizeof(LogLine) / 8, 512>;
static_assert(sizeof(LogLine) == 1008 && sizeof(LogRing) == 64 + 512 * 1024);

inline constexpr uint64_t ruleLocked = 1;
inline constexpr uint64_t ruleMin = 2;
inline constexpr uint64_t ruleMax = 4;

// The rule for one slot. All zero allows everything.
struct WriteRule {
    std::atomic<uint64_t> flags;
    std::atomic<uint64_t> min;  // doubles
    std::atomic<uint64_t> max;
};
static_assert(sizeof(WriteRule) == 24);

// The rules of all slots, by section, lie behind it.
struct WriteMemory {
    WriteRing writes;
    LogRing log;
};

#endif

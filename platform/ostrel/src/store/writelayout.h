// The bytes of a store's object "writes": who wrote what, and what clients may write. docs/store-layout.md is the page
// to this file.
//
// The ring is written by every client, without a lock. A writer takes the next number, marks the entry as being
// written, fills it, puts a check sum over it and marks it as whole. One that is killed on the way leaves an entry that
// is not whole, which costs that entry alone. One that is stopped there for so long that the ring has come round spoils
// another entry at most, and the check sum shows it.
#ifndef OSTREL_STORE_WRITELAYOUT_H
#define OSTREL_STORE_WRITELAYOUT_H

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include "store/layout.h"

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

using WriteNoteWords = std::array<uint64_t, sizeof(WriteNote) / 8>;

struct WriteEntry {
    std::atomic<uint64_t> sequence;  // twice the number of the write; minus 1 while it is being written
    std::atomic<uint64_t> check;
    std::array<std::atomic<uint64_t>, std::tuple_size_v<WriteNoteWords>> words;
};
static_assert(sizeof(WriteEntry) == 320);

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
    std::atomic<uint64_t> taken;    // the last number that was given out
    std::atomic<uint64_t> drained;  // the last one that the server has put into its file, or given up
    uint64_t reserved[6];
    std::array<WriteEntry, writeEntries> entries;
};
static_assert(sizeof(WriteMemory) == 64 + writeEntries * sizeof(WriteEntry));

#endif

// A ring of entries in shared memory that every process writes to, without a lock, and that one process reads.
//
// A writer takes the next number, marks the entry as being written, fills it, puts a check sum over it and marks it as
// whole. One that is killed on the way leaves an entry that is not whole, which costs that entry alone. One that is
// stopped there for so long that the ring has come round spoils another entry at most, and the check sum shows it.
#ifndef OSTREL_STORE_SHAREDRING_H
#define OSTREL_STORE_SHAREDRING_H

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

enum class EntryState {
    Whole,
    UnderWay,  // its writer has not come to an end yet, or was killed
    Lost       // another one has taken its place
};

template <size_t wordCount, size_t count>
struct SharedRing {
    static constexpr size_t entryCount = count;
    using Words = std::array<uint64_t, wordCount>;

    struct Entry {
        std::atomic<uint64_t> sequence;  // twice the number of the entry; minus 1 while it is being written
        std::atomic<uint64_t> check;
        std::array<std::atomic<uint64_t>, wordCount> words;
    };

    std::atomic<uint64_t> taken;    // the last number that was given out
    std::atomic<uint64_t> drained;  // the last one that the server has put into its file, or given up
    uint64_t reserved[6];
    std::array<Entry, count> entries;

    static uint64_t checkOf(uint64_t number, const Words& content) {
        uint64_t check = number * 0x9e3779b97f4a7c15;
        for (const uint64_t word : content) {
            check = (check ^ word) * 0xff51afd7ed558ccd;
            check ^= check >> 32;
        }
        return check;
    }

    void publish(const Words& content) {
        const uint64_t number = taken.fetch_add(1, std::memory_order_relaxed) + 1;
        Entry& entry = entries[(number - 1) % count];
        entry.sequence.store(2 * number - 1, std::memory_order_relaxed);
        // Released one by one: who sees a word of the new entry sees the mark too.
        for (size_t i = 0; i < wordCount; ++i)
            entry.words[i].store(content[i], std::memory_order_release);
        entry.check.store(checkOf(number, content), std::memory_order_release);
        entry.sequence.store(2 * number, std::memory_order_release);
    }

    // The entry of that number, from 1.
    EntryState read(uint64_t number, Words& content) const {
        const Entry& entry = entries[(number - 1) % count];
        const uint64_t before = entry.sequence.load(std::memory_order_acquire);
        if (before != 2 * number)
            return before < 2 * number ? EntryState::UnderWay : EntryState::Lost;
        for (size_t i = 0; i < wordCount; ++i)
            content[i] = entry.words[i].load(std::memory_order_acquire);
        const uint64_t check = entry.check.load(std::memory_order_acquire);
        const bool isSame = entry.sequence.load(std::memory_order_relaxed) == before;
        return isSame && check == checkOf(number, content) ? EntryState::Whole : EntryState::Lost;
    }

    // The first number that may still be there.
    uint64_t oldest() const {
        const uint64_t last = taken.load(std::memory_order_acquire);
        return last > count ? last - count + 1 : 1;
    }

    // Takes over what stands in another store's ring, which counts as drained then.
    void take(SharedRing& from) {
        const uint64_t last = from.taken.load(std::memory_order_acquire);
        for (size_t i = 0; i < count; ++i) {
            const uint64_t sequence = from.entries[i].sequence.load(std::memory_order_acquire);
            for (size_t word = 0; word < wordCount; ++word)
                entries[i].words[word].store(from.entries[i].words[word].load(std::memory_order_relaxed),
                                             std::memory_order_relaxed);
            entries[i].check.store(from.entries[i].check.load(std::memory_order_relaxed), std::memory_order_relaxed);
            entries[i].sequence.store(sequence, std::memory_order_release);
        }
        drained.store(from.drained.load(std::memory_order_relaxed), std::memory_order_relaxed);
        taken.store(last, std::memory_order_release);
        from.drained.store(last, std::memory_order_relaxed);
    }
};

#endif

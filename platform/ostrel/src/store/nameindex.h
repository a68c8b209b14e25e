// The index of names in the store's header object.
//
// Readers take no lock. There are two tables; the lowest bit of the version selects the one that holds. The server
// fills the other one and then counts the version up. A reader looks at the version before and after: where it changed
// the table may have been filled anew under its eyes, and it reads again. All words of a table are written with release
// and read with acquire order, so a reader that saw a word of a later filling sees the later version as well. A server
// that dies while it fills a table leaves the other one, which holds, as it is.
#ifndef OSTREL_STORE_NAMEINDEX_H
#define OSTREL_STORE_NAMEINDEX_H

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "store/layout.h"
#include "store/storeobjects.h"

// A name as the index compares it: words filled up with zeros, and their hash.
struct NameKey {
    explicit NameKey(std::string_view name);

    std::array<uint64_t, nameWords> words;
    size_t count;  // words that hold the name with its terminating zero; 0 for a name that is too long or empty
    uint64_t hash;
};

// The limits of a variable, as get_limit_info() tells them.
struct Limits {
    std::array<double, 7> values{};
    std::array<short, 7> exists{};
    std::array<short, 7> display{};
};

std::optional<NameMeaning> findName(const IndexTable& table, const NameKey& key);

// Nothing for the number 0 and one that no entry has.
std::optional<Limits> readLimits(const IndexTable& table, uint32_t number);

// Calls look(table) with the table that holds, again where it was exchanged meanwhile, and gives its last result.
template <typename Look>
auto lookInIndex(const StoreObjects& objects, Look look) {
    const auto& version = objects.storeHeader()->indexVersion;
    // Only a damaged store changes its version as often as this.
    for (int attempt = 0;; ++attempt) {
        const uint64_t before = version.load(std::memory_order_acquire);
        auto result = look(std::as_const(*objects.indexTable(before)));
        if (version.load(std::memory_order_acquire) == before || attempt == 1000)
            return result;
    }
}

// A name for the next table; `limits` of its meaning counts the limits that are published with it, from 1.
struct NewName {
    std::string name;
    NameMeaning meaning;
};

// Fills the table that does not hold and lets it hold. What is missing where there is no room or no memory for it.
Shortage publishNames(const StoreObjects& objects, const std::vector<NewName>& names,
                      const std::vector<Limits>& limits);

// Takes the memory for a next table with at most so many names and limits.
Shortage reserveNames(const StoreObjects& objects, size_t names, size_t limits);

// Changes limits in the table that holds; false where the name has none there. For the server.
bool changeLimits(const StoreObjects& objects, std::string_view name, const Limits& limits);

// Names or aliases in the table that holds.
size_t knownNames(const StoreObjects& objects);

// The names that have limits of their own in the table that holds.
std::vector<std::pair<std::string, Limits>> namesWithLimits(const StoreObjects& objects);

#endif

// All unit keywords of this process: the built-in table and what the site adds. It is filled before it is shared and
// constant from then on, so look-ups need no lock.
#ifndef OSTREL_UNITS_UNITSCATALOGUE_H
#define OSTREL_UNITS_UNITSCATALOGUE_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// The characters of a keyword in upper case, filled up with zeros: compared and hashed in two words.
struct UnitKey {
    uint64_t low = 0;
    uint64_t high = 0;

    bool operator==(const UnitKey&) const = default;
};

struct Unit {
    std::string keyword;
    UnitKey key;
    int code;
    size_t group;
    size_t position;  // in its group
    std::string expression;
};

class UnitsCatalogue {
public:
    // The built-in keywords.
    UnitsCatalogue();

    // Adds a keyword, in upper case, to a group that is made where there is none of the name. Returns null, or why it
    // cannot be: then nothing has changed.
    const char* add(std::string_view keyword, int code, std::string_view group, std::string_view expression);

    // Null for what is no keyword, such as null. The empty text finds NONE.
    const Unit* find(const char* keyword) const;
    const Unit* find(int code) const;

    size_t groupCount() const { return m_groups.size(); }
    const std::vector<const Unit*>& group(size_t index) const { return m_groups[index]; }

    // The first keyword of the group with that name; null for no such group.
    const Unit* firstOfGroup(std::string_view name) const;

private:
    struct Slot {
        UnitKey key;
        const Unit* unit = nullptr;
    };

    size_t slotOf(const UnitKey& key) const;
    void grow();

    std::deque<Unit> m_units;
    std::vector<std::vector<const Unit*>> m_groups;
    std::unordered_map<std::string, size_t> m_groupOfName;
    std::unordered_map<int, const Unit*> m_unitOfCode;
    std::vector<Slot> m_slots;  // open addressing by key; a power of two, at most half full
};

#endif

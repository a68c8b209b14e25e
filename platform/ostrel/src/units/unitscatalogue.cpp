#include "units/unitscatalogue.h"

#include "units/unitstable.h"

namespace {

// Upper case of the eight characters of a word at once; what is no letter stays.
constexpr uint64_t upperCase(uint64_t word) {
    constexpr uint64_t eachByte = 0x0101010101010101;
    const uint64_t lowBits = word & (0x7f * eachByte);
    const uint64_t afterZ = lowBits + (0x7f - 'z') * eachByte;  // the top bit of a byte tells
    const uint64_t fromA = lowBits + (0x80 - 'a') * eachByte;
    return word - (((afterZ ^ fromA) & ~word & (0x80 * eachByte)) >> 2);
}

// Reads up to eight characters into a word; true where the text ended among them.
bool readWord(const char* text, uint64_t& word) {
    uint64_t read = 0;
    unsigned shift = 0;
    while (shift < 64 && *text) {
        read |= static_cast<uint64_t>(static_cast<unsigned char>(*text++)) << shift;
        shift += 8;
    }
    word = upperCase(read);
    return shift < 64;
}

// Reads at most the 16 bytes of a units field, which need not end in a zero. False for what is too long.
bool keyOf(const char* keyword, UnitKey& key) {
    return readWord(keyword, key.low) || readWord(keyword + 8, key.high);
}

std::string upperCase(std::string_view text) {
    std::string upper(text);
    for (char& c : upper)
        c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    return upper;
}

}  // namespace

UnitsCatalogue::UnitsCatalogue() {
    for (const UnitKeyword& row : unitKeywords)
        add(row.keyword, row.code, row.group, row.expression);
}

const char* UnitsCatalogue::add(std::string_view keyword, int code, std::string_view group,
                                std::string_view expression) {
    Unit unit{upperCase(keyword), {}, code, 0, 0, std::string(expression)};
    if (unit.keyword.empty() || !keyOf(unit.keyword.c_str(), unit.key))
        return "a keyword has 1 to 15 characters";
    if (find(unit.keyword.c_str()))
        return "this keyword is known already; choose another one";
    if (find(code))
        return "this code belongs to another keyword; choose another one";
    unit.group = m_groupOfName.try_emplace(upperCase(group), m_groups.size()).first->second;
    if (unit.group == m_groups.size())
        m_groups.emplace_back();
    unit.position = m_groups[unit.group].size();
    m_units.push_back(std::move(unit));
    const Unit* added = &m_units.back();
    m_groups[added->group].push_back(added);
    m_unitOfCode[code] = added;
    if (m_units.size() * 2 > m_slots.size()) {
        grow();
    } else {
        m_slots[slotOf(added->key)] = {added->key, added};
    }
    return nullptr;
}

void UnitsCatalogue::grow() {
    m_slots.assign(m_slots.empty() ? 64 : m_slots.size() * 2, Slot{});
    for (const Unit& unit : m_units)
        m_slots[slotOf(unit.key)] = {unit.key, &unit};
}

// Where the key stands, or the free slot where it would.
size_t UnitsCatalogue::slotOf(const UnitKey& key) const {
    const size_t mask = m_slots.size() - 1;
    const uint64_t mixed = (key.low ^ (key.high * 0x9e3779b97f4a7c15U)) * 0xff51afd7ed558ccdU;
    size_t slot = (mixed >> 32) & mask;
    while (m_slots[slot].unit && m_slots[slot].key != key)
        slot = (slot + 1) & mask;
    return slot;
}

const Unit* UnitsCatalogue::find(const char* keyword) const {
    UnitKey key;
    if (!keyword || m_slots.empty() || !keyOf(keyword, key))
        return nullptr;
    if (key == UnitKey{}) {
        return &m_units.front();  // NONE, the first of the table
    }
    return m_slots[slotOf(key)].unit;
}

const Unit* UnitsCatalogue::find(int code) const {
    const auto found = m_unitOfCode.find(code);
    return found == m_unitOfCode.end() ? nullptr : found->second;
}

const Unit* UnitsCatalogue::firstOfGroup(std::string_view name) const {
    const auto found = m_groupOfName.find(upperCase(name));
    return found == m_groupOfName.end() ? nullptr : m_groups[found->second].front();
}

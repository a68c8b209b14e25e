#include "server/servedrecords.h"

#include <ostrel/records.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <iterator>

namespace {

// The sections whose slots SYSTEM_ATTRIBUTES counts. All others are walked in full.
struct Counted {
    SM_AREA_ID area;
    short SYSTEM_ATTRIBUTES::*count;
};

constexpr Counted countedAreas[] = {
    {GU_REAL_MEM, &SYSTEM_ATTRIBUTES::max_num_gu_real},       {GU_INTEGER_MEM, &SYSTEM_ATTRIBUTES::max_num_gu_integer},
    {GU_LOGICAL_MEM, &SYSTEM_ATTRIBUTES::max_num_gu_logical}, {GU_STRING_MEM, &SYSTEM_ATTRIBUTES::max_num_gu_string},
    {GU_STAT_MEM, &SYSTEM_ATTRIBUTES::max_num_gu_stat},       {DP_STAT_MEM, &SYSTEM_ATTRIBUTES::max_num_dp_stat},
    {REAL_ARRAY_MEM, &SYSTEM_ATTRIBUTES::max_array_real},     {INT_ARRAY_MEM, &SYSTEM_ATTRIBUTES::max_array_integer},
    {LOGI_ARRAY_MEM, &SYSTEM_ATTRIBUTES::max_array_logical},  {STRING_ARRAY_MEM, &SYSTEM_ATTRIBUTES::max_array_string},
    {AI_REAL_MEM, &SYSTEM_ATTRIBUTES::logical_num_ai},        {FI_REAL_MEM, &SYSTEM_ATTRIBUTES::logical_num_fi},
    {CI_REAL_MEM, &SYSTEM_ATTRIBUTES::logical_num_ci},        {CI_INTG_MEM, &SYSTEM_ATTRIBUTES::logical_num_ci},
    {DI_LOGI_MEM, &SYSTEM_ATTRIBUTES::logical_num_di},        {DO_LOGI_MEM, &SYSTEM_ATTRIBUTES::num_do},
    {LIMIT_LOGI_MEM, &SYSTEM_ATTRIBUTES::max_limit_logicals},
};

const Counted* counted(SM_AREA_ID area) {
    const auto* found = std::find_if(std::begin(countedAreas), std::end(countedAreas),
                                     [area](const Counted& c) { return c.area == area; });
    return found == std::end(countedAreas) ? nullptr : found;
}

const ostrel_section& sectionRow(int section) {
    return ostrel_sections(nullptr)[section];
}

void putShort(char* record, size_t offset, short value) {
    std::memcpy(record + offset, &value, sizeof value);
}

short shortAt(const char* record, size_t offset) {
    short value = 0;
    std::memcpy(&value, record + offset, sizeof value);
    return value;
}

void nameRecord(char* record, int section, int index, const std::string& label) {
    const ostrel_section& row = sectionRow(section);
    const CommonFields& fields = commonFields(row.kind);
    std::memset(record, 0, row.record_size);
    putShort(record, fields.shmId, static_cast<short>(row.area));
    putShort(record, fields.index, static_cast<short>(index));
    std::copy(label.begin(), label.end(), record + fields.label);
}

bool sameShape(const ArrayShape& a, const ArrayShape& b) {
    return a.dimensions == b.dimensions && std::equal(a.sizes.begin(), a.sizes.begin() + a.dimensions, b.sizes.begin());
}

}  // namespace

ServedRecords::ServedRecords(Attachment& store, const ServedRecords* former) : m_store(store), m_former(former) {
    for (int i = 0; i < storeSections; ++i)
        book(i) = SlotBook(store.capacity(i));
}

Shortage ServedRecords::prepare() {
    const auto& areas = m_store.objects().areas;
    Shortage shortage = areas[SYS_ATTR_MEM].reserve(0, sizeof(SYSTEM_ATTRIBUTES));
    if (!shortage)
        shortage = m_store.objects().writes.reserve(0, sizeof(WriteMemory));
    for (int i = 0; i < storeSections && !shortage; ++i) {
        const ostrel_section& row = sectionRow(i);
        if (!counted(row.area) && row.kind != ALIAS_TYPE)
            shortage = areas[static_cast<size_t>(row.area)].reserve(
                row.start, static_cast<size_t>(m_store.capacity(i)) * row.record_size);
    }
    return shortage;
}

void ServedRecords::adopt() {
    for (int section = 0; section < storeSections; ++section) {
        const CommonFields& fields = commonFields(sectionRow(section).kind);
        for (int i = 0; i < m_store.used(section); ++i) {
            const char* record = m_store.record(section, i);
            const char* label = record + fields.label;
            book(section).enter(std::string(label, strnlen(label, nameBytes - 1)), shortAt(record, fields.active) != 0);
        }
    }
}

// Clients read the rule of each record that they write.
Shortage ServedRecords::reserveRules(int section, size_t count) {
    const SharedObject& writes = m_store.objects().writes;
    const char* first = reinterpret_cast<const char*>(&m_store.rule(section, 0));
    return writes.reserve(static_cast<size_t>(first - writes.data()), count * sizeof(WriteRule));
}

void ServedRecords::setRule(int section, int index, const ostrel_write_rule& given) {
    WriteRule& rule = m_store.rule(section, index);
    const uint64_t flags =
        (given.writable ? 0 : ruleLocked) | (given.has_min ? ruleMin : 0) | (given.has_max ? ruleMax : 0);
    rule.min.store(std::bit_cast<uint64_t>(given.min), std::memory_order_relaxed);
    rule.max.store(std::bit_cast<uint64_t>(given.max), std::memory_order_relaxed);
    rule.flags.store(flags, std::memory_order_release);
}

std::string ServedRecords::fullSection(int section) const {
    return "the section " + std::string(sectionRow(section).name) + " is full; it has room for " +
           std::to_string(book(section).capacity());
}

Shortage ServedRecords::reserveSlot(int section, int index) {
    const ostrel_section& row = sectionRow(section);
    const size_t end = row.start + (static_cast<size_t>(index) + 1) * row.record_size;
    size_t& reserved = m_reservedTo[static_cast<size_t>(section)];
    if (end <= reserved)
        return {};
    const SharedObject& area = m_store.objects().areas[static_cast<size_t>(row.area)];
    const size_t from = std::max(reserved, row.start);
    const size_t to = std::min(wholeParts(end), area.size());
    const size_t records = (to - row.start) / row.record_size;
    Shortage shortage = area.reserve(from, to - from);
    if (!shortage)
        shortage = reserveRules(section, std::min(records, static_cast<size_t>(m_store.capacity(section))));
    if (!shortage)
        reserved = to;
    return shortage;
}

// Whether the put will find the array with its elements: what shapeElements() sees, told before. Where the section is
// so full that names take each other's slots it may find anything.
bool ServedRecords::keepsElements(const WantedVariable& wanted, bool slotsMove) const {
    const auto slot = book(wanted.section).find(wanted.label);
    const int kind = sectionRow(wanted.section).kind;
    return slot && !slotsMove && sameShape(shapeInRecord(m_store.record(wanted.section, *slot), kind), wanted.shape) &&
           m_store.elements(kind, *slot).count == wanted.shape.elementCount();
}

bool ServedRecords::reserve(const std::vector<WantedVariable>& wanted, std::string& culprit, std::string& problem) {
    std::array<int, storeSections> all{};
    std::array<int, storeSections> fresh{};
    for (const WantedVariable& variable : wanted) {
        const auto section = static_cast<size_t>(variable.section);
        ++all[section];
        fresh[section] += !book(variable.section).find(variable.label);
    }
    size_t end = m_store.header()->elementsUsed.load(std::memory_order_relaxed);
    for (const WantedVariable& variable : wanted) {
        const auto section = static_cast<size_t>(variable.section);
        const SlotBook& slots = book(variable.section);
        culprit = variable.label;
        Shortage shortage;
        if (all[section] > slots.capacity())
            problem = fullSection(variable.section);
        else if (variable.shape.dimensions > 0 && !keepsElements(variable, slots.isFullWith(fresh[section])))
            shortage = reserveElements(sectionRow(variable.section).kind, variable.shape.elementCount(), end);
        if (problem.empty() && !shortage)
            shortage = reserveSlot(variable.section, slots.takenWith(fresh[section]) - 1);
        m_elementsReservedTo = end;
        if (shortage)
            problem = describe(shortage);
        if (problem.empty())
            continue;
        unreserve();
        return false;
    }
    return true;
}

void ServedRecords::unreserve() {
    const size_t used = m_store.header()->elementsUsed.load(std::memory_order_relaxed);
    if (m_elementsReservedTo > used)
        m_store.objects().elements.release(used, m_elementsReservedTo - used);
    m_elementsReservedTo = 0;
}

char* ServedRecords::take(int section, const std::string& label, bool& isNew, std::string& problem) {
    const auto taken = book(section).take(label);
    if (!taken) {
        problem = fullSection(section);
        return nullptr;
    }
    if (const Shortage shortage = reserveSlot(section, taken->index)) {
        problem = describe(shortage);
        return nullptr;
    }
    auto& used = m_store.header()->sections[section].used;
    if (used.load(std::memory_order_relaxed) <= static_cast<uint32_t>(taken->index))
        used.store(static_cast<uint32_t>(taken->index) + 1, std::memory_order_release);
    char* record = m_store.record(section, taken->index);
    isNew = taken->isNew;
    if (isNew) {
        setRule(section, taken->index, {1, 0, 0, 0, 0});
        nameRecord(record, section, taken->index, label);
        isNew = !carryRecord(section, taken->index, label);
    }
    return record;
}

bool ServedRecords::carryRecord(int section, int index, const std::string& label) {
    const auto former = m_former ? m_former->book(section).find(label) : std::nullopt;
    const char* from = former ? m_former->m_store.record(section, *former) : nullptr;
    if (!from)
        return false;
    const ostrel_section& row = sectionRow(section);
    char* record = m_store.record(section, index);
    std::memcpy(record, from, row.record_size);
    putShort(record, commonFields(row.kind).index, static_cast<short>(index));
    const WriteRule& given = m_former->m_store.rule(section, *former);
    WriteRule& rule = m_store.rule(section, index);
    rule.min.store(given.min.load(std::memory_order_relaxed), std::memory_order_relaxed);
    rule.max.store(given.max.load(std::memory_order_relaxed), std::memory_order_relaxed);
    rule.flags.store(given.flags.load(std::memory_order_relaxed), std::memory_order_release);
    return true;
}

bool ServedRecords::carryElements(int section, int index, const ElementBlock& to) {
    const int kind = sectionRow(section).kind;
    const auto former = m_former ? m_former->book(section).find(book(section).label(index)) : std::nullopt;
    const ElementBlock from = former ? m_former->m_store.elements(kind, *former) : ElementBlock{};
    if (!from.data || from.count != to.count)
        return false;
    std::memcpy(to.data, from.data, to.count * elementSize(kind));
    return true;
}

// Takes the memory for elements that begin at `end`, which goes behind them.
Shortage ServedRecords::reserveElements(int kind, size_t count, size_t& end) const {
    const SharedObject& memory = m_store.objects().elements;
    const size_t bytes = (count * elementSize(kind) + elementAlignment - 1) / elementAlignment * elementAlignment;
    if (end > memory.size() || bytes > memory.size() - end)
        return {ENOSPC, bytes};
    const Shortage shortage = memory.reserve(end, bytes);
    if (!shortage)
        end += bytes;
    return shortage;
}

char* ServedRecords::takeElements(int kind, int index, size_t count, std::string& problem) {
    StoreHeader& header = *m_store.header();
    const SharedObject& memory = m_store.objects().elements;
    const size_t start = std::min<size_t>(header.elementsUsed.load(std::memory_order_relaxed), memory.size());
    size_t end = start;
    if (const Shortage shortage = reserveElements(kind, count, end)) {
        problem = describe(shortage);
        return nullptr;
    }
    header.elementsUsed.store(end, std::memory_order_release);
    header.arrayBlocks[kind - REAL_ARRAY_TYPE][index].store((start / elementAlignment) << 32 | count,
                                                            std::memory_order_release);
    return memory.data() + start;
}

char* ServedRecords::shapeElements(int section, int index, const ArrayShape& shape, bool& isNew, std::string& problem) {
    const int kind = sectionRow(section).kind;
    char* record = m_store.record(section, index);
    const bool staysInShape = !isNew && sameShape(shapeInRecord(record, kind), shape);
    const ElementBlock block = m_store.elements(kind, index);
    if (staysInShape && block.count == shape.elementCount())
        return block.data;
    char* elements = takeElements(kind, index, shape.elementCount(), problem);
    if (!elements || (staysInShape && carryElements(section, index, {elements, shape.elementCount()})))
        return elements;
    const std::string label = book(section).label(index);
    nameRecord(record, section, index, label);
    writeShape(record, kind, shape);
    isNew = true;
    return elements;
}

int ServedRecords::indexOf(int section, const char* record) const {
    const ostrel_section& row = sectionRow(section);
    return static_cast<int>(static_cast<size_t>(record - m_store.base(row.area) - row.start) / row.record_size);
}

void ServedRecords::setActive(int section, int index, bool active) {
    if (char* record = m_store.record(section, index))
        putShort(record, commonFields(sectionRow(section).kind).active, active);
}

void ServedRecords::commit() {
    for (int section = 0; section < storeSections; ++section) {
        for (const int index : book(section).commit())
            setActive(section, index, false);
        for (const int index : book(section).standing())
            setActive(section, index, true);
    }
    countSlots();
}

void ServedRecords::countSlots() {
    SYSTEM_ATTRIBUTES counts{};
    for (int section = 0; section < storeSections; ++section) {
        if (const Counted* row = counted(sectionRow(section).area))
            counts.*row->count = static_cast<short>(std::max<int>(counts.*row->count, m_store.used(section)));
    }
    // Two sections that share a count are walked equally far; where that is not reserved a full memory would kill.
    for (int section = 0; section < storeSections; ++section) {
        const Counted* row = counted(sectionRow(section).area);
        if (row && counts.*row->count > 0 && reserveSlot(section, counts.*row->count - 1))
            counts.*row->count = static_cast<short>(m_store.used(section));
    }
    std::memcpy(m_store.base(SYS_ATTR_MEM), &counts, sizeof counts);
}

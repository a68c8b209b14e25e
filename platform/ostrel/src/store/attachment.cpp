#include "store/attachment.h"

#include <algorithm>
#include <utility>

#include "processidentity.h"

namespace {

// One in each thread: its address tells the threads of a process apart.
thread_local char threadMark = 0;

}  // namespace

Attachment::Attachment(StoreObjects objects, std::string name)
    : m_objects(std::move(objects)),
      m_name(std::move(name)),
      m_header(m_objects.storeHeader()),
      m_instance(m_header->instance) {
    size_t rules = sizeof(WriteMemory);
    for (size_t i = 0; i < m_capacity.size(); ++i) {
        const ostrel_section& section = ostrel_sections(nullptr)[i];
        const size_t size = areaSize(section.area);
        const size_t records = size > section.start ? (size - section.start) / section.record_size : 0;
        const size_t fitting = std::min(records, (m_objects.writes.size() - rules) / sizeof(WriteRule));
        m_capacity[i] =
            static_cast<int>(std::min({size_t{m_header->sections[i].capacity}, fitting, size_t{INT16_MAX}}));
        m_rules[i] = rules;
        rules += static_cast<size_t>(m_capacity[i]) * sizeof(WriteRule);
    }
}

void Attachment::takeServersThread() {
    m_server.store(processIdentity().pid, std::memory_order_relaxed);
    m_serversThread.store(&threadMark, std::memory_order_relaxed);
}

bool Attachment::isServersThread() const {
    // In a forked child the mark is the same.
    return m_serversThread.load(std::memory_order_relaxed) == &threadMark &&
           m_server.load(std::memory_order_relaxed) == processIdentity().pid;
}

WriteRule& Attachment::rule(int section, int index) const {
    char* rules = m_objects.writes.data() + m_rules[static_cast<size_t>(section)];
    return reinterpret_cast<WriteRule*>(rules)[index];
}

char* Attachment::base(SM_AREA_ID area) const {
    return area > 0 && area < MAX_NUM_SHRD_MEM ? m_objects.areas[static_cast<size_t>(area)].data() : nullptr;
}

size_t Attachment::areaSize(SM_AREA_ID area) const {
    return area > 0 && area < MAX_NUM_SHRD_MEM ? m_objects.areas[static_cast<size_t>(area)].size() : 0;
}

int Attachment::used(int section) const {
    const auto number = static_cast<size_t>(section);
    const uint32_t used = m_header->sections[number].used.load(std::memory_order_acquire);
    return static_cast<int>(std::min(used, static_cast<uint32_t>(m_capacity[number])));
}

char* Attachment::record(int section, int index) const {
    if (section < 0 || section >= storeSections || index < 0 || index >= used(section))
        return nullptr;
    const ostrel_section& row = ostrel_sections(nullptr)[section];
    return base(row.area) + row.start + static_cast<size_t>(index) * row.record_size;
}

std::optional<RecordPlace> Attachment::placeOf(const void* record, int kind) const {
    const auto address = reinterpret_cast<uintptr_t>(record);
    const ostrel_section* sections = ostrel_sections(nullptr);
    for (int i = 0; i < storeSections; ++i) {
        if (sections[i].kind != kind)
            continue;
        const uintptr_t start = reinterpret_cast<uintptr_t>(base(sections[i].area)) + sections[i].start;
        const uintptr_t distance = address - start;
        const uintptr_t index = distance / sections[i].record_size;
        if (address < start || index >= static_cast<uintptr_t>(used(i)))
            continue;
        if (distance % sections[i].record_size == 0)
            return RecordPlace{i, static_cast<int>(index)};
    }
    return std::nullopt;
}

ElementBlock Attachment::elements(int arrayKind, int index) const {
    if (!isArray(arrayKind) || index < 0 || static_cast<size_t>(index) >= arraysPerKind)
        return {};
    const auto& word = m_header->arrayBlocks[arrayKind - REAL_ARRAY_TYPE][index];
    const uint64_t block = word.load(std::memory_order_acquire);
    const size_t offset = (block >> 32) * elementAlignment;
    const size_t count = block & UINT32_MAX;
    const size_t room = m_objects.elements.size();
    if (count == 0 || offset >= room || count > (room - offset) / elementSize(arrayKind))
        return {};
    return {m_objects.elements.data() + offset, count};
}

bool Attachment::holdsElement(const void* address, size_t size) const {
    const auto start = reinterpret_cast<uintptr_t>(m_objects.elements.data());
    const auto at = reinterpret_cast<uintptr_t>(address);
    const size_t usedBytes =
        std::min(size_t{m_header->elementsUsed.load(std::memory_order_acquire)}, m_objects.elements.size());
    return at >= start && at - start < usedBytes && usedBytes - (at - start) >= size;
}

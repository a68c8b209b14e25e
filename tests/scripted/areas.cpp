#include "scripted/areas.h"

#include <algorithm>

namespace scripted {

void Areas::reset() {
    m_isServed = false;
    m_refused.clear();
    for (auto& [area, memory] : m_memory) {
        std::memset(memory.block.get(), 0, memory.written);
        memory.written = 0;
    }
    m_links.clear();
}

int Areas::links(SM_AREA_ID area) const {
    const auto found = m_links.find(area);
    return found == m_links.end() ? 0 : found->second;
}

void* Areas::link(SM_AREA_ID area) {
    if (!m_isServed || m_refused.count(area))
        return nullptr;
    ++m_links[area];
    return memory(area);
}

void Areas::release(SM_AREA_ID area) {
    --m_links[area];
}

char* Areas::memory(SM_AREA_ID area, size_t written) {
    Memory& memory = m_memory[area];
    if (!memory.block)
        memory.block.reset(static_cast<char*>(std::calloc(1, areaSize)));
    memory.written = std::max(memory.written, written);
    return memory.block.get();
}

}  // namespace scripted

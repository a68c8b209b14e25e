#include "scripted/areas.h"

namespace scripted {

void Areas::reset() {
    m_isServed = false;
    m_refused.clear();
    for (const auto& [area, block] : m_memory)
        std::memset(block.get(), 0, areaSize);
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

char* Areas::memory(SM_AREA_ID area) {
    auto& block = m_memory[area];
    if (!block)
        block.reset(static_cast<char*>(std::calloc(1, areaSize)));
    return block.get();
}

}  // namespace scripted

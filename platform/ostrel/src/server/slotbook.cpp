#include "server/slotbook.h"

void SlotBook::enter(const std::string& label, bool active) {
    const int index = static_cast<int>(m_slots.size());
    const bool named = !label.empty() && m_byLabel.emplace(label, index).second;
    m_slots.push_back({named ? label : "", !named ? State::Empty : active ? State::Put : State::Retired});
    if (!named)
        m_empty.push_back(index);
    else if (!active)
        m_retired.push_back(index);
}

void SlotBook::begin() {
    m_unput.clear();
    for (size_t i = 0; i < m_slots.size(); ++i) {
        if (m_slots[i].state == State::Put)
            m_slots[i].state = State::Unput;
        if (m_slots[i].state == State::Unput)
            m_unput.push_front(static_cast<int>(i));  // the last one first: files are put in order mostly
    }
}

std::optional<int> SlotBook::waitingSlot(std::deque<int>& waiting, State state) {
    while (!waiting.empty()) {
        const int index = waiting.front();
        waiting.pop_front();
        if (m_slots[static_cast<size_t>(index)].state == state)
            return index;
    }
    return std::nullopt;
}

std::optional<int> SlotBook::freeSlot() {
    if (const auto empty = waitingSlot(m_empty, State::Empty))
        return empty;
    if (static_cast<int>(m_slots.size()) < m_capacity) {
        m_slots.push_back({"", State::Empty});
        return static_cast<int>(m_slots.size()) - 1;
    }
    if (const auto retired = waitingSlot(m_retired, State::Retired))
        return retired;
    return waitingSlot(m_unput, State::Unput);
}

std::optional<SlotBook::Taken> SlotBook::take(const std::string& label) {
    const auto own = m_byLabel.find(label);
    if (own != m_byLabel.end()) {
        m_slots[static_cast<size_t>(own->second)].state = State::Put;
        return Taken{own->second, false};
    }
    const auto index = freeSlot();
    if (!index)
        return std::nullopt;
    Slot& slot = m_slots[static_cast<size_t>(*index)];
    m_byLabel.erase(slot.label);
    slot = {label, State::Put};
    m_byLabel.emplace(label, *index);
    return Taken{*index, true};
}

std::optional<int> SlotBook::find(const std::string& label) const {
    const auto own = m_byLabel.find(label);
    return own == m_byLabel.end() ? std::nullopt : std::optional(own->second);
}

void SlotBook::drop(const std::string& label) {
    const auto own = m_byLabel.find(label);
    if (own != m_byLabel.end())
        m_slots[static_cast<size_t>(own->second)].state = State::Unput;
}

std::vector<int> SlotBook::commit() {
    std::vector<int> retired;
    for (size_t i = 0; i < m_slots.size(); ++i) {
        if (m_slots[i].state != State::Unput)
            continue;
        m_slots[i].state = State::Retired;
        m_retired.push_back(static_cast<int>(i));
        retired.push_back(static_cast<int>(i));
    }
    return retired;
}

std::vector<int> SlotBook::standing() const {
    std::vector<int> indexes;
    for (size_t i = 0; i < m_slots.size(); ++i)
        if (m_slots[i].state == State::Put)
            indexes.push_back(static_cast<int>(i));
    return indexes;
}

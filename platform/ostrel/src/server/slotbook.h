// Who has which slot of one section. A name keeps its slot for as long as the store lives, also while it is retired, so
// that clients which bound to its record find it there when the name comes back.
#ifndef OSTREL_SERVER_SLOTBOOK_H
#define OSTREL_SERVER_SLOTBOOK_H

#include <algorithm>
#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

class SlotBook {
public:
    struct Taken {
        int index;
        bool isNew;  // the slot was another name's, or nobody's
    };

    explicit SlotBook(int capacity = 0) : m_capacity(capacity) {}

    // Enters what an adopted store holds: slot by slot in their order, with an empty label where there is none.
    void enter(const std::string& label, bool active);

    // Starts a reconfiguration: every name has to be put again.
    void begin();

    // The slot for `label`: its own, else one that was never taken, else one of a retired name. Where the section is
    // full of names that stand, one that was not put again yet gives way; nothing where all were.
    std::optional<Taken> take(const std::string& label);

    // The slot of that name, active or retired.
    std::optional<int> find(const std::string& label) const;

    // How many of its slots will ever have been taken once so many new names are put.
    int takenWith(int newNames) const { return std::min(m_capacity, static_cast<int>(m_slots.size()) + newNames); }

    // Whether names will have to take the slots of others then.
    bool isFullWith(int newNames) const { return static_cast<int>(m_slots.size()) + newNames > m_capacity; }

    // Takes a put back: the name is retired with the end of the reconfiguration.
    void drop(const std::string& label);

    // Ends the reconfiguration: gives the slots whose names were not put again, which are retired now.
    std::vector<int> commit();

    // The slots of names that stand.
    std::vector<int> standing() const;

    const std::string& label(int index) const { return m_slots[static_cast<size_t>(index)].label; }
    int capacity() const { return m_capacity; }

private:
    enum class State { Empty, Retired, Unput, Put };

    struct Slot {
        std::string label;
        State state;
    };

    std::optional<int> freeSlot();
    std::optional<int> waitingSlot(std::deque<int>& waiting, State state);

    int m_capacity;
    std::vector<Slot> m_slots;
    std::unordered_map<std::string, int> m_byLabel;
    std::deque<int> m_empty;    // each queue may hold slots that are in another state by now
    std::deque<int> m_retired;  // the one that was retired first comes first
    std::deque<int> m_unput;
};

#endif

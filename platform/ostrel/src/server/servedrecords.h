// The records of a store as its server makes, retires and counts them.
#ifndef OSTREL_SERVER_SERVEDRECORDS_H
#define OSTREL_SERVER_SERVEDRECORDS_H

#include <ostrel/server.h>

#include <array>
#include <string>
#include <vector>

#include "server/slotbook.h"
#include "store/arrayshape.h"
#include "store/attachment.h"

// A variable that will be put; the shape of an array, else one without dimensions.
struct WantedVariable {
    int section;
    std::string label;
    ArrayShape shape;
};

class ServedRecords {
public:
    // Names that `former`, the books of the generation before, knows keep their values.
    explicit ServedRecords(Attachment& store, const ServedRecords* former = nullptr);
    void forgetFormer() { m_former = nullptr; }

    // Takes the memory for what clients walk through in a new store.
    Shortage prepare();

    // Takes over what a dead server left.
    void adopt();

    SlotBook& book(int section) { return m_books[static_cast<size_t>(section)]; }
    const SlotBook& book(int section) const { return m_books[static_cast<size_t>(section)]; }

    // Takes the memory for all of them; false with the culprit and the reason, and without memory for new elements.
    bool reserve(const std::vector<WantedVariable>& wanted, std::string& culprit, std::string& problem);

    // Gives back memory for elements that was reserved for nothing.
    void unreserve();

    // The record for that name with its fixed fields set; null, with the reason, where there is no room.
    char* take(int section, const std::string& label, bool& isNew, std::string& problem);

    // Gives the array in that slot the shape, with new elements where it had another one.
    char* shapeElements(int section, int index, const ArrayShape& shape, bool& isNew, std::string& problem);

    // Shows the names that stand as active and the others not, and tells how many slots there are to walk.
    void commit();

    int indexOf(int section, const char* record) const;

    // What clients may write to the variable in that slot.
    void setRule(int section, int index, const ostrel_write_rule& rule);

private:
    bool keepsElements(const WantedVariable& wanted, bool slotsMove) const;
    Shortage reserveElements(int kind, size_t count, size_t& end) const;
    std::string fullSection(int section) const;
    Shortage reserveSlot(int section, int index);
    Shortage reserveRules(int section, size_t count);
    void setActive(int section, int index, bool active);
    void countSlots();
    bool carryRecord(int section, int index, const std::string& label);
    bool carryElements(int section, int index, const ElementBlock& to);
    char* takeElements(int kind, int index, size_t count, std::string& problem);

    Attachment& m_store;
    const ServedRecords* m_former;
    std::array<SlotBook, storeSections> m_books;
    std::array<size_t, storeSections> m_reservedTo{};
    size_t m_elementsReservedTo = 0;
};

#endif

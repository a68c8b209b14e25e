/*
 * The records of a store as its server makes, retires and counts them.
 */
#ifndef OSTREL_SERVEDRECORDS_H
#define OSTREL_SERVEDRECORDS_H

#include <array>
#include <string>

#include "arrayshape.h"
#include "attachment.h"
#include "slotbook.h"

class ServedRecords {
public:
    explicit ServedRecords(Attachment& store);

    /* Takes the memory for what clients walk through in a new store. Gives 0 or an errno. */
    int prepare();

    /* Takes over what a dead server left. */
    void adopt();

    SlotBook& book(int section) { return m_books[static_cast<size_t>(section)]; }
    const SlotBook& book(int section) const { return m_books[static_cast<size_t>(section)]; }

    /* The record for that name with its fixed fields set; null, with the reason, where there is no room. */
    char* take(int section, const std::string& label, bool& isNew, std::string& problem);

    /* Gives the array in that slot the shape, with new elements where it had another one. */
    char* shapeElements(int section, int index, const ArrayShape& shape, bool& isNew, std::string& problem);

    /* Shows the names that stand as active and the others not, and tells how many slots there are to walk. */
    void commit();

    int indexOf(int section, const char* record) const;

private:
    int reserveSlot(int section, int index);
    void setActive(int section, int index, bool active);
    void countSlots();

    Attachment& m_store;
    std::array<SlotBook, kSections> m_books;
    std::array<size_t, kSections> m_reservedTo{};
};

#endif

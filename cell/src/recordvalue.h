// One number in a record of the store, whatever the kind of the record.
#ifndef OSTREL_CELL_RECORDVALUE_H
#define OSTREL_CELL_RECORDVALUE_H

#include <ostrel/records.h>

#include <ctime>

#include "cellmodel.h"

namespace ostrelcell {

class RecordValue {
public:
    RecordValue() = default;
    // `record` is the variable's record, or the element of an array. `member` selects one where there are some.
    RecordValue(SM_VARI_TYPE kind, void* record, int member) : m_kind(kind), m_record(record), m_member(member) {}

    double load() const;

    // Stores with the book-keeping of a write, and returns what the record then holds: an integer is rounded, a logical
    // is 0 or 1, what is no number is refused. A value that stays the same counts as sampled.
    double store(double value, const timespec& now) const;

    unsigned short limitWord() const;
    void setLimitWord(unsigned short word) const;
    short status() const;
    void setStatus(short status) const;
    timespec sampled() const;

    // 0 none, 1 alarm, 2 abort, 3 emergency.
    int alarmLevel() const;

    SM_VARI_TYPE kind() const { return m_kind; }
    void* record() const { return m_record; }

private:
    SM_VARI_TYPE m_kind = UNDEFINED_VAR_TYPE;
    void* m_record = nullptr;
    int m_member = -1;
};

// Program name and pid of the writer, into a record that keeps both.
const char* writerName();

}  // namespace ostrelcell

#endif

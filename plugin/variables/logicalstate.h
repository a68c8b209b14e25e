// The state of a logical variable as text. A record or an array has the texts of both states.
#ifndef OSTREL_VARIABLES_LOGICALSTATE_H
#define OSTREL_VARIABLES_LOGICALSTATE_H

#include <QString>

#include "variables/recordtext.h"

template <class Record>
QString stateText(const Record& record, bool on) {
    return on ? recordText(record.true_state) : recordText(record.false_state);
}

// Takes the text of the state; false where `text` is that already. A null text is none.
template <class Record>
bool takeStateText(const Record& record, bool on, QString* text) {
    return on ? takeRecordText(record.true_state, text) : takeRecordText(record.false_state, text);
}

#endif

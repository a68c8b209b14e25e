// The state of a logical variable as text. A record or an array has the texts of both states.
#ifndef OSTREL_VARIABLES_LOGICALSTATE_H
#define OSTREL_VARIABLES_LOGICALSTATE_H

#include <QString>

#include "variables/recordtext.h"

template <class Record>
QString stateText(const Record& record, bool on) {
    return on ? recordText(record.true_state) : recordText(record.false_state);
}

// Puts the text of the state into `text`; false where it stands there already, and then no string is made.
template <class Record>
bool takeStateText(const Record& record, bool on, QString* text) {
    if (on ? isRecordText(*text, record.true_state) : isRecordText(*text, record.false_state))
        return false;
    *text = stateText(record, on);
    return true;
}

#endif

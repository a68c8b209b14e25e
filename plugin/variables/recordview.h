// A bound record as its widget sees it, whatever its kind.
#ifndef OSTREL_VARIABLES_RECORDVIEW_H
#define OSTREL_VARIABLES_RECORDVIEW_H

#include <ostrel/records.h>

// What a bound record offers its widget. Null where its kind has no such thing.
struct RecordView {
    bool known = false;                 // a kind that can be sampled
    const char (*units)[16] = nullptr;  // the variable's own units
    LIMIT_STATUS* limits = nullptr;     // limit bits of the record or the array element
};

#endif

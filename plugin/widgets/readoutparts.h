// The parts that the forms of the simple read-outs have in common.
#ifndef OSTREL_WIDGETS_READOUTPARTS_H
#define OSTREL_WIDGETS_READOUTPARTS_H

#include <QFrame>
#include <QLabel>

#include "flashinglabel.h"

struct ReadoutParts {
    QWidget* widget = nullptr;  // the read-out itself
    FlashingLabel* name = nullptr;
    FlashingLabel* value = nullptr;
    QFrame* frame = nullptr;      // around all of them
    QLabel* iconLabel = nullptr;  // the mark of a variable that the store does not know
};

#endif

// Names that stand for something else than a variable.
#ifndef OSTREL_VARIABLES_NAMES_H
#define OSTREL_VARIABLES_NAMES_H

#include <QString>

// The name of no variable and of no group.
inline const QString notSet = QStringLiteral("not_set");

// The interval in ms at which a blinking value changes its phase; a timer of its own, shared by all that blink.
constexpr int flashInterval = 498;

#endif

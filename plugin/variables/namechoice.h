// The name that a widget takes when it is asked for another one.
#ifndef OSTREL_VARIABLES_NAMECHOICE_H
#define OSTREL_VARIABLES_NAMECHOICE_H

#include <QString>

#include "variables/kinds.h"

struct NameChoice {
    QString name;    // to bind
    bool isMissing;  // the store knows no such variable: the mark is shown
};

// The name that was asked for, or the present one where that is a variable of another kind: it is refused in silence.
// Without a variable ("not_set") nothing is missing.
NameChoice chooseName(const QString& asked, const QString& present, VariableAcceptance acceptance);

#endif

#include "variables/namechoice.h"

#include "variables/names.h"

NameChoice chooseName(const QString& asked, const QString& present, VariableAcceptance acceptance) {
    if (acceptance == VariableRefused)
        return {present, false};
    return {asked, acceptance == VariableUnknown && asked != notSet};
}

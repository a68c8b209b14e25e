#include "variables/kinds.h"

#include <ostrel/store.h>

#include <algorithm>

VariableAcceptance acceptVariable(const QString& name, std::initializer_list<SM_VARI_TYPE> kinds) {
    SHARED_MEMORY mem{};
    if (find_variable(name.toLatin1().data(), &mem) != 0)
        return VariableUnknown;
    const SM_VARI_TYPE kind = mem.vari_type;
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end() ? VariableAccepted : VariableRefused;
}

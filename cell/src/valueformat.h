// The printf formats that a variable may be shown with.
#ifndef OSTREL_CELL_VALUEFORMAT_H
#define OSTREL_CELL_VALUEFORMAT_H

#include <ostrel/areas.h>

#include <string>

namespace ostrelcell {

// Empty where `format` is one conversion that fits values of that kind, else what is wrong with it.
std::string formatFault(SM_VARI_TYPE kind, const std::string& format);

// The format of a variable that asks for none.
const char* defaultFormat(SM_VARI_TYPE kind);

// The decimals that a format for reals shows.
unsigned short formatDecimals(const std::string& format);

}  // namespace ostrelcell

#endif

// The printf formats that a variable may be shown with.
#pragma once

#include <ostrel/areas.h>

#include <string>

namespace ostrelcell {

// Empty where `format` is one conversion that fits values of that kind, else what is wrong with it.
std::string format_fault(SM_VARI_TYPE kind, const std::string& format);

// The format of a variable that asks for none.
const char* default_format(SM_VARI_TYPE kind);

// The decimals that a format for reals shows.
unsigned short format_decimals(const std::string& format);

}  // namespace ostrelcell

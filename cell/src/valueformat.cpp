#include "valueformat.h"

#include <cstdlib>
#include <cstring>

namespace ostrelcell {

namespace {

constexpr size_t maxLength = 7;  // a record keeps eight bytes

const char* conversions(SM_VARI_TYPE kind) {
    switch (kind) {
        case INT_TYPE:
        case INT_ARRAY_TYPE:
            return "diuxXo";
        case STRING_TYPE:
        case STRING_ARRAY_TYPE:
            return "s";
        case LOGI_TYPE:
        case LOGI_ARRAY_TYPE:
            return "sd";
        default:
            return "eEfFgGaA";
    }
}

bool contains(const char* set, char c) {
    return c != '\0' && std::strchr(set, c) != nullptr;
}

size_t skipDigits(const std::string& text, size_t at) {
    while (at < text.size() && contains("0123456789", text[at]))
        ++at;
    return at;
}

// The end of the conversion that starts at the percent sign `at`, as the position of its letter.
size_t conversionLetter(const std::string& format, size_t at) {
    ++at;
    while (at < format.size() && contains("-+ #0", format[at]))
        ++at;
    at = skipDigits(format, at);
    if (at < format.size() && format[at] == '.')
        at = skipDigits(format, at + 1);
    return at;
}

// Displays keep texts in fields of fixed size.
bool asksForHundreds(const std::string& format, size_t from, size_t to) {
    for (size_t at = format.find_first_of("123456789", from); at < to;
         at = format.find_first_of("123456789", skipDigits(format, at)))
        if (skipDigits(format, at) - at > 2)
            return true;
    return false;
}

}  // namespace

std::string formatFault(SM_VARI_TYPE kind, const std::string& format) {
    const std::string quoted = "format \"" + format + "\"";
    if (format.size() > maxLength)
        return quoted + " is longer than 7 characters";
    const size_t percent = format.find('%');
    if (percent == std::string::npos)
        return quoted + " has no conversion; write \"" + defaultFormat(kind) + "\" for instance";
    const size_t letter = conversionLetter(format, percent);
    if (letter >= format.size() || !contains(conversions(kind), format[letter]))
        return quoted + " does not fit the kind; its conversion must be one of \"" + conversions(kind) + "\"";
    if (asksForHundreds(format, percent, letter))
        return quoted + " asks for more than 99 characters";
    if (format.find('%', letter) != std::string::npos)
        return quoted + " has more than one conversion";
    return "";
}

const char* defaultFormat(SM_VARI_TYPE kind) {
    switch (kind) {
        case INT_TYPE:
        case INT_ARRAY_TYPE:
            return "%d";
        case STRING_TYPE:
        case STRING_ARRAY_TYPE:
        case LOGI_TYPE:
        case LOGI_ARRAY_TYPE:
            return "%s";
        default:
            return "%.2f";
    }
}

unsigned short formatDecimals(const std::string& format) {
    const size_t point = format.find('.');
    return point == std::string::npos ? 0 : static_cast<unsigned short>(std::atoi(format.c_str() + point + 1));
}

}  // namespace ostrelcell

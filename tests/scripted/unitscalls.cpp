// The functions of the units service.
#include <ostrel/units.h>

#include <algorithm>
#include <cmath>

#include "scripted/calls.h"

using namespace scripted;

namespace {

constexpr short impossible = -1;

short convert(const char* function, double value, const char* from, double* result, const char* to) {
    called(function, value, from, to);
    short code = 0;
    if (answered(function, &code))
        return code;
    return platform().convert(value, from, result, to) ? short{0} : impossible;
}

short convert(const char* function, int value, const char* from, int* result, const char* to) {
    double converted = 0.0;
    const short code = convert(function, static_cast<double>(value), from, &converted, to);
    if (code == 0)
        *result = static_cast<int>(std::lround(converted));
    return code;
}

short list(const char* function, const char* units, short int* count, char (*keywords)[16]) {
    called(function, units, *count);
    short code = 0;
    const QStringList* known = platform().keywords(units);
    if (answered(function, &code) || !known) {
        *count = 0;
        return known ? code : impossible;
    }
    *count = static_cast<short>(std::min<int>(*count, known->size()));
    for (short i = 0; i < *count; ++i)
        put(keywords[i], known->at(i).toLatin1().constData());
    return 0;
}

}  // namespace

int unitsConvert(double value, char* from, double* result, char* to) {
    return convert("unitsConvert", value, from, result, to);
}

short int units_dbl_keyword_convrt(double value, char* from, double* result, char* to) {
    return convert("units_dbl_keyword_convrt", value, from, result, to);
}

short int units_lng_keyword_convrt(int value, char* from, int* result, char* to) {
    return convert("units_lng_keyword_convrt", value, from, result, to);
}

short int units_get_int_keyword(int* result, INTEGER_VARIABLE* var, char* units) {
    return convert("units_get_int_keyword", var->value, var->units, result, units);
}

short int units_get_real_keyword(double* result, REAL_VARIABLE* var, char* units) {
    return convert("units_get_real_keyword", var->value, var->units, result, units);
}

short int units_code_to_keyword(int code, char*) {
    called("units_code_to_keyword", code);
    return impossible;
}

short int units_keyword_to_code(char* keyword, int*) {
    called("units_keyword_to_code", keyword);
    return impossible;
}

short int LV_get_units(char* units, short int* count, char (*keywords)[16]) {
    return list("LV_get_units", units, count, keywords);
}

short int LV_get_units2(char* units, short int* count, UNITS_NAME* keywords) {
    return list("LV_get_units2", units, count, keywords);
}

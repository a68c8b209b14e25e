#include <ostrel/units.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <memory>

#include "units/unitscatalogue.h"
#include "units/unitsconverters.h"
#include "units/unitsfile.h"

namespace {

constexpr int invalid = -1;  // a null argument, an unknown keyword or code; nothing to list
constexpr int incompatible = -2;
constexpr int outOfRange = -3;

struct Units {
    UnitsCatalogue catalogue;
    std::unique_ptr<UnitsConverters> converters;

    Units() {
        const char* file = std::getenv("OSTREL_UNITS");
        if (file && *file)
            addUnitsOfFile(file, catalogue);
        converters = std::make_unique<UnitsConverters>(catalogue);
    }
};

// Never destroyed: threads may convert while the process ends.
Units& units() {
    static Units& all = *new Units;
    return all;
}

int convert(double value, const char* from, double* result, const char* to) {
    Units& all = units();
    const Unit* source = all.catalogue.find(from);
    const Unit* target = all.catalogue.find(to);
    if (!source || !target || !result)
        return invalid;
    if (source == target) {
        *result = value;
        return 0;
    }
    if (source->group != target->group)
        return incompatible;
    const UnitsConverter& converter = all.converters->between(*source, *target);
    if (!converter.possible)
        return incompatible;
    *result = converter(value);
    return 0;
}

short int convertInteger(int value, const char* from, int* result, const char* to) {
    double converted = 0;
    if (!result)
        return invalid;
    if (const int status = convert(value, from, &converted, to))
        return static_cast<short int>(status);
    const double rounded = std::round(converted);
    // written so that a value that is no number is refused
    if (!(rounded >= std::numeric_limits<int>::min() && rounded <= std::numeric_limits<int>::max()))
        return outOfRange;
    *result = static_cast<int>(rounded);
    return 0;
}

void copyKeyword(const Unit& unit, char* keyword) {
    std::memcpy(keyword, unit.keyword.c_str(), unit.keyword.size() + 1);
}

// A list that is cut still has the unit itself, as its last entry: a menu can always show what is set.
short int list(const char* keyword, short int* count, char (*keywords)[16]) {
    if (!count)
        return invalid;
    const short int capacity = *count;
    *count = 0;
    const UnitsCatalogue& catalogue = units().catalogue;
    const Unit* unit = catalogue.find(keyword);
    if (!unit || !keywords || capacity <= 0)
        return invalid;
    for (const Unit* member : catalogue.group(unit->group)) {
        if (*count == capacity)
            break;
        copyKeyword(*member, keywords[(*count)++]);
    }
    if (unit->position >= static_cast<size_t>(capacity))
        copyKeyword(*unit, keywords[capacity - 1]);
    return 0;
}

}  // namespace

int unitsConvert(double value, char* from, double* result, char* to) {
    return convert(value, from, result, to);
}

short int units_dbl_keyword_convrt(double value, char* from, double* result, char* to) {
    return static_cast<short int>(convert(value, from, result, to));
}

short int units_lng_keyword_convrt(int value, char* from, int* result, char* to) {
    return convertInteger(value, from, result, to);
}

short int units_get_int_keyword(int* result, INTEGER_VARIABLE* var, char* units) {
    return var ? convertInteger(var->value, var->units, result, units) : static_cast<short int>(invalid);
}

short int units_get_real_keyword(double* result, REAL_VARIABLE* var, char* units) {
    return static_cast<short int>(var ? convert(var->value, var->units, result, units) : invalid);
}

short int units_code_to_keyword(int code, char* keyword) {
    const Unit* unit = units().catalogue.find(code);
    if (!unit || !keyword)
        return invalid;
    copyKeyword(*unit, keyword);
    return 0;
}

short int units_keyword_to_code(char* keyword, int* code) {
    const Unit* unit = units().catalogue.find(keyword);
    if (!unit || !code)
        return invalid;
    *code = unit->code;
    return 0;
}

short int LV_get_units(char* units, short int* count, char (*keywords)[16]) {
    return list(units, count, keywords);
}

short int LV_get_units2(char* keyword, short int* count, UNITS_NAME* keywords) {
    const Unit* unit = units().catalogue.find(keyword);
    if (unit && count && unit->group == units().catalogue.find("")->group) {
        *count = 0;
        return invalid;
    }
    return list(keyword, count, keywords);
}

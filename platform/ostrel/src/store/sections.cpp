#include "store/sections.h"

#include <ostrel/records.h>

#include <array>
#include <cstdint>

#include "store/layout.h"

namespace {

// A section of a fixed number of records.
template <typename Record>
constexpr ostrel_section section(SM_AREA_ID area, SM_VARI_TYPE kind, size_t start, int capacity, const char* name,
                                 const char* title) {
    return {area, kind, start, sizeof(Record), capacity, capacity, name, title};
}

// A section that has its area for itself, so that a configuration may ask for more room.
template <typename Record>
constexpr ostrel_section growing(SM_AREA_ID area, SM_VARI_TYPE kind, int capacity, const char* name,
                                 const char* title) {
    const int largest = isArray(kind) ? static_cast<int>(arraysPerKind) : INT16_MAX;
    return {area, kind, 0, sizeof(Record), capacity, largest, name, title};
}

constexpr int generalUse = 20000;
constexpr int inputOutput = 5000;
constexpr int statistics = 1000;
constexpr int arrays = 64;
constexpr int aliases = 20000;

// Where an area holds several sections, and where it has a fixed number of records, that is part of the wire format.
constexpr std::array<ostrel_section, storeSections> sectionTable = {{
    growing<REAL_VARIABLE>(GU_REAL_MEM, REAL_TYPE, generalUse, "gu-real", "General Use (real)"),
    growing<INTEGER_VARIABLE>(GU_INTEGER_MEM, INT_TYPE, generalUse, "gu-integer", "General Use (integer)"),
    growing<LOGICAL_VARIABLE>(GU_LOGICAL_MEM, LOGI_TYPE, generalUse, "gu-logical", "General Use (logical)"),
    growing<STRING_VARIABLE>(GU_STRING_MEM, STRING_TYPE, generalUse, "gu-string", "General Use (string)"),
    growing<REAL_VARIABLE>(AI_REAL_MEM, REAL_TYPE, inputOutput, "analog-input", "Analog Inputs"),
    growing<REAL_VARIABLE>(FI_REAL_MEM, REAL_TYPE, inputOutput, "frequency-input",
                           "Frequency Inputs (engineering units)"),
    growing<REAL_VARIABLE>(CI_REAL_MEM, REAL_TYPE, inputOutput, "counter-input", "Counter Inputs (engineering units)"),
    growing<REAL_ARRAY_VARIABLE>(REAL_ARRAY_MEM, REAL_ARRAY_TYPE, arrays, "real-array", "Real (array)"),
    growing<INTEGER_ARRAY_VARIABLE>(INT_ARRAY_MEM, INT_ARRAY_TYPE, arrays, "integer-array", "Integer (array)"),
    growing<INTEGER_VARIABLE>(CI_INTG_MEM, INT_TYPE, inputOutput, "counter-count", "Counter Inputs (counts)"),
    section<REAL_VARIABLE>(ENGINE_PERF_MEM, REAL_TYPE, 0, 100, "performance-real", "Engine Performance (real)"),
    section<INTEGER_VARIABLE>(ENGINE_PERF_MEM, INT_TYPE, 39000, 50, "performance-integer",
                              "Engine Performance (integer)"),
    section<REAL_VARIABLE>(ENGINE_CONST_MEM, REAL_TYPE, 0, 50, "constant-real", "Engine Constants"),
    section<STRING_VARIABLE>(ENGINE_CONST_MEM, STRING_TYPE, 19500, 32, "constant-string", "Engine/Cell (string)"),
    section<REAL_VARIABLE>(FUEL_READING_MEM, REAL_TYPE, 0, 152, "fuel-real", "Fuel Reading (real)"),
    section<INTEGER_VARIABLE>(FUEL_READING_MEM, INT_TYPE, 59280, 16, "fuel-integer", "Fuel Reading (integer)"),
    section<STRING_VARIABLE>(FUEL_READING_MEM, STRING_TYPE, 64560, 24, "fuel-string", "Fuel Reading (string)"),
    section<REAL_VARIABLE>(CONTROL_MEM, REAL_TYPE, 0, 893, "control-real", "Control (real)"),
    section<LOGICAL_VARIABLE>(CONTROL_MEM, LOGI_TYPE, 348270, 301, "control-logical", "Control (logical)"),
    section<INTEGER_VARIABLE>(CONTROL_MEM, INT_TYPE, 495760, 4, "control-integer", "Control (integer)"),
    section<STRING_VARIABLE>(CONTROL_MEM, STRING_TYPE, 497080, 298, "control-string", "Control (string)"),
    section<STRING_VARIABLE>(DISPLAY_STRINGS_MEM, STRING_TYPE, 300, 100, "display-string", "Display (string)"),
    growing<STRING_ARRAY_VARIABLE>(STRING_ARRAY_MEM, STRING_ARRAY_TYPE, arrays, "string-array", "String (array)"),
    section<LOGICAL_VARIABLE>(LOGI_MEM, LOGI_TYPE, 0, 400, "general-logical", "General Purpose (logical)"),
    growing<LOGICAL_VARIABLE>(DI_LOGI_MEM, LOGI_TYPE, inputOutput, "digital-input", "Digital Input (logical)"),
    growing<LOGICAL_VARIABLE>(DO_LOGI_MEM, LOGI_TYPE, inputOutput, "digital-output", "Digital Output (logical)"),
    growing<LOGICAL_VARIABLE>(LIMIT_LOGI_MEM, LOGI_TYPE, inputOutput, "limit-logical", "Limit (logical)"),
    growing<LOGICAL_ARRAY_VARIABLE>(LOGI_ARRAY_MEM, LOGI_ARRAY_TYPE, arrays, "logical-array", "Logical (array)"),
    growing<STAT_VARIABLE>(GU_STAT_MEM, STAT_TYPE, statistics, "gu-stat", "General Use (statistical)"),
    growing<STAT_VARIABLE>(DP_STAT_MEM, STAT_TYPE, statistics, "dp-stat", "Datapoint (statistical)"),
    section<COMP_VARIABLE>(PROPERTIES_MEM, COMP_TYPE, 0, 34, "composition", "Gas/Fluid (composition)"),
    section<PROP_VARIABLE>(PROPERTIES_MEM, PROP_TYPE, 70448, 32, "property", "Gas/Fluid (property)"),
    section<EMIS_VARIABLE>(PROPERTIES_MEM, EMIS_TYPE, 377648, 34, "emission", "Emissions"),
    growing<ALIAS_VARIABLE>(ALIAS_MEM, ALIAS_TYPE, aliases, "alias", "Aliases"),
}};

constexpr int kinds = LOGI_ARRAY_TYPE + 1;

constexpr auto numberTable = [] {
    std::array<std::array<signed char, kinds>, MAX_NUM_SHRD_MEM> numbers{};
    for (auto& row : numbers)
        row.fill(-1);
    for (int i = 0; i < storeSections; ++i)
        numbers[static_cast<size_t>(sectionTable[static_cast<size_t>(i)].area)]
               [static_cast<size_t>(sectionTable[static_cast<size_t>(i)].kind)] = static_cast<signed char>(i);
    return numbers;
}();

template <typename Record>
constexpr CommonFields fieldsOf() {
    return {offsetof(Record, label), offsetof(Record, active), offsetof(Record, shm_id), offsetof(Record, index)};
}

constexpr auto fieldTable = [] {
    std::array<CommonFields, kinds> fields{};
    fields[REAL_TYPE] = fieldsOf<REAL_VARIABLE>();
    fields[INT_TYPE] = fieldsOf<INTEGER_VARIABLE>();
    fields[LOGI_TYPE] = fieldsOf<LOGICAL_VARIABLE>();
    fields[STRING_TYPE] = fieldsOf<STRING_VARIABLE>();
    fields[STAT_TYPE] = fieldsOf<STAT_VARIABLE>();
    fields[COMP_TYPE] = fieldsOf<COMP_VARIABLE>();
    fields[PROP_TYPE] = fieldsOf<PROP_VARIABLE>();
    fields[EMIS_TYPE] = fieldsOf<EMIS_VARIABLE>();
    fields[ALIAS_TYPE] = {offsetof(ALIAS_VARIABLE, alias), offsetof(ALIAS_VARIABLE, active),
                          offsetof(ALIAS_VARIABLE, shm_id), offsetof(ALIAS_VARIABLE, index)};
    fields[REAL_ARRAY_TYPE] = fieldsOf<REAL_ARRAY_VARIABLE>();
    fields[INT_ARRAY_TYPE] = fieldsOf<INTEGER_ARRAY_VARIABLE>();
    fields[STRING_ARRAY_TYPE] = fieldsOf<STRING_ARRAY_VARIABLE>();
    fields[LOGI_ARRAY_TYPE] = fieldsOf<LOGICAL_ARRAY_VARIABLE>();
    return fields;
}();

}  // namespace

int sectionNumber(int area, int kind) {
    if (area < 0 || area >= MAX_NUM_SHRD_MEM || kind < 0 || kind >= kinds)
        return -1;
    return numberTable[static_cast<size_t>(area)][static_cast<size_t>(kind)];
}

int arraySectionNumber(int kind) {
    static constexpr std::array<SM_AREA_ID, 4> areas = {REAL_ARRAY_MEM, INT_ARRAY_MEM, STRING_ARRAY_MEM,
                                                        LOGI_ARRAY_MEM};
    return isArray(kind) ? sectionNumber(areas[static_cast<size_t>(kind - REAL_ARRAY_TYPE)], kind) : -1;
}

const CommonFields& commonFields(int kind) {
    return fieldTable[static_cast<size_t>(kind)];
}

size_t elementSize(int arrayKind) {
    static constexpr std::array<size_t, 4> sizes = {sizeof(REAL_ARRAY_MEMBER), sizeof(INTEGER_ARRAY_MEMBER),
                                                    sizeof(STRING_ARRAY_MEMBER), sizeof(LOGICAL_ARRAY_MEMBER)};
    return sizes[static_cast<size_t>(arrayKind - REAL_ARRAY_TYPE)];
}

const ostrel_section* ostrel_sections(int* count) {
    if (count)
        *count = storeSections;
    return sectionTable.data();
}

const ostrel_section* ostrel_section_of(SM_AREA_ID area, SM_VARI_TYPE kind) {
    const int number = sectionNumber(area, kind);
    return number < 0 ? nullptr : &sectionTable[static_cast<size_t>(number)];
}

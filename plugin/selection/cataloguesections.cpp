#include "selection/cataloguesections.h"

namespace {

using Attributes = SYSTEM_ATTRIBUTES;

constexpr int real = QT_OSTREL_REAL | QT_OSTREL_REAL_INTEGER;
constexpr int integer = QT_OSTREL_INTEGER | QT_OSTREL_REAL_INTEGER;

constexpr CatalogueSection growing(const char* label, const char* title, SM_AREA_ID area, SM_VARI_TYPE kind,
                                   short Attributes::*used, int opensFor) {
    return {label, title, area, kind, 0, used, 0, opensFor, false};
}

constexpr CatalogueSection array(const char* label, const char* title, SM_AREA_ID area, SM_VARI_TYPE kind,
                                 short Attributes::*used, int opensFor) {
    return {label, title, area, kind, 0, used, 0, opensFor, true};
}

constexpr CatalogueSection fixed(const char* label, const char* title, SM_AREA_ID area, SM_VARI_TYPE kind, size_t start,
                                 short count, int opensFor) {
    return {label, title, area, kind, start, nullptr, count, opensFor, false};
}

// The integer arrays open for the reals, and only composition opens what else the gas and fluid area holds. Forms
// rely on both.
const std::array<CatalogueSection, 33> sections = {{
    growing("General Use (real)", "GENERAL USE REAL VARIABLES", GU_REAL_MEM, REAL_TYPE, &Attributes::max_num_gu_real,
            real),
    growing("General Use (integer)", "GENERAL USE INTEGER VARIABLES", GU_INTEGER_MEM, INT_TYPE,
            &Attributes::max_num_gu_integer, integer),
    growing("General Use (logical)", "GENERAL USE LOGICAL VARIABLES", GU_LOGICAL_MEM, LOGI_TYPE,
            &Attributes::max_num_gu_logical, QT_OSTREL_LOGICAL),
    growing("General Use (string)", "GENERAL USE STRING VARIABLES", GU_STRING_MEM, STRING_TYPE,
            &Attributes::max_num_gu_string, QT_OSTREL_STRING),
    growing("Analog Inputs", "ANALOG INPUTS", AI_REAL_MEM, REAL_TYPE, &Attributes::logical_num_ai, real),
    growing("Frequency Inputs (engineering units)", "FREQUENCY INPUTS (engineering units)", FI_REAL_MEM, REAL_TYPE,
            &Attributes::logical_num_fi, real),
    growing("Counter Inputs (engineering units)", "COUNTER INPUTS (engineering units)", CI_REAL_MEM, REAL_TYPE,
            &Attributes::logical_num_ci, real),
    array("Real (array)", "REAL ARRAY VARIABLES", REAL_ARRAY_MEM, REAL_ARRAY_TYPE, &Attributes::max_array_real, real),
    array("Integer (array)", "INTEGER ARRAY VARIABLES", INT_ARRAY_MEM, INT_ARRAY_TYPE, &Attributes::max_array_integer,
          real),
    growing("Counter Inputs (counts)", "COUNTER INPUTS (counts)", CI_INTG_MEM, INT_TYPE, &Attributes::logical_num_ci,
            integer),
    fixed("Engine Performance (real)", "ENGINE PERFORMANCE REAL VARIABLES", ENGINE_PERF_MEM, REAL_TYPE, 0, 100, real),
    fixed("Engine Performance (integer)", "ENGINE PERFORMANCE INTEGER VARIABLES", ENGINE_PERF_MEM, INT_TYPE, 39000, 50,
          integer),
    fixed("Engine Constants", "ENGINE CONSTANTS", ENGINE_CONST_MEM, REAL_TYPE, 0, 50, real),
    fixed("Engine/Cell (string)", "ENGINE/CELL STRING VARIABLES", ENGINE_CONST_MEM, STRING_TYPE, 19500, 32,
          QT_OSTREL_STRING),
    fixed("Fuel Reading (real)", "FUEL READING REAL VARIABLES", FUEL_READING_MEM, REAL_TYPE, 0, 152, real),
    fixed("Fuel Reading (integer)", "FUEL READING INTEGER VARIABLES", FUEL_READING_MEM, INT_TYPE, 59280, 16, integer),
    fixed("Fuel Reading (string)", "FUEL READING STRING VARIABLES", FUEL_READING_MEM, STRING_TYPE, 64560, 24,
          QT_OSTREL_STRING),
    fixed("Control (real)", "CONTROL VARIABLES", CONTROL_MEM, REAL_TYPE, 0, 893, real),
    fixed("Control (logical)", "CONTROLS LOGICAL VARIABLES", CONTROL_MEM, LOGI_TYPE, 348270, 301, QT_OSTREL_LOGICAL),
    fixed("Control (integer)", "CONTROLS INTEGERS", CONTROL_MEM, INT_TYPE, 495760, 4, integer),
    fixed("Control (string)", "CONTROLS STRING VARIABLES", CONTROL_MEM, STRING_TYPE, 497080, 298, QT_OSTREL_STRING),
    fixed("Display (string)", "DISPLAY STRING VARIABLES", DISPLAY_STRINGS_MEM, STRING_TYPE, 300, 100, QT_OSTREL_STRING),
    array("String (array)", "STRING ARRAY VARIABLES", STRING_ARRAY_MEM, STRING_ARRAY_TYPE,
          &Attributes::max_array_string, QT_OSTREL_STRING),
    fixed("General Purpose (logical)", "GENERAL PURPOSE LOGICAL VARIABLES", LOGI_MEM, LOGI_TYPE, 0, 400,
          QT_OSTREL_LOGICAL),
    growing("Digital Input (logical)", "DIGITAL INPUT LOGICAL VARIABLES", DI_LOGI_MEM, LOGI_TYPE,
            &Attributes::logical_num_di, QT_OSTREL_LOGICAL),
    growing("Digital Output (logical)", "DIGITAL OUTPUT LOGICAL VARIABLES", DO_LOGI_MEM, LOGI_TYPE, &Attributes::num_do,
            QT_OSTREL_LOGICAL),
    growing("Limit (logical)", "LIMIT LOGICAL VARIABLES", LIMIT_LOGI_MEM, LOGI_TYPE, &Attributes::max_limit_logicals,
            QT_OSTREL_LOGICAL),
    array("Logical (array)", "LOGICAL ARRAY VARIABLES", LOGI_ARRAY_MEM, LOGI_ARRAY_TYPE, &Attributes::max_array_logical,
          QT_OSTREL_LOGICAL),
    growing("General Use (statistical)", "GENERAL USE STATISTICAL VARIABLES", GU_STAT_MEM, STAT_TYPE,
            &Attributes::max_num_gu_stat, QT_OSTREL_STAT),
    growing("Datapoint (statistical)", "DATAPOINT STATISTICAL VARIABLES", DP_STAT_MEM, STAT_TYPE,
            &Attributes::max_num_dp_stat, QT_OSTREL_STAT),
    fixed("Gas/Fluid (composition)", "GAS/FLUID COMPOSITION VARIABLES", PROPERTIES_MEM, COMP_TYPE, 0, 34,
          QT_OSTREL_COMP),
    fixed("Gas/Fluid (property)", "GAS/FLUID PROPERTY VARIABLES", PROPERTIES_MEM, PROP_TYPE, 70448, 32, QT_OSTREL_COMP),
    fixed("Emissions", "EMISSIONS VARIABLES", PROPERTIES_MEM, EMIS_TYPE, 377648, 34, QT_OSTREL_COMP),
}};

}  // namespace

bool CatalogueSection::isTakenBy(QT_OSTREL_VAR_TYPE filter) const {
    const int flags = filter;
    if (flags == QT_OSTREL_ANY)
        return true;
    return (flags & opensFor) && (!isArray || (flags & QT_OSTREL_ARRAY));
}

const std::array<CatalogueSection, 33>& catalogueSections() {
    return sections;
}

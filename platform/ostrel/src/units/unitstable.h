// The built-in unit keywords: what cell engineers call a unit, its code, the group of keywords that it converts to,
// and what it is to UDUNITS.
//
// Codes stand in records and in files of sites: a code is never changed and never used again for another keyword. Each
// group has a hundred of its own, sites have those from firstSiteCode on. Keywords of a group are listed to operators
// in the order below, so the usual ones stand first; a units menu has room for thirty.
//
// UDUNITS gives some customary units in seven digits only. Where its name is not exact the expression spells out the
// definition: 231 in3 for the gallon, 550 ft.lbf/s for the horsepower.
#ifndef OSTREL_UNITS_UNITSTABLE_H
#define OSTREL_UNITS_UNITSTABLE_H

#include <string_view>

struct UnitGroup {
    std::string_view name;  // as files of sites write it
    std::string_view title;
};

struct UnitKeyword {
    std::string_view keyword;
    int code;
    std::string_view group;
    std::string_view expression;
};

inline constexpr int firstSiteCode = 10000;
inline constexpr size_t maxKeyword = 15;
inline constexpr std::string_view noDimension = "NONE";

inline constexpr UnitGroup unitGroups[] = {
    {noDimension, "No dimension"},
    {"RATIO", "Ratio and volume concentration"},
    {"HYDROCARBON", "Hydrocarbon concentration by carbon atoms"},
    {"MASS_RATIO", "Mass ratio and humidity"},
    {"COUNT", "Counts"},
    {"PULSE", "Pulses"},
    {"CYCLE", "Working cycles"},
    {"CYLINDER", "Cylinders"},
    {"STROKE", "Strokes"},
    {"DATA", "Amount of data"},
    {"ROTATION", "Rotational speed and frequency"},
    {"ROTATION_RATE", "Rotational acceleration"},
    {"ANGLE", "Angle and revolutions"},
    {"SPEED", "Speed"},
    {"ACCELERATION", "Acceleration"},
    {"LENGTH", "Length"},
    {"AREA", "Area"},
    {"VOLUME", "Volume"},
    {"TIME", "Time"},
    {"MASS", "Mass"},
    {"FORCE", "Force"},
    {"TORQUE", "Torque"},
    {"TORQUE_RATE", "Torque per time"},
    {"POWER", "Power"},
    {"POWER_DENSITY", "Power per displacement"},
    {"ENERGY", "Energy"},
    {"PRESSURE", "Pressure, absolute and gauge"},
    {"PRESSURE_DIFF", "Pressure difference"},
    {"PRESSURE_RATE", "Pressure per time"},
    {"PRESSURE_RISE", "Pressure per crank angle"},
    {"TEMPERATURE", "Temperature"},
    {"TEMP_DIFF", "Temperature difference"},
    {"TEMP_RATE", "Temperature per time"},
    {"MASS_FLOW", "Mass flow"},
    {"VOLUME_FLOW", "Volume flow"},
    {"STANDARD_FLOW", "Volume flow at standard conditions"},
    {"MASS_STROKE", "Mass per stroke"},
    {"VOLUME_STROKE", "Volume per stroke"},
    {"VOLUME_REV", "Volume per revolution"},
    {"SPECIFIC_MASS", "Specific consumption and specific emission"},
    {"ECONOMY", "Distance per fuel volume"},
    {"CONSUMPTION", "Fuel volume per distance"},
    {"DISTANCE_MASS", "Emission per distance"},
    {"DENSITY", "Density and mass concentration"},
    {"PARTICLE", "Particle concentration"},
    {"PARTICLE_WORK", "Particles per work"},
    {"PARTICLE_DISTANCE", "Particles per distance"},
    {"ABSORPTION", "Light absorption"},
    {"SMOKE", "Filter smoke number"},
    {"HEATING_VALUE", "Heating value by mass"},
    {"HEATING_VOLUME", "Heating value by volume"},
    {"SPECIFIC_HEAT", "Specific heat"},
    {"HEAT_RELEASE", "Heat release per crank angle"},
    {"HEAT_FLUX", "Heat flux and irradiance"},
    {"HEAT_TRANSFER", "Heat transfer coefficient"},
    {"CONDUCTIVITY", "Thermal conductivity"},
    {"VISCOSITY", "Dynamic viscosity"},
    {"KINEMATIC", "Kinematic viscosity"},
    {"AMOUNT", "Amount of substance"},
    {"MOLAR_FLOW", "Molar flow"},
    {"MOLAR_MASS", "Molar mass"},
    {"INERTIA", "Moment of inertia"},
    {"TORSION", "Torsional stiffness"},
    {"STIFFNESS", "Stiffness"},
    {"ROAD_LOAD_1", "Road load per speed"},
    {"ROAD_LOAD_2", "Road load per speed squared"},
    {"STRAIN", "Strain"},
    {"VOLTAGE", "Voltage"},
    {"CURRENT", "Current"},
    {"RESISTANCE", "Resistance"},
    {"CAPACITANCE", "Capacitance"},
    {"INDUCTANCE", "Inductance"},
    {"CHARGE", "Charge"},
    {"CONDUCTANCE", "Electrical conductivity"},
    {"APPARENT_POWER", "Apparent power"},
    {"REACTIVE_POWER", "Reactive power"},
    {"BRIDGE", "Bridge signal"},
    {"FLUX_DENSITY", "Magnetic flux density"},
    {"ILLUMINANCE", "Illuminance"},
    {"LEVEL", "Level"},
    {"NOISE", "Weighted sound level"},
    {"ACIDITY", "Acidity"},
};

inline constexpr UnitKeyword unitKeywords[] = {
    {"NONE", 1, "NONE", "1"},
    {"UNITLESS", 2, "NONE", "1"},

    {"RATIO", 101, "RATIO", "1"},
    {"PCT", 102, "RATIO", "percent"},
    {"PPM", 103, "RATIO", "ppm"},
    {"FRAC", 104, "RATIO", "1"},
    {"PERMIL", 105, "RATIO", "1e-3"},
    {"PPB", 106, "RATIO", "ppb"},
    {"%", 107, "RATIO", "percent"},

    {"PPMC1", 201, "HYDROCARBON", "ppm"},
    {"PPMC3", 202, "HYDROCARBON", "3 ppm"},
    {"PPMC6", 203, "HYDROCARBON", "6 ppm"},
    {"PCTC1", 204, "HYDROCARBON", "percent"},

    {"KG/KG", 301, "MASS_RATIO", "kg/kg"},
    {"G/KG", 302, "MASS_RATIO", "g/kg"},
    {"MG/KG", 303, "MASS_RATIO", "mg/kg"},
    {"PCTWT", 304, "MASS_RATIO", "percent"},
    {"PPMWT", 305, "MASS_RATIO", "ppm"},
    {"LB/LB", 306, "MASS_RATIO", "lb/lb"},
    {"GR/LB", 307, "MASS_RATIO", "lb/7000/lb"},

    {"COUNTS", 401, "COUNT", "1"},
    {"KCOUNTS", 402, "COUNT", "1000"},
    {"COUNT", 403, "COUNT", "1"},
    {"EACH", 404, "COUNT", "1"},

    {"PULSES", 501, "PULSE", "1"},
    {"KPULSES", 502, "PULSE", "1000"},

    {"CYCLES", 601, "CYCLE", "1"},
    {"KCYCLES", 602, "CYCLE", "1000"},

    {"CYL", 701, "CYLINDER", "1"},

    {"STROKES", 801, "STROKE", "1"},
    {"KSTROKES", 802, "STROKE", "1000"},

    {"BYTE", 901, "DATA", "8"},
    {"KBYTE", 902, "DATA", "8e3"},
    {"MBYTE", 903, "DATA", "8e6"},
    {"GBYTE", 904, "DATA", "8e9"},
    {"BIT", 905, "DATA", "1"},

    {"RPM", 1001, "ROTATION", "revolution/min"},
    {"RAD/S", 1002, "ROTATION", "radian/s"},
    {"HZ", 1003, "ROTATION", "revolution/s"},
    {"KRPM", 1004, "ROTATION", "1000 revolution/min"},
    {"REV/S", 1005, "ROTATION", "revolution/s"},
    {"RPS", 1006, "ROTATION", "revolution/s"},
    {"REV/MIN", 1007, "ROTATION", "revolution/min"},
    {"DEG/S", 1008, "ROTATION", "arc_degree/s"},
    {"DEG/MS", 1009, "ROTATION", "arc_degree/ms"},
    {"KHZ", 1010, "ROTATION", "1e3 revolution/s"},
    {"MHZ", 1011, "ROTATION", "1e6 revolution/s"},
    {"CPM", 1012, "ROTATION", "revolution/min"},

    {"RPM/S", 1101, "ROTATION_RATE", "revolution/min/s"},
    {"RAD/S2", 1102, "ROTATION_RATE", "radian/s2"},
    {"RPM/MIN", 1103, "ROTATION_RATE", "revolution/min2"},
    {"REV/S2", 1104, "ROTATION_RATE", "revolution/s2"},
    {"DEG/S2", 1105, "ROTATION_RATE", "arc_degree/s2"},

    {"DEG", 1201, "ANGLE", "arc_degree"},
    {"CAD", 1202, "ANGLE", "arc_degree"},
    {"RAD", 1203, "ANGLE", "radian"},
    {"REV", 1204, "ANGLE", "revolution"},
    {"KREV", 1205, "ANGLE", "1000 revolution"},
    {"MRAD", 1206, "ANGLE", "milliradian"},
    {"GRAD", 1207, "ANGLE", "0.9 arc_degree"},
    {"ARCMIN", 1208, "ANGLE", "arc_minute"},

    {"M/S", 1301, "SPEED", "m/s"},
    {"KM/H", 1302, "SPEED", "km/h"},
    {"MPH", 1303, "SPEED", "mile/h"},
    {"KPH", 1304, "SPEED", "km/h"},
    {"M/MIN", 1305, "SPEED", "m/min"},
    {"CM/S", 1306, "SPEED", "cm/s"},
    {"MM/S", 1307, "SPEED", "mm/s"},
    {"FT/S", 1308, "SPEED", "ft/s"},
    {"FT/MIN", 1309, "SPEED", "ft/min"},
    {"FPM", 1310, "SPEED", "ft/min"},
    {"IN/S", 1311, "SPEED", "inch/s"},
    {"KNOT", 1312, "SPEED", "knot"},

    {"M/S2", 1401, "ACCELERATION", "m/s2"},
    {"GRAV", 1402, "ACCELERATION", "standard_free_fall"},
    {"MM/S2", 1403, "ACCELERATION", "mm/s2"},
    {"FT/S2", 1404, "ACCELERATION", "ft/s2"},
    {"IN/S2", 1405, "ACCELERATION", "inch/s2"},
    {"KM/H/S", 1406, "ACCELERATION", "km/h/s"},
    {"MPH/S", 1407, "ACCELERATION", "mile/h/s"},

    {"MM", 1501, "LENGTH", "mm"},
    {"M", 1502, "LENGTH", "m"},
    {"CM", 1503, "LENGTH", "cm"},
    {"UM", 1504, "LENGTH", "micrometer"},
    {"KM", 1505, "LENGTH", "km"},
    {"IN", 1506, "LENGTH", "inch"},
    {"FT", 1507, "LENGTH", "ft"},
    {"YD", 1508, "LENGTH", "yard"},
    {"MI", 1509, "LENGTH", "mile"},
    {"MIL", 1510, "LENGTH", "1e-3 inch"},

    {"MM2", 1601, "AREA", "mm2"},
    {"CM2", 1602, "AREA", "cm2"},
    {"M2", 1603, "AREA", "m2"},
    {"IN2", 1604, "AREA", "inch2"},
    {"FT2", 1605, "AREA", "ft2"},

    {"L", 1701, "VOLUME", "litre"},
    {"ML", 1702, "VOLUME", "millilitre"},
    {"M3", 1703, "VOLUME", "m3"},
    {"DM3", 1704, "VOLUME", "dm3"},
    {"CM3", 1705, "VOLUME", "cm3"},
    {"CC", 1706, "VOLUME", "cm3"},
    {"MM3", 1707, "VOLUME", "mm3"},
    {"IN3", 1708, "VOLUME", "inch3"},
    {"FT3", 1709, "VOLUME", "ft3"},
    {"GAL", 1710, "VOLUME", "231 inch3"},
    {"GALUK", 1711, "VOLUME", "4.54609 litre"},
    {"QT", 1712, "VOLUME", "57.75 inch3"},
    {"PT", 1713, "VOLUME", "28.875 inch3"},
    {"FLOZ", 1714, "VOLUME", "1.8046875 inch3"},
    {"BBL", 1715, "VOLUME", "9702 inch3"},

    {"S", 1801, "TIME", "s"},
    {"MS", 1802, "TIME", "ms"},
    {"MIN", 1803, "TIME", "min"},
    {"H", 1804, "TIME", "h"},
    {"SEC", 1805, "TIME", "s"},
    {"HR", 1806, "TIME", "h"},
    {"US", 1807, "TIME", "microsecond"},
    {"NS", 1808, "TIME", "nanosecond"},
    {"DAY", 1809, "TIME", "day"},
    {"WEEK", 1810, "TIME", "7 day"},

    {"KG", 1901, "MASS", "kg"},
    {"G", 1902, "MASS", "g"},
    {"MG", 1903, "MASS", "mg"},
    {"UG", 1904, "MASS", "microgram"},
    {"TONNE", 1905, "MASS", "tonne"},
    {"LB", 1906, "MASS", "lb"},
    {"LBM", 1907, "MASS", "lb"},
    {"OZ", 1908, "MASS", "lb/16"},
    {"GR", 1909, "MASS", "lb/7000"},
    {"SLUG", 1910, "MASS", "lbf.s2/ft"},
    {"TONUS", 1911, "MASS", "2000 lb"},

    {"N", 2001, "FORCE", "N"},
    {"KN", 2002, "FORCE", "kN"},
    {"DAN", 2003, "FORCE", "10 N"},
    {"LBF", 2004, "FORCE", "lbf"},
    {"KLBF", 2005, "FORCE", "1000 lbf"},
    {"OZF", 2006, "FORCE", "lbf/16"},
    {"KGF", 2007, "FORCE", "kgf"},
    {"GF", 2008, "FORCE", "1e-3 kgf"},

    {"NM", 2101, "TORQUE", "N.m"},
    {"LBF-FT", 2102, "TORQUE", "lbf.ft"},
    {"KNM", 2103, "TORQUE", "kN.m"},
    {"DANM", 2104, "TORQUE", "10 N.m"},
    {"NCM", 2105, "TORQUE", "N.cm"},
    {"N-M", 2106, "TORQUE", "N.m"},
    {"LB-FT", 2107, "TORQUE", "lbf.ft"},
    {"FT-LB", 2108, "TORQUE", "lbf.ft"},
    {"FT-LBF", 2109, "TORQUE", "lbf.ft"},
    {"LBF-IN", 2110, "TORQUE", "lbf.inch"},
    {"IN-LB", 2111, "TORQUE", "lbf.inch"},
    {"OZF-IN", 2112, "TORQUE", "lbf.inch/16"},
    {"KGF-M", 2113, "TORQUE", "kgf.m"},
    {"KGF-CM", 2114, "TORQUE", "kgf.cm"},

    {"NM/S", 2201, "TORQUE_RATE", "N.m/s"},
    {"NM/MIN", 2202, "TORQUE_RATE", "N.m/min"},
    {"LBF-FT/S", 2203, "TORQUE_RATE", "lbf.ft/s"},

    {"KW", 2301, "POWER", "kW"},
    {"W", 2302, "POWER", "W"},
    {"MW", 2303, "POWER", "megawatt"},
    {"HP", 2304, "POWER", "550 ft.lbf/s"},
    {"PS", 2305, "POWER", "75 kgf.m/s"},
    {"BHP", 2306, "POWER", "550 ft.lbf/s"},
    {"FT-LBF/S", 2307, "POWER", "ft.lbf/s"},
    {"BTU/S", 2308, "POWER", "Btu/s"},
    {"BTU/MIN", 2309, "POWER", "Btu/min"},
    {"BTU/HR", 2310, "POWER", "Btu/h"},
    {"KCAL/H", 2311, "POWER", "4186.8 J/h"},
    {"KJ/H", 2312, "POWER", "kJ/h"},

    {"KW/L", 2401, "POWER_DENSITY", "kW/litre"},
    {"HP/L", 2402, "POWER_DENSITY", "550 ft.lbf/s/litre"},
    {"PS/L", 2403, "POWER_DENSITY", "75 kgf.m/s/litre"},
    {"HP/IN3", 2404, "POWER_DENSITY", "550 ft.lbf/s/inch3"},

    {"KJ", 2501, "ENERGY", "kJ"},
    {"J", 2502, "ENERGY", "J"},
    {"MJ", 2503, "ENERGY", "megajoule"},
    {"KWH", 2504, "ENERGY", "kW.h"},
    {"WH", 2505, "ENERGY", "W.h"},
    {"HP-HR", 2506, "ENERGY", "550 ft.lbf/s.h"},
    {"BTU", 2507, "ENERGY", "Btu"},
    {"KCAL", 2508, "ENERGY", "4186.8 J"},
    {"CAL", 2509, "ENERGY", "4.1868 J"},

    {"KPA", 2601, "PRESSURE", "kPa"},
    {"KPAG", 2602, "PRESSURE", "kPa @ 101.325"},
    {"BAR", 2603, "PRESSURE", "bar"},
    {"BARG", 2604, "PRESSURE", "bar @ 1.01325"},
    {"MBAR", 2605, "PRESSURE", "mbar"},
    {"MBARG", 2606, "PRESSURE", "mbar @ 1013.25"},
    {"PSI", 2607, "PRESSURE", "psi"},
    {"PSIA", 2608, "PRESSURE", "psi"},
    {"PSIG", 2609, "PRESSURE", "psi @ 14.69594877551345"},
    {"PA", 2610, "PRESSURE", "Pa"},
    {"PAG", 2611, "PRESSURE", "Pa @ 101325"},
    {"HPA", 2612, "PRESSURE", "hPa"},
    {"MPA", 2613, "PRESSURE", "megapascal"},
    {"MPAG", 2614, "PRESSURE", "megapascal @ 0.101325"},
    {"KPAA", 2615, "PRESSURE", "kPa"},
    {"BARA", 2616, "PRESSURE", "bar"},
    {"ATM", 2617, "PRESSURE", "atm"},
    {"MMHG", 2618, "PRESSURE", "mmHg"},
    {"MMHGG", 2619, "PRESSURE", "mmHg @ 759.9998917256112"},
    {"INHG", 2620, "PRESSURE", "inHg"},
    {"INHGG", 2621, "PRESSURE", "inHg @ 29.921255579748475"},
    {"INH2O", 2622, "PRESSURE", "249.08891 Pa"},
    {"INH2OG", 2623, "PRESSURE", "249.08891 Pa @ 406.7824617322385"},
    {"MMH2O", 2624, "PRESSURE", "9.80665 Pa"},
    {"MMH2OG", 2625, "PRESSURE", "9.80665 Pa @ 10332.27452799886"},
    {"TORR", 2626, "PRESSURE", "133.32236842105263 Pa"},
    {"KGF/CM2", 2627, "PRESSURE", "kgf/cm2"},
    {"KGF/CM2G", 2628, "PRESSURE", "98066.5 Pa @ 1.0332274527998857"},

    {"KPAD", 2701, "PRESSURE_DIFF", "kPa"},
    {"PAD", 2702, "PRESSURE_DIFF", "Pa"},
    {"BARD", 2703, "PRESSURE_DIFF", "bar"},
    {"MBARD", 2704, "PRESSURE_DIFF", "mbar"},
    {"PSID", 2705, "PRESSURE_DIFF", "psi"},
    {"INHGD", 2706, "PRESSURE_DIFF", "inHg"},
    {"MMHGD", 2707, "PRESSURE_DIFF", "mmHg"},
    {"INH2OD", 2708, "PRESSURE_DIFF", "249.08891 Pa"},
    {"MMH2OD", 2709, "PRESSURE_DIFF", "9.80665 Pa"},

    {"KPA/S", 2801, "PRESSURE_RATE", "kPa/s"},
    {"KPA/MIN", 2802, "PRESSURE_RATE", "kPa/min"},
    {"PA/S", 2803, "PRESSURE_RATE", "Pa/s"},
    {"BAR/S", 2804, "PRESSURE_RATE", "bar/s"},
    {"MBAR/MIN", 2805, "PRESSURE_RATE", "mbar/min"},
    {"PSI/S", 2806, "PRESSURE_RATE", "psi/s"},
    {"PSI/MIN", 2807, "PRESSURE_RATE", "psi/min"},

    {"BAR/DEG", 2901, "PRESSURE_RISE", "bar/arc_degree"},
    {"KPA/DEG", 2902, "PRESSURE_RISE", "kPa/arc_degree"},
    {"MPA/DEG", 2903, "PRESSURE_RISE", "megapascal/arc_degree"},
    {"PSI/DEG", 2904, "PRESSURE_RISE", "psi/arc_degree"},

    {"DEGC", 3001, "TEMPERATURE", "degC"},
    {"DEGF", 3002, "TEMPERATURE", "degF"},
    {"DEGK", 3003, "TEMPERATURE", "K"},
    {"DEGR", 3004, "TEMPERATURE", "degR"},
    {"K", 3005, "TEMPERATURE", "K"},

    {"DELTAC", 3101, "TEMP_DIFF", "K"},
    {"DELTAF", 3102, "TEMP_DIFF", "degR"},
    {"DELTAK", 3103, "TEMP_DIFF", "K"},
    {"DELTAR", 3104, "TEMP_DIFF", "degR"},

    {"DEGC/S", 3201, "TEMP_RATE", "K/s"},
    {"DEGC/MIN", 3202, "TEMP_RATE", "K/min"},
    {"DEGC/HR", 3203, "TEMP_RATE", "K/h"},
    {"DEGF/S", 3204, "TEMP_RATE", "degR/s"},
    {"DEGF/MIN", 3205, "TEMP_RATE", "degR/min"},
    {"DEGF/HR", 3206, "TEMP_RATE", "degR/h"},
    {"K/S", 3207, "TEMP_RATE", "K/s"},

    {"KG/H", 3301, "MASS_FLOW", "kg/h"},
    {"KG/S", 3302, "MASS_FLOW", "kg/s"},
    {"KG/MIN", 3303, "MASS_FLOW", "kg/min"},
    {"G/S", 3304, "MASS_FLOW", "g/s"},
    {"G/MIN", 3305, "MASS_FLOW", "g/min"},
    {"G/H", 3306, "MASS_FLOW", "g/h"},
    {"MG/S", 3307, "MASS_FLOW", "mg/s"},
    {"LB/HR", 3308, "MASS_FLOW", "lb/h"},
    {"LB/MIN", 3309, "MASS_FLOW", "lb/min"},
    {"LB/S", 3310, "MASS_FLOW", "lb/s"},
    {"KG/HR", 3311, "MASS_FLOW", "kg/h"},
    {"G/HR", 3312, "MASS_FLOW", "g/h"},
    {"LB/H", 3313, "MASS_FLOW", "lb/h"},
    {"T/H", 3314, "MASS_FLOW", "tonne/h"},

    {"L/MIN", 3401, "VOLUME_FLOW", "litre/min"},
    {"M3/H", 3402, "VOLUME_FLOW", "m3/h"},
    {"L/H", 3403, "VOLUME_FLOW", "litre/h"},
    {"L/S", 3404, "VOLUME_FLOW", "litre/s"},
    {"M3/S", 3405, "VOLUME_FLOW", "m3/s"},
    {"M3/MIN", 3406, "VOLUME_FLOW", "m3/min"},
    {"CFM", 3407, "VOLUME_FLOW", "ft3/min"},
    {"GPM", 3408, "VOLUME_FLOW", "231 inch3/min"},
    {"GPH", 3409, "VOLUME_FLOW", "231 inch3/h"},
    {"LPM", 3410, "VOLUME_FLOW", "litre/min"},
    {"LPH", 3411, "VOLUME_FLOW", "litre/h"},
    {"ML/MIN", 3412, "VOLUME_FLOW", "millilitre/min"},
    {"ML/S", 3413, "VOLUME_FLOW", "millilitre/s"},
    {"CC/MIN", 3414, "VOLUME_FLOW", "cm3/min"},
    {"CC/S", 3415, "VOLUME_FLOW", "cm3/s"},
    {"CFS", 3416, "VOLUME_FLOW", "ft3/s"},
    {"CFH", 3417, "VOLUME_FLOW", "ft3/h"},
    {"ACFM", 3418, "VOLUME_FLOW", "ft3/min"},
    {"GPMUK", 3419, "VOLUME_FLOW", "4.54609 litre/min"},
    {"IN3/S", 3420, "VOLUME_FLOW", "inch3/s"},

    // A standard volume is an amount of gas. Normal and SL are at 0 degC, SC of the feet at 60 degF, all at 101.325
    // kPa.
    {"NL/MIN", 3501, "STANDARD_FLOW", "litre/min"},
    {"NM3/H", 3502, "STANDARD_FLOW", "m3/h"},
    {"SLPM", 3503, "STANDARD_FLOW", "litre/min"},
    {"SCCM", 3504, "STANDARD_FLOW", "cm3/min"},
    {"SCFM", 3505, "STANDARD_FLOW", "491.67/519.67 ft3/min"},
    {"SCFH", 3506, "STANDARD_FLOW", "491.67/519.67 ft3/h"},

    {"MG/STR", 3601, "MASS_STROKE", "mg"},
    {"G/STR", 3602, "MASS_STROKE", "g"},
    {"LB/STR", 3603, "MASS_STROKE", "lb"},

    {"MM3/STR", 3701, "VOLUME_STROKE", "mm3"},
    {"CC/STR", 3702, "VOLUME_STROKE", "cm3"},
    {"IN3/STR", 3703, "VOLUME_STROKE", "inch3"},

    {"CC/REV", 3801, "VOLUME_REV", "cm3/revolution"},
    {"L/REV", 3802, "VOLUME_REV", "litre/revolution"},
    {"IN3/REV", 3803, "VOLUME_REV", "inch3/revolution"},

    {"G/KWH", 3901, "SPECIFIC_MASS", "g/(kW.h)"},
    {"KG/KWH", 3902, "SPECIFIC_MASS", "kg/(kW.h)"},
    {"MG/KWH", 3903, "SPECIFIC_MASS", "mg/(kW.h)"},
    {"LB/HP-HR", 3904, "SPECIFIC_MASS", "lb/(550 ft.lbf/s.h)"},
    {"G/HP-HR", 3905, "SPECIFIC_MASS", "g/(550 ft.lbf/s.h)"},
    {"G/PS-HR", 3906, "SPECIFIC_MASS", "g/(75 kgf.m/s.h)"},
    {"G/MJ", 3907, "SPECIFIC_MASS", "g/megajoule"},
    {"G/BHP-HR", 3908, "SPECIFIC_MASS", "g/(550 ft.lbf/s.h)"},
    {"LB/BHP-HR", 3909, "SPECIFIC_MASS", "lb/(550 ft.lbf/s.h)"},

    {"KM/L", 4001, "ECONOMY", "km/litre"},
    {"MPG", 4002, "ECONOMY", "mile/(231 inch3)"},
    {"MPGUK", 4003, "ECONOMY", "mile/(4.54609 litre)"},

    {"L/100KM", 4101, "CONSUMPTION", "litre/(100 km)"},
    {"L/KM", 4102, "CONSUMPTION", "litre/km"},
    {"GAL/100MI", 4103, "CONSUMPTION", "231 inch3/(100 mile)"},

    {"G/KM", 4201, "DISTANCE_MASS", "g/km"},
    {"MG/KM", 4202, "DISTANCE_MASS", "mg/km"},
    {"G/MI", 4203, "DISTANCE_MASS", "g/mile"},
    {"MG/MI", 4204, "DISTANCE_MASS", "mg/mile"},

    {"KG/M3", 4301, "DENSITY", "kg/m3"},
    {"G/CM3", 4302, "DENSITY", "g/cm3"},
    {"KG/L", 4303, "DENSITY", "kg/litre"},
    {"G/L", 4304, "DENSITY", "g/litre"},
    {"G/M3", 4305, "DENSITY", "g/m3"},
    {"MG/M3", 4306, "DENSITY", "mg/m3"},
    {"UG/M3", 4307, "DENSITY", "microgram/m3"},
    {"MG/L", 4308, "DENSITY", "mg/litre"},
    {"LB/FT3", 4309, "DENSITY", "lb/ft3"},
    {"LB/IN3", 4310, "DENSITY", "lb/inch3"},
    {"LB/GAL", 4311, "DENSITY", "lb/(231 inch3)"},

    {"PN/CM3", 4401, "PARTICLE", "1/cm3"},
    {"PN/L", 4402, "PARTICLE", "1/litre"},
    {"PN/M3", 4403, "PARTICLE", "1/m3"},

    {"PN/KWH", 4501, "PARTICLE_WORK", "1/(kW.h)"},
    {"PN/HP-HR", 4502, "PARTICLE_WORK", "1/(550 ft.lbf/s.h)"},

    {"PN/KM", 4601, "PARTICLE_DISTANCE", "1/km"},
    {"PN/MI", 4602, "PARTICLE_DISTANCE", "1/mile"},

    {"1/M", 4701, "ABSORPTION", "1/m"},
    {"1/MM", 4702, "ABSORPTION", "1/mm"},

    {"FSN", 4801, "SMOKE", "1"},

    {"MJ/KG", 4901, "HEATING_VALUE", "megajoule/kg"},
    {"KJ/KG", 4902, "HEATING_VALUE", "kJ/kg"},
    {"J/KG", 4903, "HEATING_VALUE", "J/kg"},
    {"KWH/KG", 4904, "HEATING_VALUE", "kW.h/kg"},
    {"BTU/LB", 4905, "HEATING_VALUE", "Btu/lb"},
    {"KCAL/KG", 4906, "HEATING_VALUE", "4186.8 J/kg"},

    {"MJ/M3", 5001, "HEATING_VOLUME", "megajoule/m3"},
    {"KJ/M3", 5002, "HEATING_VOLUME", "kJ/m3"},
    {"MJ/L", 5003, "HEATING_VOLUME", "megajoule/litre"},
    {"BTU/FT3", 5004, "HEATING_VOLUME", "Btu/ft3"},
    {"BTU/GAL", 5005, "HEATING_VOLUME", "Btu/(231 inch3)"},

    {"KJ/KG-K", 5101, "SPECIFIC_HEAT", "kJ/kg/K"},
    {"J/KG-K", 5102, "SPECIFIC_HEAT", "J/kg/K"},
    {"BTU/LB-F", 5103, "SPECIFIC_HEAT", "Btu/lb/degR"},
    {"KCAL/KG-K", 5104, "SPECIFIC_HEAT", "4186.8 J/kg/K"},

    {"J/DEG", 5201, "HEAT_RELEASE", "J/arc_degree"},
    {"KJ/DEG", 5202, "HEAT_RELEASE", "kJ/arc_degree"},

    {"W/M2", 5301, "HEAT_FLUX", "W/m2"},
    {"KW/M2", 5302, "HEAT_FLUX", "kW/m2"},
    {"BTU/HR-FT2", 5303, "HEAT_FLUX", "Btu/h/ft2"},

    {"W/M2-K", 5401, "HEAT_TRANSFER", "W/m2/K"},
    {"BTU/HR-FT2-F", 5402, "HEAT_TRANSFER", "Btu/h/ft2/degR"},

    {"W/M-K", 5501, "CONDUCTIVITY", "W/m/K"},
    {"BTU/HR-FT-F", 5502, "CONDUCTIVITY", "Btu/h/ft/degR"},

    {"MPA-S", 5601, "VISCOSITY", "1e-3 Pa.s"},
    {"PA-S", 5602, "VISCOSITY", "Pa.s"},
    {"CP", 5603, "VISCOSITY", "1e-3 Pa.s"},
    {"POISE", 5604, "VISCOSITY", "0.1 Pa.s"},

    {"MM2/S", 5701, "KINEMATIC", "mm2/s"},
    {"CST", 5702, "KINEMATIC", "mm2/s"},
    {"M2/S", 5703, "KINEMATIC", "m2/s"},
    {"STOKES", 5704, "KINEMATIC", "cm2/s"},
    {"FT2/S", 5705, "KINEMATIC", "ft2/s"},

    {"MOL", 5801, "AMOUNT", "mol"},
    {"KMOL", 5802, "AMOUNT", "kmol"},

    {"MOL/S", 5901, "MOLAR_FLOW", "mol/s"},
    {"MOL/H", 5902, "MOLAR_FLOW", "mol/h"},
    {"KMOL/H", 5903, "MOLAR_FLOW", "kmol/h"},

    {"G/MOL", 6001, "MOLAR_MASS", "g/mol"},
    {"KG/KMOL", 6002, "MOLAR_MASS", "kg/kmol"},

    {"KG-M2", 6101, "INERTIA", "kg.m2"},
    {"KG-CM2", 6102, "INERTIA", "kg.cm2"},
    {"LB-FT2", 6103, "INERTIA", "lb.ft2"},
    {"LB-IN2", 6104, "INERTIA", "lb.inch2"},
    {"SLUG-FT2", 6105, "INERTIA", "lbf.s2.ft"},

    {"NM/RAD", 6201, "TORSION", "N.m/radian"},
    {"NM/DEG", 6202, "TORSION", "N.m/arc_degree"},
    {"LBF-FT/DEG", 6203, "TORSION", "lbf.ft/arc_degree"},

    {"N/MM", 6301, "STIFFNESS", "N/mm"},
    {"N/M", 6302, "STIFFNESS", "N/m"},
    {"LBF/IN", 6303, "STIFFNESS", "lbf/inch"},

    {"N/KPH", 6401, "ROAD_LOAD_1", "N/(km/h)"},
    {"N-S/M", 6402, "ROAD_LOAD_1", "N/(m/s)"},
    {"LBF/MPH", 6403, "ROAD_LOAD_1", "lbf/(mile/h)"},

    {"N/KPH2", 6501, "ROAD_LOAD_2", "N/(km/h)2"},
    {"N-S2/M2", 6502, "ROAD_LOAD_2", "N/(m/s)2"},
    {"LBF/MPH2", 6503, "ROAD_LOAD_2", "lbf/(mile/h)2"},

    {"UM/M", 6601, "STRAIN", "1e-6"},
    {"USTRAIN", 6602, "STRAIN", "1e-6"},
    {"MM/M", 6603, "STRAIN", "1e-3"},
    {"M/M", 6604, "STRAIN", "1"},

    {"V", 6701, "VOLTAGE", "V"},
    {"MV", 6702, "VOLTAGE", "millivolt"},
    {"UV", 6703, "VOLTAGE", "microvolt"},
    {"KV", 6704, "VOLTAGE", "kV"},

    {"A", 6801, "CURRENT", "ampere"},
    {"MA", 6802, "CURRENT", "milliampere"},
    {"UA", 6803, "CURRENT", "microampere"},
    {"KA", 6804, "CURRENT", "kiloampere"},

    {"OHM", 6901, "RESISTANCE", "ohm"},
    {"KOHM", 6902, "RESISTANCE", "kiloohm"},
    {"MOHM", 6903, "RESISTANCE", "1e6 ohm"},
    {"MILLIOHM", 6904, "RESISTANCE", "1e-3 ohm"},

    {"UF", 7001, "CAPACITANCE", "microfarad"},
    {"NF", 7002, "CAPACITANCE", "nanofarad"},
    {"PF", 7003, "CAPACITANCE", "picofarad"},

    {"MH", 7101, "INDUCTANCE", "millihenry"},
    {"UH", 7102, "INDUCTANCE", "microhenry"},

    {"AH", 7201, "CHARGE", "ampere.h"},
    {"MAH", 7202, "CHARGE", "milliampere.h"},
    {"COULOMB", 7203, "CHARGE", "coulomb"},
    {"PC", 7204, "CHARGE", "picocoulomb"},

    {"S/M", 7301, "CONDUCTANCE", "siemens/m"},
    {"MS/CM", 7302, "CONDUCTANCE", "millisiemens/cm"},
    {"US/CM", 7303, "CONDUCTANCE", "microsiemens/cm"},

    {"VA", 7401, "APPARENT_POWER", "V.ampere"},
    {"KVA", 7402, "APPARENT_POWER", "kV.ampere"},

    {"VAR", 7501, "REACTIVE_POWER", "V.ampere"},
    {"KVAR", 7502, "REACTIVE_POWER", "kV.ampere"},

    {"MV/V", 7601, "BRIDGE", "1e-3"},
    {"V/V", 7602, "BRIDGE", "1"},

    {"TESLA", 7701, "FLUX_DENSITY", "tesla"},
    {"GAUSS", 7702, "FLUX_DENSITY", "1e-4 tesla"},

    {"LUX", 7801, "ILLUMINANCE", "lux"},
    {"FC", 7802, "ILLUMINANCE", "lumen/ft2"},

    {"DB", 7901, "LEVEL", "0.1"},
    {"BEL", 7902, "LEVEL", "1"},

    {"DBA", 8001, "NOISE", "1"},

    {"PH", 8101, "ACIDITY", "1"},
};

// What the table promises, checked when it is compiled.
consteval bool unitTableIsSound() {
    size_t group = 0;
    int lastCode = 0;
    for (const UnitKeyword& row : unitKeywords) {
        while (row.group != unitGroups[group].name) {
            ++group;  // beyond the end for a group that is not listed or not in order, which does not compile
        }
        if (row.code <= lastCode || row.code / 100 != static_cast<int>(group) || row.code >= firstSiteCode)
            return false;
        lastCode = row.code;
        if (row.keyword.empty() || row.keyword.size() > maxKeyword)
            return false;
        for (char c : row.keyword) {
            if (c <= ' ' || c > '~' || (c >= 'a' && c <= 'z'))
                return false;
        }
    }
    return true;
}
static_assert(unitTableIsSound());

#endif

// The records of the variable store, byte for byte.
//
// Every program that maps the store shares this layout with the server, so nothing here may move: sizes and offsets
// are asserted next to each record. The records are packed; a double may lie at an address that is no multiple of
// eight. A char[n] field holds text that ends in a zero where it is shorter than the field.
//
// `status` of a variable is what displays colour by. Bit 0 asks for blinking; the value without bit 0 selects the
// colour: 0 none, 256 blue, 512 green, 768 cyan, 1024 red, 1280 magenta, 1536 yellow, 1792 white.
//
// Readers take no lock: the server and other programs write at any time, and each field is read as it stands.
#ifndef OSTREL_RECORDS_H
#define OSTREL_RECORDS_H

#include <ostrel/areas.h>
#include <stddef.h>
#include <sys/types.h>
#include <time.h>

#ifdef __cplusplus
#define OSTREL_OFFSET(type, field, bytes) static_assert(offsetof(type, field) == (bytes), #type "::" #field)
#else
#define OSTREL_OFFSET(type, field, bytes) _Static_assert(offsetof(type, field) == (bytes), #type "::" #field)
#endif

#ifdef __cplusplus
extern "C" {
#endif

#pragma pack(push, 1)

// Limit states of a variable; a latch stays set until it is reset.
typedef struct _limit_status {
    unsigned short low_alarm : 1;
    unsigned short low_abort : 1;
    unsigned short low_emergency : 1;
    unsigned short high_alarm : 1;
    unsigned short high_abort : 1;
    unsigned short high_emergency : 1;
    unsigned short low_alarm_latch : 1;
    unsigned short low_abort_latch : 1;
    unsigned short low_emergency_latch : 1;
    unsigned short high_alarm_latch : 1;
    unsigned short high_abort_latch : 1;
    unsigned short high_emergency_latch : 1;
    unsigned short variable_age : 1;
    unsigned short variable_age_latch : 1;
    unsigned short dummy : 2;
} LIMIT_STATUS;
OSTREL_SIZE(LIMIT_STATUS, 2);

// Error word of the process input/output.
typedef struct _pio_error {
    unsigned short word;
} PIO_ERROR_STATUS;
OSTREL_SIZE(PIO_ERROR_STATUS, 2);

// Index of the seven-entry arrays of get_limit_info().
typedef enum _limit_array_indexes {
    LOW_ALARM_LIMIT = 0,
    LOW_ABORT_LIMIT = 1,
    LOW_EMERGENCY_LIMIT = 2,
    HIGH_ALARM_LIMIT = 3,
    HIGH_ABORT_LIMIT = 4,
    HIGH_EMERGENCY_LIMIT = 5,
    VARIABLE_AGE_LIMIT = 6,
    NUM_LIMIT_TYPES = 7
} OSTREL_ONE_BYTE LIMIT_ARRAY_INDEXES;
OSTREL_SIZE(LIMIT_ARRAY_INDEXES, 1);

// A name that a task registered under.
typedef struct _registered_name {
    char name[50];
} REGISTERED_NAME;
OSTREL_SIZE(REGISTERED_NAME, 50);

// The record of SYS_ATTR_MEM: how many slots of the sections that can grow are in use or were. Walk a section by its
// count and look at `active`; a slot that holds no variable has active 0. Slots behind the count have never been
// touched. A section that has no count here has as many slots as its row of ostrel_sections() says.
typedef struct _system_attributes {
    short int max_num_gu_real;
    short int max_num_gu_integer;
    short int max_num_gu_logical;
    short int max_num_gu_string;
    short int max_num_gu_stat;
    short int max_num_dp_stat;
    short int max_array_real;
    short int max_array_integer;
    short int max_array_logical;
    short int max_array_string;
    short int logical_num_ai;
    short int logical_num_fi;
    short int logical_num_ci;
    short int logical_num_di;
    short int num_do;
    short int max_limit_logicals;
    short int filler[48];
} SYSTEM_ATTRIBUTES;
OSTREL_SIZE(SYSTEM_ATTRIBUTES, 128);

// How long a label the configuration gave.
typedef enum _label_type {
    SHORT_LABEL_TYPE = 0,
    LONG_LABEL_TYPE = 1,
    DUMMY_LABEL_TYPE = -256
} OSTREL_TWO_BYTES LABEL_TYPE;
OSTREL_SIZE(LABEL_TYPE, 2);

// Length class of a string variable.
typedef enum _string_variable_length {
    LONG_STRING_VARIABLE = 0,
    SHORT_STRING_VARIABLE = 1,
    DUMMY_STRING_VARIABLE_LENGTH = -256
} OSTREL_TWO_BYTES STRING_VARIABLE_LENGTH;
OSTREL_SIZE(STRING_VARIABLE_LENGTH, 2);

// Which value of a logical variable is an alarm.
typedef enum _which_state_is_alarm {
    NO_ALARM = 0,
    FALSE_IS_ALARM = 1,
    TRUE_IS_ALARM = 2,
    DUMMY_STATE_IS_ALARM = -256
} OSTREL_TWO_BYTES WHICH_STATE_IS_ALARM;
OSTREL_SIZE(WHICH_STATE_IS_ALARM, 2);

// State of the fluid of a composition or property variable.
typedef enum _stream_comp_type {
    GAS_STREAM = 0,
    LIQUID_STREAM = 1,
    DUMMY_STREAM_COMP_TYPE = -256
} OSTREL_TWO_BYTES STREAM_COMP_TYPE;
OSTREL_SIZE(STREAM_COMP_TYPE, 2);

// Where a property member takes its value from.
typedef enum _cal_table_type {
    NO_CAL_TABLE = 0,
    VALUE_CAL_TABLE = 1,
    DUMMY_CAL_TABLE_TYPE = -256
} OSTREL_TWO_BYTES CAL_TABLE_TYPE;
OSTREL_SIZE(CAL_TABLE_TYPE, 2);

// Members of a statistics variable. Names that share a value mark the bounds of a range.
typedef enum _stat_member_type {
    AV = 0,
    MN = 1,
    MX = 2,
    RN = 3,
    SD = 4,
    C0 = 5,
    IV = 6,
    FV = 7,
    DL = 8,
    E0 = 9,
    CONF_INT = 10,
    INT_90 = 11,
    INT_95 = 12,
    INT_99 = 13,
    MEDIAN = 14,
    MAD = 15,
    RMS = 16,
    STAT_TIME_UNITS_START = 17,
    ST = 17,
    EN = 18,
    TN = 19,
    TX = 20,
    STAT_TIME_UNITS_END = 21,
    C1 = 21,
    INN = 22,
    IT = 23,
    STAT_DIMENSIONLESS = 24,
    RS = 24,
    CV = 25,
    E1 = 26,
    RA = 27,
    NM = 28,
    STUD_T = 29,
    REQ_CONF = 30,
    QUAL_F = 31,
    NR = 32,
    NUM_MEMBER_TYPES = 33,
    DUMMY_STAT_MEMBER = -256
} OSTREL_TWO_BYTES STAT_MEMBER_TYPE;
OSTREL_SIZE(STAT_MEMBER_TYPE, 2);

// Members of a composition variable. Names that share a value mark the bounds of a range.
typedef enum _composition_member_type {
    H2 = 0,
    CO = 1,
    O2 = 2,
    WA = 3,
    C2 = 4,
    N2 = 5,
    NX = 6,
    AR = 7,
    AMON = 8,
    FUEL_COMP = 9,
    ME = 9,
    EE = 10,
    PR = 11,
    NB = 12,
    IB = 13,
    NP = 14,
    ISOP = 15,
    HX = 16,
    HE = 17,
    OC = 18,
    NN = 19,
    HS = 20,
    LAST_GASEOUS_MEMBER = 21,
    FIRST_ODOR_MEMBER = 21,
    H2S = 21,
    MTM = 22,
    ETM = 23,
    DMS = 24,
    IPM = 25,
    TBM = 26,
    MES = 27,
    NPM = 28,
    SBM = 29,
    DES = 30,
    THT = 31,
    LAST_ODOR_MEMBER = 31,
    LIQUID_MOLE_FRACTIONS = 32,
    NMOLE = 32,
    OMOLE = 33,
    HMOLE = 34,
    CMOLE = 35,
    LIQUID_COMP = 36,
    NATOM = 36,
    OATOM = 37,
    HATOM = 38,
    CATOM = 39,
    LIQUID_MASS_FRACTIONS = 40,
    NF = 40,
    OF = 41,
    HF = 42,
    CF = 43,
    FA = 44,
    OL = 45,
    SA = 46,
    LAST_COMP_MEMBER = 47,
    COMP_UPDATE_TIME = 47,
    MM = 48,
    SMW = 48,
    NUM_COMPOSITION_TYPES = 49,
    DUMMY_COMPOSITION_MEMBER = -256
} OSTREL_TWO_BYTES COMPOSITION_MEMBER_TYPE;
OSTREL_SIZE(COMPOSITION_MEMBER_TYPE, 2);

// Members of a property variable. Names that share a value mark the bounds of a range.
typedef enum _property_member_type {
    AT = 0,
    AP = 1,
    CP = 2,
    CN = 3,
    GM = 4,
    TH = 5,
    GCON = 6,
    ER = 7,
    SR = 8,
    HV = 9,
    HU = 10,
    ET = 11,
    VS = 12,
    RE = 13,
    DD = 14,
    ID = 15,
    IR = 16,
    CM = 17,
    DW = 18,
    AH = 19,
    VP = 20,
    WD = 21,
    EA = 22,
    LM = 23,
    LV = 24,
    HM = 25,
    HH = 26,
    WL = 27,
    WH = 28,
    MR = 29,
    ML = 30,
    MT = 31,
    MO = 32,
    KE = 33,
    KT = 34,
    KP = 35,
    HC = 36,
    RD = 37,
    RW = 38,
    IE = 39,
    LIQUID_PROP = 40,
    OCTANE = 40,
    CETANE = 41,
    CETANEX = 42,
    DS = 43,
    LH = 44,
    DE = 45,
    LAST_PROP_MEMBER = 46,
    PROP_UPDATE_TIME = 46,
    NUM_PROPERTY_TYPES = 47,
    DUMMY_PROPERTY_MEMBER = -256
} OSTREL_TWO_BYTES PROPERTY_MEMBER_TYPE;
OSTREL_SIZE(PROPERTY_MEMBER_TYPE, 2);

// Members of an emission variable.
typedef enum _emission_member_type {
    FUEL_MF_MEA = 0,
    AIR_MF_MEA = 1,
    EXH_MF_MEA = 2,
    EXH_CD_CO2_MEA = 3,
    EXH_CD_O2_MEA = 4,
    EXH_CD_CO_MEA = 5,
    EXH_CD_NOX_MEA = 6,
    EXH_CW_HC_MEA = 7,
    EXH_CW_NOX_MEA = 8,
    FUEL_MW = 9,
    AIR_MF_DRY = 10,
    CD_CO2_TH = 11,
    CD_O2_TH = 12,
    DRY_TO_WET_TH = 13,
    CW_CO2_G1 = 14,
    CW_CO_G1 = 15,
    CW_NOX_G1 = 16,
    CW_HC_G1 = 17,
    MF_CO2 = 18,
    MF_CO = 19,
    MF_NOX = 20,
    MF_HC = 21,
    MW_HC = 22,
    CBE = 23,
    CBE_CO2 = 24,
    AFDE_O2 = 25,
    AFDE_CO2 = 26,
    BSCO2_G1 = 27,
    BSCO_G1 = 28,
    BSNOX_G1 = 29,
    BSHC_G1 = 30,
    NOX_COR_G1 = 31,
    BSNOX_COR_G1 = 32,
    FSCO2_G1 = 33,
    FSCO_G1 = 34,
    FSNOX_G1 = 35,
    FSHC_G1 = 36,
    FA_WET = 37,
    DRY_WET_I1 = 38,
    EXH_CW_CO2_I1 = 39,
    EXH_CW_CO_I1 = 40,
    EXH_CW_NOX_I1 = 41,
    EXH_CW_HC_I1 = 42,
    EXH_MF_CO2_I1 = 43,
    EXH_MF_CO_I1 = 44,
    EXH_MF_NOX_I1 = 45,
    EXH_MF_HC_I1 = 46,
    BSCO2_I1 = 47,
    BSCO_I1 = 48,
    BSNOX_I1 = 49,
    BSHC_I1 = 50,
    NOX_COR_I1 = 51,
    BSNOX_COR_I1 = 52,
    PSEUDO_PHI = 53,
    CO2_ERR = 54,
    O2_ERR = 55,
    EMISSION_UPDATE_TIME = 56,
    NUM_EMISSION_TYPES = 57,
    DUMMY_EMISSION_MEMBER = -256
} OSTREL_TWO_BYTES EMISSION_MEMBER_TYPE;
OSTREL_SIZE(EMISSION_MEMBER_TYPE, 2);

// The handle of one variable, filled by find_variable(). A cleared handle (all zero) is bound to nothing.
typedef struct _shared_memory {
    SM_AREA_ID code;         // area of the variable; zero in a cleared handle
    short int index;         // index of the record in its section of the area
    SM_VARI_TYPE vari_type;  // kind of the variable
    union {
        STAT_MEMBER_TYPE stat_member;
        PROPERTY_MEMBER_TYPE prop_member;
        COMPOSITION_MEMBER_TYPE comp_member;
        EMISSION_MEMBER_TYPE emis_member;
        short int offset;
    };                 // member selected by the extension of the name
    void* member_adr;  // address of the selected array element, if any; good in this process only
    char filler[4];    // zero
} SHARED_MEMORY;
OSTREL_SIZE(SHARED_MEMORY, 20);
OSTREL_OFFSET(SHARED_MEMORY, code, 0);
OSTREL_OFFSET(SHARED_MEMORY, index, 2);
OSTREL_OFFSET(SHARED_MEMORY, vari_type, 4);
OSTREL_OFFSET(SHARED_MEMORY, stat_member, 6);
OSTREL_OFFSET(SHARED_MEMORY, member_adr, 8);
OSTREL_OFFSET(SHARED_MEMORY, filler, 16);

// One real variable.
typedef struct _real_variable {
    double value;
    double tolerance;
    double transition_tolerance;
    double last_delta_value;
    double last_sampled_value;
    double reference_value;
    short int save_inactive;
    short int active;
    int units_code;
    short int status;
    unsigned short parameter_index;
    LIMIT_STATUS limit_status;
    short int hst_value_saved;
    char label[80];
    struct timespec last_sampled_time;
    char units[16];
    char display_format[8];
    LABEL_TYPE label_type;
    unsigned short display_resolution;
    pid_t last_pid;
    char last_process_name[24];
    REGISTERED_NAME owner;
    double min_plot_range;
    double max_plot_range;
    char event_name[32];
    int event_id;
    short int event_active;
    short int support_alias;
    double restore_value;
    short int override_active;
    short int last_override_state;
    unsigned int hash_index;
    PIO_ERROR_STATUS pio_error_status;
    SM_AREA_ID shm_id;
    short int index;
    short int NAN_trapped;
    struct timespec last_delta_time;
    short int previously_active;
    char filler2[22];
    unsigned int update_count;
} REAL_VARIABLE;
OSTREL_SIZE(REAL_VARIABLE, 390);
OSTREL_OFFSET(REAL_VARIABLE, value, 0);
OSTREL_OFFSET(REAL_VARIABLE, tolerance, 8);
OSTREL_OFFSET(REAL_VARIABLE, transition_tolerance, 16);
OSTREL_OFFSET(REAL_VARIABLE, last_delta_value, 24);
OSTREL_OFFSET(REAL_VARIABLE, last_sampled_value, 32);
OSTREL_OFFSET(REAL_VARIABLE, reference_value, 40);
OSTREL_OFFSET(REAL_VARIABLE, save_inactive, 48);
OSTREL_OFFSET(REAL_VARIABLE, active, 50);
OSTREL_OFFSET(REAL_VARIABLE, units_code, 52);
OSTREL_OFFSET(REAL_VARIABLE, status, 56);
OSTREL_OFFSET(REAL_VARIABLE, parameter_index, 58);
OSTREL_OFFSET(REAL_VARIABLE, limit_status, 60);
OSTREL_OFFSET(REAL_VARIABLE, hst_value_saved, 62);
OSTREL_OFFSET(REAL_VARIABLE, label, 64);
OSTREL_OFFSET(REAL_VARIABLE, last_sampled_time, 144);
OSTREL_OFFSET(REAL_VARIABLE, units, 160);
OSTREL_OFFSET(REAL_VARIABLE, display_format, 176);
OSTREL_OFFSET(REAL_VARIABLE, label_type, 184);
OSTREL_OFFSET(REAL_VARIABLE, display_resolution, 186);
OSTREL_OFFSET(REAL_VARIABLE, last_pid, 188);
OSTREL_OFFSET(REAL_VARIABLE, last_process_name, 192);
OSTREL_OFFSET(REAL_VARIABLE, owner, 216);
OSTREL_OFFSET(REAL_VARIABLE, min_plot_range, 266);
OSTREL_OFFSET(REAL_VARIABLE, max_plot_range, 274);
OSTREL_OFFSET(REAL_VARIABLE, event_name, 282);
OSTREL_OFFSET(REAL_VARIABLE, event_id, 314);
OSTREL_OFFSET(REAL_VARIABLE, event_active, 318);
OSTREL_OFFSET(REAL_VARIABLE, support_alias, 320);
OSTREL_OFFSET(REAL_VARIABLE, restore_value, 322);
OSTREL_OFFSET(REAL_VARIABLE, override_active, 330);
OSTREL_OFFSET(REAL_VARIABLE, last_override_state, 332);
OSTREL_OFFSET(REAL_VARIABLE, hash_index, 334);
OSTREL_OFFSET(REAL_VARIABLE, pio_error_status, 338);
OSTREL_OFFSET(REAL_VARIABLE, shm_id, 340);
OSTREL_OFFSET(REAL_VARIABLE, index, 342);
OSTREL_OFFSET(REAL_VARIABLE, NAN_trapped, 344);
OSTREL_OFFSET(REAL_VARIABLE, last_delta_time, 346);
OSTREL_OFFSET(REAL_VARIABLE, previously_active, 362);
OSTREL_OFFSET(REAL_VARIABLE, filler2, 364);
OSTREL_OFFSET(REAL_VARIABLE, update_count, 386);

// One integer variable; `units` and `display_format` stand at the same offsets as in the real record.
typedef struct integer_variable {
    short int save_inactive;
    short int active;
    short int event_active;
    short int status;
    int value;
    int units_code;
    int event_id;
    int last_delta_value;
    int last_sampled_value;
    unsigned short parameter_index;
    LIMIT_STATUS limit_status;
    LABEL_TYPE label_type;
    short int support_alias;
    pid_t last_pid;
    char last_process_name[24];
    struct timespec last_sampled_time;
    char label[80];
    char units[16];
    char display_format[8];
    char event_name[32];
    REGISTERED_NAME owner;
    int min_plot_range;
    int max_plot_range;
    int restore_value;
    short int override_active;
    short int last_override_state;
    unsigned int hash_index;
    PIO_ERROR_STATUS pio_error_status;
    SM_AREA_ID shm_id;
    short int index;
    struct timespec last_delta_time;
    short int NAN_trapped;
    int tolerance;
    short int previously_active;
    char filler[14];
} INTEGER_VARIABLE;
OSTREL_SIZE(INTEGER_VARIABLE, 330);
OSTREL_OFFSET(INTEGER_VARIABLE, save_inactive, 0);
OSTREL_OFFSET(INTEGER_VARIABLE, active, 2);
OSTREL_OFFSET(INTEGER_VARIABLE, event_active, 4);
OSTREL_OFFSET(INTEGER_VARIABLE, status, 6);
OSTREL_OFFSET(INTEGER_VARIABLE, value, 8);
OSTREL_OFFSET(INTEGER_VARIABLE, units_code, 12);
OSTREL_OFFSET(INTEGER_VARIABLE, event_id, 16);
OSTREL_OFFSET(INTEGER_VARIABLE, last_delta_value, 20);
OSTREL_OFFSET(INTEGER_VARIABLE, last_sampled_value, 24);
OSTREL_OFFSET(INTEGER_VARIABLE, parameter_index, 28);
OSTREL_OFFSET(INTEGER_VARIABLE, limit_status, 30);
OSTREL_OFFSET(INTEGER_VARIABLE, label_type, 32);
OSTREL_OFFSET(INTEGER_VARIABLE, support_alias, 34);
OSTREL_OFFSET(INTEGER_VARIABLE, last_pid, 36);
OSTREL_OFFSET(INTEGER_VARIABLE, last_process_name, 40);
OSTREL_OFFSET(INTEGER_VARIABLE, last_sampled_time, 64);
OSTREL_OFFSET(INTEGER_VARIABLE, label, 80);
OSTREL_OFFSET(INTEGER_VARIABLE, units, 160);
OSTREL_OFFSET(INTEGER_VARIABLE, display_format, 176);
OSTREL_OFFSET(INTEGER_VARIABLE, event_name, 184);
OSTREL_OFFSET(INTEGER_VARIABLE, owner, 216);
OSTREL_OFFSET(INTEGER_VARIABLE, min_plot_range, 266);
OSTREL_OFFSET(INTEGER_VARIABLE, max_plot_range, 270);
OSTREL_OFFSET(INTEGER_VARIABLE, restore_value, 274);
OSTREL_OFFSET(INTEGER_VARIABLE, override_active, 278);
OSTREL_OFFSET(INTEGER_VARIABLE, last_override_state, 280);
OSTREL_OFFSET(INTEGER_VARIABLE, hash_index, 282);
OSTREL_OFFSET(INTEGER_VARIABLE, pio_error_status, 286);
OSTREL_OFFSET(INTEGER_VARIABLE, shm_id, 288);
OSTREL_OFFSET(INTEGER_VARIABLE, index, 290);
OSTREL_OFFSET(INTEGER_VARIABLE, last_delta_time, 292);
OSTREL_OFFSET(INTEGER_VARIABLE, NAN_trapped, 308);
OSTREL_OFFSET(INTEGER_VARIABLE, tolerance, 310);
OSTREL_OFFSET(INTEGER_VARIABLE, previously_active, 314);
OSTREL_OFFSET(INTEGER_VARIABLE, filler, 316);

// One logical variable; `true_state` and `false_state` are the texts shown for its two values.
typedef struct _logical_variable {
    short int save_inactive;
    short int active;
    short int value;
    short int signal_on_true;
    int true_event_id;
    int false_event_id;
    short int status;
    unsigned short parameter_index;
    short int signal_on_false;
    WHICH_STATE_IS_ALARM which_state_is_alarm;
    short int alarm;
    LABEL_TYPE label_type;
    pid_t last_pid;
    char last_process_name[24];
    char label[80];
    char true_state[80];
    char false_state[80];
    char display_format[8];
    char true_event_name[32];
    char false_event_name[32];
    struct timespec last_sampled_time;
    REGISTERED_NAME owner;
    short int support_alias;
    short int last_override_state;
    short int restore_value;
    short int override_active;
    LIMIT_STATUS limit_status;
    PIO_ERROR_STATUS pio_error_status;
    short int filler2[2];
    unsigned int hash_index;
    SM_AREA_ID shm_id;
    short int index;
    short int previously_active;
    char filler[30];
} LOGICAL_VARIABLE;
OSTREL_SIZE(LOGICAL_VARIABLE, 490);
OSTREL_OFFSET(LOGICAL_VARIABLE, save_inactive, 0);
OSTREL_OFFSET(LOGICAL_VARIABLE, active, 2);
OSTREL_OFFSET(LOGICAL_VARIABLE, value, 4);
OSTREL_OFFSET(LOGICAL_VARIABLE, signal_on_true, 6);
OSTREL_OFFSET(LOGICAL_VARIABLE, true_event_id, 8);
OSTREL_OFFSET(LOGICAL_VARIABLE, false_event_id, 12);
OSTREL_OFFSET(LOGICAL_VARIABLE, status, 16);
OSTREL_OFFSET(LOGICAL_VARIABLE, parameter_index, 18);
OSTREL_OFFSET(LOGICAL_VARIABLE, signal_on_false, 20);
OSTREL_OFFSET(LOGICAL_VARIABLE, which_state_is_alarm, 22);
OSTREL_OFFSET(LOGICAL_VARIABLE, alarm, 24);
OSTREL_OFFSET(LOGICAL_VARIABLE, label_type, 26);
OSTREL_OFFSET(LOGICAL_VARIABLE, last_pid, 28);
OSTREL_OFFSET(LOGICAL_VARIABLE, last_process_name, 32);
OSTREL_OFFSET(LOGICAL_VARIABLE, label, 56);
OSTREL_OFFSET(LOGICAL_VARIABLE, true_state, 136);
OSTREL_OFFSET(LOGICAL_VARIABLE, false_state, 216);
OSTREL_OFFSET(LOGICAL_VARIABLE, display_format, 296);
OSTREL_OFFSET(LOGICAL_VARIABLE, true_event_name, 304);
OSTREL_OFFSET(LOGICAL_VARIABLE, false_event_name, 336);
OSTREL_OFFSET(LOGICAL_VARIABLE, last_sampled_time, 368);
OSTREL_OFFSET(LOGICAL_VARIABLE, owner, 384);
OSTREL_OFFSET(LOGICAL_VARIABLE, support_alias, 434);
OSTREL_OFFSET(LOGICAL_VARIABLE, last_override_state, 436);
OSTREL_OFFSET(LOGICAL_VARIABLE, restore_value, 438);
OSTREL_OFFSET(LOGICAL_VARIABLE, override_active, 440);
OSTREL_OFFSET(LOGICAL_VARIABLE, limit_status, 442);
OSTREL_OFFSET(LOGICAL_VARIABLE, pio_error_status, 444);
OSTREL_OFFSET(LOGICAL_VARIABLE, filler2, 446);
OSTREL_OFFSET(LOGICAL_VARIABLE, hash_index, 450);
OSTREL_OFFSET(LOGICAL_VARIABLE, shm_id, 454);
OSTREL_OFFSET(LOGICAL_VARIABLE, index, 456);
OSTREL_OFFSET(LOGICAL_VARIABLE, previously_active, 458);
OSTREL_OFFSET(LOGICAL_VARIABLE, filler, 460);

// One string variable. `value` holds at most 80 characters, and then no terminating zero.
typedef struct _string_variable {
    short int save_active;
    short int active;
    short int status;
    STRING_VARIABLE_LENGTH type;
    LABEL_TYPE label_type;
    short int event_active;
    int event_id;
    char event_name[32];
    char value[80];
    char label[80];
    char display_format[8];
    struct timespec last_sampled_time;
    REGISTERED_NAME owner;
    char last_process_name[24];
    pid_t last_pid;
    short int support_alias;
    short int override_active;
    char restore_value[80];
    short int last_override_state;
    unsigned int hash_index;
    SM_AREA_ID shm_id;
    short int index;
    short int previously_active;
    char filler[4];
} STRING_VARIABLE;
OSTREL_SIZE(STRING_VARIABLE, 410);
OSTREL_OFFSET(STRING_VARIABLE, save_active, 0);
OSTREL_OFFSET(STRING_VARIABLE, active, 2);
OSTREL_OFFSET(STRING_VARIABLE, status, 4);
OSTREL_OFFSET(STRING_VARIABLE, type, 6);
OSTREL_OFFSET(STRING_VARIABLE, label_type, 8);
OSTREL_OFFSET(STRING_VARIABLE, event_active, 10);
OSTREL_OFFSET(STRING_VARIABLE, event_id, 12);
OSTREL_OFFSET(STRING_VARIABLE, event_name, 16);
OSTREL_OFFSET(STRING_VARIABLE, value, 48);
OSTREL_OFFSET(STRING_VARIABLE, label, 128);
OSTREL_OFFSET(STRING_VARIABLE, display_format, 208);
OSTREL_OFFSET(STRING_VARIABLE, last_sampled_time, 216);
OSTREL_OFFSET(STRING_VARIABLE, owner, 232);
OSTREL_OFFSET(STRING_VARIABLE, last_process_name, 282);
OSTREL_OFFSET(STRING_VARIABLE, last_pid, 306);
OSTREL_OFFSET(STRING_VARIABLE, support_alias, 310);
OSTREL_OFFSET(STRING_VARIABLE, override_active, 312);
OSTREL_OFFSET(STRING_VARIABLE, restore_value, 314);
OSTREL_OFFSET(STRING_VARIABLE, last_override_state, 394);
OSTREL_OFFSET(STRING_VARIABLE, hash_index, 396);
OSTREL_OFFSET(STRING_VARIABLE, shm_id, 400);
OSTREL_OFFSET(STRING_VARIABLE, index, 402);
OSTREL_OFFSET(STRING_VARIABLE, previously_active, 404);
OSTREL_OFFSET(STRING_VARIABLE, filler, 406);

// One member of a statistics variable.
typedef struct _stat_member {
    double value;
    char units[16];
    int units_code;
    unsigned short display_resolution;
    short int NAN_trapped;
    char filler[8];
} STAT_MEMBER;
OSTREL_SIZE(STAT_MEMBER, 40);
OSTREL_OFFSET(STAT_MEMBER, value, 0);
OSTREL_OFFSET(STAT_MEMBER, units, 8);
OSTREL_OFFSET(STAT_MEMBER, units_code, 24);
OSTREL_OFFSET(STAT_MEMBER, display_resolution, 28);
OSTREL_OFFSET(STAT_MEMBER, NAN_trapped, 30);
OSTREL_OFFSET(STAT_MEMBER, filler, 32);

// One statistics variable; `stat` is indexed by STAT_MEMBER_TYPE.
typedef struct _stat_variable {
    char label[80];
    char source_label[80];
    STAT_MEMBER stat[33];
    short int active;
    short int status;
    int process_interval;
    LIMIT_STATUS limit_status;
    short int support_alias;
    pid_t last_pid;
    char last_process_name[24];
    long double previous_value;
    long double previous_time;
    long double sumx;
    long double sumy;
    long double sumxy;
    long double sumx2;
    long double sumy2;
    struct timespec last_sampled_time;
    struct timespec last_computed_time;
    REGISTERED_NAME owner;
    SM_AREA_ID shm_id;
    short int index;
    short int previously_active;
    short int filler[4];
} STAT_VARIABLE;
OSTREL_SIZE(STAT_VARIABLE, 1728);
OSTREL_OFFSET(STAT_VARIABLE, label, 0);
OSTREL_OFFSET(STAT_VARIABLE, source_label, 80);
OSTREL_OFFSET(STAT_VARIABLE, stat, 160);
OSTREL_OFFSET(STAT_VARIABLE, active, 1480);
OSTREL_OFFSET(STAT_VARIABLE, status, 1482);
OSTREL_OFFSET(STAT_VARIABLE, process_interval, 1484);
OSTREL_OFFSET(STAT_VARIABLE, limit_status, 1488);
OSTREL_OFFSET(STAT_VARIABLE, support_alias, 1490);
OSTREL_OFFSET(STAT_VARIABLE, last_pid, 1492);
OSTREL_OFFSET(STAT_VARIABLE, last_process_name, 1496);
OSTREL_OFFSET(STAT_VARIABLE, previous_value, 1520);
OSTREL_OFFSET(STAT_VARIABLE, previous_time, 1536);
OSTREL_OFFSET(STAT_VARIABLE, sumx, 1552);
OSTREL_OFFSET(STAT_VARIABLE, sumy, 1568);
OSTREL_OFFSET(STAT_VARIABLE, sumxy, 1584);
OSTREL_OFFSET(STAT_VARIABLE, sumx2, 1600);
OSTREL_OFFSET(STAT_VARIABLE, sumy2, 1616);
OSTREL_OFFSET(STAT_VARIABLE, last_sampled_time, 1632);
OSTREL_OFFSET(STAT_VARIABLE, last_computed_time, 1648);
OSTREL_OFFSET(STAT_VARIABLE, owner, 1664);
OSTREL_OFFSET(STAT_VARIABLE, shm_id, 1714);
OSTREL_OFFSET(STAT_VARIABLE, index, 1716);
OSTREL_OFFSET(STAT_VARIABLE, previously_active, 1718);
OSTREL_OFFSET(STAT_VARIABLE, filler, 1720);

// One member of a composition variable.
typedef struct _composition_member {
    double value;
    char units[16];
    int units_code;
    unsigned short display_resolution;
    short int NAN_trapped;
    char filler[8];
} COMPOSITION_MEMBER;
OSTREL_SIZE(COMPOSITION_MEMBER, 40);
OSTREL_OFFSET(COMPOSITION_MEMBER, value, 0);
OSTREL_OFFSET(COMPOSITION_MEMBER, units, 8);
OSTREL_OFFSET(COMPOSITION_MEMBER, units_code, 24);
OSTREL_OFFSET(COMPOSITION_MEMBER, display_resolution, 28);
OSTREL_OFFSET(COMPOSITION_MEMBER, NAN_trapped, 30);
OSTREL_OFFSET(COMPOSITION_MEMBER, filler, 32);

// One composition variable; `fraction` is indexed by COMPOSITION_MEMBER_TYPE.
typedef struct _comp_variable {
    COMPOSITION_MEMBER fraction[49];
    char label[80];
    short int active;
    short int status;
    STREAM_COMP_TYPE fluid_type;
    LIMIT_STATUS limit_status;
    pid_t last_pid;
    short int support_alias;
    SM_AREA_ID shm_id;
    short int index;
    char filler[14];
} COMP_VARIABLE;
OSTREL_SIZE(COMP_VARIABLE, 2072);
OSTREL_OFFSET(COMP_VARIABLE, fraction, 0);
OSTREL_OFFSET(COMP_VARIABLE, label, 1960);
OSTREL_OFFSET(COMP_VARIABLE, active, 2040);
OSTREL_OFFSET(COMP_VARIABLE, status, 2042);
OSTREL_OFFSET(COMP_VARIABLE, fluid_type, 2044);
OSTREL_OFFSET(COMP_VARIABLE, limit_status, 2046);
OSTREL_OFFSET(COMP_VARIABLE, last_pid, 2048);
OSTREL_OFFSET(COMP_VARIABLE, support_alias, 2052);
OSTREL_OFFSET(COMP_VARIABLE, shm_id, 2054);
OSTREL_OFFSET(COMP_VARIABLE, index, 2056);
OSTREL_OFFSET(COMP_VARIABLE, filler, 2058);

// One member of a property variable.
typedef struct _property_member {
    double value;
    char units[16];
    char table_name[80];
    char table_variable[80];
    int units_code;
    unsigned short display_resolution;
    short int table_index;
    CAL_TABLE_TYPE table_type;
    short int NAN_trapped;
    char filler[4];
} PROPERTY_MEMBER;
OSTREL_SIZE(PROPERTY_MEMBER, 200);
OSTREL_OFFSET(PROPERTY_MEMBER, value, 0);
OSTREL_OFFSET(PROPERTY_MEMBER, units, 8);
OSTREL_OFFSET(PROPERTY_MEMBER, table_name, 24);
OSTREL_OFFSET(PROPERTY_MEMBER, table_variable, 104);
OSTREL_OFFSET(PROPERTY_MEMBER, units_code, 184);
OSTREL_OFFSET(PROPERTY_MEMBER, display_resolution, 188);
OSTREL_OFFSET(PROPERTY_MEMBER, table_index, 190);
OSTREL_OFFSET(PROPERTY_MEMBER, table_type, 192);
OSTREL_OFFSET(PROPERTY_MEMBER, NAN_trapped, 194);
OSTREL_OFFSET(PROPERTY_MEMBER, filler, 196);

// One property variable; `properties` is indexed by PROPERTY_MEMBER_TYPE.
typedef struct _prop_variable {
    PROPERTY_MEMBER properties[47];
    char label[80];
    char comp_label[80];
    STREAM_COMP_TYPE fluid_type;
    short int active;
    short int status;
    LIMIT_STATUS limit_status;
    struct timespec last_sampled_time;
    pid_t last_pid;
    short int support_alias;
    SM_AREA_ID shm_id;
    short int index;
    char filler[6];
} PROP_VARIABLE;
OSTREL_SIZE(PROP_VARIABLE, 9600);
OSTREL_OFFSET(PROP_VARIABLE, properties, 0);
OSTREL_OFFSET(PROP_VARIABLE, label, 9400);
OSTREL_OFFSET(PROP_VARIABLE, comp_label, 9480);
OSTREL_OFFSET(PROP_VARIABLE, fluid_type, 9560);
OSTREL_OFFSET(PROP_VARIABLE, active, 9562);
OSTREL_OFFSET(PROP_VARIABLE, status, 9564);
OSTREL_OFFSET(PROP_VARIABLE, limit_status, 9566);
OSTREL_OFFSET(PROP_VARIABLE, last_sampled_time, 9568);
OSTREL_OFFSET(PROP_VARIABLE, last_pid, 9584);
OSTREL_OFFSET(PROP_VARIABLE, support_alias, 9588);
OSTREL_OFFSET(PROP_VARIABLE, shm_id, 9590);
OSTREL_OFFSET(PROP_VARIABLE, index, 9592);
OSTREL_OFFSET(PROP_VARIABLE, filler, 9594);

// One member of an emission variable.
typedef struct _emission_member {
    double value;
    char units[16];
    int units_code;
    unsigned short display_resolution;
    short int data_written;
    short int NAN_trapped;
    char filler[6];
} EMISSION_MEMBER;
OSTREL_SIZE(EMISSION_MEMBER, 40);
OSTREL_OFFSET(EMISSION_MEMBER, value, 0);
OSTREL_OFFSET(EMISSION_MEMBER, units, 8);
OSTREL_OFFSET(EMISSION_MEMBER, units_code, 24);
OSTREL_OFFSET(EMISSION_MEMBER, display_resolution, 28);
OSTREL_OFFSET(EMISSION_MEMBER, data_written, 30);
OSTREL_OFFSET(EMISSION_MEMBER, NAN_trapped, 32);
OSTREL_OFFSET(EMISSION_MEMBER, filler, 34);

// One emission variable; `emission` is indexed by EMISSION_MEMBER_TYPE.
typedef struct _emis_variable {
    EMISSION_MEMBER emission[57];
    char label[80];
    char comp_label[80];
    short int active;
    short int status;
    LIMIT_STATUS limit_status;
    short int support_alias;
    struct timespec last_sampled_time;
    pid_t last_pid;
    SM_AREA_ID shm_id;
    short int index;
} EMIS_VARIABLE;
OSTREL_SIZE(EMIS_VARIABLE, 2472);
OSTREL_OFFSET(EMIS_VARIABLE, emission, 0);
OSTREL_OFFSET(EMIS_VARIABLE, label, 2280);
OSTREL_OFFSET(EMIS_VARIABLE, comp_label, 2360);
OSTREL_OFFSET(EMIS_VARIABLE, active, 2440);
OSTREL_OFFSET(EMIS_VARIABLE, status, 2442);
OSTREL_OFFSET(EMIS_VARIABLE, limit_status, 2444);
OSTREL_OFFSET(EMIS_VARIABLE, support_alias, 2446);
OSTREL_OFFSET(EMIS_VARIABLE, last_sampled_time, 2448);
OSTREL_OFFSET(EMIS_VARIABLE, last_pid, 2464);
OSTREL_OFFSET(EMIS_VARIABLE, shm_id, 2468);
OSTREL_OFFSET(EMIS_VARIABLE, index, 2470);

// One element of a real array.
typedef struct _real_array_member {
    double value;
    char units[16];
    struct timespec last_sampled_time;
    short int status;
    LIMIT_STATUS limit_status;
    pid_t last_pid;
    char last_process_name[24];
    SHARED_MEMORY stat_vrbl;
    int units_code;
    short int NAN_trapped;
    char filler[2];
} REAL_ARRAY_MEMBER;
OSTREL_SIZE(REAL_ARRAY_MEMBER, 100);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, value, 0);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, units, 8);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, last_sampled_time, 24);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, status, 40);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, limit_status, 42);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, last_pid, 44);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, last_process_name, 48);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, stat_vrbl, 72);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, units_code, 92);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, NAN_trapped, 96);
OSTREL_OFFSET(REAL_ARRAY_MEMBER, filler, 98);

// One element of an integer array.
typedef struct _integer_array_member {
    int value;
    short int status;
    LIMIT_STATUS limit_status;
    char units[16];
    struct timespec last_sampled_time;
    char last_process_name[24];
    pid_t last_pid;
    short int NAN_trapped;
    char filler[2];
    int units_code;
    char filler2[4];
} INTEGER_ARRAY_MEMBER;
OSTREL_SIZE(INTEGER_ARRAY_MEMBER, 80);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, value, 0);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, status, 4);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, limit_status, 6);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, units, 8);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, last_sampled_time, 24);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, last_process_name, 40);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, last_pid, 64);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, NAN_trapped, 68);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, filler, 70);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, units_code, 72);
OSTREL_OFFSET(INTEGER_ARRAY_MEMBER, filler2, 76);

// One element of a logical array.
typedef struct _logical_array_member {
    short int value;
    short int status;
    LIMIT_STATUS limit_status;
    char filler0[2];
    struct timespec last_sampled_time;
    char last_process_name[24];
    pid_t last_pid;
    char filler[4];
} LOGICAL_ARRAY_MEMBER;
OSTREL_SIZE(LOGICAL_ARRAY_MEMBER, 56);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, value, 0);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, status, 2);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, limit_status, 4);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, filler0, 6);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, last_sampled_time, 8);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, last_process_name, 24);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, last_pid, 48);
OSTREL_OFFSET(LOGICAL_ARRAY_MEMBER, filler, 52);

// One element of a string array.
typedef struct _string_array_member {
    char value[256];
    struct timespec last_sampled_time;
    short int status;
    LIMIT_STATUS limit_status;
    pid_t last_pid;
    char last_process_name[24];
} STRING_ARRAY_MEMBER;
OSTREL_SIZE(STRING_ARRAY_MEMBER, 304);
OSTREL_OFFSET(STRING_ARRAY_MEMBER, value, 0);
OSTREL_OFFSET(STRING_ARRAY_MEMBER, last_sampled_time, 256);
OSTREL_OFFSET(STRING_ARRAY_MEMBER, status, 272);
OSTREL_OFFSET(STRING_ARRAY_MEMBER, limit_status, 274);
OSTREL_OFFSET(STRING_ARRAY_MEMBER, last_pid, 276);
OSTREL_OFFSET(STRING_ARRAY_MEMBER, last_process_name, 280);

// Shape and naming of a real array; its elements are REAL_ARRAY_MEMBER records elsewhere.
typedef struct _real_array_variable {
    char label[80];
    char display_format[8];
    char enum_labels[3][2500][48];
    short int active;
    LABEL_TYPE label_type;
    unsigned int hash_index;
    double min_plot_range;
    double max_plot_range;
    unsigned short display_resolution;
    unsigned short num_dimensions;
    unsigned short dimension_size[3];
    unsigned short enum_size[3];
    short int stat_in_use;
    SM_AREA_ID shm_id;
    short int index;
    short int support_alias;
    REGISTERED_NAME owner;
} REAL_ARRAY_VARIABLE;
OSTREL_SIZE(REAL_ARRAY_VARIABLE, 360186);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, label, 0);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, display_format, 80);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, enum_labels, 88);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, active, 360088);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, label_type, 360090);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, hash_index, 360092);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, min_plot_range, 360096);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, max_plot_range, 360104);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, display_resolution, 360112);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, num_dimensions, 360114);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, dimension_size, 360116);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, enum_size, 360122);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, stat_in_use, 360128);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, shm_id, 360130);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, index, 360132);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, support_alias, 360134);
OSTREL_OFFSET(REAL_ARRAY_VARIABLE, owner, 360136);

// Shape and naming of an integer array; its elements are INTEGER_ARRAY_MEMBER records elsewhere.
typedef struct _integer_array_variable {
    char label[80];
    char display_format[8];
    char enum_labels[3][2500][48];
    double min_plot_range;
    double max_plot_range;
    short int active;
    LABEL_TYPE label_type;
    unsigned int hash_index;
    unsigned short num_dimensions;
    unsigned short dimension_size[3];
    unsigned short enum_size[3];
    short int support_alias;
    REGISTERED_NAME owner;
    SM_AREA_ID shm_id;
    short int index;
    char filler[4];
} INTEGER_ARRAY_VARIABLE;
OSTREL_SIZE(INTEGER_ARRAY_VARIABLE, 360186);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, label, 0);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, display_format, 80);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, enum_labels, 88);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, min_plot_range, 360088);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, max_plot_range, 360096);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, active, 360104);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, label_type, 360106);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, hash_index, 360108);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, num_dimensions, 360112);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, dimension_size, 360114);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, enum_size, 360120);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, support_alias, 360126);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, owner, 360128);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, shm_id, 360178);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, index, 360180);
OSTREL_OFFSET(INTEGER_ARRAY_VARIABLE, filler, 360182);

// Shape and naming of a logical array; its elements are LOGICAL_ARRAY_MEMBER records elsewhere.
typedef struct _logical_array_variable {
    char label[80];
    char display_format[8];
    char enum_labels[3][2500][48];
    short int active;
    LABEL_TYPE label_type;
    unsigned short num_dimensions;
    unsigned short dimension_size[3];
    REGISTERED_NAME owner;
    char true_state[80];
    char false_state[80];
    char true_event_name[32];
    char false_event_name[32];
    int true_event_id;
    int false_event_id;
    short int signal_on_true;
    short int signal_on_false;
    short int support_alias;
    unsigned short enum_size[3];
    unsigned int hash_index;
    SM_AREA_ID shm_id;
    short int index;
    char filler[8];
} LOGICAL_ARRAY_VARIABLE;
OSTREL_SIZE(LOGICAL_ARRAY_VARIABLE, 360410);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, label, 0);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, display_format, 80);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, enum_labels, 88);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, active, 360088);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, label_type, 360090);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, num_dimensions, 360092);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, dimension_size, 360094);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, owner, 360100);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, true_state, 360150);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, false_state, 360230);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, true_event_name, 360310);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, false_event_name, 360342);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, true_event_id, 360374);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, false_event_id, 360378);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, signal_on_true, 360382);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, signal_on_false, 360384);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, support_alias, 360386);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, enum_size, 360388);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, hash_index, 360394);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, shm_id, 360398);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, index, 360400);
OSTREL_OFFSET(LOGICAL_ARRAY_VARIABLE, filler, 360402);

// Shape and naming of a string array; its elements are STRING_ARRAY_MEMBER records elsewhere.
typedef struct _string_array_variable {
    char label[80];
    char display_format[8];
    char enum_labels[3][2500][48];
    REGISTERED_NAME owner;
    short int active;
    LABEL_TYPE label_type;
    STRING_VARIABLE_LENGTH type;
    unsigned short num_dimensions;
    unsigned short dimension_size[3];
    unsigned short enum_size[3];
    SM_AREA_ID shm_id;
    short int support_alias;
    unsigned int hash_index;
    short int index;
    char filler[10];
} STRING_ARRAY_VARIABLE;
OSTREL_SIZE(STRING_ARRAY_VARIABLE, 360178);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, label, 0);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, display_format, 80);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, enum_labels, 88);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, owner, 360088);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, active, 360138);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, label_type, 360140);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, type, 360142);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, num_dimensions, 360144);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, dimension_size, 360146);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, enum_size, 360152);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, shm_id, 360158);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, support_alias, 360160);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, hash_index, 360162);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, index, 360166);
OSTREL_OFFSET(STRING_ARRAY_VARIABLE, filler, 360168);

// A handle with the full name that it was made from: the target of an alias.
typedef struct _named_handle {
    char label[80];
    SHARED_MEMORY mem;
    union {
        double real_value;
        int integer_value;
        short int logical_value;
        char bytes[8];
    } value;
    char filler[4];
} NAMED_HANDLE;
OSTREL_SIZE(NAMED_HANDLE, 112);
OSTREL_OFFSET(NAMED_HANDLE, label, 0);
OSTREL_OFFSET(NAMED_HANDLE, mem, 80);
OSTREL_OFFSET(NAMED_HANDLE, value, 100);
OSTREL_OFFSET(NAMED_HANDLE, filler, 108);

// One alias: `alias` is the other name, `var` what it stands for.
typedef struct _alias_variable {
    short int active;
    short int primary;
    LABEL_TYPE label_type;
    unsigned short parameter_index;
    char registered_name[50];
    char alias[80];
    NAMED_HANDLE var;
    SM_AREA_ID shm_id;
    short int index;
    short int previously_active;
    char filler[2];
} ALIAS_VARIABLE;
OSTREL_SIZE(ALIAS_VARIABLE, 258);
OSTREL_OFFSET(ALIAS_VARIABLE, active, 0);
OSTREL_OFFSET(ALIAS_VARIABLE, primary, 2);
OSTREL_OFFSET(ALIAS_VARIABLE, label_type, 4);
OSTREL_OFFSET(ALIAS_VARIABLE, parameter_index, 6);
OSTREL_OFFSET(ALIAS_VARIABLE, registered_name, 8);
OSTREL_OFFSET(ALIAS_VARIABLE, alias, 58);
OSTREL_OFFSET(ALIAS_VARIABLE, var, 138);
OSTREL_OFFSET(ALIAS_VARIABLE, shm_id, 250);
OSTREL_OFFSET(ALIAS_VARIABLE, index, 252);
OSTREL_OFFSET(ALIAS_VARIABLE, previously_active, 254);
OSTREL_OFFSET(ALIAS_VARIABLE, filler, 256);

// The private block "reconfig_data": counters that go up with every reconfiguration of the store.
typedef struct _reconfig_data {
    int config_eid;
    int go_count;
    int generic_reconfig_count;  // the one that widgets poll
    int int_reconfig_count;
    int real_reconfig_count;
    int logical_reconfig_count;
    int string_reconfig_count;
} RECONFIG_DATA;
OSTREL_SIZE(RECONFIG_DATA, 28);
OSTREL_OFFSET(RECONFIG_DATA, config_eid, 0);
OSTREL_OFFSET(RECONFIG_DATA, go_count, 4);
OSTREL_OFFSET(RECONFIG_DATA, generic_reconfig_count, 8);
OSTREL_OFFSET(RECONFIG_DATA, int_reconfig_count, 12);
OSTREL_OFFSET(RECONFIG_DATA, real_reconfig_count, 16);
OSTREL_OFFSET(RECONFIG_DATA, logical_reconfig_count, 20);
OSTREL_OFFSET(RECONFIG_DATA, string_reconfig_count, 24);

// Payload of the event "config".
typedef struct _global_config_event {
    unsigned int new_state;  // 1: a reconfiguration starts; 0: it ended
    pid_t pid;               // sender
    char taskname[24];       // sender's task name
    SM_AREA_ID memcode;      // area concerned, -1 for all
    SM_AREA_ID ememcode[3];  // further areas; unused
} GLOBAL_CONFIG_EVENT;
OSTREL_SIZE(GLOBAL_CONFIG_EVENT, 40);
OSTREL_OFFSET(GLOBAL_CONFIG_EVENT, new_state, 0);
OSTREL_OFFSET(GLOBAL_CONFIG_EVENT, pid, 4);
OSTREL_OFFSET(GLOBAL_CONFIG_EVENT, taskname, 8);
OSTREL_OFFSET(GLOBAL_CONFIG_EVENT, memcode, 32);
OSTREL_OFFSET(GLOBAL_CONFIG_EVENT, ememcode, 34);

#pragma pack(pop)

#ifdef __cplusplus
}
#endif

#endif

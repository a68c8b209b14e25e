// Memory areas of the store, kinds of variables, and where in its area each kind lies.
//
// What holds for every header of this library: all functions are plain C functions and never throw. A `short int`
// result of 0 means success; every other value is a failure code. Names and texts are zero-terminated bytes, ASCII in
// practice, a name has at most 79 characters. Null where a text or a handle is expected fails and changes nothing. With
// no store running every function answers at once: look-ups fail, areas do not link. All functions may be called from
// any thread.
#ifndef OSTREL_AREAS_H
#define OSTREL_AREAS_H

#include <stddef.h>

// Enumerations that stand in records have a fixed width.
#define OSTREL_TWO_BYTES __attribute__((packed))
#define OSTREL_ONE_BYTE __attribute__((packed))

#ifdef __cplusplus
#define OSTREL_SIZE(type, bytes) static_assert(sizeof(type) == (bytes), #type)
#else
#define OSTREL_SIZE(type, bytes) _Static_assert(sizeof(type) == (bytes), #type)
#endif

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

// The kind of a variable, and so the record that its handle leads to.
typedef enum _sm_vari_type {
    UNDEFINED_VAR_TYPE = 0,
    REAL_TYPE = 1,
    INT_TYPE = 2,
    LOGI_TYPE = 3,
    STRG_TYPE = 4,
    BLANK_TYPE = 5,
    SIGNAL_TYPE = 6,
    STRING_TYPE = 7,
    STR_LIT_TYPE = 8,
    STAT_TYPE = 9,
    COMP_TYPE = 10,
    PROP_TYPE = 11,
    EMIS_TYPE = 12,
    DSPLY_LIT_STR_TYPE = 13,
    ALIAS_TYPE = 14,
    REAL_ARRAY_TYPE = 15,
    INT_ARRAY_TYPE = 16,
    STRING_ARRAY_TYPE = 17,
    LOGI_ARRAY_TYPE = 18,
    DUMMY_DATA_TYPE = -256
} OSTREL_TWO_BYTES SM_VARI_TYPE;
OSTREL_SIZE(SM_VARI_TYPE, 2);

// The memory areas of the store. -1 in a place where an area is asked for means all of them.
typedef enum _sm_area_id {
    UNDEFINED = 0,
    SYS_ATTR_MEM = 1,
    AI_ATTR_MEM = 2,
    AI_XFER_MEM = 3,
    CONT_RAWDATA_MEM = 4,
    AI_MILLIVOLT_MEM = 5,
    AI_REAL_MEM = 6,
    HZ_REAL_MEM = 7,
    CI_INTG_MEM = 8,
    CONTROL_MEM = 9,
    ENGINE_CONST_MEM = 10,
    ENGINE_PERF_MEM = 11,
    DISPLAY_MEM = 12,
    CI_ATTR_MEM = 13,
    DI_ATTR_MEM = 14,
    FI_ATTR_MEM = 15,
    LIMIT_MEM = 16,
    COMPUTED_VAR_MEM = 17,
    DO_RAWDATA_MEM = 18,
    LOGI_MEM = 19,
    AO_XFER_MEM = 20,
    AO_SCALDATA_MEM = 21,
    FI_REAL_MEM = 22,
    TEST_LOGI_MEM = 23,
    CI_REAL_MEM = 24,
    FI_XFER_MEM = 25,
    CI_XFER_MEM = 26,
    DI_LOGI_MEM = 27,
    DO_LOGI_MEM = 28,
    AO_ATTR_MEM = 29,
    DO_ATTR_MEM = 30,
    DISPLAY_STRINGS_MEM = 31,
    HISTORY_MEM = 32,
    FUEL_READING_MEM = 33,
    COMPRESSED_DATA_MEM = 34,
    CAL_TABLES_MEM = 35,
    DI_LOGI_XFER_MEM = 36,
    DI_INTG_XFER_MEM = 37,
    DO_LOGI_XFER_MEM = 38,
    DO_INTG_XFER_MEM = 39,
    DO_REAL_XFER_MEM = 40,
    CT_ATTR_MEM = 41,
    LIMIT_LOGI_MEM = 42,
    UNIT_MEM = 43,
    UNIT_INDEX_MEM = 44,
    SIGNAL_VARIABLE_MEM = 45,
    KEYWORD_MEM = 46,
    CO_ATTR_MEM = 47,
    CO_SCALDATA_MEM = 48,
    SM_ATTR_MEM = 49,
    CO_XFER_MEM = 50,
    CO_UINT_MEM = 51,
    SM_TBLS_CHAN_MEM = 52,
    PROPERTIES_MEM = 53,
    GU_REAL_MEM = 54,
    GU_INTEGER_MEM = 55,
    GU_LOGICAL_MEM = 56,
    GU_STRING_MEM = 57,
    GU_STAT_MEM = 58,
    SAVED_DATA_MEM = 59,
    SCHEDULER_MEM = 60,
    SPC_STAT_MEM = 61,
    WEIGH_ROOM_MEM = 62,
    ALIAS_MEM = 63,
    REAL_ARRAY_MEM = 64,
    INT_ARRAY_MEM = 65,
    STRING_ARRAY_MEM = 66,
    LOGI_ARRAY_MEM = 67,
    SAT_MEM = 68,
    HASH_TABLE_MEM = 69,
    DP_STAT_MEM = 70,
    FILLER2_MEM = 71,
    FILLER3_MEM = 72,
    CSAR_NAMESRCH_MEM = 73,
    CSAR_NAMESRCH_IND_INDX_TBL0_MEM = 74,
    CSAR_NAMESRCH_IND_INDX_TBL1_MEM = 75,
    CSAR_CSARNAMESRCH_MEM = 76,
    CSAR_CSARNAMESRCH_IND_TBL0_MEM = 77,
    CSAR_CSARNAMESRCH_IND_TBL1_MEM = 78,
    CSAR_EXTNAMESRCH_MEM = 79,
    CSAR_EXTNAMESRCH_IND_TBL0_MEM = 80,
    CSAR_EXTNAMESRCH_IND_TBL1_MEM = 81,
    CSAR_NAMESRCH_OWNER_MEM = 82,
    CSAR_OWNERSRCH_IDR_TBL0_MEM = 83,
    CSAR_OWNERSRCH_IDR_TBL1_MEM = 84,
    MAX_NUM_SHRD_MEM = 85,  // the number of areas
    MY_DUMMY_MEM = -3256    // forces the width
} OSTREL_TWO_BYTES SM_AREA_ID;
OSTREL_SIZE(SM_AREA_ID, 2);

// One run of records of one kind inside an area. A variable's handle names its area, its kind and its index in the
// section; its record lies at start + index * record_size from the base of the area.
typedef struct ostrel_section {
    SM_AREA_ID area;
    SM_VARI_TYPE kind;
    size_t start;        // bytes from the base of the area
    size_t record_size;  // bytes
    int capacity;        // records that a store has room for unless its configuration says otherwise; at most 32767
    int largest;         // records that a configuration may ask room for
    const char* name;    // the section's name in a cell file, such as "gu-real"
    const char* title;   // for people, such as "General Use (real)"
} ostrel_section;

// All sections, in the order in which people are shown them. `count` receives their number. The table is constant and
// lives as long as the process.
const ostrel_section* ostrel_sections(int* count);

// The section of that area and kind, or null where the area holds no such records.
const ostrel_section* ostrel_section_of(SM_AREA_ID area, SM_VARI_TYPE kind);

// Records that the store in use has room for in that section; 0 without a store or without such a section.
int ostrel_section_capacity(SM_AREA_ID area, SM_VARI_TYPE kind);

// Records of that section that were ever given to a variable, also those of variables that went: whoever looks for all
// variables looks at these. Those behind them must not be read where memory may be full.
int ostrel_section_used(SM_AREA_ID area, SM_VARI_TYPE kind);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif

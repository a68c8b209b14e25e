// The variable store: finding a variable by name, reaching its record in shared memory, writing it.
//
// A process uses one store. Its name is OSTREL_STORE in the environment, "cell" where that is not set. The first call
// attaches to it; where it is not running the call gives its answer for "no store" and the next call tries again. A
// pointer that a function returned stays good to the end of the process, whatever becomes of the server: after a
// server's end the memory keeps the last values.
#ifndef OSTREL_STORE_H
#define OSTREL_STORE_H

#include <ostrel/records.h>
#include <stddef.h>
#include <stdint.h>
#include <sys/types.h>
#include <time.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

// ---- Looking up -------------------------------------------------------------------------------------------------

// Finds a variable by its full name: a plain name, an alias, BASE.EXT for a member, ARRAY:i[:j[:k]] for an array
// element, where an index is a decimal number from 0 or one of the enumeration labels of that dimension. A variable
// with members is known as its label, which ends in its point. An alias gives the handle of what it stands for.
// 0: *mem is filled. Otherwise *mem is left as it was.
short int find_variable(char* label, SHARED_MEMORY* mem);

// 0 when `label` is an alias: *mem is the handle of the alias record itself, *index (may be null) its index.
short int find_alias_label(char* label, SHARED_MEMORY* mem, short int* index);

// 0 when an alias stands for the variable named `target` (its primary alias where it has several): *mem is the handle
// of the alias record, *alias points to its text in the store. Non-zero when it has none; *alias is left as it was.
short int find_alias_of_target(char* target, SHARED_MEMORY* mem, char** alias);

// 0 when `label`, with or without the point at its end, is the base name of a variable with members of that kind.
short int find_stat_label(char* label, SHARED_MEMORY* mem);
short int find_comp_label(char* label, SHARED_MEMORY* mem);
short int find_prop_label(char* label, SHARED_MEMORY* mem);
short int find_emis_label(char* label, SHARED_MEMORY* mem);

// The address of the record that the handle leads to, or null where it leads to none.
void* get_vrbl_adr(SHARED_MEMORY mem);

// The unit keyword of the variable, member or element; the empty text where it has none. Never null.
char* get_variable_units(SHARED_MEMORY mem);

// The array element that the handle selects (the first one when it selects none), or null.
REAL_ARRAY_MEMBER* get_real_array_adr(REAL_ARRAY_VARIABLE* array, SHARED_MEMORY* mem);
INTEGER_ARRAY_MEMBER* get_integer_array_adr(INTEGER_ARRAY_VARIABLE* array, SHARED_MEMORY* mem);
STRING_ARRAY_MEMBER* get_string_array_adr(STRING_ARRAY_VARIABLE* array, SHARED_MEMORY* mem);
LOGICAL_ARRAY_MEMBER* get_logical_array_adr(LOGICAL_ARRAY_VARIABLE* array, SHARED_MEMORY* mem);

// The printf format of a member, one conversion for a double, at most 7 characters: its display_resolution is the
// number of decimals up to 9, what lies above asks for "%g". Never null.
char* get_stat_format(STAT_VARIABLE* var, STAT_MEMBER_TYPE member);
char* get_comp_format(COMP_VARIABLE* var, COMPOSITION_MEMBER_TYPE member);
char* get_prop_format(PROP_VARIABLE* var, PROPERTY_MEMBER_TYPE member);
char* get_emis_format(EMIS_VARIABLE* var, EMISSION_MEMBER_TYPE member);

// Limits of the variable `label`, in its own units: `limits`, `exists` and `display` have NUM_LIMIT_TYPES entries each,
// indexed by LIMIT_ARRAY_INDEXES. 0: all of them and *status are filled, with `exists` 0 for a limit that the variable
// has not. Any of the pointers but `label` may be null.
short int get_limit_info(char* label, LIMIT_STATUS* status, double* limits, short int* exists, short int* display);

// The name of a member as it stands behind the point, such as "AV"; null for no such member.
const char* ostrel_member_name(SM_VARI_TYPE kind, int member);

// ---- Linking to memory ------------------------------------------------------------------------------------------

// A private block of the store by name, at least `size` bytes, zeroed when new. "reconfig_data" is the store's
// RECONFIG_DATA; its address stays the same and always shows the store in use, also one that comes later, with another
// count. Without a store a block is memory of this process. Never null for a name and a size up to 1 MiB.
void* get_private_shrd_mem(char* name, size_t size);

// The elements of the array `name` (label without index), and in *size (may be null) their bytes; null for no array.
void* link_to_array_mem(char* name, size_t* size);

// The same, taking the name with an index behind it too.
void* _MEMORY_LINK_SIZE(const char* name, size_t* size);

// Links a whole area and stores its base. 0 when linked.
short int link_to_memory(short int area, void** base);

// 1 when this process has the area linked, else 0.
short int shrd_mem_in_use(SM_AREA_ID area);

// Links a whole area; `size` 0 takes it as it is. The base, or null.
void* get_shrd_mem(SM_AREA_ID area, size_t size);

// Takes back one get_shrd_mem() or link_to_memory(). Pointers into the area stay good.
void fre_shrd_mem(SM_AREA_ID area);

// ---- Writing ----------------------------------------------------------------------------------------------------

// A write stores the value with its book-keeping: time, pid and program name, last value, update count, the trap for a
// value that is no number, and the variable's event when it asks for one on change. `var` is a record of the store.
// What has a result gives 0 for a value stored, another number for one refused; a refused value changes nothing. The
// cell decides what may be written to a variable. Each write, also a refused one, is kept in the list of writes.
void set_real_variable(REAL_VARIABLE* var, double value);
short int ostrel_set_real(REAL_VARIABLE* var, double value);
short int set_integer(INTEGER_VARIABLE* var, int value);
short int set_logical(LOGICAL_VARIABLE* var, short int value);

// `flags` is reserved (0); `time` is the time of the sample, null for now.
short int set_logical_variable(LOGICAL_VARIABLE* var, short int value, short int flags, struct timespec* time);

// Stores the state of a logical, 0 or 1, and nothing else of its record: no time, no pid, and no event is raised, as if
// the value were assigned. It is for those who would assign it: what the cell forbids is refused here too, memory that
// this process may only read is left alone, and the write is in the list of writes.
short int ostrel_store_logical(LOGICAL_VARIABLE* var, short int value);

// At most 80 characters are stored.
short int set_string_variable(STRING_VARIABLE* var, char* value);

// One array element; `mem` is the handle that find_variable() gave for it.
short int ostrel_set_array_element(const SHARED_MEMORY* mem, double number, const char* text);

// Why a value was refused; 0 where it was stored.
typedef enum ostrel_refusal {
    OSTREL_STORED = 0,
    OSTREL_NO_RECORD = 1,     // `var` is no record of a store
    OSTREL_NO_VALUE = 2,      // no value that the variable can hold, such as one that is no number
    OSTREL_READ_ONLY = 3,     // this process may not write to the store
    OSTREL_NOT_WRITABLE = 4,  // the cell lets nobody write the variable
    OSTREL_OUTSIDE = 5        // the cell lets nobody write values below its least or above its greatest one
} ostrel_refusal;

// One write, or one that was refused.
typedef struct ostrel_write {
    uint64_t number;  // counts the writes to the store, from 1
    struct timespec time;
    pid_t pid;
    uid_t uid;
    char program[24];
    char user[32];      // name of `uid`, its digits where it has none
    char variable[96];  // its own name, with decimal indexes for an array element
    SM_VARI_TYPE kind;
    short int refusal;   // an ostrel_refusal
    char old_value[88];  // as text: a number, 0 or 1 for a state, the first 80 characters of a text
    char new_value[88];
} ostrel_write;

// The oldest write with a number above `after` that the store still keeps; it keeps 4096. 0: *write is filled. Non-zero
// where there is none. One whose writer died over it is left out.
short int ostrel_next_write(uint64_t after, ostrel_write* write);

// ---- The store itself -------------------------------------------------------------------------------------------

// Chooses the store before any other call of this library: its name (null: OSTREL_STORE or "cell"), or with
// `cell_file` a private store made from that file inside this process, simulation included. Returns 0 when the store
// can be used; 1 when it is not running or cannot be used (later calls go on trying), `message` then holds the reason
// where something is there, such as another user's store; another number when `cell_file` cannot be served, `message`
// then holds the reasons, a line each. Without this call OSTREL_STORE and OSTREL_CELL decide. A name is 1 to
// 63 letters, digits, points, hyphens and underscores; another one gives a number above 1 and a reason too, also where
// it stands in OSTREL_STORE. Where what was asked for cannot be had, no store is used until the next call chooses.
int ostrel_store_open(const char* name, const char* cell_file, char* message, size_t message_size);

// A server shows at least twice a second that it scans. One that has not for so many seconds is silent: its values
// stand still, whatever its process does.
#define OSTREL_SILENCE_S 2.0

typedef struct ostrel_store_status {
    int found;               // 1: attached to a store; its server may be alive or dead
    int embedded;            // 1: the private store of this process
    int alive;               // 1: a server process keeps the store
    char name[64];           // name of the store, found or not
    char cell_file[256];     // the configuration that it serves, as its server was given it
    pid_t server_pid;        // 0 after a clean end
    uint64_t instance;       // another number for each store made; tells a new store of the old name
    uint32_t generation;     // goes up with each new layout of a living store
    double heartbeat_age_s;  // seconds since the server last showed that it scans; -1 without a store
    int variables;           // active names, aliases included
} ostrel_store_status;

// Looks at the store, attaching to it where that has become possible. Returns `found`.
int ostrel_store_get_status(ostrel_store_status* status);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif

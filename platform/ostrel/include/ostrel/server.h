// Serving a store: for the one process that keeps it.
//
// The server makes the store or adopts the one that a dead server left: values, slots and clients' pointers stay. It
// fills it in a reconfiguration: begin, put every variable that shall exist, commit. It beats at least twice a second.
// The functions of one server are called from one thread at a time. Timers run on a thread of the server's own.
//
// What clients write is held to the rules of ostrel_server_set_write_rule() and kept in the list of writes. What the
// server writes itself is neither: writes are its own on the thread that called open, begin, commit or beat last.
#ifndef OSTREL_SERVER_H
#define OSTREL_SERVER_H

#include <ostrel/records.h>
#include <stddef.h>
#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

typedef struct ostrel_server ostrel_server;

typedef struct ostrel_server_options {
    const char* name;       // of the store; null makes a private store of this process, which then uses it itself
    const char* cell_file;  // shown to clients; may be null
    int mode;               // access to the shared memory, 0600 where 0
    gid_t group;            // its group, where group_given is 1
    int group_given;
} ostrel_server_options;

// Null on failure; `message` then says why in one line, for instance that another server (pid) keeps the store.
ostrel_server* ostrel_server_open(const ostrel_server_options* options, char* message, size_t message_size);

// Ends the store cleanly: clients keep what they have linked, the name is free again. Frees `server`.
void ostrel_server_close(ostrel_server* server);

// Lets go of the store without ending it: it stays for the next server to adopt, as after a server's death. For one
// that has adopted it and cannot go on. Frees `server`.
void ostrel_server_leave(ostrel_server* server);

// 1 when the store was left by a dead server and adopted.
int ostrel_server_adopted(const ostrel_server* server);

// Shows that the server is alive and scanning.
void ostrel_server_beat(ostrel_server* server);

// Room that a configuration needs in the section of that area and kind.
typedef struct ostrel_server_room {
    SM_AREA_ID area;
    SM_VARI_TYPE kind;
    int variables;
} ostrel_server_room;

// Makes sure that the store has room for what the next reconfiguration of all areas will put, which must follow; called
// before its begin. 0: it has. 1: it had not, and a new generation with larger areas takes the old one's place with the
// commit. Until then clients see the old one as it is; it stays mapped for those who use it. Names that are put again
// keep their values, though not their places: records that were given out by put before are the old generation's. -1,
// with the reason, where a section cannot have that room; nothing has changed then.
int ostrel_server_make_room(ostrel_server* server, const ostrel_server_room* rooms, int count, char* message,
                            size_t message_size);

// One variable, array or alias that a reconfiguration will put.
typedef struct ostrel_server_variable {
    SM_AREA_ID area;
    SM_VARI_TYPE kind;
    const char* label;
    const char* target;           // of an alias
    int dimensions;               // of an array
    const unsigned short* sizes;  // of an array, so many
} ostrel_server_variable;

// Checks the names and takes the memory for what the next reconfiguration of all areas will put, which must follow;
// called between make_room and begin. 0: nothing of it will be refused. Else `message` has the reason and everything is
// as it was before make_room, for clients and for the server.
int ostrel_server_reserve(ostrel_server* server, const ostrel_server_variable* variables, int count, char* message,
                          size_t message_size);

// Starts a reconfiguration of one area, or of all with -1, and announces it. Variables not put again until commit go.
void ostrel_server_begin(ostrel_server* server, SM_AREA_ID area);

// Puts a variable into an area that was begun. A name that the section has, active or retired, keeps its slot and its
// values; a new one gets a free slot, a retired name's slot only where no other is free, and the slot of a name that
// was not put again yet only where the section is full of names that stand. Returns the record, with label, shm_id and
// index set, `*created` 1 where the other fields are zero and for the caller to fill. Null where `label` is no name (an
// identifier; one with a point at its end for a kind with members), stands already, or the section is full: `message`
// says which.
void* ostrel_server_put(ostrel_server* server, SM_AREA_ID area, SM_VARI_TYPE kind, const char* label, int* created,
                        char* message, size_t message_size);

// Puts an array with `dimensions` (1 to 3) sizes, 1 to 2500 each. `*elements` is the first of its element records,
// in row-major order. An array that stays with another shape gets new elements; *created is 1 then too, and the record
// is as a new one's.
void* ostrel_server_put_array(ostrel_server* server, SM_VARI_TYPE kind, const char* label, int dimensions,
                              const unsigned short* sizes, void** elements, int* created, char* message,
                              size_t message_size);

// Puts an alias for a full name that is put too, before or after. Null as above. An alias that stands for nothing when
// commit comes is left out, with a line in the log.
ALIAS_VARIABLE* ostrel_server_put_alias(ostrel_server* server, const char* alias, const char* target, int primary,
                                        char* message, size_t message_size);

// Limits that get_limit_info() tells, of a full name; NUM_LIMIT_TYPES entries each. In a reconfiguration they are known
// with its end, otherwise at once. A begin forgets the limits of the variables in its area.
void ostrel_server_set_limits(ostrel_server* server, const char* label, const double* limits, const short int* exists,
                              const short int* display);

// What clients may write to a variable. Numbers outside min and max are refused, and so is what is no number.
typedef struct ostrel_write_rule {
    int writable;  // 0: nothing at all
    int has_min;
    int has_max;
    double min;  // in the variable's own units
    double max;
} ostrel_write_rule;

// Holds what clients write to the variable, or to any element of the array, to the rule from now on. A variable that
// was put keeps the rule it had; a new one may be written without limits. 0, or non-zero for a label that was not put.
int ostrel_server_set_write_rule(ostrel_server* server, const char* label, const ostrel_write_rule* rule);

// Has what clients wrote since the last time appended to the file, a line each, and notes there how many writes came
// too fast to be kept. A thread of the server's own writes: no disk holds the caller up. Up to 4 MiB wait for a file
// that takes nothing; what came then is counted and told in the file. A file that has grown to `most_bytes` (0: any
// number) becomes FILE.1, FILE.1 becomes FILE.2, and so on to FILE.9. The place up to which the file has the writes
// stands in the store: a server that adopts it goes on from there, and a line that a killed server was about to write
// may be there twice, with the same number. 0, or non-zero with the reason where the last try failed: what waits goes
// into the file, or into the one that is named next, when that is possible. A link, what is no regular file and what
// belongs to another user than this one or root is not written to. Costs next to nothing where nobody has written.
int ostrel_server_drain_writes(ostrel_server* server, const char* file, size_t most_bytes, char* message,
                               size_t message_size);

// The same for the lines of log_error(), of all programs of the store.
int ostrel_server_drain_log(ostrel_server* server, const char* file, size_t most_bytes, char* message,
                            size_t message_size);

// Waits until both files have what was handed to them, so long at most for each. 0 where they have.
int ostrel_server_flush(ostrel_server* server, int milliseconds);

// Makes the names known, retires what was not put, counts the reconfiguration and announces its end.
void ostrel_server_commit(ostrel_server* server);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif

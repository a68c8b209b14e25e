// The cell engine: reads a cell file, fills a store with its variables and drives them.
//
// What holds for every function: it is plain C and never throws. `message` receives the reasons of a failure, a line
// each, "FILE:LINE: reason" where a line of the file is to blame; it may be null. Nothing is loaded from a file with a
// mistake. The functions that take a cell are called from one thread at a time.
#ifndef OSTREL_CELL_CELL_H
#define OSTREL_CELL_CELL_H

#include <stddef.h>
#include <sys/types.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ostrel_cell ostrel_cell;

typedef struct ostrel_cell_summary {
    char name[64];  // of the cell, as its file says
    int variables;  // arrays and variables with members count as one
    int aliases;
    int scan_ms;
    int adopted;  // 1 when the store was left by a dead server and taken over with its values
} ostrel_cell_summary;

// Reads and checks a file without a store. 0, or non-zero with all reasons. `summary` may be null.
int ostrel_cell_check(const char* cell_file, ostrel_cell_summary* summary, char* message, size_t message_size);

// Serves the store `store_name` (null: a private store of this process) from the file. Null on failure: a mistake in
// the file, or another server that keeps the store.
ostrel_cell* ostrel_cell_open(const char* cell_file, const char* store_name, char* message, size_t message_size);

void ostrel_cell_get_summary(const ostrel_cell* cell, ostrel_cell_summary* summary);

// Does what is due: a scan, a sign of life. Returns the nanoseconds after which it wants to be called again. A call
// that comes late scans once; the periods missed are not made up for.
long long ostrel_cell_step(ostrel_cell* cell);

// Reads the file again. 0: the store now has what the file says, variables that stay keep their values. Non-zero: the
// file has mistakes and the cell goes on as it was. After success `message` may hold remarks, a line each, else it is
// empty.
int ostrel_cell_reload(ostrel_cell* cell, char* message, size_t message_size);

// Ends the store cleanly and frees the cell.
void ostrel_cell_close(ostrel_cell* cell);

// Serves a private store inside this process and scans it on a thread of its own to the end of the process. 0, or
// non-zero with all reasons. For libostrel, which calls it once.
int ostrel_cell_embed(const char* cell_file, char* message, size_t message_size);

#ifdef __cplusplus
}
#endif

#endif

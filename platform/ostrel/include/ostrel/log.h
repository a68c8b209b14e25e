// The platform's log: a line on standard error and, by way of the store, in the log file of the cell.
#ifndef OSTREL_LOG_H
#define OSTREL_LOG_H

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

// Writes one line: time, program, pid, source file and line, status, and the text that `format` gives. `level` is
// written as it is. A line longer than 1000 bytes is cut; line breaks in it become blanks.
void log_error(const char* file, int line, int level, int status, const char* format, ...)
    __attribute__((format(printf, 5, 6)));

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif

// Units of measurement by keyword. A keyword has at most 15 characters; upper and lower case are the same.
//
// A keyword converts to those of its own group: a gauge pressure to an absolute one, but a torque to no energy. The
// empty text is the keyword NONE. An unknown keyword always fails; two equal known ones give the very value back.
// OSTREL_UNITS in the environment names a text file of keywords that a site adds, a line each:
// KEYWORD CODE GROUP EXPRESSION, with a code from 10000 on, and in UDUNITS' words what the unit is; # starts a comment.
#ifndef OSTREL_UNITS_H
#define OSTREL_UNITS_H

#include <ostrel/records.h>

#ifdef __cplusplus
extern "C" {
#endif
#pragma GCC visibility push(default)

typedef char UNITS_NAME[16];

// Converts `value` from one keyword to another. 0: *result is set; otherwise it is left as it was.
int unitsConvert(double value, char* from, double* result, char* to);
short int units_dbl_keyword_convrt(double value, char* from, double* result, char* to);

// The same for integers, rounded to the nearest; fails where the result does not fit an int.
short int units_lng_keyword_convrt(int value, char* from, int* result, char* to);

// Reads a variable in the given units.
short int units_get_int_keyword(int* result, INTEGER_VARIABLE* var, char* units);
short int units_get_real_keyword(double* result, REAL_VARIABLE* var, char* units);

// Codes are positive; a keyword keeps its code from release to release. `keyword` has room for 16 bytes.
short int units_code_to_keyword(int code, char* keyword);
short int units_keyword_to_code(char* keyword, int* code);

// Lists the keywords that `units` can be converted to, itself included. On entry *count is the capacity of `keywords`,
// on return the number listed. A list that the capacity cuts has `units` as its last entry where it was cut off. 0; or
// -1, with *count 0, for what is no keyword or a capacity below 1. LV_get_units2 gives -1 for units without dimension
// too, whose only company are other words for none.
short int LV_get_units(char* units, short int* count, char (*keywords)[16]);
short int LV_get_units2(char* units, short int* count, UNITS_NAME* keywords);

#pragma GCC visibility pop
#ifdef __cplusplus
}
#endif

#endif

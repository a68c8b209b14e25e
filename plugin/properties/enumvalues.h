// Between the values of an enumeration and what a property browser shows of it: for an enum the position among the
// distinct values, for flags bit n for the n-th distinct value that is a single bit. Keys that repeat a value do not
// count.
#ifndef OSTREL_PROPERTIES_ENUMVALUES_H
#define OSTREL_PROPERTIES_ENUMVALUES_H

#include <QMetaEnum>
#include <QStringList>

// The first key of each distinct value, in their order.
QStringList enumNames(const QMetaEnum& metaEnum);
// The same of those values that are a single bit.
QStringList flagNames(const QMetaEnum& metaEnum);

// The position, or -1 for a value without a key.
int enumToInt(const QMetaEnum& metaEnum, int enumValue);
// The value, or -1 for a position beyond the end.
int intToEnum(const QMetaEnum& metaEnum, int intValue);
int flagToInt(const QMetaEnum& metaEnum, int flagValue);
// -1 where a bit is set beyond the end.
int intToFlag(const QMetaEnum& metaEnum, int intValue);

bool isPowerOf2(int value);
// True when every bit of `subValue` is set in `value`.
bool isSubValue(int value, int subValue);

#endif

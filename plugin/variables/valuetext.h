// A value as text, in the format that its record gives.
#ifndef OSTREL_VARIABLES_VALUETEXT_H
#define OSTREL_VARIABLES_VALUETEXT_H

#include <QString>

// `format` is a printf format of at most `size` bytes, with or without a terminating zero. It comes from shared memory
// and is used only if it is one conversion that fits the value, with flags, width, precision and literal text around
// it; otherwise "%g" or "%d" stands in, and one debug line names the variable. The decimal point is always a point.
QString valueText(const char* format, size_t size, double value, const QString& variable);
QString valueText(const char* format, size_t size, int value, const QString& variable);

template <size_t size, class Value>
QString valueText(const char (&format)[size], Value value, const QString& variable) {
    return valueText(format, size, value, variable);
}

// The long-number rule: what does not fit a read-out is shown in short scientific form. Reads the number at the start
// of `text` in single precision; a number that is zero leaves the text as it is.
void shortenNumber(QString& text);

// The number at the start of `text`, as strtod reads it, with a point as the decimal point; 0 for none.
double leadingNumber(const QString& text);

#endif

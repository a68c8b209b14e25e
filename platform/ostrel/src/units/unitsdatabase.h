// UDUNITS and its database of units. All functions may be called from any thread: one lock stands in front of UDUNITS,
// which keeps its state in variables of its own. Its messages are silenced; what went wrong is told by the results.
#ifndef OSTREL_UNITS_UNITSDATABASE_H
#define OSTREL_UNITS_UNITSDATABASE_H

#include <udunits2.h>

#include <memory>
#include <string>

struct FreeConverter {
    void operator()(cv_converter* converter) const { cv_free(converter); }
};
using ConverterPtr = std::unique_ptr<cv_converter, FreeConverter>;

// False where the database cannot be read, which the first call writes to the log.
bool unitsDatabaseIsReadable();

// Whether UDUNITS can make sense of an expression.
bool isUnitExpression(const std::string& expression);

// From one expression to another; null where they have different dimensions or the database cannot be read.
ConverterPtr makeConverter(const std::string& from, const std::string& to);

#endif

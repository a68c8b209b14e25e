// Asking the operator for a new value, and writing it.
#ifndef OSTREL_VARIABLES_VALUEENTRY_H
#define OSTREL_VARIABLES_VALUEENTRY_H

#include <ostrel/records.h>

#include <QString>
#include <QWidget>

// Decimals that a record's format shows: the number behind its point, 6 where there is none.
int formatDecimals(const QString& format);

// What becomes of a value that cannot be converted: a debug line, or nothing at all.
enum class Unconverted { Logged, Silent };

// Asks for a real value and writes it. A value is entered in `displayUnits` where these are not empty, and converted
// to the record's own before the write; what cannot be converted is not written. The start value is the raw one.
//
// The arguments are the widget's own fields, which go on living while the dialog is open: the store may move the
// record, or the operator may re-aim the widget. A value that was asked for under another name is not written.
void enterReal(QWidget* parent, const QString& name, char* displayUnits, REAL_VARIABLE*& record, int decimals,
               Unconverted unconverted = Unconverted::Logged);

// The same for an integer. A value in display units is converted to those of `lastReal`, the last real variable that
// the widget was bound to, and to the integer's own where there was none.
void enterInteger(QWidget* parent, const QString& name, char* displayUnits, INTEGER_VARIABLE*& record,
                  REAL_VARIABLE*& lastReal);

// The same for a text, which has no units.
void enterString(QWidget* parent, const QString& name, STRING_VARIABLE*& record);

// Says that there is no variable to write to, and waits for the operator.
void tellNoVariable(QWidget* parent);

#endif

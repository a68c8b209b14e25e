// Kinds of variables, and which of them a widget shows.
#ifndef OSTREL_VARIABLES_KINDS_H
#define OSTREL_VARIABLES_KINDS_H

#include <ostrel/records.h>

#include <QFlags>
#include <QString>
#include <initializer_list>

// Kinds that a widget accepts, and the filter of the selection dialog. QT_OSTREL_ANY is compared as a whole value.
enum QT_OSTREL_FLAGS {
    QT_OSTREL_LOGICAL = 1,
    QT_OSTREL_STRING = 2,
    QT_OSTREL_INTEGER = 4,
    QT_OSTREL_REAL = 8,
    QT_OSTREL_STAT = 16,
    QT_OSTREL_EMIS = 32,
    QT_OSTREL_COMP = 64,
    QT_OSTREL_REAL_INTEGER = 128,
    QT_OSTREL_PROP = 256,
    QT_OSTREL_ARRAY = 512,
    QT_OSTREL_ANY = 1023,
    QT_OSTREL_IO_MEM = 1024
};
Q_DECLARE_FLAGS(QT_OSTREL_VAR_TYPE, QT_OSTREL_FLAGS)
Q_DECLARE_OPERATORS_FOR_FLAGS(QT_OSTREL_VAR_TYPE)

enum VariableAcceptance { VariableUnknown = 0, VariableAccepted = 1, VariableRefused = 2 };

// Looks `name` up and tells whether it is a variable of one of the kinds.
VariableAcceptance acceptVariable(const QString& name, std::initializer_list<SM_VARI_TYPE> kinds);

#endif

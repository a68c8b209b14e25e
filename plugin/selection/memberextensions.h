// The members of a variable with members as they stand behind its point, in the order of the record's members.
#ifndef OSTREL_SELECTION_MEMBEREXTENSIONS_H
#define OSTREL_SELECTION_MEMBEREXTENSIONS_H

#include <ostrel/records.h>

#include <QStringList>

extern const char stat_extenders[NUM_MEMBER_TYPES][8];
extern const char comp_extenders[NUM_COMPOSITION_TYPES][8];
extern const char prop_extenders[NUM_PROPERTY_TYPES][8];
extern const char emis_extenders[NUM_EMISSION_TYPES][16];

template <size_t count, size_t width>
QStringList extensionList(const char (&extenders)[count][width]) {
    QStringList list;
    for (const auto& extender : extenders)
        list.append(QLatin1String(extender));
    return list;
}

#endif

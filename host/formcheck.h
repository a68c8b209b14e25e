// What a form file says, before anything is built from it.
#ifndef OSTREL_HOST_FORMCHECK_H
#define OSTREL_HOST_FORMCHECK_H

#include <QHash>
#include <QIODevice>
#include <QSet>
#include <QString>
#include <QStringList>

struct FormOutline {
    QStringList faults;             // a line each; with any, the form must not be built
    QHash<QString, QString> units;  // object name to the units that the form asks for
};

// Reads the form in `device`. `form` stands before each fault; `known` are the classes that can be built. A class that
// the form only declares is not known by that: what it extends would be shown in its place, without a word.
FormOutline outlineForm(QIODevice* device, const QString& form, const QSet<QString>& known);

// The known name that `wrong` was most likely meant to be, or empty.
QString nearestName(const QString& wrong, const QSet<QString>& known);

#endif

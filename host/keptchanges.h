// Unsaved changes of a form and of its groups as they outlive its widgets, or the whole display.
#ifndef OSTREL_HOST_KEPTCHANGES_H
#define OSTREL_HOST_KEPTCHANGES_H

#include <QByteArray>
#include <QVector>

#include "groupbook.h"

struct KeptChanges {
    QByteArray form;  // as the form writer packs them; empty for none
    QVector<GroupChange> groups;

    bool isEmpty() const { return form.isEmpty() && groups.isEmpty(); }

    QByteArray packed() const;
    // Nothing where the text is another one, or damaged.
    static KeptChanges unpacked(const QByteArray& text);
};

#endif

#include "ostrel-display/formchanges.h"

uint qHash(const FormKey& key, uint seed) {
    return qHash(key.className, qHash(key.objectName, qHash(key.property, seed)));
}

FormChanges::FormChanges(QObject* parent) : QObject(parent) {}

void FormChanges::remember(const FormKey& key, const QVariant& value, bool live) {
    const bool wasDirty = isDirty();
    Entry& entry = m_entries[key];
    m_changed -= entry.changed ? 1 : 0;
    entry.last = value;
    if (!live)
        entry.own = value;
    entry.changed = live && entry.own != value;
    m_changed += entry.changed ? 1 : 0;
    if (isDirty() != wasDirty)
        emit dirtyChanged(isDirty());
}

bool FormChanges::isDirty() const {
    return m_changed > 0;
}

QVariant FormChanges::value(const FormKey& key) const {
    return m_entries.value(key).last;
}

bool FormChanges::isChanged(const FormKey& key) const {
    return m_entries.value(key).changed;
}

// The names of the variables in the running store.
#ifndef OSTREL_DISPLAY_STORENAMES_H
#define OSTREL_DISPLAY_STORENAMES_H

#include <QString>
#include <QStringList>

class StoreNames {
public:
    // Looks at the store again. True when it is another one, came or went, or has other variables.
    bool refresh();

    // Without a store no name is known and none is missing.
    bool hasStore() const { return m_found; }
    bool isMissing(const QString& name) const;

    // Every name that can stand in a group, sorted: variables, aliases, members and array elements.
    const QStringList& all() const { return m_all; }

private:
    void read();

    bool m_found = false;
    quint64 m_instance = 0;
    quint32 m_generation = 0;
    int m_variables = 0;
    QStringList m_all;
};

#endif

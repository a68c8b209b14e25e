// Looks at the store a few times a second.
#ifndef OSTREL_HOST_CELLWATCH_H
#define OSTREL_HOST_CELLWATCH_H

#include <QObject>
#include <QTimer>

#include "cellstate.h"

class CellWatch : public QObject {
    Q_OBJECT

public:
    // Looks once at once, so that state() holds from the first frame.
    explicit CellWatch(QObject* parent = nullptr);

    const CellState& state() const { return m_state; }

    // Looks now, and tells.
    void look();

Q_SIGNALS:
    void looked(const CellState& state);

private:
    CellState m_state;
    QTimer m_timer;
};

#endif

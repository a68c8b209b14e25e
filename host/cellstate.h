// How the cell behind the display is doing, and the words for it.
#ifndef OSTREL_HOST_CELLSTATE_H
#define OSTREL_HOST_CELLSTATE_H

#include <ostrel/store.h>

#include <QDateTime>
#include <QString>

enum class CellCondition {
    Alive,    // values are fresh
    Silent,   // its server runs but has not scanned for a while
    Ended,    // the store is there, nobody serves it
    NoStore,  // there is no store of that name
};

struct CellState {
    CellCondition condition = CellCondition::NoStore;
    QString store;
    bool embedded = false;
    double heartbeatAge = -1;  // seconds; -1 without a store
    QDateTime lastBeat;        // invalid without a store
    quint64 instance = 0;      // 0 without a store
    quint32 generation = 0;
    int reconfigurations = 0;  // the store's counter

    bool found() const { return condition != CellCondition::NoStore; }
    bool alive() const { return condition == CellCondition::Alive; }
};

// `reconfigurations` is the store's counter, 0 without a store.
CellState cellStateOf(const ostrel_store_status& status, int reconfigurations, const QDateTime& now);

// False when the records of the one may lie elsewhere in the other.
bool sameConfiguration(const CellState& one, const CellState& other);

// "12 s", "3 min 20 s", "2 h 5 min", "4 days".
QString durationText(double seconds);

// What an operator must know while values are not fresh: a headline and its explanation. Empty for a cell that lives.
QString noDataHeadline(const CellState& state);
QString noDataReason(const CellState& state);

// One line for the status bar: the store and how it is.
QString storeText(const CellState& state);
QString heartbeatText(const CellState& state);

#endif

#include "cellstate.h"

#include <cmath>

namespace {

CellCondition conditionOf(const ostrel_store_status& status) {
    if (!status.found)
        return CellCondition::NoStore;
    if (!status.alive)
        return CellCondition::Ended;
    return status.heartbeat_age_s < OSTREL_SILENCE_S ? CellCondition::Alive : CellCondition::Silent;
}

// A time of day alone would lie about a cell that has been down since yesterday.
QString momentText(const QDateTime& moment, double age) {
    return moment.toString(age < 12 * 3600 ? QStringLiteral("HH:mm:ss") : QStringLiteral("yyyy-MM-dd HH:mm:ss"));
}

}  // namespace

CellState cellStateOf(const ostrel_store_status& status, int reconfigurations, const QDateTime& now) {
    CellState state;
    state.condition = conditionOf(status);
    state.store = QString::fromLocal8Bit(status.name);
    state.embedded = status.embedded != 0;
    if (!state.found())
        return state;
    state.heartbeatAge = status.heartbeat_age_s;
    state.lastBeat = now.addMSecs(-std::llround(status.heartbeat_age_s * 1000));
    state.instance = status.instance;
    state.generation = status.generation;
    state.reconfigurations = reconfigurations;
    return state;
}

bool sameConfiguration(const CellState& one, const CellState& other) {
    return one.instance == other.instance && one.generation == other.generation &&
           one.reconfigurations == other.reconfigurations;
}

QString durationText(double seconds) {
    const qint64 whole = std::llround(std::floor(seconds));
    if (whole < 60)
        return QStringLiteral("%1 s").arg(whole);
    if (whole < 3600)
        return QStringLiteral("%1 min %2 s").arg(whole / 60).arg(whole % 60);
    if (whole < 172800)
        return QStringLiteral("%1 h %2 min").arg(whole / 3600).arg(whole / 60 % 60);
    return QStringLiteral("%1 days").arg(whole / 86400);
}

QString noDataHeadline(const CellState& state) {
    if (state.alive())
        return {};
    if (!state.found())
        return QStringLiteral("NO DATA");
    return QStringLiteral("NO DATA SINCE %1 (%2)")
        .arg(momentText(state.lastBeat, state.heartbeatAge), durationText(state.heartbeatAge));
}

QString noDataReason(const CellState& state) {
    switch (state.condition) {
        case CellCondition::Alive:
            return {};
        case CellCondition::Silent:
            return QStringLiteral("the cell '%1' does not answer. Values below are frozen.").arg(state.store);
        case CellCondition::Ended:
            return QStringLiteral("the cell '%1' is not running. Values below are frozen.").arg(state.store);
        case CellCondition::NoStore:
            break;
    }
    return QStringLiteral("there is no cell '%1'. Values appear when it is started.").arg(state.store);
}

QString storeText(const CellState& state) {
    const QString name = state.embedded ? QStringLiteral("inside this display") : '\'' + state.store + '\'';
    switch (state.condition) {
        case CellCondition::Alive:
            return QStringLiteral("Cell %1: running").arg(name);
        case CellCondition::Silent:
            return QStringLiteral("Cell %1: does not answer").arg(name);
        case CellCondition::Ended:
            return QStringLiteral("Cell %1: not running").arg(name);
        case CellCondition::NoStore:
            break;
    }
    return QStringLiteral("Cell %1: not found").arg(name);
}

QString heartbeatText(const CellState& state) {
    if (!state.found())
        return QStringLiteral("No heartbeat");
    if (state.heartbeatAge < 1)  // a lively number would only distract
        return QStringLiteral("Heartbeat < 1 s ago");
    return QStringLiteral("Heartbeat %1 ago").arg(durationText(state.heartbeatAge));
}

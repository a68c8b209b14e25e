#include "cellwatch.h"

namespace {

constexpr int lookEvery = 250;  // ms

int reconfigurations() {
    char block[] = "reconfig_data";
    const auto* counters = static_cast<const RECONFIG_DATA*>(get_private_shrd_mem(block, sizeof(RECONFIG_DATA)));
    return counters ? counters->generic_reconfig_count : 0;
}

CellState currentState() {
    ostrel_store_status status{};
    const bool found = ostrel_store_get_status(&status) != 0;
    // The block is asked for again each time: another store has another one.
    return cellStateOf(status, found ? reconfigurations() : 0, QDateTime::currentDateTime());
}

}  // namespace

CellWatch::CellWatch(QObject* parent) : QObject(parent), m_state(currentState()) {
    connect(&m_timer, &QTimer::timeout, this, &CellWatch::look);
    m_timer.start(lookEvery);
}

void CellWatch::look() {
    m_state = currentState();
    emit looked(m_state);
}

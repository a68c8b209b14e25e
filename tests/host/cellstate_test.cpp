#include "cellstate.h"

#include <QtTest>
#include <cstring>

#include "qttests.h"

namespace {

const QDateTime now(QDate(2026, 3, 4), QTime(14, 3, 39));

CellState state(int found, int alive, double age) {
    ostrel_store_status status{};
    status.found = found;
    status.alive = alive;
    std::strncpy(status.name, "bench", sizeof(status.name) - 1);
    status.heartbeat_age_s = age;
    status.instance = 7;
    status.generation = 2;
    return cellStateOf(status, 3, now);
}

}  // namespace

class CellStateTest : public QObject {
    Q_OBJECT

private slots:
    void words_data();
    void words();
    void durations_data();
    void durations();
    void dayIsToldWhenItMatters();
    void embeddedStoreHasNoName();
    void anotherConfigurationIsNoticed();
};

void CellStateTest::words_data() {
    QTest::addColumn<int>("found");
    QTest::addColumn<int>("alive");
    QTest::addColumn<double>("age");
    QTest::addColumn<QString>("banner");
    QTest::addColumn<QString>("bar");
    QTest::newRow("fresh") << 1 << 1 << 0.2 << ""
                           << "Cell 'bench': running, Heartbeat < 1 s ago";
    QTest::newRow("just in time") << 1 << 1 << 1.99 << ""
                                  << "Cell 'bench': running, Heartbeat 1 s ago";
    QTest::newRow("silent")
        << 1 << 1 << 2.0 << "NO DATA SINCE 14:03:37 (2 s): the cell 'bench' does not answer. Values below are frozen."
        << "Cell 'bench': does not answer, Heartbeat 2 s ago";
    // A dead server is told at once, however short ago it beat.
    QTest::newRow("just killed")
        << 1 << 0 << 0.1 << "NO DATA SINCE 14:03:38 (0 s): the cell 'bench' is not running. Values below are frozen."
        << "Cell 'bench': not running, Heartbeat < 1 s ago";
    QTest::newRow("killed")
        << 1 << 0 << 12.0 << "NO DATA SINCE 14:03:27 (12 s): the cell 'bench' is not running. Values below are frozen."
        << "Cell 'bench': not running, Heartbeat 12 s ago";
    QTest::newRow("no store") << 0 << 0 << -1.0
                              << "NO DATA: there is no cell 'bench'. Values appear when it is started."
                              << "Cell 'bench': not found, No heartbeat";
}

void CellStateTest::words() {
    QFETCH(int, found);
    QFETCH(int, alive);
    QFETCH(double, age);
    const CellState cell = state(found, alive, age);
    const QString headline = noDataHeadline(cell);
    QTEST(headline.isEmpty() ? noDataReason(cell) : headline + ": " + noDataReason(cell), "banner");
    QTEST(storeText(cell) + ", " + heartbeatText(cell), "bar");
}

void CellStateTest::durations_data() {
    QTest::addColumn<double>("seconds");
    QTest::addColumn<QString>("text");
    QTest::newRow("now") << 0.0 << "0 s";
    QTest::newRow("seconds") << 59.9 << "59 s";
    QTest::newRow("a minute") << 60.0 << "1 min 0 s";
    QTest::newRow("minutes") << 3599.0 << "59 min 59 s";
    QTest::newRow("hours") << 7500.0 << "2 h 5 min";
    QTest::newRow("two days") << 172800.0 << "2 days";
}

void CellStateTest::durations() {
    QFETCH(double, seconds);
    QTEST(durationText(seconds), "text");
}

void CellStateTest::dayIsToldWhenItMatters() {
    QCOMPARE(noDataHeadline(state(1, 0, 86400)), QString("NO DATA SINCE 2026-03-03 14:03:39 (24 h 0 min)"));
}

void CellStateTest::embeddedStoreHasNoName() {
    ostrel_store_status status{};
    status.found = status.alive = status.embedded = 1;
    QCOMPARE(storeText(cellStateOf(status, 0, now)), QString("Cell inside this display: running"));
}

void CellStateTest::anotherConfigurationIsNoticed() {
    const CellState bound = state(1, 1, 0.1);
    QVERIFY(sameConfiguration(bound, state(1, 0, 30)));
    CellState other = bound;
    other.instance = 8;
    QVERIFY(!sameConfiguration(bound, other));
    other = bound;
    other.generation = 3;
    QVERIFY(!sameConfiguration(bound, other));
    other = bound;
    other.reconfigurations = 4;
    QVERIFY(!sameConfiguration(bound, other));
    QVERIFY(!sameConfiguration(state(0, 0, -1), bound));
}

OSTREL_TEST_WITHOUT_SCREEN(CellStateTest)
#include "cellstate_test.moc"

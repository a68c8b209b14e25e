// A cell that dies, ends, hangs and comes back under a display that goes on running: a frozen value must never look
// like a good one.
#include <csignal>

#include "fabric/timermoderator.h"
#include "qttests.h"
#include "testcell.h"
#include "window.h"

class LostCellTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void looksGoodWithACellThatLives();
    void lostCellIsToldAndTheValuesStay_data();
    void lostCellIsToldAndTheValuesStay();
    void hangingCellIsToldAndComesBack();
    void bannerIsLargeAndRed();
    void cleanupTestCase();

private:
    QString bannerEnd(const char* what) const {
        return QString(": the cell '%1' %2. Values below are frozen.").arg(m_cell->store(), what);
    }
    void setEverything(int number);
    bool showsEverything(int number);

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<Window> m_window;
};

void LostCellTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
    m_window = std::make_unique<Window>();
}

void LostCellTest::setEverything(int number) {
    QVERIFY(m_cell->set("ENGINE_SPEED", QString::number(number)));
    QVERIFY(m_cell->set("CYCLES", QString::number(number)));
    QVERIFY(m_cell->set("PUMP_ON", QString::number(number % 2)));
    QVERIFY(m_cell->set("CYL_TEMP:1", QString::number(number)));
}

bool LostCellTest::showsEverything(int number) {
    return m_window->value("speed") == QString::number(number) + ".0" &&
           m_window->value("alias") == QString::number(number) + ".0" &&
           m_window->value("cycles") == QString::number(number) &&
           m_window->value("pump") == (number % 2 ? "RUNNING" : "STOPPED") &&
           m_window->value("cylinder") == QString::number(number);
}

void LostCellTest::looksGoodWithACellThatLives() {
    QVERIFY(m_window->looksGood());
    QCOMPARE(m_window->field("bindingField"), QString("7 bound, 1 missing"));
    QCOMPARE(m_window->field("heartbeatField"), QString("Heartbeat < 1 s ago"));
    QCOMPARE(m_window->units("oilUnitsFirst"), QString("degF"));
    QCOMPARE(m_window->units("oilNameFirst"), QString("degF"));
}

void LostCellTest::lostCellIsToldAndTheValuesStay_data() {
    QTest::addColumn<int>("signal");
    QTest::addColumn<int>("number");
    QTest::newRow("killed") << SIGKILL << 1201;
    QTest::newRow("ended") << SIGTERM << 1302;
    QTest::newRow("killed once more") << SIGKILL << 1403;
    QTest::newRow("ended once more") << SIGTERM << 1505;
}

void LostCellTest::lostCellIsToldAndTheValuesStay() {
    QFETCH(int, signal);
    QFETCH(int, number);
    setEverything(number);
    EVENTUALLY(showsEverything(number));

    m_cell->signal(signal);
    QVERIFY(m_cell->hasEnded());
    EVENTUALLY(m_window->banner().endsWith(bannerEnd("is not running")));
    QVERIFY(m_window->banner().startsWith("NO DATA SINCE "));
    QVERIFY(m_window->isVeiled());
    QVERIFY(m_window->field("storeField").endsWith(": not running"));
    QVERIFY(showsEverything(number));

    QVERIFY(m_cell->start());
    EVENTUALLY(m_window->looksGood());
    // A widget that kept a pointer into the old store would now show a frozen value under a cell that lives.
    setEverything(number + 1001);
    EVENTUALLY(showsEverything(number + 1001));
    BECOMES(m_window->field("bindingField"), "7 bound, 1 missing");
    QCOMPARE(m_window->units("oilUnitsFirst"), QString("degF"));
    QCOMPARE(m_window->units("oilNameFirst"), QString("degF"));
}

void LostCellTest::hangingCellIsToldAndComesBack() {
    m_cell->signal(SIGSTOP);
    EVENTUALLY(m_window->banner().endsWith(bannerEnd("does not answer")));
    QVERIFY(m_window->isVeiled());
    QVERIFY(m_window->field("storeField").endsWith(": does not answer"));
    m_cell->signal(SIGCONT);
    EVENTUALLY(m_window->looksGood());
    setEverything(77);
    EVENTUALLY(showsEverything(77));
}

void LostCellTest::bannerIsLargeAndRed() {
    m_cell->signal(SIGKILL);
    QVERIFY(m_cell->hasEnded());
    EVENTUALLY(!m_window->banner().isEmpty());
    const auto* banner = m_window->window().findChild<Banner*>();
    QCOMPARE(banner->width(), m_window->window().width());
    QVERIFY(banner->height() > 3 * banner->fontMetrics().height());
    const QPoint corner = banner->mapTo(&m_window->window(), QPoint(1, 1));
    const QColor colour = m_window->window().grab().toImage().pixelColor(corner);
    QVERIFY2(colour.red() > 120 && colour.green() < 60 && colour.blue() < 60, qPrintable(colour.name()));
}

void LostCellTest::cleanupTestCase() {
    m_window.reset();
    TimerModerator::shutDown();
    m_cell.reset();
}

OSTREL_TEST(LostCellTest)
#include "lostcell_test.moc"

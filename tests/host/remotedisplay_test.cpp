// A remote display only shows: the globals that this program sets must be those that the plug-in library reads.
#include "fabric/timermoderator.h"
#include "hostlink/globals.h"
#include "qttests.h"
#include "testcell.h"
#include "window.h"

class RemoteDisplayTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void hasNoMenu();
    void samplesAtItsOwnRate();
    void doubleClickWritesNothing();
    void cleanupTestCase();

private:
    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<Window> m_window;
};

void RemoteDisplayTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
    RemoteDisplay = true;
    RemoteUpdateRate = 80;
    m_window = std::make_unique<Window>();
}

void RemoteDisplayTest::hasNoMenu() {
    QVERIFY(m_window->widget("speed")->actions().isEmpty());
}

void RemoteDisplayTest::samplesAtItsOwnRate() {
    QVERIFY(TimerModerator::isRegistered(m_window->widget("speed"), 80));
    QVERIFY(!TimerModerator::isRegistered(m_window->widget("speed"), 50));
    QVERIFY(m_cell->set("CYCLES", "7"));
    BECOMES(m_window->value("cycles"), "7");
}

void RemoteDisplayTest::doubleClickWritesNothing() {
    BECOMES(m_window->value("pump"), "STOPPED");
    QTest::mouseDClick(m_window->widget("pump")->findChild<QLineEdit*>("value"), Qt::LeftButton);
    // Something that was written after it arrives, so the double click has had its time.
    QVERIFY(m_cell->set("CYCLES", "8"));
    BECOMES(m_window->value("cycles"), "8");
    QCOMPARE(m_window->value("pump"), QString("STOPPED"));
}

void RemoteDisplayTest::cleanupTestCase() {
    m_window.reset();
    TimerModerator::shutDown();
    m_cell.reset();
}

OSTREL_TEST(RemoteDisplayTest)
#include "remotedisplay_test.moc"

// What a display lets its operator change: --lock and --lock-units, and what the menu answers then.
#include <QtTest>
#include <memory>

#include "paths.h"
#include "qttests.h"
#include "screen.h"
#include "testcell.h"

class LocksTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void lockedVariableIsRefused_data();
    void lockedVariableIsRefused();
    void variableThatIsNotLockedCanBeChosen_data();
    void variableThatIsNotLockedCanBeChosen();
    void lockedUnitsAreRefused();
    void unitsThatAreNotLockedCanBeChosen();

private:
    bool open(const QStringList& options);
    bool chooseFromMenu(const QString& widget, const QString& entry);

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<Screen> m_screen;
};

void LocksTest::init() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
    m_screen = std::make_unique<Screen>();
}

void LocksTest::cleanup() {
    if (QTest::currentTestFailed())
        qInfo().noquote() << m_screen->toText();
    m_screen.reset();
    m_cell.reset();
}

bool LocksTest::open(const QStringList& options) {
    return m_screen->start(paths::display,
                           options + QStringList{"--geometry", "400x300+40+40",
                                                 QString(paths::sources) + "/tests/e2e/forms/engine.ui"}) &&
           m_screen->says("widget:.*/speed/.*value", "1500.2") && m_screen->says("widget:.*/cycles/.*value", "42");
}

bool LocksTest::chooseFromMenu(const QString& widget, const QString& entry) {
    return m_screen->click("widget:.*/" + widget + "/.*value", 3) && m_screen->click("action:" + entry);
}

void LocksTest::lockedVariableIsRefused_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("widget");
    QTest::newRow("1 locks every widget") << 1 << "speed";
    QTest::newRow("2 locks what the form locks") << 2 << "cycles";
    QTest::newRow("4 locks what the form locks") << 4 << "cycles";
}

void LocksTest::lockedVariableIsRefused() {
    QFETCH(int, level);
    QFETCH(QString, widget);
    QVERIFY(open({"--lock", QString::number(level)}));
    QCOMPARE(m_screen->global("UserInterfaceLock").toInt(), level);
    QVERIFY(chooseFromMenu(widget, "Change Variable"));
    QVERIFY(m_screen->shows("window:ChangeVariable"));
    QVERIFY(m_screen->says("widget:.*qt_msgbox_label", "variable selection is disabled for this widget"));
}

void LocksTest::variableThatIsNotLockedCanBeChosen_data() {
    QTest::addColumn<int>("level");
    QTest::addColumn<QString>("widget");
    QTest::newRow("2 leaves the others") << 2 << "speed";
    QTest::newRow("3 locks none") << 3 << "cycles";
    QTest::newRow("4 leaves the others") << 4 << "speed";
}

void LocksTest::variableThatIsNotLockedCanBeChosen() {
    QFETCH(int, level);
    QFETCH(QString, widget);
    QVERIFY(open({"--lock", QString::number(level)}));
    QCOMPARE(m_screen->global("UserInterfaceLock").toInt(), level);
    QVERIFY(chooseFromMenu(widget, "Change Variable"));
    QVERIFY(m_screen->shows("window:Variable Selection"));
}

void LocksTest::lockedUnitsAreRefused() {
    QVERIFY(open({"--lock-units"}));
    QCOMPARE(m_screen->global("changeUnitsLk"), QJsonValue(true));
    QVERIFY(chooseFromMenu("speed", "Change Units"));
    QVERIFY(m_screen->shows("window:ChangeUnits"));
    QVERIFY(m_screen->says("widget:.*qt_msgbox_label", "units selection is disabled for this widget"));
}

void LocksTest::unitsThatAreNotLockedCanBeChosen() {
    QVERIFY(open({}));
    QCOMPARE(m_screen->global("changeUnitsLk"), QJsonValue(false));
    QCOMPARE(m_screen->global("UserInterfaceLock").toInt(), 3);
    QVERIFY(chooseFromMenu("speed", "Change Units"));
    QVERIFY(m_screen->shows("widget:UnitsDialog"));
}

OSTREL_TEST_WITHOUT_SCREEN(LocksTest)
#include "locks_test.moc"

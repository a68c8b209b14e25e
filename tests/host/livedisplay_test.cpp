// The window with a cell that lives, from before the cell's start to its reconfiguration.
#include <QSignalSpy>
#include <csignal>

#include "displaycontrol.h"
#include "fabric/signalslotsingleton.h"
#include "fabric/timermoderator.h"
#include "qttests.h"
#include "testcell.h"
#include "widgets/zel_eventbutton.h"
#include "window.h"

class LiveDisplayTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void startedBeforeTheCellItSaysSo();
    void bindsWhenTheCellComes();
    void takesEditorsValuesOnceTheStoreIsThere();
    void showsAValueThatWasSet();
    void showsTheUnitsOfTheFormWhateverStandsFirst();
    void namesWhatIsMissing();
    void bindsWhatAReconfigurationBrings();
    void keepsUnitsThroughAReconfiguration();
    void losesWhatAReconfigurationTakes();
    void operatorHasHisMenu();
    void ctrlLReachesTheForm();
    void formMayCloseTheDisplay();
    void eventButtonMayCloseTheDisplay();
    void cleanupTestCase();

private:
    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<Window> m_window;
    std::unique_ptr<QSignalSpy> m_reads;
    QByteArray m_cellFile;
};

void LiveDisplayTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    QFile file(m_cell->file("cell.toml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    m_cellFile = file.readAll();
    m_reads = std::make_unique<QSignalSpy>(&SignalSlotSingleton::getInstance(), &SignalSlotSingleton::readFromOstrel);
    m_window = std::make_unique<Window>();
}

void LiveDisplayTest::startedBeforeTheCellItSaysSo() {
    QCOMPARE(m_window->banner(),
             QString("NO DATA: there is no cell '%1'. Values appear when it is started.").arg(m_cell->store()));
    QVERIFY(m_window->isVeiled());
    QCOMPARE(m_window->field("storeField"), QString("Cell '%1': not found").arg(m_cell->store()));
    QCOMPARE(m_window->field("bindingField"), QString("0 bound, 8 missing"));
    QCOMPARE(m_window->value("speed"), QString("-"));
    QCOMPARE(m_reads->count(), 0);
}

void LiveDisplayTest::bindsWhenTheCellComes() {
    QVERIFY(m_cell->start());
    EVENTUALLY(m_window->looksGood());
    BECOMES(m_window->value("speed"), "1500.2");
    BECOMES(m_window->value("cycles"), "42");
    BECOMES(m_window->value("pump"), "STOPPED");
    BECOMES(m_window->value("cylinder"), "402");
    BECOMES(m_window->value("alias"), "1500.2");
    BECOMES(m_window->field("bindingField"), "7 bound, 1 missing");
    QVERIFY(!m_window->isMarkedMissing("speed"));
}

void LiveDisplayTest::takesEditorsValuesOnceTheStoreIsThere() {
    QCOMPARE(m_reads->count(), 1);
}

void LiveDisplayTest::showsAValueThatWasSet() {
    QVERIFY(m_cell->set("ENGINE_SPEED", "2750.5"));
    QVERIFY(m_cell->set("CYCLES", "43"));
    QVERIFY(m_cell->set("PUMP_ON", "1"));
    BECOMES(m_window->value("speed"), "2750.5");
    BECOMES(m_window->value("alias"), "2750.5");
    BECOMES(m_window->value("cycles"), "43");
    BECOMES(m_window->value("pump"), "RUNNING");
}

void LiveDisplayTest::showsTheUnitsOfTheFormWhateverStandsFirst() {
    for (const char* name : {"oilUnitsFirst", "oilNameFirst"}) {
        QCOMPARE(m_window->units(name), QString("degF"));
        BECOMES(m_window->value(name), "212.0");
    }
}

void LiveDisplayTest::namesWhatIsMissing() {
    QCOMPARE(m_window->value("later"), QString("-"));
    QVERIFY(m_window->isMarkedMissing("later"));
    QVERIFY(!m_window->isMarkedMissing("nothing"));
    QCOMPARE(m_window->window().findChild<QLabel*>("bindingField")->toolTip(),
             QString("Not in the store: COOLANT_TEMP"));
}

void LiveDisplayTest::bindsWhatAReconfigurationBrings() {
    m_cell->write(m_cellFile + "\n[real.COOLANT_TEMP]\nvalue = 88\nformat = \"%.0f\"\n");
    m_cell->signal(SIGHUP);
    BECOMES(m_window->value("later"), "88");
    QVERIFY(!m_window->isMarkedMissing("later"));
    BECOMES(m_window->field("bindingField"), "8 bound, 0 missing");
}

void LiveDisplayTest::keepsUnitsThroughAReconfiguration() {
    QCOMPARE(m_window->units("oilUnitsFirst"), QString("degF"));
    QVERIFY(m_cell->set("OIL_TEMP", "0"));
    BECOMES(m_window->value("oilUnitsFirst"), "32.0");
}

void LiveDisplayTest::losesWhatAReconfigurationTakes() {
    m_cell->write(m_cellFile);
    m_cell->signal(SIGHUP);
    BECOMES(m_window->value("later"), "-");
    QVERIFY(m_window->isMarkedMissing("later"));
    // What stays goes on.
    QVERIFY(m_cell->set("CYCLES", "44"));
    BECOMES(m_window->value("cycles"), "44");
    BECOMES(m_window->field("bindingField"), "7 bound, 1 missing");
}

void LiveDisplayTest::operatorHasHisMenu() {
    QVERIFY(!m_window->widget("speed")->actions().isEmpty());
}

void LiveDisplayTest::ctrlLReachesTheForm() {
    QSignalSpy pressed(runQtUIWindow, SIGNAL(ctrlLPressed()));
    // The screen of the tests has no window manager that would give the window the keys.
    QApplication::setActiveWindow(&m_window->window());
    QTest::keyClick(&m_window->window(), Qt::Key_L, Qt::ControlModifier);
    QCOMPARE(pressed.count(), 1);
}

void LiveDisplayTest::formMayCloseTheDisplay() {
    QVERIFY(m_window->window().isVisible());
    QVERIFY(QMetaObject::invokeMethod(runQtUIWindow, "closeEvent"));
    QVERIFY(!m_window->window().isVisible());
}

// Its first click hides the button itself; one that was shown again closes the display.
void LiveDisplayTest::eventButtonMayCloseTheDisplay() {
    m_window->window().show();
    ZelEventButton button(&m_window->window());
    button.setSignal(true);
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(!button.isVisible());
    QVERIFY(m_window->window().isVisible());
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(!m_window->window().isVisible());
}

void LiveDisplayTest::cleanupTestCase() {
    m_window.reset();
    TimerModerator::shutDown();
    m_cell.reset();
}

OSTREL_TEST(LiveDisplayTest)
#include "livedisplay_test.moc"

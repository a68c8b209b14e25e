// What the display makes of the editors of a form: read, loaded, saved, counted, listed, committed.
#include "stagedvalues.h"

#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <csignal>

#include "editing.h"
#include "fabric/signalslotsingleton.h"
#include "failure.h"
#include "paths.h"
#include "qttests.h"
#include "stagedlist.h"
#include "testcell.h"

namespace {

const char* const cellFile = R"(
[cell]
name = "host"
scan_ms = 20

[real.SPEED_SP]
value = 1500
units = "rpm"
min = 0
max = 5000

[real.LENGTH]
value = 25
units = "mm"

[integer.CYCLES]
value = 42

[logical.PUMP_ON]
value = false
true_state = "RUNNING"
false_state = "STOPPED"

[string.OPERATOR]
value = "A. Engineer"

[string.ENGINE]
value = "No. 1"
writable = false
)";

QByteArray editor(const char* name, const char* type, const char* variable, const char* more = "") {
    return QByteArray("<item><widget class=\"") + type + "\" name=\"" + name + "\">" +
           (*variable ? QByteArray("<property name=\"OstrelVariable\"><string>") + variable + "</string></property>"
                      : QByteArray()) +
           more + "</widget></item>";
}

QByteArray form() {
    QByteArray text =
        "<ui version=\"4.0\"><class>Form</class><widget class=\"QWidget\" name=\"Form\"><layout "
        "class=\"QVBoxLayout\" name=\"column\">";
    text += editor("speed", "ValManNumericWidget", "SPEED_SP");
    text += editor("length", "ValManComboBoxWidget", "LENGTH",
                   "<property name=\"units\"><string>mm</string></property>"
                   "<property name=\"comboBoxContents\"><string>25.000000;3</string></property>");
    text += editor("cycles", "ValManNumericWidget", "CYCLES");
    text += editor("pump", "ValManLogicalWidget", "PUMP_ON");
    text += editor("operator", "ValManStringWidget", "OPERATOR");
    text += editor("engine", "ValManFileWidget", "ENGINE");
    text += editor("late", "ValManNumericWidget", "LATE");
    text += editor("ok", "ValManOKWidget", "");
    text += "</layout></widget><customwidgets>";
    for (const char* type : {"ValManNumericWidget", "ValManComboBoxWidget", "ValManLogicalWidget", "ValManStringWidget",
                             "ValManFileWidget", "ValManOKWidget"})
        text += QByteArray("<customwidget><class>") + type + "</class><extends>QWidget</extends><header>" + type +
                ".h</header></customwidget>";
    return text + "</customwidgets></ui>";
}

}  // namespace

class StagedValuesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { m_window.reset(); }
    void cleanupTestCase() { m_cell.reset(); }

    void editorsAreFilledWhenTheStoreIsThere();
    void readValuesTakesEditsBack();
    void whatDiffersIsCountedAndListed();
    void theListTellsWhatACommitWouldWrite();
    void valuesAreSavedAndLoaded();
    void whatIsNoFileOfValuesStagesNothing();
    void valuesWithoutAnEditorAreNamed();
    void aFileThatCannotBeWrittenIsTold();
    void theFormerFileStaysWhereTheNewOneFails();
    void valuesOfTheCommandLineWaitForTheStore();
    void whatTheStoreRefusesIsNamedAndTheRestIsWritten();
    void aReloadKeepsWhatIsStaged();
    void anotherVariableBringsItsOwnValue();
    void aVariableThatComesBringsItsValue();

private:
    QLineEdit* line(const char* name) { return m_window->widget(name)->findChild<QLineEdit*>("value"); }
    QComboBox* list(const char* name) { return m_window->widget(name)->findChild<QComboBox*>("comboBox"); }
    void type(const char* name, const char* text) {
        line(name)->selectAll();
        QTest::keyClicks(line(name), text);
    }
    void choose(const char* entry) {
        for (QAction* menu : m_window->window().menuBar()->actions()) {
            if (menu->text() != "&Values")
                continue;
            emit menu->menu()->aboutToShow();
            for (QAction* action : menu->menu()->actions())
                if (QString(action->text()).remove('&') == entry && action->isEnabled())
                    return action->trigger();
        }
        QFAIL("no such entry");
    }
    QString counted() {
        const auto* field = m_window->window().findChild<QLabel*>("stagedField");
        return field->isVisible() ? field->text() : QString();
    }
    QString listed() { return m_window->window().findChild<QLabel*>("stagedField")->toolTip(); }
    void clickOk() { QTest::mouseClick(m_window->widget("ok")->findChild<QPushButton*>("okButton"), Qt::LeftButton); }

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<Window> m_window;
    QTemporaryDir m_folder;
    QString m_form;
};

void StagedValuesTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    m_cell->write(cellFile);
    // A display that was started before its cell.
    m_form = m_folder.filePath("setpoints.ui");
    write(m_form, form());
    openAnew(m_window, m_form);
    QCOMPARE(line("speed")->text(), QString());
    QVERIFY(m_cell->start());
    BECOMES(line("speed")->text(), "1500.000000");
    BECOMES(line("operator")->text(), "A. Engineer");
}

void StagedValuesTest::init() {
    write(m_form, form());
    for (const auto& [name, value] : {std::pair{"SPEED_SP", "1500"},
                                      {"LENGTH", "25"},
                                      {"CYCLES", "42"},
                                      {"PUMP_ON", "0"},
                                      {"OPERATOR", "A. Engineer"}})
        QVERIFY(m_cell->set(name, value));
    openAnew(m_window, m_form);
    BECOMES(line("speed")->text(), "1500.000000");
}

void StagedValuesTest::editorsAreFilledWhenTheStoreIsThere() {
    QCOMPARE(line("cycles")->text(), QString("42"));
    QCOMPARE(line("operator")->text(), QString("A. Engineer"));
    QCOMPARE(list("length")->currentText(), QString("25.000000"));
}

void StagedValuesTest::readValuesTakesEditsBack() {
    type("speed", "1");
    QVERIFY(m_cell->set("CYCLES", "43"));
    choose("Read Values");
    QCOMPARE(line("speed")->text(), QString("1500.000000"));
    QCOMPARE(line("cycles")->text(), QString("43"));
    const auto* file = m_window->window().menuBar()->actions().last()->menu();
    QCOMPARE(file->actions().first()->shortcut(), QKeySequence(QKeySequence::Refresh));
}

void StagedValuesTest::whatDiffersIsCountedAndListed() {
    QCOMPARE(counted(), QString());
    type("speed", "1500");
    QCOMPARE(counted(), QString());
    type("speed", "1600");
    QCOMPARE(counted(), QString("1 staged"));
    type("operator", "B. Builder");
    m_window->widget("pump")->findChild<QCheckBox*>("value")->click();
    QCOMPARE(counted(), QString("3 staged"));
    QCOMPARE(listed(), QString("SPEED_SP: 1500.000000 rpm → 1600.000000 rpm\nPUMP_ON: STOPPED → RUNNING\n"
                               "OPERATOR: A. Engineer → B. Builder"));
    choose("Staged Values…");
    auto* table = m_window->window().findChild<StagedList*>()->findChild<QTableWidget*>();
    QCOMPARE(table->rowCount(), 3);
    QCOMPARE(table->item(0, 0)->text(), QString("SPEED_SP"));
    QCOMPARE(table->item(0, 1)->text(), QString("1500.000000 rpm"));
    QCOMPARE(table->item(0, 2)->text(), QString("1600.000000 rpm"));
    // The store moves towards an edit, and away from one that was none.
    QVERIFY(m_cell->set("SPEED_SP", "1600"));
    QVERIFY(m_cell->set("CYCLES", "7"));
    BECOMES(listed(), "CYCLES: 7 → 42\nPUMP_ON: STOPPED → RUNNING\nOPERATOR: A. Engineer → B. Builder");
    QCOMPARE(table->rowCount(), 3);
    clickOk();
    BECOMES(counted(), "");
    QVERIFY(!table->isVisible());
}

void StagedValuesTest::theListTellsWhatACommitWouldWrite() {
    // Kept in the widget: what is read is in the variable's units, and written as if it were in the list's.
    m_window->widget("length")->setProperty("units", "cm");
    BECOMES(listed(), "LENGTH: 25.000000 mm → 250.000000 mm (25.000000 cm)");
    list("length")->setCurrentText("3");
    type("cycles", "2.5");
    type("speed", "fast");
    emit SignalSlotSingleton::getInstance().valueChanged();
    QCOMPARE(listed(), QString("SPEED_SP: 1500.000000 rpm → 0.000000 rpm (\"fast\" is no number)\n"
                               "LENGTH: 25.000000 mm → 30.000000 mm (3 cm)\nCYCLES: 42 → 0 (2.5)"));
    clickOk();
    list("length")->setCurrentText("x");
    m_window->window().readValues();
    QCOMPARE(line("speed")->text(), QString("0.000000"));
    QCOMPARE(list("length")->currentText(), QString("30.000000"));
    QCOMPARE(line("cycles")->text(), QString("0"));
}

void StagedValuesTest::valuesAreSavedAndLoaded() {
    type("speed", "1700");
    line("operator")->setText("ä < \"b\"");
    const QString path = m_folder.filePath("values.xml");
    {
        const PersonAtFileDialog person(path);
        choose("Save Values…");
    }
    QVERIFY(contentOf(path).contains("<SPEED_SP "));
    m_window->window().readValues();
    QCOMPARE(counted(), QString());
    const PersonAtFileDialog person(path);
    choose("Load Values…");
    QCOMPARE(line("speed")->text(), QString("1700"));
    QCOMPARE(line("operator")->text(), QString("ä < \"b\""));
    QCOMPARE(counted(), QString("2 staged"));
    m_window->window().readValues();
    QCOMPARE(line("speed")->text(), QString("1500.000000"));
}

void StagedValuesTest::whatIsNoFileOfValuesStagesNothing() {
    const QString path = m_folder.filePath("bad.xml");
    for (const auto& [content, reason] :
         {std::pair{"<values><SPEED_SP RealValue=\"1\"/></values>", "begins with <values>"},
          {"<staged-values><SPEED_SP RealValue=\"1\"/>", "bad.xml:1: "},
          {"", "bad.xml:1: "}}) {
        write(path, content);
        const PersonAtFileDialog person(path);
        const Operator told("valuesNotLoaded", "close");
        choose("Load Values…");
        QVERIFY2(told.read().contains(reason), qPrintable(told.read()));
        QCOMPARE(line("speed")->text(), QString("1500.000000"));
        QCOMPARE(counted(), QString());
        QVERIFY_EXCEPTION_THROWN(m_window->window().stage(path), Failure);
    }
}

void StagedValuesTest::valuesWithoutAnEditorAreNamed() {
    const QString path = m_folder.filePath("more.xml");
    write(path,
          "<staged-values><SPEED_SP RealValue=\"9\"/><OIL RealValue=\"1\"/><SPEED_SP RealValue=\"8\"/>"
          "</staged-values>");
    const Operator told("valuesLeft", "close");
    m_window->window().stage(path);
    QVERIFY(told.read().contains("OIL\n    SPEED_SP"));
    QCOMPARE(line("speed")->text(), QString("9"));
}

void StagedValuesTest::aFileThatCannotBeWrittenIsTold() {
    const PersonAtFileDialog person(m_folder.filePath("missing/values.xml"));
    const Operator told("valuesNotSaved", "close");
    choose("Save Values…");
    QVERIFY2(told.read().contains("missing/values.xml: "), qPrintable(told.read()));
}

void StagedValuesTest::theFormerFileStaysWhereTheNewOneFails() {
    const QString path = m_folder.filePath("kept.xml");
    write(path, "former");
    const StagedValues values;
    QDir(m_folder.path()).mkdir("kept");
    QVERIFY_EXCEPTION_THROWN(values.writeFile(m_folder.filePath("kept")), Failure);
    QCOMPARE(contentOf(path), QByteArray("former"));
    values.writeFile(path);
    QVERIFY(contentOf(path).startsWith("<staged-values"));
    QCOMPARE(QDir(m_folder.path()).entryList({"kept.xml*"}).size(), 1);
}

void StagedValuesTest::valuesOfTheCommandLineWaitForTheStore() {
    const QString path = m_folder.filePath("first.xml");
    write(path, "<staged-values><CYCLES IntegerValue=\"5\" Units=\"\"/></staged-values>");
    openAnew(m_window, m_form);
    m_window->window().stage(path);
    BECOMES(line("speed")->text(), "1500.000000");
    BECOMES(line("cycles")->text(), "5");
    BECOMES(listed(), "CYCLES: 42 → 5");
}

void StagedValuesTest::whatTheStoreRefusesIsNamedAndTheRestIsWritten() {
    type("speed", "9000");
    type("cycles", "50");
    line("engine")->setText("No. 2");
    const Operator told("refused", "close");
    clickOk();
    QVERIFY2(told.read().contains("SPEED_SP = 9000: outside of what the cell allows"), qPrintable(told.read()));
    QVERIFY2(told.read().contains("ENGINE = No. 2: the cell lets nobody write it"), qPrintable(told.read()));
    QVERIFY(!told.read().contains("CYCLES"));
    QCOMPARE(counted(), QString("2 staged"));
    choose("Read Values");
    QCOMPARE(line("speed")->text(), QString("1500.000000"));
    QCOMPARE(line("cycles")->text(), QString("50"));
    // The next commit has nothing of it.
    clickOk();
    QVERIFY(!QApplication::activeModalWidget());
}

void StagedValuesTest::aReloadKeepsWhatIsStaged() {
    type("speed", "1800");
    m_window->window().reload();
    QCOMPARE(line("speed")->text(), QString("1800"));
    QCOMPARE(counted(), QString("1 staged"));
    m_window->window().revert();
    QCOMPARE(line("speed")->text(), QString("1500.000000"));
}

void StagedValuesTest::anotherVariableBringsItsOwnValue() {
    type("cycles", "50");
    m_window->widget("speed")->setName("LENGTH");
    BECOMES(line("speed")->text(), "25.000000");
    QCOMPARE(line("cycles")->text(), QString("50"));
    QCOMPARE(listed(), QString("CYCLES: 42 → 50"));
}

void StagedValuesTest::aVariableThatComesBringsItsValue() {
    type("cycles", "50");
    QCOMPARE(line("late")->text(), QString());
    m_cell->write(QByteArray(cellFile) + "\n[real.LATE]\nvalue = 7\n");
    m_cell->signal(SIGHUP);
    BECOMES(line("late")->text(), "7.000000");
    QCOMPARE(line("cycles")->text(), QString("50"));
}

OSTREL_TEST(StagedValuesTest)
#include "stagedvalues_test.moc"

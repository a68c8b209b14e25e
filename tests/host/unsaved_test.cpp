// What an operator changes in a form: marked, saved, asked for, recovered.
#include <sys/wait.h>
#include <unistd.h>

#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <csignal>

#include "displaycontrol.h"
#include "editing.h"
#include "fabric/timermoderator.h"
#include "formwatch.h"
#include "hostlink/globals.h"
#include "paths.h"
#include "qttests.h"
#include "testcell.h"
#include "unsavedchanges.h"

namespace {

QFont largeFont() {
    QFont font;
    font.setFamily("DejaVu Sans");
    font.setPointSize(21);
    return font;
}

}  // namespace

class UnsavedTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();
    void loadedFormHasNoChanges();
    void changeIsMarked();
    void changesAreNamedAsOperatorsKnowThem();
    void statusColourIsNoChange();
    void keysSaveTheForm();
    void savedFormSaysTheChangeAndNothingElse();
    void savingTellsWidgetsWithFilesOfTheirOwn();
    void groupsChangeCountsUntilSaved();
    void widgetWithoutVariableCanBeEdited();
    void reconfigurationIsNoChange();
    void aliasThatTheCellGetsOrLosesIsNoChange();
    void closingWithoutChangesAsksNothing();
    void closingAsksAndSaves();
    void closingAsksAndDiscards();
    void closingCanBeCancelled();
    void silentDisplayAsksNothing();
    void revertGoesBackToTheFile();
    void fileThatCannotBeWrittenIsToldAndNothingIsLost();
    void savesUnderAnotherName();
    void formSavedByAnotherIsOfferedAndReloaded();
    void reloadKeepsUnsavedChanges();
    void ownSavingIsNotOffered();
    void brokenFormIsNotOffered();
    void changesOfADisplayThatDiedAreOffered();
    void recoveredChangesOverANewerFormSaySo();
    void discardedRecoveryIsGone();
    void postponedRecoveryIsOfferedAgain();
    void changesOfALivingDisplayAreNotOffered();
    void changesOfADisplayThatNobodyWaitedForAreOffered();
    void silentDisplayIsNotOfferedARecovery();

private:
    void open(Manners manners = Manners::Asks);
    QStringList leftBeside() const { return leftBesideForm(m_form); }
    QString leftByAnother();
    FormWatch* formWatch() { return m_window->window().findChild<FormWatch*>(); }
    void edit() { m_window->widget("speed")->setName("OIL_TEMP"); }
    // A widget shows the alias of its variable where it has one: "SPEED" for "ENGINE_SPEED".
    QString shown(const char* name = "speed") { return m_window->widget(name)->getName(); }

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Window> m_window;
    QString m_form;
    QByteArray m_original;
};

void UnsavedTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
    m_original = contentOf(QString(paths::sources) + "/tests/host/forms/live.ui");
}

void UnsavedTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_form = m_folder->filePath("live.ui");
    write(m_form, m_original);
    open();
}

void UnsavedTest::cleanup() {
    m_window.reset();
    m_folder.reset();
}

void UnsavedTest::cleanupTestCase() {
    TimerModerator::shutDown();
    m_cell.reset();
}

void UnsavedTest::open(Manners manners) {
    openAnew(m_window, m_form, manners);
    EVENTUALLY(m_window->looksGood());
    EVENTUALLY(m_window->widget("speed")->getInitFlag());
}

QString UnsavedTest::leftByAnother() {
    edit();
    return dieWith(m_window, m_form);
}

void UnsavedTest::loadedFormHasNoChanges() {
    QVERIFY(!m_window->window().isWindowModified());
    QVERIFY(m_window->window().windowTitle().startsWith("Live values"));
    QCOMPARE(m_window->field("changesField"), QString());
    QVERIFY(leftBeside().isEmpty());
}

void UnsavedTest::changeIsMarked() {
    edit();
    QVERIFY(m_window->window().isWindowModified());
    QVERIFY(m_window->window().windowTitle().contains("[*]"));
    QVERIFY(m_window->field("changesField").contains("unsaved change"));
    keepPicture(&m_window->window(), "changed");
    m_window->widget("speed")->setName("ENGINE_SPEED");
    QVERIFY(!m_window->window().isWindowModified());
}

void UnsavedTest::changesAreNamedAsOperatorsKnowThem() {
    write(m_form, QByteArray(m_original).replace("CYL_TEMP:1", "not_set"));
    open();
    m_window->widget("cycles")->setProperty("valueFont", largeFont());
    m_window->widget("cycles")->setProperty("backColor", QColor(Qt::yellow));
    m_window->widget("cylinder")->setName("CYL_TEMP:0");
    m_window->widget("pump")->setName("not_set");
    edit();
    m_window->widget("speed")->setUnits("degF");
    const QString lines = m_window->window().findChild<QLabel*>("changesField")->toolTip();
    QCOMPARE(lines.split('\n'), QStringList({"CYCLES: back colour, value font", "no variable → CYL_TEMP:0",
                                             "PUMP_ON → no variable", "ENGINE_SPEED → OIL_TEMP: units"}));
}

void UnsavedTest::statusColourIsNoChange() {
    QVERIFY(m_window->widget("speed")->getInitFlag());
    m_window->widget("speed")->setColor(Qt::red);
    QVERIFY(!m_window->window().isWindowModified());
}

void UnsavedTest::keysSaveTheForm() {
    edit();
    QApplication::setActiveWindow(&m_window->window());
    QTest::keyClick(&m_window->window(), Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!m_window->window().isWindowModified());
    QVERIFY(contentOf(m_form) != m_original);
}

void UnsavedTest::savedFormSaysTheChangeAndNothingElse() {
    edit();
    m_window->widget("cycles")->setProperty("valueFont", largeFont());
    QVERIFY(m_window->window().save());
    QByteArray expected = m_original;
    expected.replace(expected.indexOf("ENGINE_SPEED"), int(strlen("ENGINE_SPEED")), "OIL_TEMP");
    const int rate = expected.indexOf("</property>", expected.indexOf("sampleRate", expected.indexOf("CYCLES")));
    expected.insert(rate + int(strlen("</property>")),
                    "\n      <property name=\"valueFont\">\n       <font>\n        <family>DejaVu Sans</family>\n"
                    "        <pointsize>21</pointsize>\n       </font>\n      </property>");
    QCOMPARE(contentOf(m_form), expected);
    open();
    QCOMPARE(shown(), QString("OIL_TEMP"));
    BECOMES(m_window->value("speed"), "100.0");
    QCOMPARE(m_window->widget("cycles")->property("valueFont").value<QFont>().pointSize(), 21);
}

void UnsavedTest::savingTellsWidgetsWithFilesOfTheirOwn() {
    QSignalSpy saving(runQtUIWindow, SIGNAL(saveConfig()));
    QVERIFY(m_window->window().save());
    QCOMPARE(saving.count(), 1);
    QCOMPARE(contentOf(m_form), m_original);
}

void UnsavedTest::groupsChangeCountsUntilSaved() {
    propertiesChanged = true;
    EVENTUALLY(m_window->window().isWindowModified());
    QVERIFY(m_window->window().save());
    QVERIFY(!propertiesChanged);
    QVERIFY(!m_window->window().isWindowModified());
}

void UnsavedTest::widgetWithoutVariableCanBeEdited() {
    QVERIFY(!m_window->widget("later")->getInitFlag());
    m_window->widget("later")->setName("CYCLES");
    QVERIFY(m_window->window().isWindowModified());
    QVERIFY(m_window->window().save());
    open();
    QCOMPARE(shown("later"), QString("CYCLES"));
}

void UnsavedTest::reconfigurationIsNoChange() {
    const QByteArray cellFile = contentOf(m_cell->file("cell.toml"));
    m_cell->write(cellFile + "\n[real.COOLANT_TEMP]\nvalue = 88\nformat = \"%.0f\"\n");
    m_cell->signal(SIGHUP);
    BECOMES(m_window->value("later"), "88");
    m_cell->write(cellFile);
    m_cell->signal(SIGHUP);
    BECOMES(m_window->value("later"), "-");
    QVERIFY(!m_window->window().isWindowModified());
}

// The widgets take other names, and units with them.
void UnsavedTest::aliasThatTheCellGetsOrLosesIsNoChange() {
    write(m_form, QByteArray(m_original)
                      .replace("<string>CYCLES<", "<string>OIL_TEMP<")
                      .replace("<widget class=\"ZelValue\" name=\"cycles\">",
                               "<widget class=\"ZelValue\" name=\"cycles\"><property "
                               "name=\"units\"><string>degF</string></property>"));
    open();
    const QSignalSpy dirty(formChanges(), &FormChanges::dirtyChanged);
    const QByteArray cellFile = contentOf(m_cell->file("cell.toml"));
    m_cell->write(cellFile + "OIL = \"OIL_TEMP\"\n");
    m_cell->signal(SIGHUP);
    BECOMES(shown("cycles"), "OIL");
    BECOMES(m_window->units("cycles"), "degF");
    m_cell->write(cellFile);
    m_cell->signal(SIGHUP);
    BECOMES(shown("cycles"), "OIL_TEMP");
    BECOMES(m_window->units("cycles"), "degF");
    QVERIFY2(dirty.isEmpty(), qPrintable(m_window->window().findChild<QLabel*>("changesField")->toolTip()));
}

void UnsavedTest::closingWithoutChangesAsksNothing() {
    QVERIFY(m_window->window().close());
}

void UnsavedTest::closingAsksAndSaves() {
    edit();
    const Operator person("closingQuestion", "save");
    QVERIFY(m_window->window().close());
    QVERIFY(person.read().contains("Save the changes to \"live.ui\" before closing?"));
    QVERIFY(person.read().contains("ENGINE_SPEED → OIL_TEMP"));
    QVERIFY(contentOf(m_form) != m_original);
    m_window.reset();
    QVERIFY(leftBeside().isEmpty());
}

void UnsavedTest::closingAsksAndDiscards() {
    edit();
    EVENTUALLY(leftBeside().size() == 1);
    const Operator person("closingQuestion", "discard");
    QVERIFY(m_window->window().close());
    QVERIFY(person.wasAsked());
    QCOMPARE(contentOf(m_form), m_original);
    m_window.reset();
    QVERIFY(leftBeside().isEmpty());
}

void UnsavedTest::closingCanBeCancelled() {
    edit();
    const Operator person("closingQuestion", "cancel");
    QVERIFY(!m_window->window().close());
    QVERIFY(person.wasAsked());
    QVERIFY(m_window->window().isVisible());
    QVERIFY(m_window->window().isWindowModified());
    QCOMPARE(contentOf(m_form), m_original);
}

void UnsavedTest::silentDisplayAsksNothing() {
    open(Manners::Silent);
    edit();
    QVERIFY(m_window->window().menuWidget() == nullptr || m_window->window().menuBar()->actions().isEmpty());
    QVERIFY(m_window->window().close());
    m_window.reset();
    QCOMPARE(contentOf(m_form), m_original);
    QCOMPARE(leftBeside().size(), 1);
}

void UnsavedTest::revertGoesBackToTheFile() {
    edit();
    {
        const Operator person("revertQuestion", "cancel");
        m_window->window().revert();
        QVERIFY(person.wasAsked());
        QCOMPARE(shown(), QString("OIL_TEMP"));
    }
    const Operator person("revertQuestion", "revert");
    m_window->window().revert();
    QCOMPARE(shown(), QString("SPEED"));
    QVERIFY(!m_window->window().isWindowModified());
    BECOMES(m_window->value("speed"), "1500.2");
    QVERIFY(leftBeside().isEmpty());
}

void UnsavedTest::fileThatCannotBeWrittenIsToldAndNothingIsLost() {
    edit();
    QVERIFY(QFile::remove(m_form));
    const Operator person("savingFailed", "close");
    QVERIFY(!m_window->window().save());
    QVERIFY(person.read().contains(m_form + ": No such file or directory"));
    QVERIFY(m_window->window().isWindowModified());
    EVENTUALLY(leftBeside().size() == 1);
}

void UnsavedTest::savesUnderAnotherName() {
    edit();
    const QString copy = m_folder->filePath("copy.ui");
    QCOMPARE(formChanges()->path(), m_form);
    const PersonAtFileDialog person(copy);
    QVERIFY(m_window->window().saveAs());
    QCOMPARE(contentOf(m_form), m_original);
    QVERIFY(
        contentOf(copy).contains("<string>OIL_TEMP</string>\n      </property>\n      <property name=\"sampleRate"));
    QVERIFY(!m_window->window().isWindowModified());
}

void UnsavedTest::formSavedByAnotherIsOfferedAndReloaded() {
    write(m_form, QByteArray(m_original).replace("CYL_TEMP:1", "CYL_TEMP:0"));
    auto* bar = m_window->window().findChild<QWidget*>("offerBar");
    EVENTUALLY(bar->isVisible());
    keepPicture(&m_window->window(), "offer");
    QCOMPARE(shown("cylinder"), QString("CYL_TEMP:1"));
    QTest::mouseClick(bar->findChild<QPushButton*>("offerAccept"), Qt::LeftButton);
    QCOMPARE(shown("cylinder"), QString("CYL_TEMP:0"));
    QVERIFY(!bar->isVisible());
    BECOMES(m_window->value("cylinder"), "401");
    QVERIFY(!m_window->window().isWindowModified());
}

void UnsavedTest::reloadKeepsUnsavedChanges() {
    edit();
    const QByteArray designed = QByteArray(m_original).replace("CYL_TEMP:1", "CYL_TEMP:0");
    write(m_form, designed);
    EVENTUALLY(m_window->window().findChild<QWidget*>("offerBar")->isVisible());
    m_window->window().reload();
    QCOMPARE(shown("cylinder"), QString("CYL_TEMP:0"));
    QCOMPARE(shown(), QString("OIL_TEMP"));
    QVERIFY(m_window->window().isWindowModified());
    QVERIFY(m_window->window().save());
    QVERIFY(contentOf(m_form).contains("CYL_TEMP:0"));
    QCOMPARE(contentOf(m_form).count("OIL_TEMP"), 3);
}

void UnsavedTest::ownSavingIsNotOffered() {
    auto* bar = m_window->window().findChild<QWidget*>("offerBar");
    const QSignalSpy looked(formWatch(), &FormWatch::looked);
    const QSignalSpy changed(formWatch(), &FormWatch::formChanged);
    edit();
    QVERIFY(m_window->window().save());
    QVERIFY(looked.isEmpty());
    EVENTUALLY(!looked.isEmpty());
    QVERIFY(changed.isEmpty());
    QVERIFY(!bar->isVisible());
    // The same watch sees somebody else's saving.
    write(m_form, m_original);
    EVENTUALLY(bar->isVisible());
    QCOMPARE(changed.count(), 1);
    QCOMPARE(changed.first().first().toByteArray(), m_original);
}

void UnsavedTest::brokenFormIsNotOffered() {
    auto* bar = m_window->window().findChild<QWidget*>("offerBar");
    const QSignalSpy looked(formWatch(), &FormWatch::looked);
    write(m_form, m_original.left(m_original.size() / 2));
    QVERIFY(looked.isEmpty());
    EVENTUALLY(!looked.isEmpty());
    QVERIFY(!bar->isVisible());
    const Operator person("notBuilt", "close");
    m_window->window().reload();
    QVERIFY(person.wasAsked());
    QCOMPARE(shown(), QString("SPEED"));
    BECOMES(m_window->value("speed"), "1500.2");
    // Once it is whole it is offered.
    write(m_form, QByteArray(m_original).replace("CYL_TEMP:1", "CYL_TEMP:0"));
    EVENTUALLY(bar->isVisible());
}

void UnsavedTest::changesOfADisplayThatDiedAreOffered() {
    QVERIFY(!leftByAnother().isEmpty());
    const Operator person("recoveryQuestion", "restore");
    open();
    QVERIFY(person.read().contains("Restore the unsaved changes to \"live.ui\"?"));
    QVERIFY(person.read().contains("ENGINE_SPEED → OIL_TEMP"));
    QVERIFY(!person.read().contains("was changed as well"));
    QCOMPARE(shown(), QString("OIL_TEMP"));
    QVERIFY(m_window->window().isWindowModified());
    QCOMPARE(leftBeside().size(), 1);
    QVERIFY(m_window->window().save());
    QVERIFY(leftBeside().isEmpty());
    open();
    QCOMPARE(shown(), QString("OIL_TEMP"));
}

void UnsavedTest::recoveredChangesOverANewerFormSaySo() {
    QVERIFY(!leftByAnother().isEmpty());
    QByteArray designed = m_original;
    designed.replace("name=\"speed\"", "name=\"revolutions\"");
    write(m_form, designed);
    const Operator person("recoveryQuestion", "later");
    m_window.reset();
    delete writer;
    writer = nullptr;
    m_window = std::make_unique<Window>(m_form);
    QVERIFY2(person.read().contains("The form itself was changed as well"), qPrintable(person.read()));
    QVERIFY(person.read().contains("no such widgets any more"));
    QVERIFY(m_window->widget("revolutions"));
}

void UnsavedTest::discardedRecoveryIsGone() {
    const QString left = leftByAnother();
    const Operator person("recoveryQuestion", "discard");
    open();
    QVERIFY(person.wasAsked());
    QVERIFY(!QFile::exists(left));
    QCOMPARE(shown(), QString("SPEED"));
}

void UnsavedTest::postponedRecoveryIsOfferedAgain() {
    const QString left = leftByAnother();
    {
        const Operator person("recoveryQuestion", "later");
        open();
        QVERIFY(person.wasAsked());
        QCOMPARE(shown(), QString("SPEED"));
    }
    const Operator person("recoveryQuestion", "restore");
    open();
    QVERIFY(person.wasAsked());
    QCOMPARE(shown(), QString("OIL_TEMP"));
}

void UnsavedTest::changesOfALivingDisplayAreNotOffered() {
    edit();
    EVENTUALLY(leftBeside().size() == 1);
    QVERIFY(!findRecovery(m_form));
}

// A killed display whose parent has not asked how it ended keeps its number and its start.
void UnsavedTest::changesOfADisplayThatNobodyWaitedForAreOffered() {
    edit();
    EVENTUALLY(leftBeside().size() == 1);
    const QByteArray changes = contentOf(m_folder->filePath(leftBeside().first()));
    const pid_t child = fork();
    if (child == 0) {
        pause();
        _exit(0);
    }
    const QString process = QString::number(child);
    const QString start = contentOf("/proc/" + process + "/stat").split(' ').value(21);
    write(m_folder->filePath(".live.ui.unsaved-" + QSysInfo::machineHostName() + "-" + process + "-" + start), changes);
    const bool offeredAlive = findRecovery(m_form).has_value();
    kill(child, SIGKILL);
    siginfo_t ended{};
    waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT);
    const std::optional<FoundRecovery> found = findRecovery(m_form);
    waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED);
    QVERIFY(!offeredAlive);
    QVERIFY(found);
    QCOMPARE(found->changes, changes);
}

void UnsavedTest::silentDisplayIsNotOfferedARecovery() {
    const QString left = leftByAnother();
    open(Manners::Silent);
    QCOMPARE(shown(), QString("SPEED"));
    QVERIFY(QFile::exists(left));
}

OSTREL_TEST(UnsavedTest)
#include "unsaved_test.moc"

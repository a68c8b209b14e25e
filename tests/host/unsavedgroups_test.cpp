// What an operator changes in the groups of a form: marked, saved, kept over everything that builds a group anew.
#include <ostrel-display/qdwindow.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <QFileDialog>
#include <QGroupBox>
#include <QLayout>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <csignal>

#include "editing.h"
#include "fabric/timermoderator.h"
#include "groupform.h"
#include "qttests.h"
#include "testcell.h"
#include "unsavedchanges.h"
#include "widgets/groupbase.h"

namespace {

QByteArray changed(const char* former, const char* name, const QByteArray& from = oil) {
    return QByteArray(from).replace(former, name);
}

// While one lives, this thread may write only what everybody may. Nothing changes for a process without privileges.
class WithoutPrivileges {
public:
    WithoutPrivileges() { become(nobody); }
    ~WithoutPrivileges() { become(0); }
    WithoutPrivileges(const WithoutPrivileges&) = delete;
    WithoutPrivileges& operator=(const WithoutPrivileges&) = delete;

private:
    static constexpr long nobody = 65534;
    void become(long user) {
        if (m_mayChange)
            syscall(SYS_setresuid, user, user, 0);
    }
    const bool m_mayChange = geteuid() == 0;
};

}  // namespace

class UnsavedGroupsTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();
    void eachRenamedReadOutIsOneChange();
    void renamedBackIsNoChange();
    void readOutsAreNotTakenForTheFormsOwnWidgets();
    void savingWritesTheGroupFile();
    void reconfigurationIsNoChange();
    void reloadKeepsTheNames();
    void reloadNamesWhatHasNoPlaceAnyMore();
    void reloadKeepsANameThatTheCellHasNotNow();
    void revertTakesTheNamesBack();
    void anotherOrientationKeepsTheNames();
    void closingTheEditorKeepsTheNames();
    void savedUnderAnotherNameTheGroupsAreSavedToo();
    void groupThatCannotBeWrittenStaysUnsaved_data();
    void groupThatCannotBeWrittenStaysUnsaved();
    void groupThatCannotBeWrittenStaysUnsavedUnderAnotherName();
    void silentDisplaySaysWhichGroupCannotBeWritten();
    void groupThatAnotherProgramSavedIsMerged();
    void mergingLeavesTheEditorToItsGroup();
    void namesAreNotPutIntoTheGroupOfAnotherFile();
    void twoGroupsOfOneFileAreBothSaved();
    void namesAreRecovered();
    void recoveredNamesWithoutAPlaceAreNamed();
    void closingAsksAndDiscards();
    void editorStaysWithItsGroupOverAReload();
    void editorOfAGroupThatIsGoneLeavesTheOthersFree();

private:
    void open(const QByteArray& groups = {}, Manners manners = Manners::Asks);
    bool save();
    QString path(const char* name) const { return m_folder->filePath(name); }
    GroupBase* box(const char* name) {
        return dynamic_cast<GroupBase*>(m_window->window().findChild<QGroupBox*>(name));
    }
    OstrelBase* readOut(int place, const char* name = "oil") {
        return qobject_cast<OstrelBase*>(box(name)->layout()->itemAt(place)->widget());
    }
    QStringList shown(const char* name = "oil");
    void edit() { readOut(0)->setName("CYCLES"); }
    QString changes() { return m_window->window().findChild<QLabel*>("changesField")->toolTip(); }
    bool isModified() { return m_window->window().isWindowModified(); }
    QDWindow* openEditor(const char* name = "oil") {
        box(name)->actions().at(1)->trigger();
        return displayWindow;
    }

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<Window> m_window;
};

void UnsavedGroupsTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
}

void UnsavedGroupsTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    write(path("oil.grp"), oil);
    open(group("ZelGroup", "oil", "oil.grp"));
}

void UnsavedGroupsTest::cleanup() {
    QVERIFY(!Display_QD_Window);
    m_window.reset();
    m_folder.reset();
}

void UnsavedGroupsTest::cleanupTestCase() {
    TimerModerator::shutDown();
    m_cell.reset();
}

// Without groups the form as it is.
void UnsavedGroupsTest::open(const QByteArray& groups, Manners manners) {
    QDir::setCurrent(m_folder->path());
    if (!groups.isEmpty())
        write(path("groups.ui"), formOf(groups));
    openAnew(m_window, path("groups.ui"), manners);
    EVENTUALLY(m_window->looksGood());
}

bool UnsavedGroupsTest::save() {
    return m_window->window().save();
}

QStringList UnsavedGroupsTest::shown(const char* name) {
    QStringList names;
    for (int i = 0; i < box(name)->layout()->count(); ++i)
        names.append(readOut(i, name)->getName());
    return names;
}

void UnsavedGroupsTest::eachRenamedReadOutIsOneChange() {
    edit();
    EVENTUALLY(isModified());
    QCOMPARE(m_window->field("changesField"), QString("1 unsaved change"));
    readOut(2)->setName("CYL_TEMP:1");
    BECOMES(m_window->field("changesField"), "2 unsaved changes");
    QVERIFY2(changes().contains("OIL_TEMP → CYCLES (oil.grp)"), qPrintable(changes()));
    QVERIFY2(changes().contains("PUMP_ON → CYL_TEMP:1 (oil.grp)"), qPrintable(changes()));
    keepPicture(&m_window->window(), "groups");
}

void UnsavedGroupsTest::renamedBackIsNoChange() {
    edit();
    EVENTUALLY(isModified());
    readOut(0)->setName("OIL_TEMP");
    EVENTUALLY(!isModified());
    QVERIFY(leftBesideForm(path("groups.ui")).isEmpty());
}

void UnsavedGroupsTest::readOutsAreNotTakenForTheFormsOwnWidgets() {
    const QByteArray form = contentOf(path("groups.ui"));
    edit();
    EVENTUALLY(isModified());
    QCOMPARE(m_window->field("changesField"), QString("1 unsaved change"));
    QVERIFY(save());
    QCOMPARE(contentOf(path("groups.ui")), form);
}

void UnsavedGroupsTest::savingWritesTheGroupFile() {
    const QSignalSpy saving(runQtUIWindow, SIGNAL(saveConfig()));
    edit();
    EVENTUALLY(isModified());
    QVERIFY(save());
    QVERIFY(!isModified());
    QCOMPARE(contentOf(path("oil.grp")), changed("OIL_TEMP", "CYCLES"));
    QCOMPARE(saving.count(), 1);
    // The next change is one of what was saved.
    readOut(0)->setName("OIL_TEMP");
    EVENTUALLY(changes().contains("CYCLES → OIL_TEMP"));
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), QByteArray(oil));
}

void UnsavedGroupsTest::reconfigurationIsNoChange() {
    const QByteArray cellFile = contentOf(m_cell->file("cell.toml"));
    m_cell->write(QByteArray(cellFile).replace("[alias]", "[alias]\nOIL = \"OIL_TEMP\"").replace("SPEED = ", "N = ") +
                  "\n[real.COOLANT_TEMP]\nvalue = 88\n");
    m_cell->signal(SIGHUP);
    BECOMES(shown().join(' '), "OIL N PUMP_ON");
    m_cell->write(cellFile);
    m_cell->signal(SIGHUP);
    BECOMES(shown().join(' '), "OIL_TEMP SPEED PUMP_ON");
    m_window->watch().look();
    QVERIFY2(!isModified(), qPrintable(changes()));
    QVERIFY(leftBesideForm(path("groups.ui")).isEmpty());
    // A name that an operator chose stays unsaved over it.
    edit();
    EVENTUALLY(isModified());
    m_cell->write(QByteArray(cellFile).replace("[alias]", "[alias]\nTURNS = \"CYCLES\""));
    m_cell->signal(SIGHUP);
    BECOMES(shown().join(' '), "TURNS SPEED PUMP_ON");
    m_window->watch().look();
    QCOMPARE(changes(), QString("OIL_TEMP → CYCLES (oil.grp)"));
    m_cell->write(cellFile);
    m_cell->signal(SIGHUP);
    BECOMES(shown().join(' '), "CYCLES SPEED PUMP_ON");
}

void UnsavedGroupsTest::reloadKeepsTheNames() {
    edit();
    m_window->window().reload();
    QCOMPARE(shown(), QStringList({"CYCLES", "SPEED", "PUMP_ON"}));
    QVERIFY(isModified());
    QVERIFY2(changes().contains("OIL_TEMP → CYCLES"), qPrintable(changes()));
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), changed("OIL_TEMP", "CYCLES"));
}

void UnsavedGroupsTest::reloadNamesWhatHasNoPlaceAnyMore() {
    edit();
    readOut(2)->setName("CYL_TEMP:1");
    EVENTUALLY(isModified());
    write(path("oil.grp"), changed("OIL_TEMP", "CYL_TEMP:0"));
    const Operator person("mergeNote", "close");
    m_window->window().reload();
    QVERIFY2(person.read().contains("OIL_TEMP → CYCLES (oil.grp)"), qPrintable(person.read()));
    QVERIFY2(!person.read().contains("PUMP_ON"), qPrintable(person.read()));
    QCOMPARE(shown(), QStringList({"CYL_TEMP:0", "SPEED", "CYL_TEMP:1"}));
    BECOMES(m_window->field("changesField"), "2 unsaved changes");
    const Operator again("mergeNote", "close");
    QVERIFY(!save());
    QVERIFY(again.wasAsked());
    const Operator once("mergeNote", "close");
    m_window->window().reload();
    QVERIFY(once.wasAsked());
    QCOMPARE(contentOf(path("oil.grp")), changed("PUMP_ON", "CYL_TEMP:1", changed("OIL_TEMP", "CYL_TEMP:0")));
    QCOMPARE(m_window->field("changesField"), QString("1 unsaved change"));
}

void UnsavedGroupsTest::reloadKeepsANameThatTheCellHasNotNow() {
    edit();
    EVENTUALLY(isModified());
    const QByteArray cellFile = contentOf(m_cell->file("cell.toml"));
    m_cell->write(QByteArray(cellFile).replace("integer.CYCLES", "integer.REVOLUTIONS"));
    m_cell->signal(SIGHUP);
    BECOMES(m_window->field("bindingField"), "3 bound, 1 missing");
    m_window->window().reload();
    QVERIFY2(changes().contains("OIL_TEMP → CYCLES"), qPrintable(changes()));
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), changed("OIL_TEMP", "CYCLES"));
    m_cell->write(cellFile);
    m_cell->signal(SIGHUP);
    BECOMES(m_window->field("bindingField"), "4 bound, 0 missing");
}

void UnsavedGroupsTest::revertTakesTheNamesBack() {
    edit();
    EVENTUALLY(leftBesideForm(path("groups.ui")).size() == 1);
    const Operator person("revertQuestion", "revert");
    m_window->window().revert();
    QVERIFY2(person.read().contains("OIL_TEMP → CYCLES"), qPrintable(person.read()));
    QCOMPARE(shown(), QStringList({"OIL_TEMP", "SPEED", "PUMP_ON"}));
    QVERIFY(!isModified());
    QVERIFY(leftBesideForm(path("groups.ui")).isEmpty());
}

void UnsavedGroupsTest::anotherOrientationKeepsTheNames() {
    edit();
    box("oil")->setOrientation(Qt::Vertical);
    EVENTUALLY(shown() == QStringList({"CYCLES", "SPEED", "PUMP_ON"}));
    QVERIFY2(changes().contains("OIL_TEMP → CYCLES"), qPrintable(changes()));
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), changed("OIL_TEMP", "CYCLES"));
}

void UnsavedGroupsTest::closingTheEditorKeepsTheNames() {
    edit();
    openEditor()->close();
    EVENTUALLY(shown() == QStringList({"CYCLES", "SPEED", "PUMP_ON"}));
    QVERIFY(isModified());
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), changed("OIL_TEMP", "CYCLES"));
}

void UnsavedGroupsTest::savedUnderAnotherNameTheGroupsAreSavedToo() {
    edit();
    const PersonAtFileDialog person(path("copy.ui"));
    QVERIFY(m_window->window().saveAs());
    QVERIFY(!isModified());
    QVERIFY(QFile::exists(path("copy.ui")));
    QCOMPARE(contentOf(path("oil.grp")), changed("OIL_TEMP", "CYCLES"));
}

void UnsavedGroupsTest::groupThatCannotBeWrittenStaysUnsaved_data() {
    QTest::addColumn<int>("folderMode");
    QTest::addColumn<int>("fileMode");
    QTest::newRow("folder and file") << 0555 << 0444;
    QTest::newRow("file") << 0777 << 0444;
}

void UnsavedGroupsTest::groupThatCannotBeWrittenStaysUnsaved() {
    QFETCH(int, folderMode);
    QFETCH(int, fileMode);
    QVERIFY(QDir(m_folder->path()).mkdir("shared"));
    const QString file = path("shared/oil.grp");
    write(file, oil);
    open(group("ZelGroup", "oil", "shared/oil.grp"));
    edit();
    EVENTUALLY(isModified());
    chmod(qPrintable(m_folder->path()), 0777);
    chmod(qPrintable(path("groups.ui")), 0666);
    chmod(qPrintable(path("shared")), static_cast<mode_t>(folderMode));
    chmod(qPrintable(file), static_cast<mode_t>(fileMode));
    const Operator person("groupsNotSaved", "close");
    {
        const WithoutPrivileges less;
        QVERIFY(!save());
    }
    QVERIFY2(person.read().contains(file + ": "), qPrintable(person.read()));
    QVERIFY(isModified());
    QCOMPARE(contentOf(file), QByteArray(oil));
    QVERIFY2(changes().contains("OIL_TEMP → CYCLES"), qPrintable(changes()));
    EVENTUALLY(leftBesideForm(path("groups.ui")).size() == 1);
    chmod(qPrintable(path("shared")), 0777);
    chmod(qPrintable(file), 0666);
    QVERIFY(save());
    QVERIFY(!isModified());
    QCOMPARE(contentOf(file), changed("OIL_TEMP", "CYCLES"));
}

void UnsavedGroupsTest::groupThatCannotBeWrittenStaysUnsavedUnderAnotherName() {
    edit();
    EVENTUALLY(isModified());
    QVERIFY(QFile::remove(path("oil.grp")));
    QVERIFY(QDir(m_folder->path()).mkdir("oil.grp"));
    const PersonAtFileDialog person(path("copy.ui"));
    const Operator reader("groupsNotSaved", "close");
    QVERIFY(!m_window->window().saveAs());
    QVERIFY(reader.wasAsked());
    QVERIFY(QFile::exists(path("copy.ui")));
    QVERIFY(isModified());
    EVENTUALLY(leftBesideForm(path("copy.ui")).size() == 1);
    QVERIFY(leftBesideForm(path("groups.ui")).isEmpty());
}

void UnsavedGroupsTest::silentDisplaySaysWhichGroupCannotBeWritten() {
    open({}, Manners::Silent);
    edit();
    QVERIFY(QFile::remove(path("oil.grp")));
    QVERIFY(QDir(m_folder->path()).mkdir("oil.grp"));
    QVERIFY(!save());
    QVERIFY(isModified());
}

void UnsavedGroupsTest::groupThatAnotherProgramSavedIsMerged() {
    edit();
    EVENTUALLY(isModified());
    write(path("oil.grp"), changed("PUMP_ON", "CYL_TEMP:0"));
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), changed("PUMP_ON", "CYL_TEMP:0", changed("OIL_TEMP", "CYCLES")));
    QCOMPARE(shown(), QStringList({"CYCLES", "SPEED", "CYL_TEMP:0"}));
    QVERIFY(!isModified());
}

void UnsavedGroupsTest::mergingLeavesTheEditorToItsGroup() {
    QDWindow* editor = openEditor();
    edit();
    write(path("oil.grp"), changed("PUMP_ON", "CYL_TEMP:0"));
    QVERIFY(save());
    QVERIFY(Display_QD_Window);
    write(path("oil.grp"), changed("PUMP_ON", "CYL_TEMP:1"));
    editor->close();
    QCOMPARE(shown(), QStringList({"OIL_TEMP", "SPEED", "CYL_TEMP:1"}));
    QVERIFY(!Display_QD_Window);
}

void UnsavedGroupsTest::namesAreNotPutIntoTheGroupOfAnotherFile() {
    edit();
    write(path("water.grp"), oil);
    write(path("groups.ui"), formOf(group("ZelGroup", "oil", "water.grp")));
    const Operator person("mergeNote", "close");
    m_window->window().reload();
    QVERIFY2(person.read().contains("OIL_TEMP → CYCLES (oil.grp)"), qPrintable(person.read()));
    QCOMPARE(shown(), QStringList({"OIL_TEMP", "SPEED", "PUMP_ON"}));
}

void UnsavedGroupsTest::twoGroupsOfOneFileAreBothSaved() {
    open(group("ZelGroup", "oil", "oil.grp") + group("ZelGroup_fl", "again", "oil.grp"));
    edit();
    readOut(2, "again")->setName("CYL_TEMP:1");
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), changed("PUMP_ON", "CYL_TEMP:1", changed("OIL_TEMP", "CYCLES")));
    QCOMPARE(shown(), QStringList({"CYCLES", "SPEED", "CYL_TEMP:1"}));
    QCOMPARE(shown("again"), shown());
    QVERIFY(!isModified());
}

void UnsavedGroupsTest::namesAreRecovered() {
    edit();
    QVERIFY(!dieWith(m_window, path("groups.ui")).isEmpty());
    QCOMPARE(contentOf(path("oil.grp")), QByteArray(oil));
    const Operator person("recoveryQuestion", "restore");
    open();
    QVERIFY2(person.read().contains("OIL_TEMP → CYCLES (oil.grp)"), qPrintable(person.read()));
    QCOMPARE(shown(), QStringList({"CYCLES", "SPEED", "PUMP_ON"}));
    QVERIFY(isModified());
    QVERIFY(save());
    QCOMPARE(contentOf(path("oil.grp")), changed("OIL_TEMP", "CYCLES"));
    QVERIFY(leftBesideForm(path("groups.ui")).isEmpty());
}

void UnsavedGroupsTest::recoveredNamesWithoutAPlaceAreNamed() {
    edit();
    QVERIFY(!dieWith(m_window, path("groups.ui")).isEmpty());
    write(path("oil.grp"), changed("OIL_TEMP", "CYL_TEMP:0"));
    const Operator person("recoveryQuestion", "restore");
    const Operator reader("mergeNote", "close");
    open();
    QVERIFY(person.wasAsked());
    QVERIFY2(reader.read().contains("OIL_TEMP → CYCLES (oil.grp)"), qPrintable(reader.read()));
    QCOMPARE(shown(), QStringList({"CYL_TEMP:0", "SPEED", "PUMP_ON"}));
    QCOMPARE(leftBesideForm(path("groups.ui")).size(), 1);
}

void UnsavedGroupsTest::closingAsksAndDiscards() {
    edit();
    const Operator person("closingQuestion", "discard");
    QVERIFY(m_window->window().close());
    QVERIFY2(person.read().contains("OIL_TEMP → CYCLES (oil.grp)"), qPrintable(person.read()));
    m_window.reset();
    QCOMPARE(contentOf(path("oil.grp")), QByteArray(oil));
    QVERIFY(leftBesideForm(path("groups.ui")).isEmpty());
}

void UnsavedGroupsTest::editorStaysWithItsGroupOverAReload() {
    QDWindow* editor = openEditor();
    m_window->window().reload();
    QVERIFY(Display_QD_Window);
    // What the editor saved is shown by the group that took the former one's place.
    write(path("oil.grp"), changed("PUMP_ON", "CYL_TEMP:0"));
    editor->close();
    QCOMPARE(shown(), QStringList({"OIL_TEMP", "SPEED", "CYL_TEMP:0"}));
    QVERIFY(!Display_QD_Window);
    QVERIFY(openEditor()->isVisible());
    editor->close();
}

void UnsavedGroupsTest::editorOfAGroupThatIsGoneLeavesTheOthersFree() {
    QDWindow* editor = openEditor();
    write(path("water.grp"), changed("Oil", "Water"));
    write(path("groups.ui"), formOf(group("ZelGroup", "oil", "water.grp")));
    m_window->window().reload();
    editor->close();
    QVERIFY(!Display_QD_Window);
    QCOMPARE(box("oil")->title(), QString("Water"));
    QVERIFY(openEditor()->windowTitle().startsWith("water.grp"));
    editor->close();
}

OSTREL_TEST(UnsavedGroupsTest)
#include "unsavedgroups_test.moc"

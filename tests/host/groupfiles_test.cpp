// Where a display finds the files of a form's groups, and what it says where it does not.
#include <ostrel-display/qdwindow.h>

#include <QGroupBox>
#include <QLayout>
#include <QTemporaryDir>

#include "editing.h"
#include "fabric/timermoderator.h"
#include "groupform.h"
#include "qttests.h"
#include "testcell.h"
#include "widgets/groupbase.h"

class GroupFilesTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void cleanupTestCase();
    void besideTheFormIsFound();
    void whereTheNameLeadsComesFirst();
    void whatWasFoundBesideTheFormIsSavedThere();
    void editorOfAFileBesideTheFormKeepsTheName();
    void missingFilesAreCountedAndNamed();
    void fileThatIsNoLongerMissingIsNotCounted();

private:
    void open(const QByteArray& groups);
    QString title(const char* name) { return m_window->window().findChild<QGroupBox*>(name)->title(); }
    QString toolTip() { return m_window->window().findChild<QLabel*>("bindingField")->toolTip(); }
    OstrelBase* readOut() {
        return qobject_cast<OstrelBase*>(
            m_window->window().findChild<QGroupBox*>("oil")->layout()->itemAt(0)->widget());
    }

    std::unique_ptr<TestCell> m_cell;
    std::unique_ptr<QTemporaryDir> m_folder;
    std::unique_ptr<QTemporaryDir> m_elsewhere;
    std::unique_ptr<Window> m_window;
};

void GroupFilesTest::initTestCase() {
    m_cell = std::make_unique<TestCell>();
    QVERIFY(m_cell->start());
}

void GroupFilesTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    m_elsewhere = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir::setCurrent(m_elsewhere->path()));
    QVERIFY(QDir(m_folder->path()).mkdir("groups"));
    write(m_folder->filePath("groups/oil.grp"), oil);
}

void GroupFilesTest::cleanup() {
    m_window.reset();
    QDir::setCurrent("/");
    m_folder.reset();
    m_elsewhere.reset();
}

void GroupFilesTest::cleanupTestCase() {
    TimerModerator::shutDown();
    m_cell.reset();
}

void GroupFilesTest::open(const QByteArray& groups) {
    const QString form = m_folder->filePath("groups.ui");
    write(form, formOf(groups));
    openAnew(m_window, form);
    EVENTUALLY(m_window->looksGood());
}

void GroupFilesTest::besideTheFormIsFound() {
    open(group("ZelGroup", "oil", "groups/oil.grp") + group("ZelGroup_fl", "free", "groups/oil.grp"));
    QCOMPARE(title("oil"), QString("Oil"));
    QCOMPARE(title("free"), QString("Oil"));
    BECOMES(m_window->field("bindingField"), "7 bound, 0 missing");
    QCOMPARE(m_window->window().findChild<QGroupBox*>("oil")->property("FileName"), QVariant("groups/oil.grp"));
    QVERIFY(!m_window->window().isWindowModified());
}

void GroupFilesTest::whereTheNameLeadsComesFirst() {
    QVERIFY(QDir::current().mkdir("groups"));
    write("groups/oil.grp", QByteArray(oil).replace("Oil", "Water"));
    open(group("ZelGroup", "oil", "groups/oil.grp"));
    QCOMPARE(title("oil"), QString("Water"));
}

void GroupFilesTest::whatWasFoundBesideTheFormIsSavedThere() {
    open(group("ZelGroup", "oil", "groups/oil.grp"));
    readOut()->setName("CYCLES");
    EVENTUALLY(m_window->window().isWindowModified());
    QVERIFY(m_window->window().save());
    QCOMPARE(contentOf(m_folder->filePath("groups/oil.grp")), QByteArray(oil).replace("OIL_TEMP", "CYCLES"));
    QVERIFY(!QFile::exists("groups"));
    QCOMPARE(contentOf(m_folder->filePath("groups.ui")), formOf(group("ZelGroup", "oil", "groups/oil.grp")));
}

void GroupFilesTest::editorOfAFileBesideTheFormKeepsTheName() {
    open(group("ZelGroup", "oil", "groups/oil.grp"));
    m_window->window().findChild<QGroupBox*>("oil")->actions().at(1)->trigger();
    QDWindow* editor = displayWindow;
    QVERIFY(editor->windowTitle().startsWith("oil.grp"));
    write(m_folder->filePath("groups/oil.grp"), QByteArray(oil).replace("OIL_TEMP", "CYCLES"));
    editor->close();
    QCOMPARE(readOut()->getName(), QString("CYCLES"));
    QCOMPARE(m_window->window().findChild<QGroupBox*>("oil")->property("FileName"), QVariant("groups/oil.grp"));
    QVERIFY(!m_window->window().isWindowModified());
}

void GroupFilesTest::missingFilesAreCountedAndNamed() {
    open(group("ZelGroup", "oil", "groups/oil.grp") + group("ZelGroup", "gone", "groups/gone.grp") +
         group("ZelGroup_fl", "nowhere", "/nowhere/at/all.grp") + widget("ZelGroup", "plain", {}));
    BECOMES(m_window->field("bindingField"), "4 bound, 2 missing");
    QVERIFY2(toolTip().contains("Group files that cannot be read: groups/gone.grp, /nowhere/at/all.grp"),
             qPrintable(toolTip()));
    QVERIFY2(!toolTip().contains("store"), qPrintable(toolTip()));
    keepPicture(&m_window->window(), "missinggroup");
}

void GroupFilesTest::fileThatIsNoLongerMissingIsNotCounted() {
    open(group("ZelGroup", "gone", "groups/gone.grp"));
    BECOMES(m_window->field("bindingField"), "1 bound, 1 missing");
    write(m_folder->filePath("groups/gone.grp"), oil);
    m_window->window().reload();
    QCOMPARE(title("gone"), QString("Oil"));
    BECOMES(m_window->field("bindingField"), "4 bound, 0 missing");
    QCOMPARE(toolTip(), QString());
}

OSTREL_TEST(GroupFilesTest)
#include "groupfiles_test.moc"

// The editor window of a group file, driven by keys and mouse, over a store in a process of its own.
#include <ostrel-display/qdwindow.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QCompleter>
#include <QFile>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <memory>

#include "ostrel/storefixture.h"
#include "qttests.h"
#include "whenopened.h"

namespace {

const QByteArray engine =
    "<?xml version=\"1.0\"?>\n"
    "<title name=\"Engine\"/>\n"
    "<row>\n"
    "  <var name=\"SPEED\"/>\n"
    "  <var name=\"TORQUE\"/>\n"
    "</row>\n"
    "<row>\n"
    "  <var name=\"NOBODY\"/>\n"
    "</row>\n";

// Answers the message box that opens next with that button; tells its text.
void answer(QMessageBox::StandardButton button, QString* text = nullptr) {
    whenOpened<QMessageBox>([=](QMessageBox* box) {
        if (text)
            *text = box->text();
        box->button(button)->click();
    });
}

}  // namespace

class GroupEditorTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void itShowsTheGroup();
    void itMarksNamesThatTheStoreHasNot();
    void itFollowsTheStore();
    void itReportsOddLinesByTheirNumbers();
    void itOpensAFileThatIsNoGroup();
    void itStartsANewGroup();

    void typingRenames();
    void typingBehindARowAdds();
    void typingBelowTheLastRowAddsARow();
    void namesAreCompletedFromTheStore();
    void aCompletionIsChosenWithOneEnter();
    void aQuoteCannotBeTyped();
    void escapeLeavesTheName();
    void insertMakesRoomForAName();
    void insertAndEscapeLeaveNothingBehind();
    void aRowIsInserted();
    void deleteRemovesWhatIsSelected();
    void altAndArrowsMoveAVariable();
    void aMoveStopsAtTheEdge();
    void rowsMoveAndGo();
    void variablesAreArrangedInColumns();
    void namesAreCopiedAndPasted();
    void theTitleIsEdited();
    void everyStepIsUndoneAndDoneAgain();

    void savingWritesTheFile();
    void savingTakesOverWhatIsBeingTyped();
    void aFailedSaveIsTold();
    void savingAgainAsksNothing();
    void anotherFileIsShownAfterAQuestion();
    void aFileThatAnotherChangedIsAskedAbout();
    void closingTellsTheName();
    void closingAsksAboutChanges();
    void aDiscardedChangeIsGone();

private:
    void open(const QByteArray& text);
    void key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void type(const QByteArray& text);
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    QString table() const;
    QString text(int row, int column) const;
    QByteArray file() const;
    QTableView* view() const { return m_window->findChild<QTableView*>("groupTable"); }
    QLineEdit* line() const { return view()->findChild<QLineEdit*>("nameLine"); }
    QString summary() const { return m_window->findChild<QLabel*>("summary")->text(); }

    ServerProcess m_server;
    const std::string m_store = newStoreName();
    QTemporaryDir m_folder;
    QString m_path;
    std::unique_ptr<QDWindow> m_window;
};

void GroupEditorTest::initTestCase() {
    QCOMPARE(m_server.tell("open " + m_store), std::string("ok 0"));
    QCOMPARE(m_server.tell("begin -1"), std::string("ok"));
    for (const char* name : {"SPEED", "TORQUE", "POWER", "OIL_TEMP", "OIL_PRES"})
        QCOMPARE(m_server.tell(QByteArray("put 54 1 ").append(name).toStdString()).substr(0, 2), std::string("ok"));
    QCOMPARE(m_server.tell("commit"), std::string("ok"));
    QCOMPARE(ostrel_store_open(m_store.c_str(), nullptr, nullptr, 0), 0);
}

void GroupEditorTest::cleanupTestCase() {
    m_server.tell("close");
    removeObjectsOf(m_store);
}

void GroupEditorTest::init() {
    m_path = m_folder.filePath(QStringLiteral("engine.grp"));
    m_window = std::make_unique<QDWindow>(nullptr);
    open(engine);
}

void GroupEditorTest::cleanup() {
    m_window.reset();
}

void GroupEditorTest::open(const QByteArray& text) {
    QFile file(m_path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    m_window->show(m_path);
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
}

void GroupEditorTest::key(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(m_window->windowHandle(), static_cast<Qt::Key>(key), modifiers);
}

void GroupEditorTest::type(const QByteArray& text) {
    for (const char letter : text)
        QTest::keyClick(m_window->windowHandle(), letter);
}

void GroupEditorTest::clickCell(int row, int column, Qt::KeyboardModifiers modifiers) {
    const QPoint place = view()->visualRect(view()->model()->index(row, column)).center();
    QTest::mouseClick(m_window->windowHandle(), Qt::LeftButton, modifiers,
                      view()->viewport()->mapTo(m_window.get(), place));
}

QString GroupEditorTest::text(int row, int column) const {
    return view()->model()->index(row, column).data(Qt::EditRole).toString();
}

// "A B / C": the rows of the table.
QString GroupEditorTest::table() const {
    QStringList rows;
    for (int row = 0; row + 1 < view()->model()->rowCount(); ++row) {
        QStringList names;
        for (int column = 0; column < view()->model()->columnCount(); ++column)
            if (const QString name = text(row, column); !name.isEmpty())
                names << name;
        rows << names.join(QLatin1Char(' '));
    }
    return rows.join(QStringLiteral(" / "));
}

QByteArray GroupEditorTest::file() const {
    QFile file(m_path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void GroupEditorTest::itShowsTheGroup() {
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
    QCOMPARE(m_window->findChild<QLineEdit*>("titleLine")->text(), QString("Engine"));
    QCOMPARE(m_window->windowTitle(), QString("engine.grp[*] - Group"));
    QVERIFY(!m_window->isWindowModified());
    QVERIFY(m_window->findChild<QListWidget*>("remarks")->isHidden());
}

void GroupEditorTest::itMarksNamesThatTheStoreHasNot() {
    const QAbstractItemModel* model = view()->model();
    QVERIFY(model->index(0, 0).data(Qt::DecorationRole).isNull());
    QVERIFY(!model->index(1, 0).data(Qt::DecorationRole).isNull());
    QVERIFY(model->index(1, 0).data(Qt::ToolTipRole).toString().contains("no variable 'NOBODY'"));
    QCOMPARE(summary(), QString("3 variables in 2 rows; not in the store: NOBODY"));
}

void GroupEditorTest::itFollowsTheStore() {
    open("<row>\n<var \"LATER\"\n</row>\n");
    QCOMPARE(summary(), QString("1 variable in 1 row; not in the store: LATER"));
    QCOMPARE(m_server.tell("begin -1"), std::string("ok"));
    for (const char* name : {"SPEED", "TORQUE", "POWER", "OIL_TEMP", "OIL_PRES", "LATER"})
        QCOMPARE(m_server.tell(QByteArray("put 54 1 ").append(name).toStdString()).substr(0, 2), std::string("ok"));
    QCOMPARE(m_server.tell("commit"), std::string("ok"));
    QTRY_COMPARE_WITH_TIMEOUT(summary(), QString("1 variable in 1 row"), 15000);
    QVERIFY(view()->model()->index(0, 0).data(Qt::DecorationRole).isNull());
}

void GroupEditorTest::itReportsOddLinesByTheirNumbers() {
    open("<title/>\n<row>\n<!-- by hand -->\n<var name=SPEED/>\n<var \"TORQUE\"\n");
    const auto* remarks = m_window->findChild<QListWidget*>("remarks");
    QVERIFY(remarks->isVisible());
    QStringList lines;
    for (int i = 0; i < remarks->count(); ++i)
        lines << remarks->item(i)->text().section(QLatin1Char(':'), 0, 0);
    QCOMPARE(lines, QStringList({"line 1", "line 3", "line 4", "line 5"}));
    QCOMPARE(view()->model()->index(0, 1).data().toString(), QString("TORQUE"));
    // Saved, it is a group like any other.
    key(Qt::Key_Delete);
    key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!remarks->isVisible());
    QVERIFY(!file().contains("by hand"));
}

void GroupEditorTest::itOpensAFileThatIsNoGroup() {
    open(
        QByteArray("\x7F"
                   "ELF\0\1\2\n\xFF\xFE",
                   10));
    QCOMPARE(table(), QString());
    QCOMPARE(m_window->findChild<QListWidget*>("remarks")->count(), 3);
    m_window->show(m_folder.path());
    QVERIFY(m_window->findChild<QListWidget*>("remarks")->item(0)->text().startsWith("The file cannot be read: "));
}

void GroupEditorTest::itStartsANewGroup() {
    m_path = m_folder.filePath(QStringLiteral("new.grp"));
    m_window->show(m_path);
    QCOMPARE(table(), QString());
    type("SPEED");
    key(Qt::Key_Return);
    key(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(file(),
             QByteArray("<?xml version=\"1.0\"?>\n<title name=\"\"/>\n<row>\n  <var name=\"SPEED\"/>\n</row>\n"));
}

void GroupEditorTest::typingRenames() {
    clickCell(1, 0);
    type("POWER");
    key(Qt::Key_Return);
    QCOMPARE(table(), QString("SPEED TORQUE / POWER"));
    QVERIFY(m_window->isWindowModified());
    QCOMPARE(summary(), QString("3 variables in 2 rows"));
    // F2 begins with the name that is there.
    key(Qt::Key_F2);
    QVERIFY(line());
    QCOMPARE(line()->text(), QString("POWER"));
    key(Qt::Key_End);
    type("2");
    key(Qt::Key_Return);
    QCOMPARE(text(1, 0), QString("POWER2"));
}

void GroupEditorTest::typingBehindARowAdds() {
    clickCell(1, 1);
    type("POWER");
    // On to the next cell, which is a place to add in again.
    key(Qt::Key_Tab);
    type("OIL_TEMP");
    key(Qt::Key_Return);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY POWER OIL_TEMP"));
}

void GroupEditorTest::typingBelowTheLastRowAddsARow() {
    clickCell(2, 0);
    type("POWER");
    key(Qt::Key_Return);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY / POWER"));
}

void GroupEditorTest::namesAreCompletedFromTheStore() {
    clickCell(0, 0);
    type("oil");
    QVERIFY(line());
    QAbstractItemModel* found = line()->completer()->completionModel();
    QStringList names;
    for (int i = 0; i < found->rowCount(); ++i)
        names << found->index(i, 0).data().toString();
    QCOMPARE(names, QStringList({"OIL_PRES", "OIL_TEMP"}));
}

void GroupEditorTest::aCompletionIsChosenWithOneEnter() {
    clickCell(0, 0);
    type("temp");
    QTRY_VERIFY(QApplication::activePopupWidget());
    QWidget* popup = QApplication::activePopupWidget();
    QTest::keyClick(popup, Qt::Key_Down);
    QTest::keyClick(popup, Qt::Key_Return);
    QTRY_COMPARE(text(0, 0), QString("OIL_TEMP"));
    QTRY_VERIFY(!line());
}

void GroupEditorTest::aQuoteCannotBeTyped() {
    clickCell(0, 0);
    type("A\"B");
    key(Qt::Key_Return);
    QCOMPARE(text(0, 0), QString("AB"));
    auto* title = m_window->findChild<QLineEdit*>("titleLine");
    QTest::mouseClick(title, Qt::LeftButton);
    key(Qt::Key_End);
    type("\"x");
    QCOMPARE(title->text(), QString("Enginex"));
}

void GroupEditorTest::escapeLeavesTheName() {
    clickCell(0, 0);
    type("POWER");
    if (QWidget* popup = QApplication::activePopupWidget())
        QTest::keyClick(popup, Qt::Key_Escape);
    key(Qt::Key_Escape);
    QTRY_VERIFY(!line());
    QCOMPARE(text(0, 0), QString("SPEED"));
    QVERIFY(!m_window->isWindowModified());
}

void GroupEditorTest::insertMakesRoomForAName() {
    clickCell(0, 1);
    key(Qt::Key_Insert);
    QVERIFY(line());
    type("POWER");
    key(Qt::Key_Return);
    QCOMPARE(table(), QString("SPEED POWER TORQUE / NOBODY"));
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
}

void GroupEditorTest::insertAndEscapeLeaveNothingBehind() {
    for (const auto& keys : {QPair<int, Qt::KeyboardModifiers>(Qt::Key_Insert, Qt::NoModifier),
                             QPair<int, Qt::KeyboardModifiers>(Qt::Key_Return, Qt::ControlModifier)}) {
        clickCell(0, 1);
        key(keys.first, keys.second);
        QVERIFY(line());
        key(Qt::Key_Escape);
        QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
        QVERIFY(!m_window->isWindowModified());
        // The same with Enter on an empty line.
        key(keys.first, keys.second);
        key(Qt::Key_Return);
        QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
        QVERIFY(!m_window->isWindowModified());
    }
}

void GroupEditorTest::aRowIsInserted() {
    clickCell(1, 0);
    key(Qt::Key_Return, Qt::ControlModifier);
    type("POWER");
    key(Qt::Key_Return);
    QCOMPARE(table(), QString("SPEED TORQUE / POWER / NOBODY"));
}

void GroupEditorTest::deleteRemovesWhatIsSelected() {
    clickCell(0, 0);
    key(Qt::Key_Right, Qt::ShiftModifier);
    key(Qt::Key_Delete);
    QCOMPARE(table(), QString("NOBODY"));
    key(Qt::Key_A, Qt::ControlModifier);
    key(Qt::Key_Delete);
    QCOMPARE(table(), QString());
    key(Qt::Key_Delete);
    key(Qt::Key_Z, Qt::ControlModifier);
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
    QVERIFY(!m_window->isWindowModified());
}

void GroupEditorTest::altAndArrowsMoveAVariable() {
    clickCell(0, 0);
    key(Qt::Key_Right, Qt::AltModifier);
    QCOMPARE(table(), QString("TORQUE SPEED / NOBODY"));
    key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(table(), QString("TORQUE / NOBODY SPEED"));
    key(Qt::Key_Left, Qt::AltModifier);
    QCOMPARE(table(), QString("TORQUE / SPEED NOBODY"));
    key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(table(), QString("TORQUE / NOBODY / SPEED"));
    key(Qt::Key_Up, Qt::AltModifier);
    key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
    QCOMPARE(view()->currentIndex().data().toString(), QString("SPEED"));
}

void GroupEditorTest::aMoveStopsAtTheEdge() {
    clickCell(0, 0);
    key(Qt::Key_Left, Qt::AltModifier);
    key(Qt::Key_Up, Qt::AltModifier);
    clickCell(0, 1);
    key(Qt::Key_Right, Qt::AltModifier);
    clickCell(1, 0);
    key(Qt::Key_Down, Qt::AltModifier);
    // The places for new names do not move.
    clickCell(2, 0);
    key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
    QVERIFY(!m_window->isWindowModified());
}

void GroupEditorTest::rowsMoveAndGo() {
    clickCell(0, 1);
    key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(table(), QString("NOBODY / SPEED TORQUE"));
    key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    key(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
    key(Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(table(), QString("NOBODY"));
    clickCell(1, 0);
    key(Qt::Key_Delete, Qt::ControlModifier);
    QCOMPARE(table(), QString("NOBODY"));
}

void GroupEditorTest::variablesAreArrangedInColumns() {
    whenOpened<QInputDialog>([](QInputDialog* dialog) {
        dialog->setIntValue(3);
        dialog->accept();
    });
    key(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(table(), QString("SPEED TORQUE NOBODY"));
}

void GroupEditorTest::namesAreCopiedAndPasted() {
    clickCell(0, 0);
    key(Qt::Key_Right, Qt::ShiftModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("SPEED\nTORQUE"));
    QApplication::clipboard()->setText("POWER\r\n\n OIL\"_TEMP \n");
    clickCell(2, 0);
    key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY / POWER OIL_TEMP"));
    // In the order of the table, whatever was selected first.
    clickCell(1, 0);
    clickCell(0, 0, Qt::ControlModifier);
    key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), QString("SPEED\nNOBODY"));
}

void GroupEditorTest::theTitleIsEdited() {
    auto* title = m_window->findChild<QLineEdit*>("titleLine");
    key(Qt::Key_T, Qt::AltModifier);
    QTRY_VERIFY(title->hasFocus());
    key(Qt::Key_End);
    type(" 1");
    QVERIFY(m_window->isWindowModified());
    key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(title->text(), QString("Engine"));
    QVERIFY(!m_window->isWindowModified());
    key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    key(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(file(), QByteArray(engine).replace("Engine", "Engine 1"));
}

void GroupEditorTest::everyStepIsUndoneAndDoneAgain() {
    clickCell(2, 0);
    type("POWER");
    key(Qt::Key_Return);
    key(Qt::Key_Up, Qt::AltModifier);
    clickCell(0, 0);
    key(Qt::Key_Delete);
    const QString end = table();
    QCOMPARE(end, QString("TORQUE / POWER NOBODY"));
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
    QVERIFY(!m_window->isWindowModified());
    for (int i = 0; i < 3; ++i)
        key(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(table(), end);
}

void GroupEditorTest::savingWritesTheFile() {
    clickCell(1, 0);
    key(Qt::Key_Delete);
    QCOMPARE(file(), engine);
    key(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(file(), QByteArray(engine).replace("<row>\n  <var name=\"NOBODY\"/>\n</row>\n", ""));
    QVERIFY(!m_window->isWindowModified());
    key(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(m_window->isWindowModified());
}

void GroupEditorTest::savingTakesOverWhatIsBeingTyped() {
    clickCell(0, 0);
    type("POWER");
    if (QWidget* popup = QApplication::activePopupWidget())
        popup->close();
    QVERIFY(line());
    key(Qt::Key_S, Qt::ControlModifier);
    QTRY_COMPARE(file(), QByteArray(engine).replace("SPEED", "POWER"));
}

void GroupEditorTest::aFailedSaveIsTold() {
    m_path = m_folder.filePath(QStringLiteral("none/engine.grp"));
    m_window->show(m_path);
    type("SPEED");
    key(Qt::Key_Return);
    QString told;
    answer(QMessageBox::Ok, &told);
    key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(told.startsWith(m_path + " cannot be saved: "));
    QVERIFY(m_window->isWindowModified());
}

void GroupEditorTest::savingAgainAsksNothing() {
    clickCell(0, 0);
    key(Qt::Key_Delete);
    key(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(table(), QString("TORQUE / NOBODY"));
    key(Qt::Key_Delete);
    bool asked = false;
    QTimer watch;
    connect(&watch, &QTimer::timeout, this, [&asked] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            asked = true;
            box->button(QMessageBox::Save)->click();
        }
    });
    watch.start(10);
    key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!file().contains("TORQUE"));
    QVERIFY(!asked);
}

void GroupEditorTest::anotherFileIsShownAfterAQuestion() {
    clickCell(0, 0);
    key(Qt::Key_Delete);
    QString asked;
    answer(QMessageBox::Cancel, &asked);
    m_window->show(QString());
    QVERIFY(asked.contains("Save the changes"));
    QCOMPARE(table(), QString("TORQUE / NOBODY"));
    answer(QMessageBox::Discard);
    m_window->show(QString());
    QCOMPARE(table(), QString());
    QCOMPARE(file(), engine);
}

void GroupEditorTest::aFileThatAnotherChangedIsAskedAbout() {
    clickCell(0, 0);
    key(Qt::Key_Delete);
    QFile other(m_path);
    QVERIFY(other.open(QIODevice::WriteOnly));
    other.write("by another");
    other.close();
    QString told;
    answer(QMessageBox::Cancel, &told);
    key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(told.contains("was changed by another program"));
    QCOMPARE(file(), QByteArray("by another"));
    m_window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(m_window.get()));
    answer(QMessageBox::Save);
    key(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(file().contains("TORQUE"));
}

void GroupEditorTest::closingTellsTheName() {
    QSignalSpy closed(m_window.get(), SIGNAL(closed(QString)));
    key(Qt::Key_W, Qt::ControlModifier);
    QTRY_COMPARE(closed.size(), 1);
    QCOMPARE(closed.first().first().toString(), m_path);
    QVERIFY(!m_window->isVisible());
    // It can be shown again, and closing what is closed tells nothing.
    m_window->close();
    QCOMPARE(closed.size(), 1);
    m_window->show(QString());
    m_window->close();
    QCOMPARE(closed.at(1).first().toString(), QString());
}

void GroupEditorTest::closingAsksAboutChanges() {
    QSignalSpy closed(m_window.get(), SIGNAL(closed(QString)));
    clickCell(1, 0);
    key(Qt::Key_Delete);
    answer(QMessageBox::Cancel);
    m_window->close();
    QVERIFY(m_window->isVisible());
    QCOMPARE(closed.size(), 0);
    answer(QMessageBox::Save);
    m_window->close();
    QCOMPARE(closed.size(), 1);
    QVERIFY(!file().contains("NOBODY"));
}

void GroupEditorTest::aDiscardedChangeIsGone() {
    QSignalSpy closed(m_window.get(), SIGNAL(closed(QString)));
    clickCell(1, 0);
    key(Qt::Key_Delete);
    answer(QMessageBox::Discard);
    m_window->close();
    QCOMPARE(closed.size(), 1);
    QCOMPARE(file(), engine);
    QVERIFY(!m_window->isWindowModified());
    m_window->show(m_path);
    QCOMPARE(table(), QString("SPEED TORQUE / NOBODY"));
}

OSTREL_TEST(GroupEditorTest)
#include "groupeditor_test.moc"

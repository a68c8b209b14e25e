// The command line: what is typed becomes child processes, and is remembered.
#include <QAction>
#include <QComboBox>
#include <QGroupBox>
#include <QLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSettings>
#include <QSignalSpy>
#include <memory>

#include "commandtest.h"
#include "qttests.h"
#include "readouttest.h"
#include "settingsfolder.h"
#include "widgets/cmdlinewidget.h"

namespace {

// What a display gives its widgets to connect to.
class HostControl : public QObject {
    Q_OBJECT

public:
    int listeners(const char* signal) const { return receivers(signal); }

Q_SIGNALS:
    void ctrlLPressed();
    void saveConfig();
};

// A command line, and what an operator sees of it and does to it.
class Line : public ZelCmdLine {
public:
    Line() { setObjectName(QStringLiteral("line")); }

    QComboBox* box() const { return findChild<QComboBox*>("commandBox"); }
    QLineEdit* edit() const { return box()->lineEdit(); }
    QPushButton* button() const { return findChild<QPushButton*>("executeButton"); }
    QStringList items() const {
        QStringList texts;
        for (int i = 0; i < box()->count(); ++i)
            texts.append(box()->itemText(i));
        return texts;
    }
    void type(const QString& text) const {
        edit()->selectAll();
        QTest::keyClick(box(), Qt::Key_Delete);
        // What is long or has no key comes from the clipboard.
        if (text.size() > 100 || text.contains('\t'))
            edit()->setText(text);
        else
            QTest::keyClicks(box(), text);
    }
    void enter(const QString& text) const {
        type(text);
        QTest::keyClick(box(), Qt::Key_Return);
    }
    void execute(const QString& text) const {
        type(text);
        QTest::mouseClick(button(), Qt::LeftButton);
    }
    QString shownAfter(Qt::Key key) const {
        QTest::keyClick(box(), key);
        return edit()->text();
    }

    using OstrelBase::_initFlag;
};

const QString group = QStringLiteral("CmdLineCombobox/");

}  // namespace

class ZelCmdLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void itsProperties();
    void itsForm();
    void aNewOneIsReadyForTyping();
    void onlyItsPropertiesAreOnTheMenu();
    void noVariableIsBound();
    void settersTellTheForm();

    void theShortcutBringsTheKeyboard();
    void theShortcutTakesEffectOnlyWhenSet();
    void setTwiceItIsConnectedTwice();

    void enterStartsTheCommand();
    void theButtonStartsTheCommand();
    void wordsReachTheProgram_data();
    void wordsReachTheProgram();
    void aLongWordReachesTheProgramWhole();
    void commandsRunSideBySide();
    void aCommandWithoutWordsStartsNothing();
    void aProgramThatIsNotThereOnlyComplains();
    void commandsBeyondThePoolWaitForTheirTurn();
    void manyCommandsLeaveNothingBehind();
    void itMayGoWhileACommandRuns();
    void aPreviewStartsCommandsToo();
    void aRemoteDisplayStartsNothing();

    void blanksEnteredAreRemembered();
    void blanksExecutedAreNothing();
    void executedLinesAreInsertedTrimmed();
    void enteredLinesAreInsertedOnce();
    void upAndDownWalkTheRows();
    void keysDoNothingWithoutAHistory();

    void aFinishedCommandSavesTheHistory();
    void savingIsToldByTheProperty();
    void aCommandEndsForTheHistoryWhenAllHave();
    void theDisplaySavesTheHistory();
    void savedLinesStandInNoOrder();
    void theFormLoadsTheHistory();
    void atMostTenLinesAreLoaded();
    void linesOfAFileAreLoadedOnceAndEmptyOnesToo();
    void withoutAHostNothingIsLoaded();
    void settingsThatCannotBeWrittenAreNoMatter();

private:
    QString settingsFile() const { return m_settings->filePath("engine test/line.conf"); }
    QStringList savedLines() const;
    void saveLines(int count, const QStringList& lines) const;

    std::unique_ptr<QTemporaryDir> m_settings;
    std::unique_ptr<Commands> m_commands;
    HostControl m_host;
};

void ZelCmdLineTest::init() {
    startAsHost();
    std::signal(SIGCHLD, SIG_DFL);
    makeRoomForCommands(8);
    runQtUIWindow = nullptr;
    qstrncpy(OperatorDisplayDir, "engine test", sizeof(OperatorDisplayDir));
    m_settings = std::make_unique<QTemporaryDir>();
    qputenv(settingsFolderVariable, m_settings->path().toUtf8());
    settingsFoldersAsked.clear();
    m_commands = std::make_unique<Commands>();
}

void ZelCmdLineTest::cleanup() {
    runQtUIWindow = nullptr;
    m_commands.reset();
    QVERIFY(allTasksEnd());
    QVERIFY(allChildrenEnd());
}

// The saved lines, sorted, behind their number.
QStringList ZelCmdLineTest::savedLines() const {
    const QSettings settings(settingsFile(), QSettings::IniFormat);
    const int count = settings.value(group + "item_count", -1).toInt();
    QStringList lines;
    for (int i = 0; i < count; ++i)
        lines.append(settings.value(group + QStringLiteral("item%1").arg(i), "(missing)").toString());
    lines.sort();
    lines.prepend(QString::number(count));
    return lines;
}

void ZelCmdLineTest::saveLines(int count, const QStringList& lines) const {
    QVERIFY(QDir().mkpath(QFileInfo(settingsFile()).path()));
    QSettings settings(settingsFile(), QSettings::IniFormat);
    settings.setValue(group + "item_count", count);
    for (int i = 0; i < lines.size(); ++i)
        settings.setValue(group + QStringLiteral("item%1").arg(i), lines[i]);
}

void ZelCmdLineTest::itsProperties() {
    const ZelCmdLine line;
    QCOMPARE(ownProperties(ZelCmdLine::staticMetaObject), QStringList({"shortcutEnabled", "saveHistory"}));
    compareProperty(line, "shortcutEnabled", "bool", true);
    compareProperty(line, "saveHistory", "bool", true);
}

void ZelCmdLineTest::itsForm() {
    const ZelCmdLine line;
    QCOMPARE(line.objectName(), QString("CmdLine"));
    QCOMPARE(line.windowTitle(), QString("Form"));
    QCOMPARE(line.size(), QSize(444, 84));
    QCOMPARE(line.focusPolicy(), Qt::StrongFocus);
    QVERIFY(line.acceptDrops());
    QCOMPARE(line.layout()->objectName(), QString("verticalLayout_2"));
    const auto* frame = line.findChild<QGroupBox*>("verticalGroupBox");
    QCOMPARE(frame->title(), QString("Command Line"));
    QCOMPARE(line.layout()->itemAt(0)->widget(), frame);
    auto* row = qobject_cast<QHBoxLayout*>(frame->layout());
    QVERIFY(row);
    QCOMPARE(row->objectName(), QString("horizontalLayout"));
    const auto* box = line.findChild<QComboBox*>("commandBox");
    QCOMPARE(row->itemAt(0)->widget(), box);
    QVERIFY(box->isEditable());
    QCOMPARE(box->minimumWidth(), 322);
    QCOMPARE(box->insertPolicy(), QComboBox::InsertAtTop);
    QVERIFY(!box->duplicatesEnabled());
    const auto* button = line.findChild<QPushButton*>("executeButton");
    QCOMPARE(row->itemAt(1)->widget(), button);
    QCOMPARE(button->text(), QString("Execute"));
}

void ZelCmdLineTest::aNewOneIsReadyForTyping() {
    Line line;
    QCOMPARE(line.items(), QStringList({""}));
    QVERIFY(!line.box()->completer());
    QCOMPARE(line.box()->property("autoCompletion").toBool(), false);
    QCOMPARE(line.focusWidget(), &line);
    line.show();
    line.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&line));
    QVERIFY(line.hasFocus());
}

void ZelCmdLineTest::onlyItsPropertiesAreOnTheMenu() {
    const Line line;
    QCOMPARE(line.actions().size(), 1);
    QCOMPARE(line.actions().first()->text(), QString("Edit Properties"));
    RemoteDisplay = true;
    QVERIFY(Line().actions().isEmpty());
}

void ZelCmdLineTest::noVariableIsBound() {
    platform().real("SPEED").value(1500).format("%g");
    Line line;
    platform().forgetCalls();
    line.setName("SPEED");
    line.ostrelTimerEvent(line.getSampleRate());
    QCOMPARE(platform().calls(), QStringList());
    QCOMPARE(line.getName(), QString());
}

void ZelCmdLineTest::settersTellTheForm() {
    Line line;
    platform().forgetCalls();
    line.setShortcutEnabled(false);
    line.setSaveHistory(false);
    line._initFlag = true;
    line.setShortcutEnabled(true);
    line.setSaveHistory(true);
    QCOMPARE(platform().calls(), QStringList({"cacheProperty ZelCmdLine line shortcutEnabled false loading",
                                              "cacheProperty ZelCmdLine line saveHistory false loading",
                                              "cacheProperty ZelCmdLine line shortcutEnabled true changed",
                                              "cacheProperty ZelCmdLine line saveHistory true changed"}));
}

void ZelCmdLineTest::theShortcutBringsTheKeyboard() {
    runQtUIWindow = &m_host;
    Line line;
    line.setShortcutEnabled(true);
    line.show();
    line.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&line));
    QVERIFY(!line.box()->hasFocus());
    emit m_host.ctrlLPressed();
    QVERIFY(line.box()->hasFocus());
    line.button()->setFocus();
    line.setShortcutEnabled(false);
    emit m_host.ctrlLPressed();
    QVERIFY(!line.box()->hasFocus());
}

void ZelCmdLineTest::theShortcutTakesEffectOnlyWhenSet() {
    Line early;
    early.setShortcutEnabled(true);
    runQtUIWindow = &m_host;
    const Line line;
    QCOMPARE(m_host.listeners(SIGNAL(ctrlLPressed())), 0);
    QCOMPARE(m_host.listeners(SIGNAL(saveConfig())), 0);
}

void ZelCmdLineTest::setTwiceItIsConnectedTwice() {
    runQtUIWindow = &m_host;
    Line line;
    line.setShortcutEnabled(true);
    line.setShortcutEnabled(true);
    line.setSaveHistory(true);
    line.setSaveHistory(true);
    QCOMPARE(m_host.listeners(SIGNAL(ctrlLPressed())), 2);
    QCOMPARE(m_host.listeners(SIGNAL(saveConfig())), 2);
    line.setShortcutEnabled(false);
    line.setSaveHistory(false);
    QCOMPARE(m_host.listeners(SIGNAL(ctrlLPressed())), 0);
    QCOMPARE(m_host.listeners(SIGNAL(saveConfig())), 0);
}

void ZelCmdLineTest::enterStartsTheCommand() {
    const Line line;
    QVERIFY(!ignoresChildren());
    line.enter(m_commands->tell("out") + " one two");
    QCOMPARE(m_commands->told("out"), QByteArray("[one][two]"));
    QCOMPARE(line.edit()->text(), QString());
    QVERIFY(ignoresChildren());
}

void ZelCmdLineTest::theButtonStartsTheCommand() {
    const Line line;
    line.execute(m_commands->tell("out") + " one two");
    QCOMPARE(m_commands->told("out"), QByteArray("[one][two]"));
    QCOMPARE(line.edit()->text(), QString());
}

void ZelCmdLineTest::wordsReachTheProgram_data() {
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("words");
    QTest::newRow("none") << "" << QByteArray("[]");
    QTest::newRow("blanks, tabs and commas") << " a\tb,c,  d " << QByteArray("[a][b][c][d]");
    QTest::newRow("blanks in quotes") << " 'a b' \"c  d\"" << QByteArray("[a b][c  d]");
    QTest::newRow("quotes in quotes") << " 'a \"b\"' \"it's\"" << QByteArray("[a \"b\"][it's]");
    QTest::newRow("an empty word ends the command") << " a '' b" << QByteArray("[a]");
    QTest::newRow("quotes do not protect a semicolon") << " 'a ;" << QByteArray("[a ]");
    QTest::newRow("no shell") << " * $HOME ~" << QByteArray("[*][$HOME][~]");
    QTest::newRow("letters beyond ASCII") << QString::fromUtf8(" \xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA7")
                                          << QByteArray("[\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA7]");
}

void ZelCmdLineTest::wordsReachTheProgram() {
    QFETCH(QString, text);
    QFETCH(QByteArray, words);
    const Line line;
    line.enter(m_commands->tell("out") + text);
    QCOMPARE(m_commands->told("out"), words);
}

void ZelCmdLineTest::aLongWordReachesTheProgramWhole() {
    const Line line;
    for (const int length : {254, 255, 256, 5000}) {
        const QString name = QString::number(length);
        const QByteArray word(length, 'x');
        line.enter(m_commands->tell(name) + ' ' + word);
        QCOMPARE(m_commands->told(name), '[' + word + ']');
    }
    // 256 bytes of UTF-8 in fewer characters.
    const QString word = QString(128, QChar(0xE4));
    line.enter(m_commands->tell("wide") + ' ' + word);
    QCOMPARE(m_commands->told("wide"), '[' + word.toUtf8() + ']');
}

void ZelCmdLineTest::commandsRunSideBySide() {
    const Line line;
    line.enter(m_commands->meet("a", {"b", "c"}) + " ; ;" + m_commands->meet("b", {"a", "c"}) + ";  " +
               m_commands->meet("c", {"a", "b"}));
    QVERIFY(allTasksEnd());
    QVERIFY(m_commands->exists("a") && m_commands->exists("b") && m_commands->exists("c"));
}

void ZelCmdLineTest::aCommandWithoutWordsStartsNothing() {
    const Line line;
    line.enter(" ;; \t; ''");
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
    QCOMPARE(line.edit()->text(), QString());
    QVERIFY(!ignoresChildren());
}

void ZelCmdLineTest::aProgramThatIsNotThereOnlyComplains() {
    const Line line;
    const Complaints complaints;
    line.enter("no-such-program x; /no/such/folder/program");
    QVERIFY(allTasksEnd());
    const QByteArray text = complaints.text();
    QVERIFY2(text.contains("Unable to execute no-such-program\n"), text);
    QVERIFY2(text.contains("Unable to execute /no/such/folder/program\n"), text);
    QTRY_COMPARE(savedLines().value(1), QString("no-such-program x; /no/such/folder/program"));
}

void ZelCmdLineTest::commandsBeyondThePoolWaitForTheirTurn() {
    makeRoomForCommands(1);
    const Line line;
    line.enter(m_commands->meet("first", {"go"}) + ';' + m_commands->tell("second"));
    QTRY_VERIFY(m_commands->exists("first"));
    QVERIFY(!m_commands->exists("second"));
    m_commands->create("go");
    QCOMPARE(m_commands->told("second"), QByteArray("[]"));
}

void ZelCmdLineTest::manyCommandsLeaveNothingBehind() {
    const Line line;
    // Each thread of the pool has descriptors of its own.
    makeRoomForCommands(2);
    line.enter(m_commands->meet("a", {"b"}) + ';' + m_commands->meet("b", {"a"}));
    QTRY_VERIFY(QFile::exists(settingsFile()));
    QVERIFY(allTasksEnd());
    const int before = openDescriptors();
    for (int i = 0; i < 200; ++i)
        line.enter("true");
    QVERIFY(allTasksEnd());
    QCOMPARE(childStates(), QByteArray());
    QCOMPARE(openDescriptors(), before);
}

void ZelCmdLineTest::itMayGoWhileACommandRuns() {
    auto line = std::make_unique<Line>();
    line->enter(m_commands->meet("running", {"go"}));
    QTRY_VERIFY(m_commands->exists("running"));
    line.reset();
    m_commands->create("go");
    QVERIFY(allTasksEnd());
    QCoreApplication::processEvents();
    QVERIFY(!QFile::exists(settingsFile()));
}

void ZelCmdLineTest::aPreviewStartsCommandsToo() {
    inDesigner = true;
    const Line line;
    line.enter(m_commands->tell("out") + " one");
    QCOMPARE(m_commands->told("out"), QByteArray("[one]"));
}

void ZelCmdLineTest::aRemoteDisplayStartsNothing() {
    RemoteDisplay = true;
    const Line line;
    line.enter(m_commands->tell("a"));
    QVERIFY(!line.edit()->text().isEmpty());
    line.execute(m_commands->tell("b"));
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
    QVERIFY(!line.edit()->text().isEmpty());
    QVERIFY(!m_commands->exists("a") && !m_commands->exists("b"));
    // Nobody keeps the keys from the combo box.
    runQtUIWindow = &m_host;
    saveLines(2, {"one", "two"});
    Line second;
    second.setSaveHistory(true);
    QCOMPARE(second.items(), QStringList({"", "one", "two"}));
    QCOMPARE(second.shownAfter(Qt::Key_Down), QString("one"));
    QCOMPARE(second.shownAfter(Qt::Key_Down), QString("two"));
    QCOMPARE(second.shownAfter(Qt::Key_Up), QString("one"));
}

void ZelCmdLineTest::blanksEnteredAreRemembered() {
    const Line line;
    line.enter("  ;");
    QCOMPARE(line.edit()->text(), QString());
    QCOMPARE(line.items(), QStringList({"  ;", ""}));
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("  ;"));
}

void ZelCmdLineTest::blanksExecutedAreNothing() {
    const Line line;
    line.execute("");
    line.execute("   ");
    QCOMPARE(line.edit()->text(), QString("   "));
    QCOMPARE(line.items(), QStringList({""}));
    // The history is empty, so the key is the combo box's.
    line.box()->addItem("next");
    QCOMPARE(line.shownAfter(Qt::Key_Down), QString("next"));
}

void ZelCmdLineTest::executedLinesAreInsertedTrimmed() {
    const Line line;
    line.execute("true");
    QCOMPARE(line.items(), QStringList({"true", ""}));
    line.execute("true");
    QCOMPARE(line.items(), QStringList({"true", ""}));
    // The history has the line with its blanks, so it is not known without them.
    line.execute("  false ");
    line.execute("  false ");
    QCOMPARE(line.items(), QStringList({"false", "false", "true", ""}));
}

void ZelCmdLineTest::enteredLinesAreInsertedOnce() {
    const Line line;
    line.enter("true");
    line.enter("false");
    line.enter("true");
    QCOMPARE(line.items(), QStringList({"false", "true", ""}));
}

void ZelCmdLineTest::upAndDownWalkTheRows() {
    const Line line;
    line.enter("true 1");
    line.enter("true 2");
    QCOMPARE(line.items(), QStringList({"true 2", "true 1", ""}));
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("true 2"));
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("true 1"));
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("true 1"));
    QCOMPARE(line.shownAfter(Qt::Key_Down), QString("true 2"));
    // Before the first comes the last row, which is the blank one, and from there it begins again.
    QCOMPARE(line.shownAfter(Qt::Key_Down), QString());
    QCOMPARE(line.box()->currentIndex(), 2);
    QCOMPARE(line.shownAfter(Qt::Key_Down), QString());
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("true 2"));
    // A line entered ends the browsing.
    line.enter("true 3");
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("true 3"));
    QTest::keyClick(line.box(), Qt::Key_X);
    QCOMPARE(line.edit()->text(), QString("true 3x"));
}

void ZelCmdLineTest::keysDoNothingWithoutAHistory() {
    const Line line;
    line.box()->addItems({"a", "b"});
    QCOMPARE(line.shownAfter(Qt::Key_Down), QString("a"));
    QCOMPARE(line.shownAfter(Qt::Key_Down), QString("b"));
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("a"));
}

void ZelCmdLineTest::aFinishedCommandSavesTheHistory() {
    const Line line;
    line.enter(" ");
    QVERIFY(!QFile::exists(settingsFile()));
    line.enter("true 1");
    QTRY_COMPARE(savedLines(), QStringList({"2", " ", "true 1"}));
    QCOMPARE(settingsFoldersAsked.first(), QString("0 1 /specs/qt"));
}

void ZelCmdLineTest::savingIsToldByTheProperty() {
    Line line;
    line.setSaveHistory(false);
    line.enter(m_commands->tell("out"));
    m_commands->told("out");
    QVERIFY(allTasksEnd());
    QCoreApplication::processEvents();
    QCOMPARE(settingsFoldersAsked, QStringList());
    // The property counts at the moment when the command has ended.
    line.enter(m_commands->meet("running", {"go"}));
    line.setSaveHistory(true);
    m_commands->create("go");
    QTRY_VERIFY(QFile::exists(settingsFile()));
}

void ZelCmdLineTest::aCommandEndsForTheHistoryWhenAllHave() {
    const Line line;
    line.enter(m_commands->meet("long", {"go"}));
    QTRY_VERIFY(m_commands->exists("long"));
    line.enter(m_commands->tell("short"));
    m_commands->told("short");
    QTRY_VERIFY(childStates().size() == 1);
    QCoreApplication::processEvents();
    QVERIFY(!QFile::exists(settingsFile()));
    m_commands->create("go");
    QTRY_COMPARE(savedLines().first(), QString("2"));
}

void ZelCmdLineTest::theDisplaySavesTheHistory() {
    runQtUIWindow = &m_host;
    Line line;
    line.setSaveHistory(true);
    line.box()->addItem("typed before");
    emit m_host.saveConfig();
    QCOMPARE(savedLines(), QStringList({"1", "typed before"}));
    line.box()->addItem("later");
    line.setSaveHistory(false);
    emit m_host.saveConfig();
    QCOMPARE(savedLines(), QStringList({"1", "typed before"}));
}

void ZelCmdLineTest::savedLinesStandInNoOrder() {
    runQtUIWindow = &m_host;
    Line line;
    line.setSaveHistory(true);
    QStringList expected{"30"};
    for (int i = 0; i < 30; ++i) {
        const QString text = QStringLiteral("line %1").arg(i, 2, 10, QLatin1Char('0'));
        line.box()->addItem(text);
        line.box()->addItem(text);
        expected.append(text);
    }
    emit m_host.saveConfig();
    QCOMPARE(savedLines(), expected);
}

void ZelCmdLineTest::theFormLoadsTheHistory() {
    runQtUIWindow = &m_host;
    saveLines(2, {"true 1", "true 2"});
    Line line;
    QCOMPARE(line.items(), QStringList({""}));
    line.setSaveHistory(true);
    QCOMPARE(line.items(), QStringList({"", "true 1", "true 2"}));
    QCOMPARE(settingsFoldersAsked, QStringList({"0 1 /specs/qt"}));
    // The blank row stands where the first line of the history is looked for.
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString());
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("true 1"));
    QCOMPARE(line.shownAfter(Qt::Key_Up), QString("true 1"));
    // A line of the history is not remembered again, a new one is the latest.
    line.execute("true 2");
    QCOMPARE(line.items(), QStringList({"", "true 1", "true 2"}));
}

void ZelCmdLineTest::atMostTenLinesAreLoaded() {
    runQtUIWindow = &m_host;
    QStringList lines;
    for (int i = 0; i < 25; ++i)
        lines.append(QString("line %1").arg(i));
    saveLines(25, lines);
    Line line;
    line.setSaveHistory(true);
    QCOMPARE(line.items(), QStringList({""}) + lines.mid(0, 10));
    emit m_host.saveConfig();
    QCOMPARE(savedLines(), QStringList({"10"}) + lines.mid(0, 10));
    // The rest stays where it was.
    QCOMPARE(QSettings(settingsFile(), QSettings::IniFormat).value(group + "item24").toString(), lines[24]);
}

void ZelCmdLineTest::linesOfAFileAreLoadedOnceAndEmptyOnesToo() {
    runQtUIWindow = &m_host;
    saveLines(6, {"a", "", "a", "b", ""});
    Line line;
    line.setSaveHistory(true);
    QCOMPARE(line.items(), QStringList({"", "a", "", "b"}));
    saveLines(-3, {});
    Line none;
    none.setSaveHistory(true);
    QCOMPARE(none.items(), QStringList({""}));
    // What is set again is loaded again.
    saveLines(1, {"a"});
    line.setSaveHistory(true);
    QCOMPARE(line.items(), QStringList({"", "a", "", "b", "a"}));
}

void ZelCmdLineTest::withoutAHostNothingIsLoaded() {
    saveLines(1, {"a"});
    Line line;
    line.setSaveHistory(true);
    QCOMPARE(line.items(), QStringList({""}));
    QCOMPARE(settingsFoldersAsked, QStringList());
}

void ZelCmdLineTest::settingsThatCannotBeWrittenAreNoMatter() {
    runQtUIWindow = &m_host;
    // A file stands where a folder should.
    QVERIFY(QFile(m_settings->filePath("engine test")).open(QIODevice::WriteOnly));
    Line line;
    line.setSaveHistory(true);
    QCOMPARE(line.items(), QStringList({""}));
    line.enter(m_commands->tell("out"));
    QCOMPARE(m_commands->told("out"), QByteArray("[]"));
    QTRY_VERIFY(settingsFoldersAsked.size() > 1);
    emit m_host.saveConfig();
    QCOMPARE(line.items().size(), 2);
}

OSTREL_TEST(ZelCmdLineTest)
#include "zelcmdline_test.moc"

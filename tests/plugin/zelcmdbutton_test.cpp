// The button that starts commands.
#include <QAction>
#include <QPointer>
#include <memory>

#include "commandtest.h"
#include "properties/mycontroller.h"
#include "qttests.h"
#include "readouttest.h"
#include "widgets/zel_cmdbutton.h"

namespace {

void click(QWidget* button) {
    QTest::mouseClick(button, Qt::LeftButton);
}

QStringList cached() {
    return platform().calls({"cacheProperty", "cachePropertyFont"});
}

}  // namespace

class ZelCmdButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void itsProperties();
    void aNewOneIsAPlainButton();
    void itMakesTheFormWriterWhereThereIsNone();
    void someSettersTellTheFormOnlyAfterEditProperties();
    void someSettersTellTheFormAlways();
    void editPropertiesOpensADialogEachTime();

    void aClickStartsTheCommand();
    void wordsReachTheProgramWhole();
    void aDetachedCommandLeavesTheButtonAlone();
    void anAttachedCommandDisablesTheButtonUntilItEnds();
    void attachedCommandsRunSideBySideAndTheLastBringsTheButtonBack();
    void withoutACommandTheButtonIsDead_data();
    void withoutACommandTheButtonIsDead();
    void emptyPiecesDoNotMatterBesideACommand_data();
    void emptyPiecesDoNotMatterBesideACommand();
    void aProgramThatIsNotThereOnlyComplains();
    void commandsThatWaitForTheirTurnKeepTheirWords();
    void theMannerIsThatOfTheMomentOfTheClick();
    void afterADetachedCommandAllChildrenAreWaitedFor();
    void manyCommandsLeaveNothingBehind_data();
    void manyCommandsLeaveNothingBehind();
    void itMayGoWhileACommandRuns();
    void aPreviewStartsCommandsToo();
    void aRemoteDisplayStartsNothing();

private:
    std::unique_ptr<Commands> m_commands;
};

void ZelCmdButtonTest::init() {
    startAsHost();
    std::signal(SIGCHLD, SIG_DFL);
    makeRoomForCommands(8);
    m_commands = std::make_unique<Commands>();
}

void ZelCmdButtonTest::cleanup() {
    m_commands.reset();
    QVERIFY(allTasksEnd());
    QVERIFY(allChildrenEnd());
}

void ZelCmdButtonTest::itsProperties() {
    ZelCmdButton button;
    QCOMPARE(ownProperties(ZelCmdButton::staticMetaObject),
             QStringList({"cmd", "label", "cmdFont", "detached", "toolTip"}));
    compareProperty(button, "cmd", "QString", QString());
    compareProperty(button, "label", "QString", "Button");
    compareProperty(button, "cmdFont", "QFont", QApplication::font());
    compareProperty(button, "detached", "bool", true);
    compareProperty(button, "toolTip", "QString", QString());
    QCOMPARE(button.getTimeout(), 30000);
    QVERIFY(button.metaObject()->superClass() == &QPushButton::staticMetaObject);

    QFont font("Courier", 20);
    button.setProperty("label", "Start");
    button.setProperty("cmdFont", font);
    button.setProperty("toolTip", "Starts it");
    button.setTimeout(5);
    QCOMPARE(button.text(), QString("Start"));
    QCOMPARE(button.font().family(), QString("Courier"));
    QCOMPARE(button.getCmdFont().pointSize(), 20);
    QCOMPARE(static_cast<QWidget&>(button).toolTip(), QString("Starts it"));
    QCOMPARE(button.getTimeout(), 5);
}

void ZelCmdButtonTest::aNewOneIsAPlainButton() {
    const ZelCmdButton button;
    QCOMPARE(button.objectName(), QString("zel_cmdbutton"));
    QCOMPARE(button.size(), QSize(93, 25));
    QCOMPARE(button.windowTitle(), QString("Form"));
    QVERIFY(button.isEnabled());
    QCOMPARE(button.actions().size(), 1);
    QCOMPARE(button.actions().first()->text(), QString("Edit Properties"));
    QCOMPARE(button.actions().first()->parent(), &button);
    QCOMPARE(button.contextMenuPolicy(), Qt::ActionsContextMenu);
}

void ZelCmdButtonTest::itMakesTheFormWriterWhereThereIsNone() {
    const QStringList writerCalls{"UIFileWriter", "openFile"};
    const QString complaint("Error opening UI file outside of the designer");
    qstrncpy(ParentUIFile, "/forms/engine.ui", sizeof(ParentUIFile));
    for (const bool designing : {false, true}) {
        inDesigner = designing;
        writer = nullptr;
        platform().forgetCalls();
        platform().answer("openFile", {0});
        const DebugLines debug;
        const ZelCmdButton first;
        const ZelCmdButton second;
        QCOMPARE(platform().calls(writerCalls), QStringList({"UIFileWriter /forms/engine.ui", "openFile"}));
        QCOMPARE(debug.count(complaint), designing ? 0 : 1);
        QVERIFY(writer);
    }
    ParentUIFile[0] = '\0';
}

void ZelCmdButtonTest::someSettersTellTheFormOnlyAfterEditProperties() {
    ZelCmdButton button;
    const auto set = [&] {
        button.setCmd("true");
        button.setLabel("Start");
        button.setCmdFont(QFont("Courier"));
        button.setToolTipString("Starts it");
    };
    platform().forgetCalls();
    set();
    QCOMPARE(cached(), QStringList());
    button.actions().first()->trigger();
    set();
    QCOMPARE(cached(), QStringList({"cacheProperty ZelCmdButton zel_cmdbutton cmd true changed",
                                    "cacheProperty ZelCmdButton zel_cmdbutton label Start changed",
                                    "cachePropertyFont ZelCmdButton zel_cmdbutton cmdFont Courier changed",
                                    "cacheProperty ZelCmdButton zel_cmdbutton toolTip Starts it changed"}));
}

void ZelCmdButtonTest::someSettersTellTheFormAlways() {
    ZelCmdButton button;
    platform().forgetCalls();
    button.setDetached(false);
    button.setTimeout(7);
    button.actions().first()->trigger();
    button.setDetached(true);
    button.setTimeout(8);
    QCOMPARE(cached(), QStringList({"cacheProperty ZelCmdButton zel_cmdbutton detached false loading",
                                    "cacheProperty ZelCmdButton zel_cmdbutton timeout 7 loading",
                                    "cacheProperty ZelCmdButton zel_cmdbutton detached true changed",
                                    "cacheProperty ZelCmdButton zel_cmdbutton timeout 8 changed"}));
}

void ZelCmdButtonTest::editPropertiesOpensADialogEachTime() {
    ZelCmdButton button;
    button.actions().first()->trigger();
    button.actions().first()->trigger();
    const auto dialogs = button.findChildren<MyController*>();
    QCOMPARE(dialogs.size(), 2);
    QVERIFY(dialogs[0]->isVisible() && dialogs[1]->isVisible());
}

void ZelCmdButtonTest::aClickStartsTheCommand() {
    ZelCmdButton button;
    button.setCmd(m_commands->tell("out") + " one 'two three'");
    button.show();
    QVERIFY(QTest::qWaitForWindowExposed(&button));
    QTest::mouseClick(button.windowHandle(), Qt::LeftButton, Qt::NoModifier, button.rect().center());
    QCOMPARE(m_commands->told("out"), QByteArray("[one][two three]"));
}

void ZelCmdButtonTest::wordsReachTheProgramWhole() {
    ZelCmdButton button;
    const QByteArray word(5000, 'x');
    button.setCmd(m_commands->tell("out") + ' ' + word + " \"a,b\" '' c");
    click(&button);
    QCOMPARE(m_commands->told("out"), '[' + word + "][a,b]");
}

void ZelCmdButtonTest::aDetachedCommandLeavesTheButtonAlone() {
    ZelCmdButton button;
    button.setCmd(m_commands->meet("running", {"go"}));
    click(&button);
    QVERIFY(button.isEnabled());
    QTRY_VERIFY(m_commands->exists("running"));
    // Nobody waits for it.
    QVERIFY(allTasksEnd());
    QVERIFY(ignoresChildren());
    m_commands->create("go");
    QTRY_COMPARE(childStates(), QByteArray());
}

void ZelCmdButtonTest::anAttachedCommandDisablesTheButtonUntilItEnds() {
    ZelCmdButton button;
    button.setDetached(false);
    button.setCmd(m_commands->meet("running", {"go"}));
    click(&button);
    QTRY_VERIFY(m_commands->exists("running"));
    QVERIFY(!button.isEnabled());
    QVERIFY(!ignoresChildren());
    m_commands->create("go");
    QTRY_VERIFY(button.isEnabled());
    QCOMPARE(childStates(), QByteArray());
    click(&button);
    QVERIFY(!button.isEnabled());
    QTRY_VERIFY(button.isEnabled());
}

void ZelCmdButtonTest::attachedCommandsRunSideBySideAndTheLastBringsTheButtonBack() {
    ZelCmdButton button;
    button.setDetached(false);
    button.setCmd(m_commands->meet("a", {"b", "c", "go_a"}) + ';' + m_commands->meet("b", {"a", "c", "go_b"}) + ';' +
                  m_commands->meet("c", {"a", "b", "go_c"}));
    click(&button);
    QTRY_VERIFY(m_commands->exists("a") && m_commands->exists("b") && m_commands->exists("c"));
    int running = 3;
    for (const char* name : {"go_c", "go_a"}) {
        m_commands->create(name);
        --running;
        QTRY_COMPARE(QThreadPool::globalInstance()->activeThreadCount(), running);
        QCoreApplication::processEvents();
        QVERIFY(!button.isEnabled());
    }
    m_commands->create("go_b");
    QTRY_VERIFY(button.isEnabled());
    QCOMPARE(childStates(), QByteArray());
}

void ZelCmdButtonTest::withoutACommandTheButtonIsDead_data() {
    QTest::addColumn<QString>("cmd");
    QTest::addColumn<bool>("detached");
    for (const bool detached : {true, false}) {
        const char* const manner = detached ? "detached" : "attached";
        QTest::addRow("empty, %s", manner) << "" << detached;
        QTest::addRow("semicolons and blanks, %s", manner) << " ; ;\t;" << detached;
        QTest::addRow("an empty word first, %s", manner) << "'' true" << detached;
        QTest::addRow("more words than can be counted, %s", manner) << QString("true ").repeated(32768) << detached;
    }
}

void ZelCmdButtonTest::withoutACommandTheButtonIsDead() {
    QFETCH(QString, cmd);
    QFETCH(bool, detached);
    ZelCmdButton button;
    button.setCmd(cmd);
    button.setDetached(detached);
    click(&button);
    QVERIFY(!button.isEnabled());
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
    QCoreApplication::processEvents();
    // Another command does not help.
    button.setCmd(m_commands->tell("out"));
    click(&button);
    QVERIFY(!button.isEnabled());
    QVERIFY(!m_commands->exists("out"));
}

void ZelCmdButtonTest::emptyPiecesDoNotMatterBesideACommand_data() {
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::newRow("before") << " ;"
                            << "";
    QTest::newRow("after") << ""
                           << "; ;";
    QTest::newRow("around") << "'' ;;"
                            << ";''";
}

void ZelCmdButtonTest::emptyPiecesDoNotMatterBesideACommand() {
    QFETCH(QString, before);
    QFETCH(QString, after);
    ZelCmdButton button;
    button.setCmd(before + m_commands->meet("attached", {"go"}) + after);
    button.setDetached(false);
    click(&button);
    QVERIFY(!button.isEnabled());
    m_commands->create("go");
    QTRY_VERIFY(button.isEnabled());
    QVERIFY(m_commands->exists("attached"));
    button.setCmd(before + m_commands->tell("detached") + after);
    button.setDetached(true);
    click(&button);
    QVERIFY(button.isEnabled());
    QCOMPARE(m_commands->told("detached"), QByteArray("[]"));
}

void ZelCmdButtonTest::aProgramThatIsNotThereOnlyComplains() {
    for (const bool detached : {false, true}) {
        const Complaints complaints;
        ZelCmdButton button;
        button.setDetached(detached);
        button.setCmd("no-such-program x");
        click(&button);
        QTRY_VERIFY(button.isEnabled());
        QTRY_VERIFY2(complaints.text().contains("Unable to execute no-such-program\n"), complaints.text());
    }
}

// With one thread and a command that lasts, the others wait; and more of them than the button remembers.
void ZelCmdButtonTest::commandsThatWaitForTheirTurnKeepTheirWords() {
    makeRoomForCommands(1);
    ZelCmdButton button;
    button.setDetached(false);
    QString cmd = m_commands->meet("first", {"go"});
    for (int i = 0; i < 24; ++i)
        cmd += QStringLiteral("; ") + m_commands->tell(QString("out%1").arg(i)) + QString(" word%1").arg(i);
    button.setCmd(cmd);
    click(&button);
    QTRY_VERIFY(m_commands->exists("first"));
    QVERIFY(!m_commands->exists("out0"));
    m_commands->create("go");
    QTRY_VERIFY_WITH_TIMEOUT(button.isEnabled(), 20000);
    for (int i = 0; i < 24; ++i)
        QCOMPARE(m_commands->contents(QString("out%1").arg(i)), QString("[word%1]").arg(i).toLatin1());
}

void ZelCmdButtonTest::theMannerIsThatOfTheMomentOfTheClick() {
    makeRoomForCommands(1);
    ZelCmdButton busy;
    busy.setDetached(false);
    busy.setCmd(m_commands->meet("first", {"go"}));
    click(&busy);
    QTRY_VERIFY(m_commands->exists("first"));
    ZelCmdButton button;
    button.setCmd(m_commands->tell("out"));
    click(&button);
    button.setDetached(false);
    QVERIFY(button.isEnabled());
    QVERIFY(!ignoresChildren());
    m_commands->create("go");
    QCOMPARE(m_commands->told("out"), QByteArray("[]"));
    QVERIFY(ignoresChildren());
}

void ZelCmdButtonTest::afterADetachedCommandAllChildrenAreWaitedFor() {
    ZelCmdButton lasting;
    lasting.setCmd(m_commands->meet("lasting", {"go"}));
    click(&lasting);
    QTRY_VERIFY(m_commands->exists("lasting"));
    ZelCmdButton button;
    button.setDetached(false);
    button.setCmd(m_commands->tell("out"));
    click(&button);
    m_commands->told("out");
    QTRY_COMPARE(childStates().size(), 1);
    QCoreApplication::processEvents();
    QVERIFY(!button.isEnabled());
    m_commands->create("go");
    QTRY_VERIFY(button.isEnabled());
}

void ZelCmdButtonTest::manyCommandsLeaveNothingBehind_data() {
    QTest::addColumn<bool>("detached");
    QTest::newRow("detached") << true;
    QTest::newRow("attached") << false;
}

void ZelCmdButtonTest::manyCommandsLeaveNothingBehind() {
    QFETCH(bool, detached);
    makeRoomForCommands(1);
    ZelCmdButton button;
    button.setDetached(detached);
    button.setCmd("true");
    click(&button);
    QTRY_VERIFY(button.isEnabled());
    QVERIFY(allTasksEnd());
    const int before = openDescriptors();
    for (int i = 0; i < 200; ++i) {
        click(&button);
        QVERIFY(QTest::qWaitFor([&] { return button.isEnabled(); }));
    }
    QVERIFY(allTasksEnd());
    QTRY_COMPARE(childStates(), QByteArray());
    QCOMPARE(openDescriptors(), before);
}

void ZelCmdButtonTest::itMayGoWhileACommandRuns() {
    auto button = std::make_unique<ZelCmdButton>();
    button->setDetached(false);
    button->setCmd(m_commands->meet("running", {"go"}));
    click(button.get());
    QTRY_VERIFY(m_commands->exists("running"));
    button.reset();
    m_commands->create("go");
    QVERIFY(allTasksEnd());
    QCoreApplication::processEvents();
    QCOMPARE(childStates(), QByteArray());
}

void ZelCmdButtonTest::aPreviewStartsCommandsToo() {
    inDesigner = true;
    ZelCmdButton button;
    button.setCmd(m_commands->tell("out"));
    click(&button);
    QCOMPARE(m_commands->told("out"), QByteArray("[]"));
}

void ZelCmdButtonTest::aRemoteDisplayStartsNothing() {
    RemoteDisplay = true;
    ZelCmdButton button;
    button.setCmd(m_commands->tell("out"));
    click(&button);
    QVERIFY(button.isEnabled());
    QCOMPARE(QThreadPool::globalInstance()->activeThreadCount(), 0);
    QVERIFY(!m_commands->exists("out"));
    QVERIFY(button.actions().isEmpty());
}

OSTREL_TEST(ZelCmdButtonTest)
#include "zelcmdbutton_test.moc"

// Commands that run one after the other on a thread of their own.
#include <QPushButton>
#include <QSignalSpy>
#include <memory>

#include "commandtest.h"
#include "qttests.h"
#include "widgets/cmd_thread.h"

namespace {

// For a command that would never end: long enough for it to begin.
constexpr int timeOut = 3000;  // ms

}  // namespace

class CmdThreadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void commandsRunOneAfterTheOther();
    void thereAreNoQuotes();
    void itEnablesItsParentAtTheEnd();
    void withoutAParentItOnlyRuns();
    void aCommandThatLastsTooLongIsKilled();
    void eachCommandHasTheTimeToItself();
    void withoutATimeOutItWaitsOn();
    void theTimeIsThatOfTheCommandsNotOfTheGui();
    void aDetachedCommandIsNotWaitedFor();
    void aProgramThatIsNotThereIsPassedOver();
    void withoutCommandsItEndsAtOnce();
    void itsParentMayGoWhileItRuns();

private:
    // A program that writes the words that follow it in the text, behind what stands in the file already.
    QString note(const QString& name) const;
    // A program that writes its process number and then ends by nothing but a kill, or with the folder.
    QString stubborn(const QString& name) const;
    bool isAlive(const QString& name) const { return kill(m_commands->contents(name).toInt(), 0) == 0; }

    std::unique_ptr<Commands> m_commands;
};

void CmdThreadTest::init() {
    startAsHost();
    m_commands = std::make_unique<Commands>();
}

QString CmdThreadTest::note(const QString& name) const {
    QFile script(m_commands->path(name + ".sh"));
    if (!script.open(QIODevice::WriteOnly))
        return QString();
    script.write("printf '[%s]' \"$@\" >>" + m_commands->path(name).toUtf8());
    return "sh " + script.fileName();
}

QString CmdThreadTest::stubborn(const QString& name) const {
    QFile script(m_commands->path(name + ".sh"));
    if (!script.open(QIODevice::WriteOnly))
        return QString();
    script.write(QStringLiteral("trap '' TERM INT HUP\necho $$ >%1.part && mv %1.part %1\n"
                                "while [ -e %1 ]; do sleep 0.01; done\n")
                     .arg(m_commands->path(name))
                     .toUtf8());
    return "sh " + script.fileName();
}

void CmdThreadTest::commandsRunOneAfterTheOther() {
    CmdThread thread(m_commands->meet("first", {"go"}) + ";;" + note("out") + " a;  " + note("out") + "   b  c", 20000,
                     false, nullptr);
    thread.start();
    QTRY_VERIFY(m_commands->exists("first"));
    QVERIFY(!m_commands->exists("out"));
    m_commands->create("go");
    QVERIFY(thread.wait(20000));
    QCOMPARE(m_commands->contents("out"), QByteArray("[a][b][c]"));
}

void CmdThreadTest::thereAreNoQuotes() {
    CmdThread thread(note("out") + " 'a b' \"c\" d,e\tf", 20000, false, nullptr);
    thread.start();
    QVERIFY(thread.wait(20000));
    QCOMPARE(m_commands->contents("out"), QByteArray("['a][b'][\"c\"][d,e\tf]"));
}

void CmdThreadTest::itEnablesItsParentAtTheEnd() {
    QPushButton button;
    button.setEnabled(false);
    auto* thread = new CmdThread(m_commands->meet("first", {"go"}), 20000, false, &button);
    thread->start();
    QTRY_VERIFY(m_commands->exists("first"));
    QVERIFY(!button.isEnabled());
    m_commands->create("go");
    QTRY_VERIFY(button.isEnabled());
}

void CmdThreadTest::withoutAParentItOnlyRuns() {
    QObject noWidget;
    auto* thread = new CmdThread(note("out"), 20000, false, &noWidget);
    thread->start();
    QVERIFY(thread->wait(20000));
    QCOMPARE(m_commands->contents("out"), QByteArray("[]"));
}

// Nothing less than a kill ends it, and nothing of it stays. What stands behind it in the list waits as long.
void CmdThreadTest::aCommandThatLastsTooLongIsKilled() {
    CmdThread thread(stubborn("endless") + ';' + note("out"), timeOut, false, nullptr);
    thread.start();
    QTRY_VERIFY(m_commands->exists("endless"));
    QVERIFY(isAlive("endless"));
    QVERIFY(!m_commands->exists("out"));
    QVERIFY(thread.wait(20000));
    QVERIFY(!isAlive("endless"));
    QCOMPARE(childStates(), QByteArray());
    QCOMPARE(m_commands->contents("out"), QByteArray("[]"));
}

void CmdThreadTest::eachCommandHasTheTimeToItself() {
    CmdThread thread(stubborn("first") + ';' + stubborn("second") + ';' + note("out"), timeOut, false, nullptr);
    thread.start();
    QTRY_VERIFY(m_commands->exists("second"));
    QVERIFY(!isAlive("first"));
    QVERIFY(isAlive("second"));
    QVERIFY(thread.wait(20000));
    QVERIFY(!isAlive("second"));
    QCOMPARE(m_commands->contents("out"), QByteArray("[]"));
}

// It outlives one that is killed meanwhile, and ends as it likes.
void CmdThreadTest::withoutATimeOutItWaitsOn() {
    CmdThread patient(m_commands->meet("first", {"go"}) + ';' + note("out"), -1, false, nullptr);
    CmdThread hasty(stubborn("endless"), timeOut, false, nullptr);
    patient.start();
    QTRY_VERIFY(m_commands->exists("first"));
    hasty.start();
    QVERIFY(hasty.wait(20000));
    QVERIFY(patient.isRunning());
    QVERIFY(!m_commands->exists("out"));
    m_commands->create("go");
    QVERIFY(patient.wait(20000));
    QCOMPARE(m_commands->contents("out"), QByteArray("[]"));
}

// The thread needs no events of another: the GUI may be busy all the while.
void CmdThreadTest::theTimeIsThatOfTheCommandsNotOfTheGui() {
    QPushButton button;
    button.setEnabled(false);
    auto* thread = new CmdThread(stubborn("endless"), timeOut, false, &button);
    thread->start();
    QVERIFY(thread->wait(20000));
    QVERIFY(!isAlive("endless"));
    QVERIFY(!button.isEnabled());
    QTRY_VERIFY(button.isEnabled());
}

void CmdThreadTest::aDetachedCommandIsNotWaitedFor() {
    CmdThread thread(m_commands->meet("first", {"go"}) + ';' + note("out"), 20000, true, nullptr);
    thread.start();
    QVERIFY(thread.wait(20000));
    QTRY_VERIFY(m_commands->exists("first"));
    QCOMPARE(m_commands->told("out"), QByteArray("[]"));
    m_commands->create("go");
    QCOMPARE(childStates(), QByteArray());
}

void CmdThreadTest::aProgramThatIsNotThereIsPassedOver() {
    QPushButton button;
    button.setEnabled(false);
    auto* thread = new CmdThread("no-such-program x;" + note("out"), 20000, false, &button);
    thread->start();
    QTRY_VERIFY(button.isEnabled());
    QCOMPARE(m_commands->contents("out"), QByteArray("[]"));
}

void CmdThreadTest::withoutCommandsItEndsAtOnce() {
    QPushButton button;
    button.setEnabled(false);
    auto* thread = new CmdThread(" ; ;;", 20000, false, &button);
    thread->start();
    QTRY_VERIFY(button.isEnabled());
}

void CmdThreadTest::itsParentMayGoWhileItRuns() {
    auto button = std::make_unique<QPushButton>();
    auto* thread = new CmdThread(note("out") + ';' + note("out"), 20000, false, button.get());
    thread->start();
    button.reset();
    QCOMPARE(m_commands->contents("out"), QByteArray("[][]"));
}

OSTREL_TEST(CmdThreadTest)
#include "cmdthread_test.moc"

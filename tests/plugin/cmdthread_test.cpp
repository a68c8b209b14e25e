// Commands that run one after the other on a thread of their own.
#include <QPushButton>
#include <QSignalSpy>
#include <memory>

#include "commandtest.h"
#include "qttests.h"
#include "widgets/cmd_thread.h"

class CmdThreadTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();

    void commandsRunOneAfterTheOther();
    void thereAreNoQuotes();
    void itEnablesItsParentAtTheEnd();
    void withoutAParentItOnlyRuns();
    void aCommandThatLastsTooLongIsKilled();
    void aDetachedCommandIsNotWaitedFor();
    void aProgramThatIsNotThereIsPassedOver();
    void withoutCommandsItEndsAtOnce();
    void itsParentMayGoWhileItRuns();

private:
    // A program that writes the words that follow it in the text, behind what stands in the file already.
    QString note(const QString& name) const;

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

void CmdThreadTest::aCommandThatLastsTooLongIsKilled() {
    CmdThread thread(m_commands->meet("endless", {"never"}) + ';' + note("out"), 500, false, nullptr);
    thread.start();
    QVERIFY(thread.wait(20000));
    QCOMPARE(childStates(), QByteArray());
    QCOMPARE(m_commands->contents("out"), QByteArray("[]"));
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

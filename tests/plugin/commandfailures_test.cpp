// What happens to a command when there is no memory, or no room for another process.
#include <dlfcn.h>
#include <unistd.h>

#include <QComboBox>
#include <QLineEdit>
#include <atomic>
#include <cerrno>

#include "commandtest.h"
#include "qttests.h"
#include "widgets/cmdlinewidget.h"
#include "widgets/zel_cmdbutton.h"

namespace {

std::atomic<bool> noProcess = false;

// The allocation of that many elements fails, of that size: how a test knows the one it means.
std::atomic<size_t> failingCount = 0;
std::atomic<size_t> failingSize = 0;

template <class Function>
Function real(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

}  // namespace

extern "C" {
void* __libc_calloc(size_t count, size_t size);

void* calloc(size_t count, size_t size) noexcept {
    if (size == failingSize && count == failingCount)
        return nullptr;
    return __libc_calloc(count, size);
}

pid_t fork() noexcept {
    if (noProcess) {
        errno = EAGAIN;
        return -1;
    }
    static const auto realFork = real<pid_t (*)()>("fork");
    return realFork();
}
}

class CommandFailuresTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void withoutAVectorTheClickEnds();
    void withoutAWordTheClickEnds();
    void aCommandBeforeItStillBringsTheButtonBack_data();
    void aCommandBeforeItStillBringsTheButtonBack();
    void aCommandLineGoesOnWithoutMemory();
    void withoutAProcessTheButtonComesBack();

private:
    // An allocation of a word of that many characters fails, or that of a vector of so many words.
    static void failWord(size_t characters) { fail(characters + 1, 1); }
    static void failVector(size_t words) { fail(words + 1, sizeof(char*)); }
    static void fail(size_t count, size_t size) {
        failingCount = count;
        failingSize = size;
    }

    std::unique_ptr<Commands> m_commands;
};

// Sizes that nothing else asks for.
constexpr size_t oddWord = 7919;
constexpr size_t oddVector = 1013;

void CommandFailuresTest::init() {
    startAsHost();
    std::signal(SIGCHLD, SIG_DFL);
    makeRoomForCommands(4);
    m_commands = std::make_unique<Commands>();
}

void CommandFailuresTest::cleanup() {
    fail(0, 0);
    noProcess = false;
    m_commands.reset();
    QVERIFY(allTasksEnd());
    QVERIFY(allChildrenEnd());
}

void CommandFailuresTest::withoutAVectorTheClickEnds() {
    ZelCmdButton button;
    button.setCmd(QString("true ").repeated(oddVector) + ';' + m_commands->tell("out"));
    failVector(oddVector);
    const DebugLines debug;
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(debug.lines(), QStringList({"Calloc failed buttonClick Failed"}));
    QVERIFY(!button.isEnabled());
    QVERIFY(allTasksEnd());
    QVERIFY(!m_commands->exists("out"));
}

void CommandFailuresTest::withoutAWordTheClickEnds() {
    ZelCmdButton button;
    button.setCmd("true first " + QString(oddWord, 'x') + ';' + m_commands->tell("out"));
    failWord(oddWord);
    const DebugLines debug;
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(debug.lines(), QStringList({"Calloc Failed buttonClickFailed "}));
    QVERIFY(!button.isEnabled());
    QVERIFY(allTasksEnd());
    QVERIFY(!m_commands->exists("out"));
    // The next use of the same place finds it usable.
    fail(0, 0);
    button.setEnabled(true);
    QTest::mouseClick(&button, Qt::LeftButton);
    QVERIFY(button.isEnabled());
    QCOMPARE(m_commands->told("out"), QByteArray("[]"));
}

void CommandFailuresTest::aCommandBeforeItStillBringsTheButtonBack_data() {
    QTest::addColumn<bool>("detached");
    QTest::newRow("detached") << true;
    QTest::newRow("attached") << false;
}

void CommandFailuresTest::aCommandBeforeItStillBringsTheButtonBack() {
    QFETCH(bool, detached);
    ZelCmdButton button;
    button.setDetached(detached);
    button.setCmd(m_commands->meet("running", {"go"}) + ";true " + QString(oddWord, 'x'));
    failWord(oddWord);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(button.isEnabled(), detached);
    QTRY_VERIFY(m_commands->exists("running"));
    m_commands->create("go");
    QTRY_VERIFY(button.isEnabled());
}

void CommandFailuresTest::aCommandLineGoesOnWithoutMemory() {
    ZelCmdLine line;
    line.setSaveHistory(false);
    auto* box = line.findChild<QComboBox*>("commandBox");
    box->lineEdit()->setText("true " + QString(oddWord, 'x') + ';' + m_commands->tell("out"));
    failWord(oddWord);
    QTest::keyClick(box, Qt::Key_Return);
    QCOMPARE(m_commands->told("out"), QByteArray("[]"));
    QCOMPARE(box->lineEdit()->text(), QString());
}

void CommandFailuresTest::withoutAProcessTheButtonComesBack() {
    noProcess = true;
    const DebugLines debug;
    for (const bool detached : {false, true}) {
        ZelCmdButton button;
        button.setDetached(detached);
        button.setCmd(m_commands->tell("out"));
        QTest::mouseClick(&button, Qt::LeftButton);
        QTRY_VERIFY(button.isEnabled());
    }
    QVERIFY(allTasksEnd());
    QVERIFY(!m_commands->exists("out"));
    QCOMPARE(debug.lines(), QStringList());
    ZelCmdLine line;
    line.setSaveHistory(false);
    auto* box = line.findChild<QComboBox*>("commandBox");
    QTest::keyClicks(box, "true");
    QTest::keyClick(box, Qt::Key_Return);
    QVERIFY(allTasksEnd());
    QCOMPARE(box->lineEdit()->text(), QString());
}

OSTREL_TEST(CommandFailuresTest)
#include "commandfailures_test.moc"

// The view of a file that grows: real files, written by real processes.
#include "ostrel-display/tailwidget.h"

#include <QDir>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProcess>
#include <QRegularExpression>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <memory>

#include "qttests.h"

namespace {

constexpr int mostLines = 10000;

QString lines(int first, int last) {
    QStringList numbers;
    for (int i = first; i <= last; ++i)
        numbers.append(QString::number(i));
    return numbers.join('\n');
}

// A shown view, and what an operator sees of it.
class Tail : public TailWidget {
public:
    Tail() {
        resize(500, 300);
        show();
    }
    QPlainTextEdit* view() const { return findChild<QPlainTextEdit*>("view"); }
    QLabel* notice() const { return findChild<QLabel*>("notice"); }
    QString text() const { return view()->toPlainText(); }
    QString last() const { return view()->document()->lastBlock().text(); }
    int count() const { return view()->document()->blockCount(); }
    bool isAtEnd() const { return view()->verticalScrollBar()->value() == view()->verticalScrollBar()->maximum(); }
    // The text of the line at the top.
    QString top() const { return view()->cursorForPosition(QPoint(2, 2)).block().text(); }
    void scrollTo(const QString& line) const {
        for (int i = 0; i < count(); ++i)
            if (view()->document()->findBlockByNumber(i).text() == line)
                view()->verticalScrollBar()->setValue(i);
    }
};

}  // namespace

class TailWidgetTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void theEndOfALargeFileIsThereAtOnce();
    void aSmallFileIsThereFromItsStart();
    void linesAppearAsTheyCome();
    void aLineAppearsBeforeItsEnd();
    void aFastWriterLosesNoLine();
    void theBoundIsOneOfBytesToo();

    void aRenamedFileIsReadToItsEnd();
    void aSuccessorMayBeEmptyForAWhile();
    void aTruncatedFileIsReadFromItsStart();
    void aFileWrittenAnewIsSeenWhenItIsLonger();
    void aFileThatVanishesMayReturn();
    void aFileMayComeLater();
    void aFileThatGrewImmenselyIsPassedOver();

    void aLongLineIsCutVisibly();
    void theEndOfALongLineIsBetterThanNothing();
    void oddBytesAreReplaced_data();
    void oddBytesAreReplaced();

    void aRelativePathStaysWhereItWas();
    void whatIsNoRegularFileIsNotOpened_data();
    void whatIsNoRegularFileIsNotOpened();

    void aPauseKeepsWhatFits();
    void aPauseTellsHowManyLinesWereSkipped();
    void aPauseOutlivesARotation();
    void clearEmptiesTheView();
    void clearInAPauseKeepsWhatCame();
    void anotherFileBeginsEmpty();
    void theSameFileBeginsAnew();

    void atItsEndTheViewFollows();
    void scrolledUpItStays_data();
    void scrolledUpItStays();
    void hiddenItIsBroughtUpToDateWhenShown();
    void itsLooks();

private:
    QString path(const char* name = "a.log") const { return m_folder->filePath(name); }
    // Waits until a shell in the folder has done it.
    void shell(const QString& script) const;
    void append(const QByteArray& bytes, const char* name = "a.log") const;
    // Waits until a view beside the one that is tested shows a line that is written now.
    void waitForALook();

    std::unique_ptr<QTemporaryDir> m_folder;
    QString m_formerFolder;
};

void TailWidgetTest::init() {
    m_formerFolder = QDir::currentPath();
    m_folder = std::make_unique<QTemporaryDir>();
}

void TailWidgetTest::cleanup() {
    QDir::setCurrent(m_formerFolder);
}

void TailWidgetTest::shell(const QString& script) const {
    QProcess process;
    process.setWorkingDirectory(m_folder->path());
    process.start("sh", {"-c", script});
    QVERIFY(process.waitForFinished(60000));
    QCOMPARE(process.exitCode(), 0);
}

void TailWidgetTest::append(const QByteArray& bytes, const char* name) const {
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Append));
    QCOMPARE(file.write(bytes), bytes.size());
}

// Both look equally often, and the other one began later.
void TailWidgetTest::waitForALook() {
    Tail witness;
    append("", "witness.log");
    witness.setFileName(path("witness.log"));
    for (const char* line : {"1\n", "2\n", "3\n"}) {
        append(line, "witness.log");
        QTRY_COMPARE(witness.last() + '\n', QString(line));
    }
}

void TailWidgetTest::theEndOfALargeFileIsThereAtOnce() {
    shell("truncate -s 2G a.log && printf '\\nlast but one\\nlast\\n' >>a.log");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("last but one\nlast"));
    QVERIFY(tail.notice()->isHidden());
    append("new\n");
    QTRY_COMPARE(tail.last(), QString("new"));

    shell("seq 1000000 >b.log");
    tail.setFileName(path("b.log"));
    QTRY_COMPARE(tail.last(), QString("1000000"));
    const QString first = tail.text().section('\n', 0, 0);
    QCOMPARE(tail.text(), lines(first.toInt(), 1000000));
    // At least a screenful.
    QVERIFY(tail.count() > 1000);
}

void TailWidgetTest::aSmallFileIsThereFromItsStart() {
    append("first\n\n  third\tx\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("first\n\n  third\tx"));
}

void TailWidgetTest::linesAppearAsTheyCome() {
    append("");
    Tail tail;
    tail.setFileName(path());
    append("one\n");
    QTRY_COMPARE(tail.text(), QString("one"));
    append("two\nthree\n");
    QTRY_COMPARE(tail.text(), QString("one\ntwo\nthree"));
    append("\n\n");
    QTRY_COMPARE(tail.text(), QString("one\ntwo\nthree\n\n"));
}

void TailWidgetTest::aLineAppearsBeforeItsEnd() {
    Tail tail;
    append("one\nto");
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("one\nto"));
    append(" be ");
    QTRY_COMPARE(tail.text(), QString("one\nto be "));
    append("continued\nthree\nfo");
    QTRY_COMPARE(tail.text(), QString("one\nto be continued\nthree\nfo"));
    append("ur\n");
    QTRY_COMPARE(tail.text(), QString("one\nto be continued\nthree\nfour"));
}

void TailWidgetTest::aFastWriterLosesNoLine() {
    append("");
    Tail tail;
    tail.setFileName(path());
    // In portions, as a program writes them.
    shell("i=0; while [ $i -lt 60 ]; do seq $((i * 1000 + 1)) $((i * 1000 + 1000)) >>a.log; i=$((i + 1)); done");
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString("60000"), 30000);
    QCOMPARE(tail.count(), mostLines);
    QCOMPARE(tail.text(), lines(60001 - mostLines, 60000));
}

void TailWidgetTest::theBoundIsOneOfBytesToo() {
    append("");
    Tail tail;
    tail.setFileName(path());
    const QByteArray line = QByteArray(900, 'x') + '\n';
    append(line.repeated(3000));
    append(line.repeated(6000) + "last\n");
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString("last"), 30000);
    QVERIFY(tail.text().size() > 3 * 1024 * 1024);
    QVERIFY(tail.text().size() < 5 * 1024 * 1024);
}

void TailWidgetTest::aRenamedFileIsReadToItsEnd() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    // The writer goes on with the renamed file for a while.
    shell("exec 3>>a.log; echo 2 >&3; mv a.log a.log.1; echo 3 >&3; printf 4 >&3; echo 5 >a.log; echo 6 >>a.log");
    QTRY_COMPARE(tail.text(), QString("1\n2\n3\n4\n5\n6"));
    append("7\n");
    QTRY_COMPARE(tail.text(), QString("1\n2\n3\n4\n5\n6\n7"));
    shell("mv a.log a.log.2; echo 8 >a.log");
    QTRY_COMPARE(tail.last(), QString("8"));
}

void TailWidgetTest::aSuccessorMayBeEmptyForAWhile() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    shell("mv a.log a.log.1; : >a.log");
    waitForALook();
    append("2\n", "a.log.1");
    QTRY_COMPARE(tail.text(), QString("1\n2"));
    append("3\n");
    QTRY_COMPARE(tail.text(), QString("1\n2\n3"));
}

void TailWidgetTest::aTruncatedFileIsReadFromItsStart() {
    append("first line\nsecond line\nun");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("first line\nsecond line\nun"));
    shell("cp a.log a.log.1; : >a.log");
    waitForALook();
    append("3\n");
    QTRY_COMPARE(tail.text(), QString("first line\nsecond line\nun\n3"));
    shell(": >a.log; echo 4 >>a.log");
    QTRY_COMPARE(tail.last(), QString("4"));
}

void TailWidgetTest::aFileWrittenAnewIsSeenWhenItIsLonger() {
    append("first line\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("first line"));
    shell("printf 'another line\\nand one more\\n' >a.log");
    QTRY_COMPARE(tail.text(), QString("first line\nanother line\nand one more"));
}

void TailWidgetTest::aFileThatVanishesMayReturn() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    QVERIFY(QFile::remove(path()));
    waitForALook();
    QCOMPARE(tail.text(), QString("1"));
    append("2\n");
    QTRY_COMPARE(tail.text(), QString("1\n2"));
    // Another kind of thing takes its name for a while.
    shell("rm a.log; mkdir a.log");
    waitForALook();
    shell("rmdir a.log; echo 3 >a.log");
    QTRY_COMPARE(tail.text(), QString("1\n2\n3"));
}

void TailWidgetTest::aFileMayComeLater() {
    Tail tail;
    tail.setFileName(path("folder/b.log"));
    waitForALook();
    shell("mkdir folder; seq 50000 >folder/new; mv folder/new folder/b.log");
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString("50000"), 30000);
    QCOMPARE(tail.count(), mostLines);
}

void TailWidgetTest::aFileThatGrewImmenselyIsPassedOver() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    // 120 MB in lines of 10 bytes; the file gets its name when it is complete.
    shell("yes 123456789 | head -c 120000000 >new; echo last >>new; mv new a.log");
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString("last"), 60000);
    QVERIFY(tail.notice()->isVisible());
    QCOMPARE(tail.count(), mostLines);
    // The others were shown, if only for a moment.
    static const QRegularExpression number("^([0-9,]+) lines skipped$");
    const int skipped = QLocale().toInt(number.match(tail.notice()->text()).captured(1));
    QVERIFY2(skipped > 5000000 && skipped <= 12000001 - mostLines, qPrintable(tail.notice()->text()));
}

void TailWidgetTest::aLongLineIsCutVisibly() {
    append("");
    Tail tail;
    tail.setFileName(path());
    shell("head -c 10485760 /dev/zero | tr '\\0' x >>a.log; printf '\\nnext\\n' >>a.log");
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString("next"), 30000);
    QCOMPARE(tail.text(), QString(1000, 'x') + " ... [cut]\nnext");
}

void TailWidgetTest::theEndOfALongLineIsBetterThanNothing() {
    shell("truncate -s 2G a.log");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), "... " + QString("^@").repeated(1000) + " ... [cut]");
    // The end of the first MiB is inside a character.
    shell("yes \xE2\x82\xAC | tr -d '\\n' | head -c 1048577 >b.log");
    tail.setFileName(path("b.log"));
    QTRY_COMPARE(tail.text().left(7), QString::fromUtf8("... \xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC"));
}

void TailWidgetTest::oddBytesAreReplaced_data() {
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* name, const QByteArray& bytes, const char* text) {
        QTest::newRow(name) << bytes << QString::fromUtf8(text);
    };
    row("UTF-8", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA7\n", "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA7");
    row("Latin 1", "\xE4 and \xFC\n", "\xEF\xBF\xBD and \xEF\xBF\xBD");
    row("an overlong slash", "\xC0\xAF.\n", "\xEF\xBF\xBD\xEF\xBF\xBD.");
    row("half a character", "\xE2\x82\n", "\xEF\xBF\xBD\xEF\xBF\xBD");
    row("NULs", QByteArray("a\0b\0\n", 5), "a^@b^@");
    row("escapes", "\x1B[31mred\x7F\n", "^[[31mred^?");
    row("a line end of two", "one\r\ntwo\r\n", "one\ntwo");
    row("a return inside", "10%\r20%\n", "10%^M20%");
    row("separators of lines and paragraphs",
        "a\xE2\x80\xA8"
        "b\xE2\x80\xA9"
        "c\n",
        "a\xEF\xBF\xBD"
        "b\xEF\xBF\xBD"
        "c");
    row("marks of frames",
        "a\xEF\xB7\x90"
        "b\xEF\xB7\x91"
        "c\n",
        "a\xEF\xBF\xBD"
        "b\xEF\xBF\xBD"
        "c");
    row("next line",
        "a\xC2\x85"
        "b\n",
        "a\xEF\xBF\xBD"
        "b");
}

void TailWidgetTest::oddBytesAreReplaced() {
    QFETCH(QByteArray, bytes);
    QFETCH(QString, text);
    append(bytes + "end\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), text + "\nend");
    QCOMPARE(tail.count(), text.count('\n') + 2);
}

void TailWidgetTest::aRelativePathStaysWhereItWas() {
    QVERIFY(QDir::setCurrent(m_folder->path()));
    append("1\n");
    Tail tail;
    tail.setFileName("a.log");
    QVERIFY(QDir::setCurrent("/"));
    QTRY_COMPARE(tail.text(), QString("1"));
    shell("mv a.log a.log.1; echo 2 >a.log");
    QTRY_COMPARE(tail.text(), QString("1\n2"));
}

void TailWidgetTest::whatIsNoRegularFileIsNotOpened_data() {
    QTest::addColumn<QString>("make");
    QTest::newRow("a pipe") << "mkfifo a.log";
    QTest::newRow("a folder") << "mkdir a.log";
    QTest::newRow("a device") << "ln -s /dev/zero a.log";
    QTest::newRow("a link to nothing") << "ln -s nothing a.log";
    QTest::newRow("a link to itself") << "ln -s a.log a.log";
}

void TailWidgetTest::whatIsNoRegularFileIsNotOpened() {
    QFETCH(QString, make);
    shell(make);
    // Who writes into a pipe waits until it is opened for reading, however shortly.
    QProcess writer;
    writer.setWorkingDirectory(m_folder->path());
    if (make.startsWith("mkfifo")) {
        writer.start("sh", {"-c", "echo ready; : >a.log; touch opened"});
        QVERIFY(writer.waitForReadyRead());
    }
    Tail tail;
    tail.setFileName(path());
    waitForALook();
    QCOMPARE(tail.text(), QString());
    QVERIFY(!QFile::exists(path("opened")));
    writer.kill();
    writer.waitForFinished();
    shell("rm -r a.log; echo 1 >a.log");
    QTRY_COMPARE(tail.text(), QString("1"));
}

void TailWidgetTest::aPauseKeepsWhatFits() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    tail.pause(true);
    append((lines(2, mostLines) + '\n').toLatin1());
    waitForALook();
    QCOMPARE(tail.text(), QString("1"));
    tail.pause(false);
    QTRY_COMPARE_WITH_TIMEOUT(tail.text(), lines(1, mostLines), 30000);
    QVERIFY(tail.notice()->isHidden());
}

void TailWidgetTest::aPauseTellsHowManyLinesWereSkipped() {
    append("0\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("0"));
    tail.pause(true);
    append((lines(1, mostLines + 1234) + '\n').toLatin1());
    waitForALook();
    QCOMPARE(tail.text(), QString("0"));
    QVERIFY(tail.notice()->isHidden());
    tail.pause(false);
    QTRY_COMPARE_WITH_TIMEOUT(tail.text(), lines(1235, mostLines + 1234), 30000);
    QVERIFY(tail.notice()->isVisible());
    QCOMPARE(tail.notice()->text(), QString("%1 lines skipped").arg(QLocale().toString(1234)));
    tail.clearContents();
    QVERIFY(tail.notice()->isHidden());
    // Lines of nearly the largest size: the bound of bytes leaves room for the line that tells it.
    tail.pause(true);
    append((QByteArray(999, 'x') + '\n').repeated(4200));
    waitForALook();
    tail.pause(false);
    QTRY_VERIFY(tail.text().startsWith("--- 2 lines skipped ---\nxxx"));
}

void TailWidgetTest::aPauseOutlivesARotation() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    tail.pause(true);
    append("2\n");
    waitForALook();
    shell("mv a.log a.log.1; echo 3 >a.log");
    waitForALook();
    shell("echo 4 >>a.log");
    waitForALook();
    shell(": >a.log");
    waitForALook();
    shell("echo 5 >>a.log");
    waitForALook();
    QCOMPARE(tail.text(), QString("1"));
    tail.pause(false);
    QTRY_COMPARE(tail.text(), QString("1\n2\n3\n4\n5"));
}

void TailWidgetTest::clearEmptiesTheView() {
    append("1\nunfinished");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1\nunfinished"));
    tail.clearContents();
    QCOMPARE(tail.text(), QString());
    waitForALook();
    QCOMPARE(tail.text(), QString());
    append(" no more\n2\n");
    QTRY_COMPARE(tail.text(), QString("unfinished no more\n2"));
    QCOMPARE(QFile(path()).size(), qint64(23));
}

void TailWidgetTest::clearInAPauseKeepsWhatCame() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    tail.pause(true);
    append("2\n");
    waitForALook();
    tail.clearContents();
    append("3\n");
    waitForALook();
    QCOMPARE(tail.text(), QString());
    tail.pause(false);
    QTRY_COMPARE(tail.text(), QString("2\n3"));
}

void TailWidgetTest::anotherFileBeginsEmpty() {
    append("1\nun");
    append("x\n", "b.log");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1\nun"));
    tail.setFileName(path("b.log"));
    QTRY_COMPARE(tail.text(), QString("x"));
    append("finished\n");
    append("y\n", "b.log");
    QTRY_COMPARE(tail.text(), QString("x\ny"));
    // A pause goes on.
    tail.pause(true);
    tail.setFileName(path());
    waitForALook();
    QCOMPARE(tail.text(), QString());
    tail.pause(false);
    QTRY_COMPARE(tail.text(), QString("1\nunfinished"));
}

void TailWidgetTest::theSameFileBeginsAnew() {
    append("1\n2\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1\n2"));
    tail.setFileName(path());
    QCOMPARE(tail.text(), QString());
    QTRY_COMPARE(tail.text(), QString("1\n2"));
}

void TailWidgetTest::atItsEndTheViewFollows() {
    append((lines(1, 200) + '\n').toLatin1());
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.last(), QString("200"));
    QVERIFY(tail.isAtEnd());
    append("201\n202\n");
    QTRY_COMPARE(tail.last(), QString("202"));
    QVERIFY(tail.isAtEnd());
    // Also with another size.
    tail.resize(500, 120);
    QTRY_VERIFY(tail.view()->height() < 130);
    QVERIFY(tail.isAtEnd());
    tail.resize(500, 400);
    QTRY_VERIFY(tail.view()->height() > 300);
    QVERIFY(tail.isAtEnd());
    tail.setWrapText(true);
    append(QByteArray(900, 'x') + "\nlast\n");
    QTRY_COMPARE(tail.last(), QString("last"));
    QTRY_VERIFY(tail.isAtEnd());
}

void TailWidgetTest::scrolledUpItStays_data() {
    QTest::addColumn<bool>("wrap");
    QTest::newRow("plain") << false;
    QTest::newRow("wrapped") << true;
}

void TailWidgetTest::scrolledUpItStays() {
    QFETCH(bool, wrap);
    append((lines(1, mostLines) + '\n').toLatin1());
    Tail tail;
    tail.setWrapText(wrap);
    tail.setFileName(path());
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString::number(mostLines), 30000);
    tail.scrollTo("5000");
    QCOMPARE(tail.top(), QString("5000"));
    append((lines(mostLines + 1, mostLines + 1500) + '\n').toLatin1());
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString::number(mostLines + 1500), 30000);
    QCOMPARE(tail.top(), QString("5000"));
    // Older lines than are kept cannot stay.
    append((lines(mostLines + 1501, mostLines + 6000) + '\n').toLatin1());
    QTRY_COMPARE_WITH_TIMEOUT(tail.last(), QString::number(mostLines + 6000), 30000);
    QCOMPARE(tail.top(), QString("6001"));
    QVERIFY(!tail.isAtEnd());
    // Back at the end it follows again.
    tail.view()->verticalScrollBar()->setValue(tail.view()->verticalScrollBar()->maximum());
    append("end\n");
    QTRY_COMPARE(tail.last(), QString("end"));
    QVERIFY(tail.isAtEnd());
}

void TailWidgetTest::hiddenItIsBroughtUpToDateWhenShown() {
    append("1\n");
    Tail tail;
    tail.setFileName(path());
    QTRY_COMPARE(tail.text(), QString("1"));
    tail.hide();
    append("2\n");
    waitForALook();
    QCOMPARE(tail.text(), QString("1"));
    tail.show();
    QTRY_COMPARE(tail.text(), QString("1\n2"));
}

void TailWidgetTest::itsLooks() {
    Tail tail;
    QVERIFY(tail.view()->isReadOnly());
    QCOMPARE(tail.view()->lineWrapMode(), QPlainTextEdit::NoWrap);
    tail.setWrapText(true);
    QCOMPARE(tail.view()->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    tail.setWrapText(false);
    QCOMPARE(tail.view()->lineWrapMode(), QPlainTextEdit::NoWrap);
    const QColor ink = tail.view()->palette().color(QPalette::Text);
    tail.setTextColor(QColor("#123456"));
    tail.setgBackColor(QColor("#fedcba"));
    QCOMPARE(tail.view()->palette().color(QPalette::Text), QColor("#123456"));
    QCOMPARE(tail.view()->palette().color(QPalette::Base), QColor("#fedcba"));
    tail.setTextColor(QColor());
    QCOMPARE(tail.view()->palette().color(QPalette::Text), ink);
    tail.setTextFont(QFont("Courier", 17));
    QCOMPARE(tail.view()->font().pointSize(), 17);
    QCOMPARE(tail.metaObject()->superClass(), &QWidget::staticMetaObject);
}

OSTREL_TEST(TailWidgetTest)
#include "tailwidget_test.moc"

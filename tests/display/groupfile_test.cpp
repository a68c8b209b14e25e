// The group file: what the reader takes, what the writer gives, what is lost between them, and saving.
#include "groupfile/groupfile.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <csignal>
#include <random>

#include "qttests.h"

namespace {

const QByteArray written =
    "<?xml version=\"1.0\"?>\n"
    "<title name=\"Oil\"/>\n"
    "<row>\n"
    "  <var name=\"OIL_TEMP\"/>\n"
    "  <var name=\"OIL_PRES\"/>\n"
    "</row>\n"
    "<row>\n"
    "  <var name=\"OIL_LEVEL\"/>\n"
    "</row>\n";

// "title | NAME@row,column ..."; a title that the file does not give is "-".
QString shown(const GroupContents& contents) {
    QStringList words{contents.hasTitle ? contents.title : QStringLiteral("-"), QStringLiteral("|")};
    for (const GroupVariable& variable : contents.variables)
        words << QStringLiteral("%1@%2,%3").arg(variable.name).arg(variable.row).arg(variable.column);
    return words.join(QLatin1Char(' '));
}

QByteArray rewritten(const QByteArray& text) {
    const GroupContents contents = readGroup(text);
    return writeGroup(contents.title, contents.variables);
}

QByteArray contentsOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(cannot be read)");
}

void put(const QString& path, const QByteArray& text) {
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(text);
}

// A large group of which every variable has that number in its name: a mixture of two versions is seen.
QByteArray version(int number) {
    QVector<GroupVariable> variables;
    for (int i = 0; i < 3000; ++i)
        variables.append({QStringLiteral("VARIABLE_%1_%2").arg(i).arg(number), i / 4, i % 4});
    return writeGroup(QStringLiteral("Version %1").arg(number), variables);
}

// A process that saves one version after the other until it is ended.
pid_t startSaving(const QString& path) {
    const QByteArray versions[] = {version(1), version(2)};
    const pid_t child = fork();
    if (child != 0)
        return child;
    for (int i = 0;; ++i)
        saveGroup(path, versions[i % 2]);
}

}  // namespace

class GroupFileTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theReaderTakes_data();
    void theReaderTakes();
    void theWriterGives_data();
    void theWriterGives();
    void whatTheWriterGaveComesBackByteForByte();
    void aSaveLoses_data();
    void aSaveLoses();
    void oddLinesAreRemarkedUpon_data();
    void oddLinesAreRemarkedUpon();
    void aFileCutAnywhereIsRead();
    void anyBytesAreRead();

    void savingReplacesTheFile();
    void savingKeepsTheModeOfTheFile();
    void aFileInALockedFolderIsSaved();
    void aFolderThatIsMissingIsTold();
    void aKillLeavesOneWholeFile();
    void aFullDiskLeavesTheFormerFile();
    void aDeviceIsNotReplaced();

private:
    QTemporaryDir m_folder;
};

void GroupFileTest::theReaderTakes_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("group");
    QTest::newRow("nothing") << QByteArray() << "- |";
    QTest::newRow("what the writer gives") << written << "Oil | OIL_TEMP@0,0 OIL_PRES@0,1 OIL_LEVEL@1,0";
    QTest::newRow("no last line feed") << QByteArray("<row>\n<var name=\"A\"/>") << "- | A@0,0";
    QTest::newRow("lines of another system") << QByteArray("<row>\r\n <var name=\"A\"/>\r\n</row>\r\n") << "- | A@0,0";
    QTest::newRow("blanks around a line")
        << QByteArray("\t <row>  \n\f<var \"A\"\t\n\xA0</row>\x85\n<row>\n<var\"B\"") << "- | A@0,0 B@1,0";
    QTest::newRow("the word name left out") << QByteArray("<row>\n<var \"A\">") << "- | A@0,0";
    QTest::newRow("any word that starts so") << QByteArray("<row>\n<variable \"A\"\n<titles \"T\"") << "T | A@0,0";
    QTest::newRow("several attributes") << QByteArray("<row>\n<var name=\"A\" units=\"rpm\"/>")
                                        << "- | A units=rpm@0,0";
    QTest::newRow("blanks in the quotes") << QByteArray("<row>\n<var name=\"  A \"/>") << "- | A@0,0";
    QTest::newRow("no quotes") << QByteArray("<row>\n<var name=A/>") << "- | @0,0";
    QTest::newRow("one quote") << QByteArray("<row>\n<var name=\"A/>") << "- | @0,0";
    QTest::newRow("quotes around nothing") << QByteArray("<row>\n<var name=\"\"/>") << "- | @0,0";
    QTest::newRow("quotes alone") << QByteArray("<row>\n<var \"\"\"\"") << "- | @0,0";
    QTest::newRow("a title without quotes") << QByteArray("<title name=Oil/>") << " |";
    QTest::newRow("the last of two titles") << QByteArray("<title \"A\"\n<title \"B\"") << "B |";
    QTest::newRow("another case is something else") << QByteArray("<ROW>\n<Row>\n<VAR \"A\"\n<Title \"T\"") << "- |";
    QTest::newRow("a row with something behind it")
        << QByteArray("<row> <!-- a -->\n<row/>\n<var \"A\"") << "- | A@-1,0";
    QTest::newRow("before the first row")
        << QByteArray("<var \"A\"\n<var \"B\"\n<row>\n<var \"C\"") << "- | A@-1,0 B@-1,1 C@0,2";
    QTest::newRow("two on a row, then a third row")
        << QByteArray("<row>\n<var \"A\"\n<var \"B\"\n</row>\n<row>\n</row>\n<row>\n<var \"C\"")
        << "- | A@0,0 B@0,1 C@2,0";
    QTest::newRow("an end without a start")
        << QByteArray("<row>\n<var \"A\"\n</row>\n</row>\n<var \"B\"") << "- | A@0,0 B@0,0";
    QTest::newRow("a start without an end") << QByteArray("<row>\n<var \"A\"\n<row>\n<var \"B\"") << "- | A@0,0 B@1,1";
    QTest::newRow("an empty row counts") << QByteArray("<row>\n</row>\n<row>\n<var \"A\"") << "- | A@1,0";
    QTest::newRow("a zero byte ends its line")
        << QByteArray("<row>\n<var \"A\"\0\"B\"\n<row>\0x\n<var \"C\"", 35) << "- | A@0,0 C@1,1";
    QTest::newRow("other lines") << QByteArray("<!-- a comment -->\nhello\n<row>\n\n<var \"A\"\n<group>")
                                 << "- | A@0,0";
    QTest::newRow("Latin-1") << QByteArray("<title name=\"\xD6l\"/>") << QString::fromUtf8("Öl |");
}

void GroupFileTest::theReaderTakes() {
    QFETCH(QByteArray, text);
    QFETCH(QString, group);
    QCOMPARE(shown(readGroup(text)), group);
}

void GroupFileTest::theWriterGives_data() {
    const QByteArray head = "<?xml version=\"1.0\"?>\n<title name=\"T\"/>\n<row>\n";
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("no variable: one empty row") << QVector<int>{} << head + "</row>\n";
    QTest::newRow("one row") << QVector<int>{0, 0} << head + "  <var name=\"V0\"/>\n  <var name=\"V1\"/>\n</row>\n";
    QTest::newRow("two rows") << QVector<int>{0, 1}
                              << head + "  <var name=\"V0\"/>\n</row>\n<row>\n  <var name=\"V1\"/>\n</row>\n";
    QTest::newRow("any change is one step")
        << QVector<int>{0, 7} << head + "  <var name=\"V0\"/>\n</row>\n<row>\n  <var name=\"V1\"/>\n</row>\n";
    QTest::newRow("the first row is row 0")
        << QVector<int>{2} << head + "</row>\n<row>\n  <var name=\"V0\"/>\n</row>\n";
    QTest::newRow("before the first row") << QVector<int>{-1} << head + "</row>\n<row>\n  <var name=\"V0\"/>\n</row>\n";
}

void GroupFileTest::theWriterGives() {
    QFETCH(QVector<int>, rows);
    QFETCH(QByteArray, text);
    QVector<GroupVariable> variables;
    for (int i = 0; i < rows.size(); ++i)
        variables.append({QStringLiteral("V%1").arg(i), rows[i], 0});
    QCOMPARE(writeGroup(QStringLiteral("T"), variables), text);
}

void GroupFileTest::whatTheWriterGaveComesBackByteForByte() {
    QCOMPARE(rewritten(written), written);
    const QByteArray latin = writeGroup(QString::fromUtf8("Öl %1 <&> 'x'"), {{QStringLiteral("A.AV"), 0, 0}});
    QCOMPARE(rewritten(latin), latin);
}

void GroupFileTest::aSaveLoses_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("saved");
    const QByteArray head = "<?xml version=\"1.0\"?>\n<title name=\"\"/>\n<row>\n";
    QTest::newRow("comments") << QByteArray("<!-- a -->\n<row>\n# b\n<var \"A\"\n</row>")
                              << head + "  <var name=\"A\"/>\n</row>\n";
    QTest::newRow("an empty row inside") << QByteArray(
                                                "<row>\n<var \"A\"\n</row>\n<row>\n</row>\n<row>\n<var \"B\"\n</row>")
                                         << head + "  <var name=\"A\"/>\n</row>\n<row>\n  <var name=\"B\"/>\n</row>\n";
    QTest::newRow("a column that ran on") << QByteArray("<row>\n<var \"A\"\n<row>\n<var \"B\"\n")
                                          << head + "  <var name=\"A\"/>\n</row>\n<row>\n  <var name=\"B\"/>\n</row>\n";
    QTest::newRow("quotes in a title") << QByteArray("<title name=\"a \"b\" c\"/>\n")
                                       << QByteArray(
                                              "<?xml version=\"1.0\"?>\n<title name=\"a b c\"/>\n<row>\n</row>\n");
}

void GroupFileTest::aSaveLoses() {
    QFETCH(QByteArray, text);
    QFETCH(QByteArray, saved);
    QCOMPARE(rewritten(text), saved);
    QCOMPARE(rewritten(saved), saved);
    QCOMPARE(writeGroup(QString::fromUtf8("α"), {}).split('\n').at(1), QByteArray("<title name=\"?\"/>"));
}

void GroupFileTest::oddLinesAreRemarkedUpon_data() {
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("remark");
    QTest::newRow("a comment") << QByteArray("<row>\n<!-- a -->\n<var \"A\"\n</row>")
                               << "2: '<!-- a -->' is no part of a group and is left out when it is saved";
    QTest::newRow("no name") << QByteArray("<row>\n<var name=A/>\n</row>")
                             << "2: no name in double quotes; write <var name=\"NAME\"/>";
    QTest::newRow("more than a name") << QByteArray("<row>\n<var name=\"A\" b=\"c\"/>\n</row>")
                                      << "2: more than one text in double quotes; 'A b=c' is taken as the name";
    QTest::newRow("no title") << QByteArray("<title/>")
                              << "1: no title in double quotes, so it is empty; write <title name=\"TITLE\"/>";
    QTest::newRow("two titles") << QByteArray("<title \"A\"\n<title \"B\"")
                                << "2: another title; of several the last one counts";
    QTest::newRow("outside") << QByteArray("<var \"A\"")
                             << "1: 'A' stands before the first <row> and so outside the table";
    QTest::newRow("one over the other") << QByteArray("<row>\n<var \"A\"\n</row>\n<var \"B\"")
                                        << "4: 'B' stands on the place of another variable; write <row> before it";
    QTest::newRow("no end") << QByteArray("<row>\n<var \"A\"\n")
                            << "2: the last <row> is not closed; write </row> behind it";
    QTest::newRow("no end before the next row")
        << QByteArray("<row>\n<var \"A\"\n<row>\n<var \"B\"\n</row>\n")
        << "3: the row before this <row> is not closed; what follows stands further to the right";
    QTest::newRow("no start") << QByteArray("</row>") << "1: </row> without a <row>";
    QTest::newRow("an empty row") << QByteArray("<row>\n\n</row>")
                                  << "3: a row without a variable; it is left out when the group is saved";
    QTest::newRow("a zero byte") << QByteArray("\0\n", 2) << "1: a zero byte; what follows it on this line is left out";
}

void GroupFileTest::oddLinesAreRemarkedUpon() {
    QFETCH(QByteArray, text);
    QFETCH(QString, remark);
    QVector<GroupRemark> remarks;
    readGroup(text, &remarks);
    QStringList lines;
    for (const GroupRemark& each : remarks)
        lines.append(QStringLiteral("%1: %2").arg(each.line).arg(each.text));
    QCOMPARE(lines, QStringList{remark});
    remarks.clear();
    readGroup(written, &remarks);
    QVERIFY(remarks.isEmpty());
}

void GroupFileTest::aFileCutAnywhereIsRead() {
    const QVector<GroupVariable> all = readGroup(written).variables;
    for (int size = 0; size <= written.size(); ++size) {
        const QVector<GroupVariable> some = readGroup(written.left(size)).variables;
        QVERIFY(some.size() <= all.size());
        // Whatever stands before the cut line is there.
        for (int i = 0; i + 1 < some.size(); ++i)
            QCOMPARE(some[i], all[i]);
    }
}

// Random bytes, and pieces of group files in random order. What was read once must come back from its own writing, up
// to the numbers of rows and columns that a writing evens out.
void GroupFileTest::anyBytesAreRead() {
    const QList<QByteArray> pieces{"<row>",
                                   "</row>",
                                   "<var",
                                   "<title",
                                   "name=",
                                   "\"",
                                   "\"\"",
                                   "\n",
                                   "\r\n",
                                   "\t",
                                   " ",
                                   "A",
                                   "/>",
                                   "<",
                                   "\xA0",
                                   "\xFF",
                                   "%1",
                                   "%2",
                                   "<row>\n",
                                   "</row>\n",
                                   "<var name=\"X\"/>\n",
                                   "<title name=\"T\"/>\n",
                                   "<?xml"};
    constexpr int inputs = 120000;
    for (unsigned seed = 1; seed <= inputs; ++seed) {
        std::mt19937 random(seed);
        QByteArray text;
        for (auto left = random() % 24; left > 0; --left) {
            if (random() % 4 == 0)
                text.append(static_cast<char>(random() % 256));
            else
                text.append(pieces[static_cast<int>(random() % static_cast<unsigned>(pieces.size()))]);
        }
        QVector<GroupRemark> remarks;
        const GroupContents contents = readGroup(text, &remarks);
        const QByteArray once = writeGroup(contents.title, contents.variables);
        const GroupContents again = readGroup(once);
        bool same = again.title == contents.title && again.variables.size() == contents.variables.size();
        for (int i = 0; same && i < contents.variables.size(); ++i)
            same = again.variables[i].name == contents.variables[i].name;
        QVERIFY2(same && rewritten(once) == once, qPrintable(QStringLiteral("seed %1").arg(seed)));
        for (const GroupRemark& remark : remarks)
            QVERIFY2(remark.line > 0 && !remark.text.isEmpty(), qPrintable(QStringLiteral("seed %1").arg(seed)));
    }
}

void GroupFileTest::savingReplacesTheFile() {
    const QString path = m_folder.filePath(QStringLiteral("replaced.grp"));
    QVERIFY(saveGroup(path, version(1)));
    QVERIFY(saveGroup(path, written));
    QCOMPARE(contentsOf(path), written);
}

void GroupFileTest::savingKeepsTheModeOfTheFile() {
    const QString path = m_folder.filePath(QStringLiteral("mode.grp"));
    put(path, "old");
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup));
    const auto mode = QFile::permissions(path);
    QVERIFY(saveGroup(path, written));
    QCOMPARE(QFile::permissions(path), mode);
    const QString link = m_folder.filePath(QStringLiteral("link.grp"));
    QVERIFY(QFile::link(path, link));
    QVERIFY(saveGroup(link, version(1)));
    QVERIFY(QFileInfo(link).isSymLink());
    QCOMPARE(contentsOf(path), version(1));
}

// In a process of its own, which may not be root's: nothing is locked for root.
void GroupFileTest::aFileInALockedFolderIsSaved() {
    const QString folder = m_folder.filePath(QStringLiteral("locked"));
    QVERIFY(QDir().mkdir(folder));
    const QString path = folder + QStringLiteral("/a.grp");
    put(path, "old");
    QCOMPARE(chmod(qPrintable(path), 0666), 0);
    QCOMPARE(chmod(qPrintable(folder), 0555), 0);
    QCOMPARE(chmod(qPrintable(m_folder.path()), 0755), 0);
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t nobody = 65534;
        if (geteuid() == 0 && setuid(nobody) != 0)
            _exit(2);
        _exit(saveGroup(path, written) ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    chmod(qPrintable(folder), 0755);
    QCOMPARE(status, 0);
    QCOMPARE(contentsOf(path), written);
}

void GroupFileTest::aFolderThatIsMissingIsTold() {
    QString reason;
    QVERIFY(!saveGroup(m_folder.filePath(QStringLiteral("none/a.grp")), written, &reason));
    QVERIFY(!reason.isEmpty());
    QVERIFY(!saveGroup(m_folder.path(), written, &reason));
}

void GroupFileTest::aKillLeavesOneWholeFile() {
    const QString path = m_folder.filePath(QStringLiteral("killed.grp"));
    const QList<QByteArray> whole{written, version(1), version(2)};
    put(path, written);
    std::mt19937 random(7);
    for (int kills = 0; kills < 40; ++kills) {
        const pid_t child = startSaving(path);
        QVERIFY(child > 0);
        // Any moment will do: the file must be whole at each of them.
        usleep(static_cast<useconds_t>(random() % 6000));
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        QVERIFY2(whole.contains(contentsOf(path)), qPrintable(QStringLiteral("kill %1").arg(kills)));
    }
    QVERIFY(contentsOf(path) != written);
}

// A limit to the size of files is how a process of its own meets a disk that has no room left.
void GroupFileTest::aFullDiskLeavesTheFormerFile() {
    const QString path = m_folder.filePath(QStringLiteral("full.grp"));
    put(path, written);
    const QByteArray large = version(1);
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{4096, 4096};
        setrlimit(RLIMIT_FSIZE, &limit);
        QString reason;
        const bool saved = saveGroup(path, large, &reason);
        _exit(!saved && !reason.isEmpty() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    QCOMPARE(status, 0);
    QCOMPARE(contentsOf(path), written);
    QCOMPARE(QDir(m_folder.path()).entryList({QStringLiteral("full.grp*")}, QDir::Files), QStringList{"full.grp"});
}

void GroupFileTest::aDeviceIsNotReplaced() {
    QVERIFY(saveGroup(QStringLiteral("/dev/null"), written));
    QVERIFY(!QFileInfo(QStringLiteral("/dev/null")).isFile());
    QString reason;
    QVERIFY(!saveGroup(QStringLiteral("/dev/full"), written, &reason));
    QVERIFY(!reason.isEmpty());
}

OSTREL_TEST_WITHOUT_SCREEN(GroupFileTest)
#include "groupfile_test.moc"

// The whole program from outside: what it says, how it ends, and the pictures that it makes.
#include <QImage>
#include <QProcess>
#include <QtTest>
#include <csignal>

#include "paths.h"
#include "qttests.h"
#include "testcell.h"

namespace {

constexpr int patience = 60000;  // ms

const QString liveForm = QString(paths::sources) + "/tests/host/forms/live.ui";

struct Outcome {
    int status = -1;
    QString output;
    QString errors;
};

Outcome run(const QStringList& words, const QStringList& without = {}) {
    QProcess program;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : without)
        environment.remove(variable);
    program.setProcessEnvironment(environment);
    program.start(QString(paths::display), words);
    if (!program.waitForFinished(patience) || program.exitStatus() != QProcess::NormalExit)
        return {};
    return {program.exitCode(), QString::fromLocal8Bit(program.readAllStandardOutput()),
            QString::fromLocal8Bit(program.readAllStandardError())};
}

const QStringList screen{"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"};

// The mark of a missing variable is red too, but small.
constexpr double shareOfMarks = 0.005;
constexpr double shareOfABanner = 0.03;

// How much of the picture is red.
double redShare(const QImage& picture) {
    int red = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            red += colour.red() > 120 && colour.green() < 60 && colour.blue() < 60 ? 1 : 0;
        }
    return static_cast<double>(red) / (picture.width() * picture.height());
}

}  // namespace

class DisplayProgramTest : public QObject {
    Q_OBJECT

private slots:
    void init() { m_cell = std::make_unique<TestCell>(); }
    void cleanup() { m_cell.reset(); }
    void helpNamesEveryOption();
    void versionIsTold();
    void wrongUsageEndsWithTwo();
    void refusesWhatItCannotShow_data();
    void refusesWhatItCannotShow();
    void refusesABrokenCellFile();
    void refusesAPictureThatCannotBeWritten_data();
    void refusesAPictureThatCannotBeWritten();
    void refusesADisplayThatIsNotThere();
    void refusesToOpenAWindowWithoutADisplay();
    void pictureOfAFormWithItsCell();
    void pictureWithoutACellIsRedFromTheFirstFrame();
    void pictureWithoutADisplay();
    void simulatesTheCellInside();
    void signalEndsIt_data();
    void signalEndsIt();

private:
    QString file(const QString& name, const QByteArray& content) {
        QFile written(m_cell->file(name));
        written.open(QIODevice::WriteOnly);
        written.write(content);
        return written.fileName();
    }

    std::unique_ptr<TestCell> m_cell;
};

void DisplayProgramTest::helpNamesEveryOption() {
    const Outcome help = run({"--help"}, screen);
    QCOMPARE(help.status, 0);
    QCOMPARE(help.errors, QString());
    for (const char* option : {"--cell", "--store", "--remote", "--update-rate", "--lock", "--lock-units",
                               "--screenshot", "--after", "--geometry", "--style-sheet", "--version"})
        QVERIFY2(help.output.contains(option), option);
}

void DisplayProgramTest::versionIsTold() {
    const Outcome version = run({"--version"}, screen);
    QCOMPARE(version.status, 0);
    QVERIFY(version.output.startsWith("ostrel-display "));
}

void DisplayProgramTest::wrongUsageEndsWithTwo() {
    const Outcome wrong = run({"--fullscren", liveForm});
    QCOMPARE(wrong.status, 2);
    QCOMPARE(wrong.output, QString());
    QCOMPARE(wrong.errors.count('\n'), 1);
    QVERIFY(wrong.errors.startsWith("ostrel-display: "));
    QVERIFY(wrong.errors.contains("--fullscren"));
}

void DisplayProgramTest::refusesWhatItCannotShow_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("says");
    QTest::newRow("text") << "notes.ui" << QByteArray("speed = 1\n") << "line 1: Start tag expected";
    QTest::newRow("other XML") << "page.ui" << QByteArray("<html/>") << "begins with <html> and not with <ui>";
    QTest::newRow("empty") << "empty.ui" << QByteArray() << "line 1: Premature end of document";
    QTest::newRow("unknown class")
        << "lamp.ui" << QByteArray("<ui version=\"4.0\">\n<widget class=\"ZelVaule\" name=\"speed\"/>\n</ui>\n")
        << "line 2: widget 'speed' is of the unknown class 'ZelVaule'; did you mean 'ZelValue'?";
    QTest::newRow("missing") << "" << QByteArray() << "nowhere.ui: No such file or directory";
}

void DisplayProgramTest::refusesWhatItCannotShow() {
    QFETCH(QString, name);
    QFETCH(QByteArray, content);
    QFETCH(QString, says);
    const QString form = name.isEmpty() ? m_cell->file("nowhere.ui") : file(name, content);
    const Outcome refused = run({form});
    QCOMPARE(refused.status, 1);
    QCOMPARE(refused.output, QString());
    QVERIFY2(refused.errors.startsWith("ostrel-display: " + form + ": "), qPrintable(refused.errors));
    QVERIFY2(refused.errors.contains(says), qPrintable(refused.errors));
    QCOMPARE(refused.errors.count('\n'), 1);
}

void DisplayProgramTest::refusesABrokenCellFile() {
    const QString broken = file("broken.toml", "[cell]\nname = \"broken\"\n[real.SPEED]\nvalue = \"fast\"\n");
    const Outcome refused = run({"--cell", broken, liveForm});
    QCOMPARE(refused.status, 1);
    QVERIFY2(refused.errors.startsWith("ostrel-display: " + broken + ":4: "), qPrintable(refused.errors));
}

void DisplayProgramTest::refusesAPictureThatCannotBeWritten_data() {
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("says");
    QTest::newRow("no such folder") << "/nowhere/now.png"
                                    << "there is no folder '/nowhere'";
    QTest::newRow("no picture") << "now.txt"
                                << "no kind of picture";
    QTest::newRow("no name") << "/tmp/"
                             << "no kind of picture";
}

void DisplayProgramTest::refusesAPictureThatCannotBeWritten() {
    QFETCH(QString, path);
    QFETCH(QString, says);
    const Outcome refused = run({"--screenshot", path, liveForm});
    QCOMPARE(refused.status, 1);
    QVERIFY2(refused.errors.startsWith("ostrel-display: " + path + ": " + says), qPrintable(refused.errors));
    QVERIFY(!QFile::exists("now.txt"));
}

void DisplayProgramTest::refusesADisplayThatIsNotThere() {
    qputenv("DISPLAY", ":4711");
    const Outcome refused = run({liveForm}, {"WAYLAND_DISPLAY", "QT_QPA_PLATFORM"});
    qunsetenv("DISPLAY");
    QCOMPARE(refused.errors, QString("ostrel-display: display ':4711': cannot be opened; start it on a desktop, set "
                                     "DISPLAY, or ask for --screenshot\n"));
    QCOMPARE(refused.status, 1);
}

void DisplayProgramTest::refusesToOpenAWindowWithoutADisplay() {
    const Outcome refused = run({liveForm}, screen);
    QCOMPARE(refused.status, 1);
    QVERIFY2(refused.errors.startsWith("ostrel-display: no display: "), qPrintable(refused.errors));
    QCOMPARE(refused.errors.count('\n'), 1);
}

void DisplayProgramTest::pictureOfAFormWithItsCell() {
    QVERIFY(m_cell->start());
    const QString path = m_cell->file("now.png");
    const Outcome taken = run({"--screenshot", path, "--geometry", "420x700", liveForm});
    QCOMPARE(taken.status, 0);
    const QImage picture(path);
    QCOMPARE(picture.size(), QSize(420, 700));
    QVERIFY(redShare(picture) < shareOfMarks);
}

void DisplayProgramTest::pictureWithoutACellIsRedFromTheFirstFrame() {
    const QString path = m_cell->file("now.png");
    const Outcome taken = run({"--screenshot", path, "--after", "0", "--geometry", "420x700", liveForm});
    QCOMPARE(taken.status, 0);
    QVERIFY(redShare(QImage(path)) > shareOfABanner);
}

void DisplayProgramTest::pictureWithoutADisplay() {
    const QString path = m_cell->file("now.jpg");
    const Outcome taken = run({"--screenshot", path, "--after", "0", liveForm}, screen);
    QCOMPARE(taken.status, 0);
    QVERIFY(!QImage(path).isNull());
}

void DisplayProgramTest::simulatesTheCellInside() {
    const QString path = m_cell->file("now.png");
    const Outcome taken = run({"--cell", m_cell->file("cell.toml"), "--screenshot", path, liveForm});
    QVERIFY2(taken.status == 0, qPrintable(taken.errors));
    QVERIFY(redShare(QImage(path)) < shareOfMarks);
}

void DisplayProgramTest::signalEndsIt_data() {
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGINT") << SIGINT;
}

void DisplayProgramTest::signalEndsIt() {
    QFETCH(int, number);
    QVERIFY(m_cell->start());
    QProcess program;
    // The picture is hours away: the display is one that stays open.
    program.start(QString(paths::display), {"--screenshot", m_cell->file("late.png"), "--after", "3600000", liveForm});
    QVERIFY(program.waitForStarted(patience));
    QTRY_VERIFY_WITH_TIMEOUT(m_cell->isAttached("tmr-50"), patience);
    ::kill(static_cast<pid_t>(program.processId()), number);
    QVERIFY(program.waitForFinished(patience));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QVERIFY(!QFile::exists(m_cell->file("late.png")));
}

OSTREL_TEST_WITHOUT_SCREEN(DisplayProgramTest)
#include "displayprogram_test.moc"

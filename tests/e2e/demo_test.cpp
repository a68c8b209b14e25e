// The demo's words and the pictures that come of them. Building and the programs are stand-ins: what is tested is what
// the demo makes of its arguments.
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

#include "paths.h"
#include "qttests.h"

namespace {

constexpr int patience = 60000;  // ms

struct Outcome {
    int status = -1;
    QString output;
    QString errors;
};

}  // namespace

class DemoTest : public QObject {
    Q_OBJECT

private slots:
    void init();
    void cleanup() { m_folder.reset(); }
    void picturesAreNamed_data();
    void picturesAreNamed();
    void windowOnADisplay_data();
    void windowOnADisplay();
    void wrongWordsAreRefused_data();
    void wrongWordsAreRefused();
    void helpIsTold();

private:
    void script(const QString& name, const QByteArray& lines);
    Outcome run(const QStringList& words, bool display);
    // What the display was started with, and from where.
    QString shown();
    QString path(const QString& name) const { return m_folder->filePath(name); }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void DemoTest::script(const QString& name, const QByteArray& lines) {
    QDir(m_folder->path()).mkpath(QFileInfo(name).path());
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("#!/bin/sh\n" + lines);
    file.setPermissions(file.permissions() | QFile::ExeUser);
}

void DemoTest::init() {
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(m_folder->path()).mkpath("source/demo-cell/forms"));
    QVERIFY(QDir(m_folder->path()).mkpath("here"));
    QVERIFY(QFile::copy(QString(paths::sources) + "/demo", path("source/demo")));
    for (const char* form : {"overview", "states"})
        script(QStringLiteral("source/demo-cell/forms/%1.ui").arg(QLatin1String(form)), "");
    for (const char* done :
         {"source/packages-install", "tools/cmake", "tools/ninja", "source/build/release/bin/ostrel"})
        script(done, "");
    script("source/build/release/bin/ostrel-cell", "exec sleep 60\n");
    script("tools/Xvfb", "echo 4711 >&3\nexec sleep 60\n");
    script("source/build/release/bin/ostrel-display",
           "echo \"$@\" > \"" + path("shown").toLocal8Bit() + "\"\n[ \"$3\" != --screenshot ] || echo > \"$4\"\n");
}

Outcome DemoTest::run(const QStringList& words, bool display) {
    QProcess demo;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("PATH", path("tools") + ":" + environment.value("PATH"));
    environment.remove("WAYLAND_DISPLAY");
    environment.remove("DISPLAY");
    if (display)
        environment.insert("DISPLAY", ":4712");
    demo.setProcessEnvironment(environment);
    demo.setWorkingDirectory(path("here"));
    demo.start(path("source/demo"), words);
    if (!demo.waitForFinished(patience) || demo.exitStatus() != QProcess::NormalExit)
        return {};
    return {demo.exitCode(), QString::fromLocal8Bit(demo.readAllStandardOutput()),
            QString::fromLocal8Bit(demo.readAllStandardError())};
}

QString DemoTest::shown() {
    QFile file(path("shown"));
    return file.open(QIODevice::ReadOnly) ? QString::fromLocal8Bit(file.readAll()).trimmed() : QString();
}

void DemoTest::picturesAreNamed_data() {
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<bool>("display");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("form");
    const auto row = [](const char* words, bool display, const char* picture, const char* form) {
        QTest::addRow("%s%s", words, display ? "" : ", no display")
            << QString(words).split(' ', Qt::SkipEmptyParts) << display << picture << form;
    };
    row("", false, "overview.png", "overview");
    row("states", false, "states.png", "states");
    for (const bool display : {true, false}) {
        row("--screenshot", display, "overview.png", "overview");
        row("--screenshot states", display, "states.png", "states");
        row("--screenshot now.jpg", display, "now.jpg", "overview");
        row("--screenshot now.jpg states", display, "now.jpg", "states");
    }
}

void DemoTest::picturesAreNamed() {
    QFETCH(QStringList, words);
    QFETCH(bool, display);
    QFETCH(QString, picture);
    QFETCH(QString, form);
    const Outcome done = run(words, display);
    QVERIFY2(done.status == 0, qPrintable(done.errors));
    QCOMPARE(QDir(path("here")).entryList(QDir::Files), QStringList(picture));
    QVERIFY2(shown().endsWith("demo-cell/forms/" + form + ".ui"), qPrintable(shown()));
    QVERIFY2(done.output.contains("wrote " + path("here/" + picture)), qPrintable(done.output));
    if (!words.contains("--screenshot"))
        QVERIFY2(done.output.contains("writing a picture to " + picture + " instead"), qPrintable(done.output));
}

void DemoTest::windowOnADisplay_data() {
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("form");
    QTest::newRow("none") << QStringList() << "overview";
    QTest::newRow("form") << QStringList("states") << "states";
}

void DemoTest::windowOnADisplay() {
    QFETCH(QStringList, words);
    QFETCH(QString, form);
    QCOMPARE(run(words, true).status, 0);
    QVERIFY2(shown().endsWith("demo-cell/forms/" + form + ".ui"), qPrintable(shown()));
    QVERIFY(!shown().contains("--screenshot"));
    QVERIFY(QDir(path("here")).isEmpty());
}

void DemoTest::wrongWordsAreRefused_data() {
    QTest::addColumn<QStringList>("words");
    QTest::addColumn<QString>("says");
    QTest::newRow("option") << QStringList("--fullscreen") << "demo: --fullscreen: no such option; see demo --help\n";
    QTest::newRow("form") << QStringList("stats") << "demo: stats: no such form; see demo-cell/forms\n";
    QTest::newRow("two forms") << QStringList({"states", "overview"})
                               << "demo: overview: one form at a time; see demo --help\n";
    QTest::newRow("two forms in a picture") << QStringList({"--screenshot", "states", "overview"})
                                            << "demo: overview: one form at a time; see demo --help\n";
    QTest::newRow("option behind the form")
        << QStringList({"states", "--screenshot"}) << "demo: --screenshot: stands before the form; see demo --help\n";
    QTest::newRow("option for a file") << QStringList({"--screenshot", "--help"})
                                       << "demo: --help: no such option; see demo --help\n";
    QTest::newRow("form of a picture") << QStringList({"--screenshot", "now.png", "stats"})
                                       << "demo: stats: no such form; see demo-cell/forms\n";
}

void DemoTest::wrongWordsAreRefused() {
    QFETCH(QStringList, words);
    QFETCH(QString, says);
    const Outcome refused = run(words, true);
    QCOMPARE(refused.errors, says);
    QCOMPARE(refused.status, 2);
    QCOMPARE(shown(), QString());
}

void DemoTest::helpIsTold() {
    const Outcome help = run({"--help"}, false);
    QCOMPARE(help.status, 0);
    QVERIFY(help.output.startsWith("Shows the demo cell"));
    QVERIFY(help.output.contains("[FORM]"));
    QCOMPARE(help.errors, QString());
}

OSTREL_TEST_WITHOUT_SCREEN(DemoTest)
#include "demo_test.moc"

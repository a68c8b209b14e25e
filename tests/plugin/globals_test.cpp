// Whose definitions the library uses: a host's own globals and platform functions take precedence over the library's.
#include <QProcess>
#include <QTest>

#include "paths.h"
#include "qttests.h"

class GlobalsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aHostWithoutGlobalsGetsTheDefaults();
    void aHostsGlobalsAreUsed();
    void aHostsPlatformFunctionIsUsed();
    void aPreloadedPlatformFunctionIsUsed();

private:
    static QStringList run(const char* host, const char* preloaded = nullptr);
};

// The lines that the host tells.
QStringList GlobalsTest::run(const char* host, const char* preloaded) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("OSTREL_STORE", QStringLiteral("globals-test-%1").arg(QCoreApplication::applicationPid()));
    // Nothing is looked at, and a screen of the test's own may be starting anew when its last client has gone.
    environment.insert("QT_QPA_PLATFORM", "offscreen");
    if (preloaded)
        environment.insert("LD_PRELOAD", preloaded);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(host, QStringList());
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        return {QStringLiteral("the host did not end well: ") + process.errorString() +
                QString::fromLocal8Bit(process.readAllStandardOutput())};
    return QString::fromLocal8Bit(process.readAllStandardOutput()).split('\n', Qt::SkipEmptyParts);
}

void GlobalsTest::aHostWithoutGlobalsGetsTheDefaults() {
    QCOMPARE(run(paths::plainHost), QStringList({"inDesigner 1",
                                                 "RemoteDisplay 0",
                                                 "UserInterfaceLock 3",
                                                 "RemoteUpdateRate 2000",
                                                 "changeUnitsLk 0",
                                                 "MainWindowClose 0",
                                                 "InitializationDone 0",
                                                 "propertiesChanged 0",
                                                 "Ostrel_Plugins_Master_variables_dirty 1",
                                                 "UserSavePermission 3",
                                                 "StripChartRemoteSampleRate 100",
                                                 "System_HighAlarm 255 0 0",
                                                 "System_HighAbort 255 127 0",
                                                 "System_HighEmergency 255 255 0",
                                                 "System_LowAlarm 0 255 255",
                                                 "System_LowAbort 0 127 255",
                                                 "System_LowEmergency 0 0 255",
                                                 "System_Tmark 255 255 255",
                                                 "ParentUIFile \"\"",
                                                 "OperatorDisplayDir \"\"",
                                                 "writer none",
                                                 "sampleRate 1000",
                                                 "actions 6"}));
}

void GlobalsTest::aHostsGlobalsAreUsed() {
    const QStringList told = run(paths::globalsHost);
    for (const char* line : {"inDesigner 0", "RemoteDisplay 1", "UserInterfaceLock 1", "RemoteUpdateRate 777",
                             "ParentUIFile \"host.ui\"", "OperatorDisplayDir \"host\"", "sampleRate 777", "actions 0"})
        QVERIFY2(told.contains(line), qPrintable(QString(line) + " is missing in\n" + told.join('\n')));
    // What the host does not bring is the library's own.
    QVERIFY(told.contains("UserSavePermission 3"));
}

void GlobalsTest::aHostsPlatformFunctionIsUsed() {
    QVERIFY(run(paths::globalsHost).contains("find_variable of the host: SPEED"));
}

void GlobalsTest::aPreloadedPlatformFunctionIsUsed() {
    QVERIFY(run(paths::plainHost, paths::preloadedPlatform).contains("find_variable preloaded: SPEED"));
}

OSTREL_TEST_WITHOUT_SCREEN(GlobalsTest)
#include "globals_test.moc"

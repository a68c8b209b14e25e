#include "testcell.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QThread>
#include <csignal>

#include "paths.h"

namespace {

constexpr int patience = 20000;  // ms

constexpr auto cellFile = R"(
[cell]
name = "host"
scan_ms = 20

[real.ENGINE_SPEED]
value = 1500.25
units = "rpm"
format = "%.1f"

[real.OIL_TEMP]
value = 100
units = "degC"
format = "%.1f"

[integer.CYCLES]
value = 42

[logical.PUMP_ON]
value = false
true_state = "RUNNING"
false_state = "STOPPED"

[real_array.CYL_TEMP]
size = 2
value = [401, 402]
units = "degC"
format = "%.0f"

[alias]
SPEED = "ENGINE_SPEED"
)";

int run(const QStringList& command) {
    return QProcess::execute(QString(paths::command), command);
}

}  // namespace

TestCell::TestCell() {
    static int count = 0;
    m_store = QStringLiteral("host-%1-%2").arg(QCoreApplication::applicationPid()).arg(++count);
    qputenv("OSTREL_STORE", m_store.toLocal8Bit());
    qunsetenv("OSTREL_CELL");
    write(cellFile);
}

TestCell::~TestCell() {
    if (m_process.state() != QProcess::NotRunning) {
        signal(SIGCONT);
        m_process.terminate();
        if (!m_process.waitForFinished(patience))
            m_process.kill();
        m_process.waitForFinished(patience);
    }
    QDir memory(QStringLiteral("/dev/shm"));
    for (const QString& object : memory.entryList({QStringLiteral("ostrel-%1*").arg(m_store)}, QDir::Files))
        memory.remove(object);
}

void TestCell::write(const QByteArray& content) {
    QFile cell(file(QStringLiteral("cell.toml")));
    cell.open(QIODevice::WriteOnly);
    cell.write(content);
}

bool TestCell::start() {
    m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_process.start(QString(paths::cell), {file(QStringLiteral("cell.toml")), QStringLiteral("--store"), m_store});
    // The cell says so on its standard output once it serves.
    return m_process.waitForStarted(patience) && m_process.waitForReadyRead(patience);
}

void TestCell::signal(int number) {
    ::kill(static_cast<pid_t>(m_process.processId()), number);
}

bool TestCell::hasEnded() {
    return m_process.waitForFinished(patience);
}

bool TestCell::set(const QString& variable, const QString& value) {
    return run({QStringLiteral("--store"), m_store, QStringLiteral("set"), variable, value}) == 0;
}

bool TestCell::isAttached(const QString& event) {
    QProcess status;
    status.start(QString(paths::command),
                 {QStringLiteral("--store"), m_store, QStringLiteral("--json"), QStringLiteral("status")});
    status.waitForFinished(patience);
    const auto events = QJsonDocument::fromJson(status.readAllStandardOutput())[QLatin1String("events")].toArray();
    for (const QJsonValue& each : events)
        if (each[QLatin1String("name")] == event)
            return each[QLatin1String("attached")].toInt() > 0;
    return false;
}

#include "screen.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcessEnvironment>
#include <QRegularExpression>
#include <QtTest>

#include "paths.h"

namespace {

constexpr int patience = 30000;  // ms

template <class Condition>
bool comesTrue(Condition condition) {
    return QTest::qWaitFor(condition, patience);
}

bool xdotool(const QStringList& words) {
    return QProcess::execute(QStringLiteral("xdotool"), words) == 0;
}

bool matches(const QString& pattern, const QString& text) {
    return QRegularExpression(QRegularExpression::anchoredPattern(pattern)).match(text).hasMatch();
}

}  // namespace

Screen::Screen() {
    QDir(m_folder.path()).mkpath(QStringLiteral("plugins/designer"));
    QDir(m_folder.path()).mkpath(QStringLiteral("plugins/generic"));
    QFile::link(QString(paths::screenWitness), m_folder.filePath(QStringLiteral("plugins/generic/libwitness.so")));
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("QT_PLUGIN_PATH"), m_folder.filePath(QStringLiteral("plugins")));
    environment.insert(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("screenwitness"));
    environment.insert(QStringLiteral("OSTREL_WITNESS"), m_folder.filePath(QStringLiteral("witness.json")));
    environment.insert(QStringLiteral("HOME"), m_folder.path());
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), m_folder.filePath(QStringLiteral("config")));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_process.setProcessEnvironment(environment);
    m_process.setProcessChannelMode(QProcess::MergedChannels);
}

Screen::~Screen() {
    kill();
}

bool Screen::install(const QString& designerLibrary) {
    return QFile::link(designerLibrary,
                       m_folder.filePath(QStringLiteral("plugins/designer/") + QFileInfo(designerLibrary).fileName()));
}

void Screen::setVariable(const QString& name, const QString& value) {
    QProcessEnvironment environment = m_process.processEnvironment();
    environment.insert(name, value);
    m_process.setProcessEnvironment(environment);
}

bool Screen::start(const QString& program, const QStringList& words) {
    QFile::remove(m_folder.filePath(QStringLiteral("witness.json")));
    m_process.start(program, words);
    return m_process.waitForStarted(patience);
}

bool Screen::endsWith(int code) {
    return m_process.waitForFinished(patience) && m_process.exitStatus() == QProcess::NormalExit &&
           m_process.exitCode() == code;
}

void Screen::kill() {
    m_process.kill();
    m_process.waitForFinished(patience);
}

QJsonObject Screen::report() const {
    QFile file(m_folder.filePath(QStringLiteral("witness.json")));
    return file.open(QIODevice::ReadOnly) ? QJsonDocument::fromJson(file.readAll()).object() : QJsonObject();
}

QJsonObject Screen::seen(const QString& id) const {
    const QJsonArray things = report()[QLatin1String("seen")].toArray();
    for (const QJsonValue& each : things)
        if (matches(id, each[QLatin1String("id")].toString()))
            return each.toObject();
    return {};
}

bool Screen::shows(const QString& id) const {
    return comesTrue([&] { return !seen(id).isEmpty(); });
}

bool Screen::hides(const QString& id) const {
    return comesTrue([&] { return seen(id).isEmpty(); });
}

bool Screen::says(const QString& id, const QString& text) const {
    return comesTrue([&] { return matches(text, seen(id)[QLatin1String("text")].toString()); });
}

bool Screen::showsWhole(const QString& id) const {
    return comesTrue([&] { return seen(id)[QLatin1String("whole")].toBool(); });
}

QJsonValue Screen::global(const QString& name) const {
    return report()[QLatin1String("globals")].toObject()[name];
}

// In two reports one after the other at the same place.
std::optional<QPoint> Screen::restingPlace(const QString& id) const {
    QJsonArray at;
    int serial = 0;
    const bool rests = comesTrue([&] {
        const QJsonObject now = report();
        if (now[QLatin1String("serial")].toInt() == serial)
            return false;
        serial = now[QLatin1String("serial")].toInt();
        const QJsonArray before = at;
        at = seen(id)[QLatin1String("at")].toArray();
        return !at.isEmpty() && at == before;
    });
    return rests ? std::make_optional(QPoint(at[0].toInt(), at[1].toInt())) : std::nullopt;
}

bool Screen::pointAt(const QString& id) const {
    const std::optional<QPoint> place = restingPlace(id);
    return place && xdotool({"mousemove", QString::number(place->x()), QString::number(place->y())});
}

bool Screen::click(const QString& id, int button, int times) const {
    return pointAt(id) &&
           xdotool({"click", "--repeat", QString::number(times), "--delay", "60", QString::number(button)});
}

bool Screen::press(const QString& id) const {
    return pointAt(id) && xdotool({"mousedown", "1"});
}

bool Screen::release() const {
    return xdotool({"mouseup", "1"});
}

bool Screen::focus(const QString& id) const {
    return click(id) && comesTrue([&] { return matches(id, "widget:" + report()[QLatin1String("focus")].toString()); });
}

bool Screen::activate(const QString& id, const QString& window) const {
    return click(id) && comesTrue([&] { return matches(window, report()[QLatin1String("active")].toString()); });
}

bool Screen::type(const QString& text) const {
    return xdotool({"type", "--delay", "30", text});
}

bool Screen::key(const QString& name) const {
    return xdotool({"key", name});
}

QString Screen::toText() {
    return QString::fromUtf8(QJsonDocument(report()).toJson()) + QString::fromLocal8Bit(m_process.readAll());
}

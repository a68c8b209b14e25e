#include "recoveryfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QSysInfo>

namespace {

// Since when it lives, in ticks since the machine was started; empty without such a process. With its number it names a
// process for good. A dead one that its parent has not asked how it ended keeps both, and lives no more.
QString startOf(const QString& process) {
    QFile file(QStringLiteral("/proc/%1/stat").arg(process));
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    // The program's name stands in parentheses and may hold anything.
    const QByteArray stat = file.readAll();
    const QList<QByteArray> fields = stat.mid(stat.lastIndexOf(')') + 2).split(' ');
    const bool dead = fields[0] == "Z" || fields[0] == "X";
    return dead ? QString() : QString::fromLatin1(fields.value(19));
}

QString prefix(const QFileInfo& form) {
    return QStringLiteral(".%1.unsaved-%2-").arg(form.fileName(), QSysInfo::machineHostName());
}

bool lives(const QString& process, const QString& start) {
    return !start.isEmpty() && startOf(process) == start;
}

}  // namespace

RecoveryFile::RecoveryFile(const QString& form) {
    const QFileInfo file(form);
    const QString process = QString::number(QCoreApplication::applicationPid());
    m_path = file.absoluteDir().filePath(prefix(file) + process + QLatin1Char('-') + startOf(process));
}

bool RecoveryFile::write(const QByteArray& changes) const {
    QSaveFile file(m_path);
    return file.open(QIODevice::WriteOnly) && file.write(changes) == changes.size() && file.commit();
}

void RecoveryFile::remove() const {
    QFile::remove(m_path);
}

std::optional<FoundRecovery> findRecovery(const QString& form) {
    const QFileInfo file(form);
    const QString begin = prefix(file);
    // Not by a pattern: a form's name may hold what a pattern takes for its own.
    const QFileInfoList all = file.absoluteDir().entryInfoList(QDir::Files | QDir::Hidden, QDir::Time);
    for (const QFileInfo& each : all) {
        if (!each.fileName().startsWith(begin))
            continue;
        const QStringList process = each.fileName().mid(begin.size()).split(QLatin1Char('-'));
        QFile found(each.filePath());
        if (process.size() == 2 && !lives(process[0], process[1]) && found.open(QIODevice::ReadOnly))
            return FoundRecovery{each.filePath(), each.lastModified(), found.readAll()};
    }
    return std::nullopt;
}

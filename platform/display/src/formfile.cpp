#include "formfile.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

std::optional<QByteArray> readFormFile(const QString& path, QString* fault) {
    QFile file(path);
    // A pipe would be waited for without end.
    const bool isSpecial = QFileInfo::exists(path) && !QFileInfo(path).isFile();
    if (isSpecial && fault)
        *fault = QStringLiteral("%1: is no regular file; save the form under another name").arg(path);
    if (isSpecial)
        return std::nullopt;
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    if (fault)
        *fault = QStringLiteral("%1: %2; save the form under another name").arg(path, file.errorString());
    return std::nullopt;
}

static QString userName() {
    const passwd* user = getpwuid(geteuid());
    return user ? QString::fromLocal8Bit(user->pw_name) : QString::number(geteuid());
}

// The new file is another one than the old, made by who saves. Empty, or what it could not keep.
static QString keepOwner(const QSaveFile& file) {
    struct stat former {};
    struct stat made {};
    if (stat(QFile::encodeName(file.fileName()).constData(), &former) != 0 || fstat(file.handle(), &made) != 0)
        return QString();
    if (former.st_gid != made.st_gid && fchown(file.handle(), uid_t(-1), former.st_gid) != 0)
        return QStringLiteral("%1: belongs to another group now").arg(file.fileName());
    if (former.st_uid != made.st_uid && fchown(file.handle(), former.st_uid, gid_t(-1)) != 0)
        return QStringLiteral("%1: belongs to %2 now").arg(file.fileName(), userName());
    // Another owner may have taken bits of it away.
    if (fchmod(file.handle(), former.st_mode & 07777U) != 0)
        return QStringLiteral("%1: may be used by others than before").arg(file.fileName());
    return QString();
}

QString replaceFormFile(const QString& path, const QByteArray& content, QString* remark) {
    // A form may stand in several places by links: its one file is replaced, not the link.
    const QString target = QFileInfo(path).canonicalFilePath();
    QSaveFile file(target.isEmpty() ? path : target);
    const bool isOpen = file.open(QIODevice::WriteOnly);
    const QString lost = isOpen ? keepOwner(file) : QString();
    if (isOpen && file.write(content) == content.size() && file.commit()) {
        if (remark)
            *remark = lost;
        return QString();
    }
    return QStringLiteral("%1: %2; free the place or save the form under another name").arg(path, file.errorString());
}

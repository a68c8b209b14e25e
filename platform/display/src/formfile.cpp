#include "formfile.h"

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

QString replaceFormFile(const QString& path, const QByteArray& content) {
    // A form may stand in several places by links: its one file is replaced, not the link.
    const QString target = QFileInfo(path).canonicalFilePath();
    QSaveFile file(target.isEmpty() ? path : target);
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.commit())
        return QString();
    return QStringLiteral("%1: %2; free the place or save the form under another name").arg(path, file.errorString());
}

#include "screenshot.h"

#include <QFileInfo>
#include <QImageWriter>
#include <QPixmap>
#include <QSaveFile>
#include <QWidget>

#include "failure.h"

void checkPicturePath(const QString& path) {
    const QFileInfo file(path);
    if (!QImageWriter::supportedImageFormats().contains(file.suffix().toLower().toLatin1()))
        throw Failure(QStringLiteral("%1: no kind of picture; give a name that ends in .png or .jpg").arg(path));
    const QFileInfo folder(file.path());
    if (!folder.isDir())
        throw Failure(QStringLiteral("%1: there is no folder '%2'; make it first").arg(path, file.path()));
    if (file.isDir() || !(file.exists() ? file : folder).isWritable())
        throw Failure(QStringLiteral("%1: cannot be written; give a file that you may write").arg(path));
}

void writePicture(QWidget* window, const QString& path) {
    QSaveFile file(path);
    const QByteArray kind = QFileInfo(path).suffix().toLatin1();
    if (!file.open(QIODevice::WriteOnly) || !window->grab().save(&file, kind.constData()) || !file.commit())
        throw Failure(QStringLiteral("%1: %2; give a file that you may write").arg(path, file.errorString()));
}

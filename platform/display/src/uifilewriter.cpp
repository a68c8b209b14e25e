#include "ostrel-display/uifilewriter.h"

#include <QFile>
#include <QXmlStreamReader>

#include "ostrel-display/formchanges.h"

// A child of the writer, so that it goes with it.
struct UIFileWriter::Private : public FormChanges {
    Private(QString formPath, QObject* parent) : FormChanges(parent), path(std::move(formPath)) {}

    QString path;
};

namespace {

bool isForm(QIODevice* device) {
    QXmlStreamReader xml(device);
    if (!xml.readNextStartElement() || xml.name() != QLatin1String("ui"))
        return false;
    while (!xml.atEnd())
        xml.readNext();
    return !xml.hasError();
}

}  // namespace

UIFileWriter::UIFileWriter(QString path, QObject* parent) : QObject(parent), d(new Private(std::move(path), this)) {}

bool UIFileWriter::openFile() {
    if (d->path.isEmpty())  // as in Qt Designer, where Qt would complain about a file without a name
        return false;
    QFile file(d->path);
    return file.open(QIODevice::ReadOnly) && isForm(&file);
}

void UIFileWriter::cacheProperty(const QString& className, const QString& objectName, const QString& property,
                                 const QVariant& value, bool flag) {
    d->remember({className, objectName, property}, value, flag);
}

void UIFileWriter::cachePropertyFont(const QString& className, const QString& objectName, const QString& property,
                                     const QFont& value, bool flag) {
    d->remember({className, objectName, property}, value, flag);
}

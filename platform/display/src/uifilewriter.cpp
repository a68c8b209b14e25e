#include "ostrel-display/uifilewriter.h"

#include "ostrel-display/formchanges.h"

// A child of the writer, so that it goes with it.
struct UIFileWriter::Private : public FormChanges {
    using FormChanges::FormChanges;
};

UIFileWriter::UIFileWriter(QString path, QObject* parent) : QObject(parent), d(new Private(this)) {
    d->setPath(path);
}

bool UIFileWriter::openFile() {
    return d->open();
}

void UIFileWriter::cacheProperty(const QString& className, const QString& objectName, const QString& property,
                                 const QVariant& value, bool flag) {
    d->remember({className, objectName, property}, value, flag);
}

void UIFileWriter::cachePropertyFont(const QString& className, const QString& objectName, const QString& property,
                                     const QFont& value, bool flag) {
    d->remember({className, objectName, property}, value, flag);
}
